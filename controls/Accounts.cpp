#include "Accounts.h"

#include "core/Fout.h"

#include <QFontMetrics>
#include <QPainter>

namespace tk {

namespace {
constexpr int tussenruimte = 4;
}

Accounts::Accounts() {
    UserControl_InitProperties();
}

void Accounts::UserControl_InitProperties() {
    Enabled = true;
    Font = QFont();
    Tekst.clear();
    Image_Up = Image_Down = Image_Hover = QImage();
    Geselecteerd = false;
    Stijl = 0;
    Achtergrondkleur = QColor(255, 255, 255);
    Teksthover = Normale_kleur = Hoverkleur = QColor(0, 0, 0);
    X = Y = 0;
    Transparant = false;
    Positie_knop = 0;
}

int Accounts::Wijdte() const {
    const int beeld = Image_Up.isNull() ? 0 : Image_Up.width() + tussenruimte;
    return beeld + QFontMetrics(Font).horizontalAdvance(Tekst) + 2 * tussenruimte;
}

const QImage& Accounts::huidigBeeld() const {
    if ((Geselecteerd || toestand == 1) && !Image_Down.isNull())
        return Image_Down;
    if (toestand == 2 && !Image_Hover.isNull())
        return Image_Hover;
    return Image_Up;
}

QColor Accounts::tekstKleur() const {
    return toestand == 2 || Geselecteerd ? Teksthover : Normale_kleur;
}

QImage Accounts::Teken() const {
    try {
        const QSize maat = Grootte();
        QImage uit(maat, QImage::Format_RGB32);
        uit.fill(Achtergrondkleur);
        QPainter p(&uit);
        if (Transparant && lhDC && !lhDC->isNull())
            p.drawImage(0, 0, lhDC->copy(QRect(QPoint(X, Y), maat)));
        const QImage& beeld = huidigBeeld();
        const QFontMetrics fm(Font);
        const int tekstBreedte = fm.horizontalAdvance(Tekst);
        int beeldX = tussenruimte;
        int tekstX = tussenruimte + (beeld.isNull() ? 0 : beeld.width() + tussenruimte);
        if (Positie_knop == 1) {
            tekstX = tussenruimte;
            beeldX = tussenruimte + tekstBreedte + tussenruimte;
        }
        if (!beeld.isNull())
            p.drawImage(beeldX, (maat.height() - beeld.height()) / 2, beeld);
        p.setFont(Font);
        p.setPen(tekstKleur());
        p.drawText(tekstX, (maat.height() - fm.height()) / 2 + fm.ascent(), Tekst);
        return uit;
    } catch (const std::bad_alloc&) {
        throw Fout(QStringLiteral("Accounts component failure"));
    }
}

void Accounts::UserControl_ReadProperties(const QMap<QString, QVariant>& e) {
    auto beeld = [&](const char* naam) {
        const QVariant v = e.value(QString::fromLatin1(naam));
        return v.canConvert<QImage>() ? v.value<QImage>() : QImage();
    };
    auto kleur = [&](const char* naam, QColor standaard) {
        const QVariant v = e.value(QString::fromLatin1(naam));
        return v.canConvert<QColor>() && v.value<QColor>().isValid() ? v.value<QColor>()
                                                                     : standaard;
    };
    auto kort = [&](const char* naam, qint16 standaard) {
        bool ok = false;
        const int v = e.value(QString::fromLatin1(naam)).toInt(&ok);
        return ok && v >= -32768 && v <= 32767 ? qint16(v) : standaard;
    };
    UserControl_InitProperties();
    Enabled = e.value(QStringLiteral("Enabled"), true).toBool();
    const QVariant font = e.value(QStringLiteral("Font"));
    if (font.canConvert<QFont>())
        Font = font.value<QFont>();
    Tekst = e.value(QStringLiteral("Tekst")).toString();
    Image_Up = beeld("Image_Up");
    Image_Down = beeld("Image_Down");
    Image_Hover = beeld("Image_Hover");
    Geselecteerd = e.value(QStringLiteral("Geselecteerd"), false).toBool();
    Stijl = e.value(QStringLiteral("Stijl"), 0).toInt();
    Achtergrondkleur = kleur("Achtergrondkleur", Achtergrondkleur);
    Teksthover = kleur("Teksthover", Teksthover);
    Normale_kleur = kleur("Normale_kleur", Normale_kleur);
    Hoverkleur = kleur("Hoverkleur", Hoverkleur);
    X = kort("X", 0);
    Y = kort("Y", 0);
    Transparant = e.value(QStringLiteral("Transparant"), false).toBool();
    Positie_knop = kort("Positie_knop", 0);
}

QMap<QString, QVariant> Accounts::UserControl_WriteProperties() const {
    return {{QStringLiteral("Enabled"), Enabled},
            {QStringLiteral("Font"), Font},
            {QStringLiteral("Tekst"), Tekst},
            {QStringLiteral("Image_Up"), Image_Up},
            {QStringLiteral("Image_Down"), Image_Down},
            {QStringLiteral("Image_Hover"), Image_Hover},
            {QStringLiteral("Geselecteerd"), Geselecteerd},
            {QStringLiteral("Stijl"), Stijl},
            {QStringLiteral("Achtergrondkleur"), Achtergrondkleur},
            {QStringLiteral("Teksthover"), Teksthover},
            {QStringLiteral("Normale_kleur"), Normale_kleur},
            {QStringLiteral("Hoverkleur"), Hoverkleur},
            {QStringLiteral("X"), X},
            {QStringLiteral("Y"), Y},
            {QStringLiteral("Transparant"), Transparant},
            {QStringLiteral("Positie_knop"), Positie_knop}};
}

} // namespace tk
