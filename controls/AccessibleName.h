#pragma once

#include <QString>

namespace tk {

// The name a screen reader says for a painted control: its caption on one line (line breaks
// and runs of blanks become one blank), cut with an ellipsis past Langste characters so that a
// runaway name never floods the accessibility bus, and for a blank caption the kind and number
// that the screen gives ("Groep 3"). Text in any script, right to left included, stays as it is.
class AccessibleName {
public:
    static constexpr int Langste = 200;
    static QString maak(const QString& tekst, const QString& zonderTekst = QString());
};

} // namespace tk
