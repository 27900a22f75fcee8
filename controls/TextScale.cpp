#include "TextScale.h"

namespace tk {

double TextScale::factor(const QString& waarde) {
    QString tekst = waarde.trimmed();
    bool procent = false;
    if (tekst.endsWith(QLatin1Char('%'))) {
        procent = true;
        tekst.chop(1);
    }
    tekst.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    double f = tekst.toDouble(&ok);
    if (!ok)
        return 1.0;
    if (procent)
        f /= 100.0;
    // A scale below 1 would make the captions harder to read, not easier.
    return f >= 1.0 && f <= Grootste ? f : 1.0;
}

QFont TextScale::schaal(QFont font, double factor) {
    if (factor <= 1.0)
        return font;
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else if (font.pixelSize() > 0)
        font.setPixelSize(qRound(font.pixelSize() * factor));
    return font;
}

} // namespace tk
