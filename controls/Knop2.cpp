#include "Knop2.h"

#include "Contrast.h"
#include "core/Fout.h"

#include <QFontMetrics>
#include <QPainter>

namespace tk {

namespace {
const QImage& geenBeeld() {
    static const QImage leeg;
    return leeg;
}
} // namespace

Knop2::Knop2() {
    UserControl_InitProperties();
}

void Knop2::UserControl_InitProperties() {
    ForeColor = Qt::black;
    Enabled = true;
    Font = QFont();
    Afbeelding_Mask = Afbeelding_Normaal = Afbeelding_Hover = Afbeelding_Down = QImage();
    Groepnummer = QStringLiteral("-1");
    X = Y = 0;
    Tekst.clear();
    MouseIcon = QImage();
    MousePointer = 99;
}

const QImage& Knop2::mask() const {
    if (Groepnummer != u"-1" && picGroep_Mask)
        return *picGroep_Mask;
    return Afbeelding_Mask;
}

QSize Knop2::Grootte() const {
    if (!mask().isNull())
        return mask().size();
    return Afbeelding_Normaal.size();
}

const QImage& Knop2::huidigBeeld() const {
    if (toestand == 1 && !Afbeelding_Down.isNull())
        return Afbeelding_Down;
    if (toestand == 2 && !Afbeelding_Hover.isNull())
        return Afbeelding_Hover;
    return Afbeelding_Normaal.isNull() ? geenBeeld() : Afbeelding_Normaal;
}

void Knop2::UserControl_MouseMove(int knop, int shift, QPoint plek) {
    if (MouseMove)
        MouseMove(knop, shift, plek);
}

void Knop2::UserControl_DblClick() {
    if (DblClick)
        DblClick();
}

QImage Knop2::samenstellen(const QImage& achter, const QImage& masker, const QImage& beeld) {
    const QSize maat = masker.isNull() ? beeld.size() : masker.size();
    if (maat.isEmpty())
        return QImage();
    // SRCCOPY: what lies behind the control.
    QImage uit(maat, QImage::Format_RGB32);
    uit.fill(Qt::white);
    if (!achter.isNull()) {
        QPainter p(&uit);
        p.drawImage(0, 0, achter);
    }
    if (masker.isNull() && beeld.isNull())
        return uit;
    const QImage m = masker.isNull() ? QImage() : masker.convertToFormat(QImage::Format_RGB32);
    QImage b;
    if (!beeld.isNull()) {
        b = beeld.size() == maat
                ? beeld
                : beeld.scaled(maat, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        b = b.convertToFormat(QImage::Format_RGB32);
    }
    for (int y = 0; y < maat.height(); ++y) {
        QRgb* d = reinterpret_cast<QRgb*>(uit.scanLine(y));
        const QRgb* mr = m.isNull() ? nullptr : reinterpret_cast<const QRgb*>(m.constScanLine(y));
        const QRgb* br = b.isNull() ? nullptr : reinterpret_cast<const QRgb*>(b.constScanLine(y));
        for (int x = 0; x < maat.width(); ++x) {
            const quint32 mv = mr ? (mr[x] & 0xffffffu) : 0u; // no mask: the whole picture
            quint32 v = d[x] & 0xffffffu;
            v = v | (~mv & 0xffffffu); // MERGEPAINT: the mask's black becomes a white hole
            const quint32 bv = br ? (br[x] & 0xffffffu) : 0xffffffu;
            v = v & (bv | mv); // SRCAND of the picture, through the mask
            d[x] = 0xff000000u | v;
        }
    }
    return uit;
}

void Knop2::tekenTekst(QImage& beeld, const QString& tekst, const QFont& font,
                       const QColor& kleur) {
    if (tekst.isEmpty() || beeld.isNull())
        return;
    // The picture as it is before any caption, to measure the contrast against.
    const QImage onder = beeld.convertToFormat(QImage::Format_RGB32);
    QPainter p(&beeld);
    p.setFont(font);
    p.setPen(kleur);
    const QFontMetrics fm(font);
    QString schoon = tekst;
    schoon.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const QStringList regels = schoon.split(QLatin1Char('\n'));
    const int hoogte = fm.height() * int(regels.size());
    int y = (beeld.height() - hoogte) / 2;
    for (const QString& regel : regels) {
        // A caption wider than the button is cut at its edges, not wrapped.
        const QString zichtbaar = fm.horizontalAdvance(regel) > beeld.width()
                                      ? fm.elidedText(regel, Qt::ElideRight, beeld.width() - 4)
                                      : regel;
        const int x = (beeld.width() - fm.horizontalAdvance(zichtbaar)) / 2;
        // A caption that would not stand out from the picture under it gets an outline.
        const QRect vak(x, y, fm.horizontalAdvance(zichtbaar), fm.height());
        Contrast::schrijf(p, QPoint(x, y + fm.ascent()), zichtbaar, kleur,
                          Contrast::randNodig(kleur, onder, vak));
        y += fm.height();
    }
}

QImage Knop2::Teken() const {
    try {
        const QImage& m = mask();
        const QSize maat = Grootte();
        QImage achter;
        if (lhDC && !lhDC->isNull() && !maat.isEmpty())
            achter = lhDC->copy(QRect(QPoint(X, Y), maat));
        QImage uit = samenstellen(achter, m, huidigBeeld());
        tekenTekst(uit, Tekst, Font, ForeColor);
        return uit;
    } catch (const std::bad_alloc&) {
        throw Fout(QStringLiteral("Knop2 component failure"));
    }
}

void Knop2::UserControl_ReadProperties(const QMap<QString, QVariant>& e) {
    auto beeld = [&](const char* naam) {
        const QVariant v = e.value(QString::fromLatin1(naam));
        return v.canConvert<QImage>() ? v.value<QImage>() : QImage();
    };
    auto kort = [&](const char* naam, qint16 standaard) {
        bool ok = false;
        const int v = e.value(QString::fromLatin1(naam)).toInt(&ok);
        return ok && v >= -32768 && v <= 32767 ? qint16(v) : standaard;
    };
    const QVariant kleur = e.value(QStringLiteral("ForeColor"));
    ForeColor = kleur.canConvert<QColor>() && kleur.value<QColor>().isValid()
                    ? kleur.value<QColor>()
                    : QColor(Qt::black);
    Enabled = e.value(QStringLiteral("Enabled"), true).toBool();
    const QVariant font = e.value(QStringLiteral("Font"));
    Font = font.canConvert<QFont>() ? font.value<QFont>() : QFont();
    Afbeelding_Mask = beeld("Afbeelding_Mask");
    Afbeelding_Normaal = beeld("Afbeelding_Normaal");
    Afbeelding_Hover = beeld("Afbeelding_Hover");
    Afbeelding_Down = beeld("Afbeelding_Down");
    Groepnummer = e.value(QStringLiteral("Groepnummer"), QStringLiteral("-1")).toString();
    X = kort("X", 0);
    Y = kort("Y", 0);
    Tekst = e.value(QStringLiteral("Tekst")).toString();
    MouseIcon = beeld("MouseIcon");
    MousePointer = kort("MousePointer", 99);
}

QMap<QString, QVariant> Knop2::UserControl_WriteProperties() const {
    return {{QStringLiteral("ForeColor"), ForeColor},
            {QStringLiteral("Enabled"), Enabled},
            {QStringLiteral("Font"), Font},
            {QStringLiteral("Afbeelding_Mask"), Afbeelding_Mask},
            {QStringLiteral("Afbeelding_Normaal"), Afbeelding_Normaal},
            {QStringLiteral("Afbeelding_Hover"), Afbeelding_Hover},
            {QStringLiteral("Afbeelding_Down"), Afbeelding_Down},
            {QStringLiteral("Groepnummer"), Groepnummer},
            {QStringLiteral("X"), X},
            {QStringLiteral("Y"), Y},
            {QStringLiteral("Tekst"), Tekst},
            {QStringLiteral("MouseIcon"), MouseIcon},
            {QStringLiteral("MousePointer"), MousePointer}};
}

} // namespace tk
