#pragma once

// Lets Google Test print Qt texts and bytes as text in its failure messages.
#include <QByteArray>
#include <QString>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QByteArray& b, std::ostream* os) {
    *os << '"' << b.toStdString() << '"';
}
