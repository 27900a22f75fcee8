#pragma once

#include <QFont>
#include <QString>

namespace tk {

// The larger text a workstation asks for (TK_TEKSTSCHAAL: "1.5" or "150%"), applied to the
// captions the screens paint themselves. Between 1 and 2; anything else is 1. The system's own
// font scale (its logical DPI) already reaches every font in points through Qt.
class TextScale {
public:
    static constexpr double Grootste = 2.0;
    static double factor(const QString& waarde);
    static QFont schaal(QFont font, double factor);
};

} // namespace tk
