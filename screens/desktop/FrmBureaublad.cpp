#include "FrmBureaublad.h"

#include "controls/AccessibleName.h"
#include "controls/DesktopEntryIcon.h"
#include "controls/ModPictogrammen.h"
#include "controls/TextScale.h"
#include "core/Ansi.h"
#include "core/Fout.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/ScreenSwitches.h"
#include "core/Wire.h"
#include "data/ModData.h"
#include "link/ModMainVerbinding.h"
#include "platform/Environment.h"
#include "platform/Windows.h"
#include "screens/common/FocusOrder.h"
#include "screens/common/ThemePicture.h"
#include "screens/desktop/DesktopTaskbar.h"
#include "screens/desktop/FrmBureaubladBeelden.h"
#include "screens/desktop/ModMainStarten.h"
#include "theme/ModThema.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <optional>

namespace tk {

namespace {

// The folders of the applications' own icons, and the kind letters of the stored places.
const char* const soortMappen[] = {"Groepen", "Leerkrachten", "Algemeen"};
const char* const soortLetters[] = {"k", "l", "a"};

constexpr const char* Pictogrammen = "\\Afbeeldingen\\Pictogrammen\\Applicaties\\";
constexpr const char* PictogrammenIni = "\\Data\\Pictogrammen.ini";
constexpr const char* Eol = "\r\n";
// A stored place further out than this is damage, not a place: beyond it the sums of an icon's
// and its name's pixels would leave what an int holds.
constexpr int PlekGrens = 1 << 20;

// The number a text starts with, as the program reads one; nothing for a text without digits.
std::optional<int> nummer(const QString& tekst) {
    const QString t = tekst.trimmed();
    qsizetype n = 0;
    while (n < t.size() && t[n].isDigit())
        ++n;
    if (n == 0 || n > 9)
        return std::nullopt;
    return t.left(n).toInt();
}

} // namespace

FrmBureaublad::FrmBureaublad(Programma& p) : FrmBureaubladStarter(p) {
    kopFont = QFont(QStringLiteral("Verdana"), 18, QFont::Bold);
    subKopFont = QFont(QStringLiteral("Verdana"), 10, QFont::Bold);
    icoonFont = QFont(QStringLiteral("Verdana"), 8);
    tooltipFont = QFont(QStringLiteral("Verdana"), 8);
    // The larger text the workstation asks for.
    const double schaal =
        TextScale::factor(p.platform.environment().variable(QStringLiteral("TK_TEKSTSCHAAL")));
    for (QFont* f : {&kopFont, &subKopFont, &icoonFont, &tooltipFont})
        *f = TextScale::schaal(*f, schaal);
    tmrTooltip.setInterval(600);
    tmrTooltip.setSingleShot(true);
    connect(&tmrTooltip, &QTimer::timeout, this, &FrmBureaublad::tmrTooltip_Timer);
}

FrmBureaublad::~FrmBureaublad() {
    if (p.frmBureaublad == this) {
        p.BureaubladOpen = false;
        p.InternetOpen = 0;
    }
}

QPoint FrmBureaublad::RasterPlek(int n) {
    if (n < 0 || n >= Plaatsen)
        return {0, 0};
    if (n < 36)
        return {56 + 98 * (n / 6), 170 + 78 * (n % 6)};
    const int k = n - 36;
    return {644 + 98 * (k / 3), 170 + 78 * (k % 3)};
}

// --- names

QString FrmBureaublad::LeraarNaam(const QStringList& leraar) {
    QStringList delen;
    for (int kolom : {6, 7, 0})
        if (!leraar.value(kolom).isEmpty())
            delen << leraar.value(kolom);
    return delen.join(QLatin1Char(' '));
}

QString FrmBureaublad::LijstNaam(const QStringList& leraar) {
    QString naam = leraar.value(0) + QStringLiteral(", ") + leraar.value(6);
    if (!leraar.value(7).isEmpty())
        naam += QLatin1Char(' ') + leraar.value(7);
    return naam;
}

QStringList FrmBureaublad::eigenaarRij() const {
    if (!p.modData || Eigenaar < 0)
        return {};
    if (Weergave == 0)
        return p.modData->Klassen.rij(Eigenaar);
    if (Weergave == 1)
        return p.modData->Leraren.rij(Eigenaar);
    return {};
}

QString FrmBureaublad::eigenaarID() const {
    const QStringList rij = eigenaarRij();
    return Weergave == 0 ? rij.value(6) : rij.value(5);
}

QString FrmBureaublad::favorietenEigenaar() const {
    const QString id = eigenaarID();
    if (id.isEmpty() || (Weergave != 0 && Weergave != 1))
        return {};
    return (Weergave == 0 ? QStringLiteral("Groep") : QStringLiteral("Leraar")) + id;
}

// --- loading

void FrmBureaublad::Form_Load() {
    Procedure(p, "frmBureaublad.Form_Load", [&] {
        if (!p.modPictogrammen)
            p.maak(p.modPictogrammen, p);
        laadStandaard();
        picTooltipZichtbaar = false;
        picAanmeldenZichtbaar = false;
        Internetstand = false;
        knopAanmeldenTekst = p.modTaal.LaadTekst(200);
        lblAanmeldenTekst = p.modTaal.LaadTekst(736);
    });
}

void FrmBureaublad::laadStandaard() {
    if (m_standaardGelezen)
        return;
    m_standaardGelezen = true;
    ImageList beelden;
    QList<IconListItem> geenLijst;
    p.modPictogrammen->ReadLibrary(beelden, geenLijst,
                                   QString::fromLatin1(ModPictogrammen::Standaard), false);
    m_standaard = beelden.images;
    // The library's globe, when it has one, is the internet icon.
    m_picInternet3 = FrmBureaubladBeelden::Internet3(standaardPictogram(5));
}

QImage FrmBureaublad::standaardPictogram(int nummer) {
    if (nummer < 0 || nummer >= m_standaard.size())
        return QImage();
    return m_standaard.at(nummer);
}

void FrmBureaublad::LaadThemaBureaublad(int index, int soort) {
    if (!p.modThema)
        return;
    const bool gebruiker = index != -1 && (soort == 0 || soort == 1) && p.modData;
    Procedure(p, "frmBureaublad.LaadThemaBureaublad", [&] {
        if (gebruiker) {
            const QString veld =
                soort == 0 ? p.modData->Klassen(index, 10) : p.modData->Leraren(index, 14);
            p.modThema->chooseUserTheme(veld);
        } else {
            startschermBeeld = laadBeeld(p.modThema->keys().picture(QStringLiteral("Achtergronden"),
                                                                    QStringLiteral("Startscherm")));
        }
    });
    const ThemeKeys k = p.modThema->keys();
    const QString kl = QStringLiteral("Kleuren");
    // Colours and places first, then the pictures, each on its own: a missing key is reported
    // and leaves the rest of the look in place.
    Procedure(p, "frmBureaublad.LaadThemaBureaublad", [&] {
        KleurKop = kleur(k.colour(kl, QStringLiteral("Bureaublad kop")));
        KleurIcoonHover = kleur(k.colour(kl, QStringLiteral("Bureaublad Icoon Achtergrond Hover")));
        KleurIcoonNormaal =
            kleur(k.colour(kl, QStringLiteral("Bureaublad Icoon Achtergrond Normaal")));
        KleurIcoonTekst = kleur(k.colour(kl, QStringLiteral("Bureaublad Icoon Tekst")));
        KleurIcoonSchaduw = kleur(k.iconShadowColour());
        KleurAanmeldentekst = kleur(k.colour(kl, QStringLiteral("Aanmeldentekst")));
    });
    Procedure(p, "frmBureaublad.LaadThemaBureaublad", [&] {
        const QString pos = QStringLiteral("Positie");
        kopPlek = k.position(pos, QStringLiteral("Bureaublad kop"));
        picAanmelden.moveTo(k.position(pos, QStringLiteral("Aanmelden")));
    });
    Procedure(p, "frmBureaublad.LaadThemaBureaublad", [&] {
        ballonWeergeven = k.yes(QStringLiteral("Ballon"), QStringLiteral("Bureaublad weergeven"));
        ballonPlek = k.position(QStringLiteral("Ballon"), QStringLiteral("Bureaublad"));
    });
    icoonAchtergrond = k.notNo(QStringLiteral("Algemeen"), QStringLiteral("Icoon achtergrond"));
    Procedure(p, "frmBureaublad.LaadThemaBureaublad", [&] {
        picIcoon = laadBeeld(k.picture(QStringLiteral("Algemeen"), QStringLiteral("Poppetjes")));
    });
    Procedure(p, "frmBureaublad.LaadThemaBureaublad", [&] {
        wolkMask = QImage();
        wolk = laadBeeld(k.picture(QStringLiteral("Algemeen"), QStringLiteral("Wolk")));
        wolkMask = laadBeeld(k.picture(QStringLiteral("Algemeen"), QStringLiteral("Wolk (mask)")));
    });
}

void FrmBureaublad::LaadPosities(const QString& tekst) {
    Procedure(p, "frmBureaublad.LaadPosities", [&] {
        posApplicatie.clear();
        if (tekst.isEmpty())
            return;
        for (const QString& element : tekst.split(wire::itemSep)) {
            const QStringList waarden = element.split(QLatin1Char('|'));
            if (waarden.size() < 3)
                continue;
            const QStringList xy = waarden[2].split(QLatin1Char('x'));
            bool idGoed = false, xGoed = false, yGoed = false;
            PosApplicatie pos;
            pos.ID = waarden[0].trimmed().toInt(&idGoed);
            pos.Soort = waarden[1].trimmed();
            pos.X = xy.value(0).trimmed().toInt(&xGoed);
            pos.Y = xy.value(1).trimmed().toInt(&yGoed);
            const bool binnen =
                qAbs(qint64(pos.X)) <= PlekGrens && qAbs(qint64(pos.Y)) <= PlekGrens;
            if (idGoed && xGoed && yGoed && xy.size() == 2 && binnen)
                posApplicatie.append(pos);
        }
    });
}

void FrmBureaublad::LaadBureaublad(int rij, bool volledig) {
    Procedure(p, "frmBureaublad.LaadBureaublad", [&] {
        if (rij >= 0)
            Eigenaar = rij;
        if (!p.modData || Eigenaar < 0 || (Weergave != 0 && Weergave != 1)) {
            Iconen.leegmaken();
            zichtbareIconen.clear();
            lijst.clear();
            teken();
            return;
        }
        const QStringList eigenaar = eigenaarRij();
        lijst = eigenaar.value(Weergave == 0 ? 7 : 8).split(QLatin1Char('|'));
        if (!volledig) {
            tekenNamen();
            teken();
            return;
        }
        Iconen.leegmaken();
        zichtbareIconen.clear();
        picTooltipZichtbaar = false;
        tooltipRij = -1;
        tmrTooltip.stop();

        // The background: the window's width, and its height less the header's.
        achtergrond = QImage();
        startschermBeeld = QImage();
        Procedure(
            p, "frmBureaublad.LaadBureaublad",
            [&] {
                const QString veld = eigenaar.value(Weergave == 0 ? 3 : 2);
                if (veld.compare(QStringLiteral("Geen"), Qt::CaseInsensitive) == 0 || !p.modThema)
                    return;
                const ThemeKeys k = p.modThema->keys();
                QString bestand = QStringLiteral("Achtergronden\\") + veld;
                // A teacher's picture has no fall-back; a class falls back on the theme's own.
                if ((veld.isEmpty() || !k.fileExists(bestand)) && Weergave == 0)
                    bestand = QStringLiteral("Achtergronden\\Bureaublad.jpg");
                const QImage beeld = laadBeeld(k.file(bestand));
                achtergrond = beeld.scaled(SchermBreedte, SchermHoogte - KopHoogte,
                                           Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            },
            true);

        TekenSubKop(lijst.size() > 1 ? p.modTaal.LaadTekst(721) : QString());
        TekenKop(Weergave == 0 ? eigenaar.value(0) : LeraarNaam(eigenaar));
        LaadPosities(p.modData->LaadApplicatiePosities(Weergave, eigenaarID()));

        // The walk: a place of the grid for every item without a stored place. An empty item
        // keeps its place of the grid free, unless the desktop's places are stored.
        int plaats = 0;
        const bool rasterVoorLeeg = posApplicatie.isEmpty();
        const int aantal = qMin(int(lijst.size()), IconenRijen - 1);
        for (int i = 0; i < aantal; ++i) {
            Procedure(p, "frmBureaublad.LaadBureaublad", [&] {
                const QString& item = lijst[i];
                const QString klein = item.trimmed().toLower();
                if (klein.isEmpty() || klein == u"leeg") {
                    if (rasterVoorLeeg)
                        ++plaats;
                    return;
                }
                Iconen(i, KolomHover) = QStringLiteral("nee");
                if (klein == u"cdrom") {
                    const QString schijf = p.modMainStarten->LaadSchijven().value(0);
                    Iconen(i, KolomSleutel) = QStringLiteral("cdrom|") + schijf;
                    const QPoint plek = RasterPlek(plaats++);
                    Iconen(i, KolomLinks) = QString::number(plek.x());
                    Iconen(i, KolomBoven) = QString::number(plek.y());
                    zichtbareIconen.append({i,
                                            QRect(plek, QSize(IcoonMaat, IcoonMaat)),
                                            FrmBureaubladBeelden::Schijf(),
                                            {},
                                            {},
                                            {}});
                    zetNaam(i, p.modTaal.LaadTekst(723), plek);
                    return;
                }
                tekenIcoon(item.trimmed(), i, plaats);
            });
        }
        Procedure(p, "frmBureaublad.LaadBureaublad", [&] { tekenInternet(); });
        tekenNamen();
        teken();
    });
}

void FrmBureaublad::tekenIcoon(const QString& item, int i, int& plaats) {
    const bool algemeen = item.startsWith(QLatin1Char('a'), Qt::CaseInsensitive);
    const int soort = algemeen ? 2 : Weergave;
    const QString id = algemeen ? item.mid(1) : item;
    const int rij = p.modData->ZoekAppLijstID(soort, id);
    Iconen(i, KolomSleutel) = algemeen ? id + QLatin1Char('a') : id;
    const QPoint plek = plekVan(QLatin1String(soortLetters[soort]), soort, id, plaats);
    Iconen(i, KolomLinks) = QString::number(plek.x());
    Iconen(i, KolomBoven) = QString::number(plek.y());
    zichtbareIconen.append(
        {i, QRect(plek, QSize(IcoonMaat, IcoonMaat)), applicatieBeeld(soort, rij), {}, {}, {}});
    zetNaam(i, p.modData->Applicaties[soort](rij, 1), plek);
}

QPoint FrmBureaublad::plekVan(const QString& soortLetter, int soortNummer, const QString& id,
                              int& plaats) {
    const std::optional<int> gezocht = nummer(id);
    if (gezocht) {
        const QString nummerTekst = QString::number(soortNummer);
        for (const PosApplicatie& pos : posApplicatie) {
            const QString s = pos.Soort.toLower();
            if ((s == soortLetter || s == nummerTekst) && pos.ID == *gezocht)
                return {pos.X - 15, pos.Y};
        }
    }
    return RasterPlek(plaats++);
}

QImage FrmBureaublad::applicatieBeeld(int soort, int rij) {
    const FixedTable& tabel = p.modData->Applicaties[soort];
    const QString id = tabel(rij, 0);
    const QStringList pictogram = tabel(rij, 5).split(QLatin1Char('|'));
    const QString pic = QString::fromLatin1(Pictogrammen) + QLatin1String(soortMappen[soort]) +
                        QLatin1Char('\\') + id + QStringLiteral(".pic");
    ModMain& m = p.modMain;
    const bool eigen =
        pictogram.value(0).compare(QStringLiteral("eigen"), Qt::CaseInsensitive) == 0;
    if (eigen || !m.BestandBestaat(pic)) {
        if (!id.isEmpty() && m.BestandBestaat(pic)) {
            // The application's own shortcut: a copy with ".lnk" behind it is what starts.
            const QString lnk = m.Pad(pic + QStringLiteral(".lnk"));
            QFile::remove(lnk);
            QFile::copy(m.Pad(pic), lnk);
            // On this system the shortcut is a .desktop entry; anything else shows as a file.
            QImage beeld = DesktopEntryIcon::load(lnk, IcoonMaat);
            if (beeld.isNull())
                beeld = p.modPictogrammen->FileIcon(lnk, IcoonMaat);
            return beeld.isNull() ? FrmBureaubladBeelden::Geen() : beeld;
        }
        if (eigen)
            return geenPictogram(soort, id);
    }
    // A reference to the standard library; anything unreadable shows the blank picture.
    if (pictogram.value(0).compare(QStringLiteral("standaard"), Qt::CaseInsensitive) == 0) {
        const QString waarde =
            pictogram.value(1).remove(QStringLiteral("pictogram"), Qt::CaseInsensitive);
        if (const std::optional<int> n = nummer(waarde)) {
            const QImage beeld = standaardPictogram(*n);
            if (!beeld.isNull())
                return beeld;
        }
    }
    return FrmBureaubladBeelden::Geen();
}

QImage FrmBureaublad::geenPictogram(int soort, const QString& id) {
    // The icon is missing on this workstation: the next start fetches the group again.
    if (!id.isEmpty()) {
        static const char* const secties[] = {"Groep", "Leer", "Algemeen"};
        const QString stempel = QStringLiteral("1-1-2000 0:00");
        const QString ini = QString::fromLatin1(PictogrammenIni);
        p.modMain.SchrijfIni(stempel, QLatin1String(soortMappen[soort]),
                             QStringLiteral("Wijziging"), ini);
        p.modMain.SchrijfIni(stempel, QLatin1String(secties[soort]) + id,
                             QStringLiteral("Wijziging"), ini);
    }
    return FrmBureaubladBeelden::Geen();
}

void FrmBureaublad::zetNaam(int rij, const QString& naam, QPoint icoon) {
    const QString gebroken =
        ModMain::WordWrapped_String(naam, NaamBreedte, QString::fromLatin1(Eol), true);
    QStringList regels = gebroken.split(QString::fromLatin1(Eol));
    const QFontMetrics fm(icoonFont);
    const QChar puntjes(0x2026);
    const int passen = qMax(1, NaamRuimteHoogte / qMax(1, fm.height()));
    if (regels.size() > passen) {
        regels.resize(passen);
        QString& laatste = regels.last();
        while (!laatste.isEmpty() && fm.horizontalAdvance(laatste + puntjes) > NaamRuimteBreedte)
            laatste.chop(laatste.size() > 1 && laatste.back().isLowSurrogate() ? 2 : 1);
        laatste += puntjes;
    }
    for (QString& r : regels)
        if (fm.horizontalAdvance(r) > NaamRuimteBreedte)
            r = fm.elidedText(r, Qt::ElideRight, NaamRuimteBreedte);
    int breedste = 0;
    for (const QString& r : regels)
        breedste = qMax(breedste, fm.horizontalAdvance(r));
    const int links = icoon.x() + 16 - breedste / 2;
    const int boven = icoon.y() + 36;
    const QRect tekst(links, boven, breedste, fm.height() * int(regels.size()));
    Iconen(rij, KolomTekstLinks) = QString::number(tekst.left());
    Iconen(rij, KolomTekstBoven) = QString::number(tekst.top());
    Iconen(rij, KolomTekstRechts) = QString::number(tekst.left() + tekst.width());
    Iconen(rij, KolomTekstOnder) = QString::number(tekst.top() + tekst.height());
    for (Icoon& i : zichtbareIconen)
        if (i.rij == rij) {
            i.regels = regels;
            i.tekst = tekst;
            i.naam = naam;
        }
}

void FrmBureaublad::tekenInternet() {
    const QStringList eigenaar = eigenaarRij();
    if (Ansi::hoofdletters(eigenaar.value(Weergave == 0 ? 8 : 9)) != u"JA")
        return;
    const int rij = qMin(int(lijst.size()), IconenRijen - 1);
    Iconen(rij, KolomHover) = QStringLiteral("nee");
    Iconen(rij, KolomSleutel) = p.modTaal.LaadTekst(745);
    Iconen(rij, KolomLinks) = QString::number(InternetPlek.x());
    Iconen(rij, KolomBoven) = QString::number(InternetPlek.y());
    const QImage beeld =
        m_picInternet3.isNull() ? FrmBureaubladBeelden::Internet3(QImage()) : m_picInternet3;
    zichtbareIconen.append({rij,
                            QRect(InternetPlek, QSize(InternetMaat, InternetMaat)),
                            beeld.copy(62, 0, InternetMaat, InternetMaat),
                            {},
                            {},
                            {}});
    // The text stands centred on x 935 from top 284.
    zetNaam(rij, p.modTaal.LaadTekst(745),
            QPoint(InternetTekstMidden - 16, InternetTekstBoven - 36));
}

void FrmBureaublad::tekenNamen() {
    for (int r = 0; r < IconenRijen; ++r)
        if (Iconen(r, KolomHover) == u"oud")
            Iconen(r, KolomHover) = QStringLiteral("nee");
}

// --- the mouse

int FrmBureaublad::IcoonOp(QPoint punt) const {
    for (const Icoon& i : zichtbareIconen) {
        if (i.beeld.contains(punt) || i.tekst.contains(punt))
            return i.rij;
    }
    return -1;
}

void FrmBureaublad::Form_MouseMove(int x, int y) {
    Procedure(p, "frmBureaublad.Form_MouseMove", [&] {
        if (!Zichtbaar || picDisableZichtbaar)
            return;
        const int onder = IcoonOp(QPoint(x, y));
        bool gewijzigd = false;
        for (const Icoon& i : zichtbareIconen) {
            QString& stand = Iconen(i.rij, KolomHover);
            if (i.rij == onder && stand != u"ja") {
                stand = QStringLiteral("ja");
                tooltipRij = i.rij;
                picTooltipZichtbaar = false;
                tmrTooltip.start();
                gewijzigd = true;
            } else if (i.rij != onder && stand == u"ja") {
                stand = QStringLiteral("oud");
                picTooltipZichtbaar = false;
                gewijzigd = true;
            }
        }
        if (onder < 0) {
            tmrTooltip.stop();
            tooltipRij = -1;
        }
        if (gewijzigd)
            LaadBureaublad(-1, false);
    });
}

void FrmBureaublad::Form_MouseUp(int knop, int x, int y) {
    Procedure(p, "frmBureaublad.Form_MouseUp", [&] {
        if (knop != 1 || !Zichtbaar || picDisableZichtbaar || StartGeblokkeerd())
            return;
        const int rij = IcoonOp(QPoint(x, y));
        if (rij >= 0)
            KlikIcoon(rij);
    });
}

void FrmBureaublad::KlikIcoon(int rij) {
    Procedure(p, "frmBureaublad.KlikIcoon", [&] {
        if (!Zichtbaar || picDisableZichtbaar || StartGeblokkeerd() || rij < 0 ||
            rij >= IconenRijen)
            return;
        const QString sleutel = Iconen(rij, KolomSleutel);
        picTooltipZichtbaar = false;
        tmrTooltip.stop();
        if (sleutel == p.modTaal.LaadTekst(745)) {
            InternetWeergeven();
            return;
        }
        if (sleutel.startsWith(QStringLiteral("cdrom"), Qt::CaseInsensitive)) {
            StartSchijf(sleutel.section(QLatin1Char('|'), 1));
            return;
        }
        const bool algemeen = sleutel.endsWith(QLatin1Char('a'));
        const int soort = algemeen ? 2 : Weergave;
        const QString id = algemeen ? sleutel.chopped(1) : sleutel;
        StartApplicatieRij(soort, p.modData->ZoekAppLijstID(soort, id), eigenaarID());
    });
}

void FrmBureaublad::tmrTooltip_Timer() {
    Procedure(p, "frmBureaublad.tmrTooltip_Timer", [&] {
        tmrTooltip.stop();
        const int rij = tooltipRij;
        if (rij < 0 || rij >= IconenRijen || Iconen(rij, KolomHover) != u"ja" || !p.modData)
            return;
        const QString sleutel = Iconen(rij, KolomSleutel);
        if (sleutel == p.modTaal.LaadTekst(745) ||
            sleutel.startsWith(QStringLiteral("cdrom"), Qt::CaseInsensitive))
            return;
        const bool algemeen = sleutel.endsWith(QLatin1Char('a'));
        const int soort = algemeen ? 2 : Weergave;
        const QString id = algemeen ? sleutel.chopped(1) : sleutel;
        const FixedTable& tabel = p.modData->Applicaties[soort];
        const int app = p.modData->ZoekAppLijstID(soort, id);
        const int cat = p.modData->ZoekCatLijstID(soort, tabel(app, 2));
        tooltipRegels = QStringList{tabel(app, 1), QStringLiteral("Categorie: ") +
                                                       p.modData->Categorien[soort](cat, 1)};
        const QString omschrijving = tabel(app, 4);
        if (omschrijving != u"-" && !omschrijving.isEmpty())
            tooltipRegels << ModMain::WordWrapped_String(omschrijving, 40, QString::fromLatin1(Eol),
                                                         true)
                                 .split(QString::fromLatin1(Eol));
        // Beside the icon; on the left of it where the right edge is near.
        const int links = Iconen(rij, KolomLinks).toInt();
        const int boven = Iconen(rij, KolomBoven).toInt();
        const int breedte = TooltipMaat().width();
        int x = links + IcoonMaat + 12;
        if (x + breedte > SchermBreedte)
            x = qMax(0, links - 12 - breedte);
        picTooltipPlek = QPoint(x, boven);
        picTooltipZichtbaar = true;
        teken();
    });
}

QSize FrmBureaublad::TooltipMaat() const {
    QFont vet = tooltipFont;
    vet.setBold(true);
    const QFontMetrics fm(tooltipFont), fmVet(vet);
    int breedte = 0;
    for (int i = 0; i < tooltipRegels.size(); ++i)
        breedte = qMax(breedte, (i == 0 ? fmVet : fm).horizontalAdvance(tooltipRegels[i]));
    return QSize(breedte + 12, fm.height() * int(tooltipRegels.size()) + 8);
}

// --- the teacher panel

void FrmBureaublad::LadenLijstLeraren() {
    Procedure(p, "frmBureaublad.LadenLijstLeraren", [&] {
        cmbAanmelden.clear();
        cmbAanmeldenRijen.clear();
        cmbAanmeldenIndex = -1;
        imgAanmelden = QImage();
        if (p.modData) {
            const FixedTable& leraren = p.modData->Leraren;
            for (int rij = 0; rij < leraren.rijen(); ++rij) {
                if (leraren.vrij(rij))
                    continue;
                cmbAanmelden << LijstNaam(leraren.rij(rij));
                cmbAanmeldenRijen << rij;
            }
        }
        if (cmbAanmelden.isEmpty())
            cmbAanmelden << p.modTaal.LaadTekst(719);
        else
            cmbAanmelden_Click(0);
        teken();
    });
}

void FrmBureaublad::cmbAanmelden_Click(int index) {
    Procedure(p, "frmBureaublad.cmbAanmelden_Click", [&] {
        if (index < 0 || index >= cmbAanmeldenRijen.size())
            return;
        cmbAanmeldenIndex = index;
        const QString pictogram = p.modData->Leraren(cmbAanmeldenRijen[index], 1);
        imgAanmelden = QImage();
        const QString standaard = QStringLiteral("standaard|pictogram ");
        if (pictogram.startsWith(standaard, Qt::CaseInsensitive)) {
            if (const std::optional<int> n = nummer(pictogram.mid(standaard.size())))
                imgAanmelden = standaardPictogram(*n);
        } else if (!pictogram.isEmpty()) {
            // A file: as the program names it, or in the icon folder.
            for (const QString& pad :
                 {pictogram, QStringLiteral("\\Afbeeldingen\\Pictogrammen\\") + pictogram}) {
                if (QFileInfo(p.modMain.Pad(pad)).isFile()) {
                    imgAanmelden = p.modPictogrammen->FileIcon(pad, IcoonMaat);
                    break;
                }
            }
        }
        if (imgAanmelden.isNull())
            imgAanmelden = FrmBureaubladBeelden::Geen();
        focusOpWachtwoord = true;
        teken();
    });
}

void FrmBureaublad::txtWachtwoord_KeyPress(int toets) {
    if (toets == 13)
        knopAanmelden_Click();
}

void FrmBureaublad::knopAanmelden_Click() {
    Procedure(p, "frmBureaublad.knopAanmelden_Click", [&] {
        if (cmbAanmeldenIndex < 0 || cmbAanmeldenIndex >= cmbAanmeldenRijen.size() || !p.modData)
            return;
        const int rij = cmbAanmeldenRijen[cmbAanmeldenIndex];
        const QStringList leraar = p.modData->Leraren.rij(rij);
        ModMain& m = p.modMain;
        if (txtWachtwoord != leraar.value(4)) {
            meld(p.modTaal.LaadTekst(709));
            txtWachtwoord.clear();
            focusOpWachtwoord = true;
            teken();
            return;
        }
        // Only a workstation that logs on as the teacher's own account needs its rights.
        if (m.ModusNetwerk && !m.IsWindows98) {
            const QString account = leraar.value(3);
            const QString rechten = m.LeesIni(account, QStringLiteral("Administratorrechten"),
                                              QString::fromLatin1(ModMain::Instellingen));
            if (Ansi::hoofdletters(rechten) != u"JA") {
                meld(p.modTaal.LaadTekst(707).replace(QStringLiteral("%account%"), account));
                return;
            }
        }
        geefLocatieDoor(QStringLiteral("LERAAR|") + leraar.value(5) +
                        QStringLiteral("|bureaublad"));
        picAanmeldenZichtbaar = false;
        txtWachtwoord.clear();
        TekenBallon(p.modTaal.LaadTekst(708));
        Aanmelden(rij);
    });
}

void FrmBureaublad::Aanmelden(int rij) {
    Procedure(p, "frmBureaublad.Aanmelden", [&] {
        Weergave = 1;
        Eigenaar = rij;
        picAanmeldenZichtbaar = false;
        LaadThemaBureaublad(rij, 1);
        LaadBureaublad(rij, true);
        ballonTekst.clear();
        if (taakbalk)
            taakbalk->tekenKnoppen();
        teken();
    });
}

// --- the other parts of the window

void FrmBureaublad::Onderhoud() {
    Procedure(p, "frmBureaublad.Onderhoud", [&] {
        if (Weergave != 1 || Eigenaar < 0 || !p.modData)
            return;
        const QStringList leraar = eigenaarRij();
        geefLocatieDoor(QStringLiteral("LERAAR|") + leraar.value(5) + QStringLiteral("|onderhoud"));
        TekenBallon(p.modTaal.LaadTekst(710));
        // The classes the teacher may manage, as rows; IDs no longer known are dropped.
        QList<int> klassen;
        for (const QString& id : leraar.value(10).split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
            const int rij = p.modData->ZoekLijstID(0, id);
            if (p.modData->Klassen(rij, 6) == id)
                klassen << rij;
        }
        if (p.schermen && p.schermen->openOnderhoudsmodule(Eigenaar, klassen))
            return;
        p.modMain.SchrijfLogboek(
            QStringLiteral("The maintenance module was asked for by teacher %1, but this "
                           "workstation has none")
                .arg(leraar.value(5)),
            QStringLiteral("Onderhoudsmodule"), QStringLiteral("frmBureaublad.Onderhoud"),
            QStringLiteral("-"));
        ballonTekst.clear();
        teken();
        meld(p.modTaal.LaadTekst(9541));
    });
}

void FrmBureaublad::InternetWeergeven() {
    Procedure(p, "frmBureaublad.InternetWeergeven", [&] {
        picTooltipZichtbaar = false;
        if (p.schermen && p.schermen->openInternet()) {
            Internetstand = true;
            p.InternetOpen = DesktopTaskbar::InternetActief;
            if (taakbalk)
                taakbalk->tekenKnoppen();
            return;
        }
        p.modMain.SchrijfLogboek(
            QStringLiteral("The internet pane was asked for, but this workstation has no browser"),
            QStringLiteral("Internet"), QStringLiteral("frmBureaublad.InternetWeergeven"),
            QStringLiteral("-"));
        meld(p.modTaal.LaadTekst(9540));
        BureaubladWeergeven();
    });
}

void FrmBureaublad::BureaubladWeergeven() {
    Procedure(p, "frmBureaublad.BureaubladWeergeven", [&] {
        if (p.schermen)
            p.schermen->internetVerbergen();
        Internetstand = false;
        p.InternetOpen = 0;
        if (taakbalk)
            taakbalk->tekenKnoppen();
        teken();
    });
}

// --- the way in and out

void FrmBureaublad::Openen(int soort, const QString& id) {
    Procedure(p, "frmBureaublad.Openen", [&] {
        if (!p.modData)
            throw Fout(QStringLiteral("The data tables are not loaded"));
        Form_Load();
        ballonTekst.clear();
        txtWachtwoord.clear();
        Internetstand = false;
        p.InternetOpen = 0;
        if (soort == 0 || soort == 1) {
            Weergave = soort;
            const int rij = p.modData->ZoekLijstID(soort, id);
            picAanmeldenZichtbaar = false;
            LaadThemaBureaublad(rij, soort);
            LaadBureaublad(rij, true);
        } else {
            // The teachers' list: an empty desktop with the login panel.
            Weergave = -1;
            Eigenaar = -1;
            kop.clear();
            subKop.clear();
            achtergrond = QImage();
            LaadThemaBureaublad(-1, 1);
            LaadBureaublad(-1, true);
            LadenLijstLeraren();
            picAanmeldenZichtbaar = true;
            focusOpWachtwoord = true;
        }
        Zichtbaar = true;
        p.BureaubladOpen = true;
        tmrTaakbalk.start();
        if (taakbalk)
            taakbalk->tekenKnoppen();
        teken();
    });
}

void FrmBureaublad::Afmelden() {
    Procedure(p, "frmBureaublad.Afmelden", [&] {
        tmrTooltip.stop();
        tmrTaakbalk.stop();
        StopWachten();
        Zichtbaar = false;
        picTooltipZichtbaar = false;
        picAanmeldenZichtbaar = false;
        Internetstand = false;
        p.BureaubladOpen = false;
        p.InternetOpen = 0;
        Weergave = -1;
        Eigenaar = -1;
        Iconen.leegmaken();
        zichtbareIconen.clear();
        ballonTekst.clear();
        // The start screen comes back with the school's theme.
        if (p.schermen)
            p.schermen->bureaubladVerlaten();
    });
}

void FrmBureaublad::MarkeerAlsBureaublad(quint64 venster) {
    if (venster != 0)
        p.platform.windows().setKind(venster, ShellWindowKind::Desktop);
}

void FrmBureaublad::Activeer(quint64 venster) {
    if (venster != 0)
        p.platform.windows().activate(venster);
}

// --- small helpers

void FrmBureaublad::teken() {
    if (onChanged)
        onChanged();
    Q_EMIT gewijzigd();
}

void FrmBureaublad::TekenBallon(const QString& tekst) {
    ballonTekst = tekst;
    teken();
}

void FrmBureaublad::TekenKop(const QString& tekst) {
    kop = tekst;
}

void FrmBureaublad::TekenSubKop(const QString& tekst) {
    subKop = tekst;
}

void FrmBureaublad::meld(const QString& tekst) {
    p.modMain.ToonVraag(p.modTaal.LaadTekst(3), tekst, QStringLiteral("-"));
}

void FrmBureaublad::geefLocatieDoor(const QString& plaats) {
    if (p.modMainVerbinding)
        p.modMainVerbinding->GeefLocatieDoor(plaats);
}

void FrmBureaublad::zetFocus(int rij) {
    focusRij = rij;
    teken();
}

bool FrmBureaublad::Toets(int toets, bool shift) {
    if (focusOpBalk) {
        if (taakbalk && taakbalk->focusToets(toets, shift))
            return true;
        focusOpBalk = false;
        // Out of the bar: Tab comes round to the first item, Shift+Tab to the last, Escape back
        // to where the focus was.
        if (toets != Qt::Key_Escape)
            focusRij = -1;
        const auto stap = FocusOrder::stapVoor(toets, shift);
        if (stap == FocusOrder::Stap::Volgende || stap == FocusOrder::Stap::Vorige) {
            QList<QRect> plekken(IconenRijen);
            for (const Icoon& i : zichtbareIconen)
                plekken[i.rij] = i.beeld.united(i.tekst);
            focusRij = FocusOrder::volgende(plekken, -1, *stap);
        }
        zetFocus(focusRij);
        return true;
    }
    if (toets == Qt::Key_Escape && picAanmeldenZichtbaar) {
        picAanmeldenZichtbaar = false;
        teken();
        return true;
    }
    if (!Zichtbaar)
        return false;
    if (FocusOrder::isDrukken(toets) && focusRij >= 0) {
        KlikIcoon(focusRij);
        return true;
    }
    const auto stap = FocusOrder::stapVoor(toets, shift);
    if (!stap)
        return false;
    QList<QRect> plekken(IconenRijen);
    for (const Icoon& i : zichtbareIconen)
        plekken[i.rij] = i.beeld.united(i.tekst);
    const bool zichtbaar = focusRij >= 0 && focusRij < IconenRijen && !plekken[focusRij].isEmpty();
    const int naar = FocusOrder::volgende(plekken, zichtbaar ? focusRij : -1, *stap);
    if (naar < 0 && taakbalk && taakbalk->neemFocus(*stap == FocusOrder::Stap::Volgende)) {
        focusOpBalk = true;
        zetFocus(-1);
        return true;
    }
    zetFocus(naar >= 0 ? naar : FocusOrder::volgende(plekken, -1, *stap));
    return true;
}

QList<PaintedControl> FrmBureaublad::bedieningen() const {
    QList<PaintedControl> lijst;
    auto tekst = [&](const QString& t, const QRect& plek) {
        PaintedControl::voegTekstToe(lijst, t, plek);
    };
    if (!Zichtbaar)
        return lijst;
    tekst(kop, QRect(kopPlek, QSize(SchermBreedte - kopPlek.x() - 20, 30)));
    tekst(subKop, QRect(kopPlek + QPoint(0, 36), QSize(SchermBreedte - kopPlek.x() - 20, 40)));
    int nummer = 0;
    const QString zonderNaam = p.modTaal.LaadTekst(9561);
    for (const Icoon& i : zichtbareIconen) {
        ++nummer;
        PaintedControl c;
        c.rol = QAccessible::ListItem;
        c.naam = AccessibleName::maak(
            i.naam,
            QString(zonderNaam).replace(QStringLiteral("%nummer%"), QString::number(nummer)));
        c.plek = i.beeld.united(i.tekst);
        c.focus = !focusOpBalk && i.rij == focusRij;
        c.uitgeschakeld = picDisableZichtbaar;
        c.stop = i.rij;
        if (picTooltipZichtbaar && tooltipRij == i.rij)
            c.beschrijving = tooltipRegels.join(QLatin1Char(' '));
        lijst.append(c);
    }
    if (ballonWeergeven && !wolk.isNull())
        tekst(ballonTekst, QRect(ballonPlek, wolk.size()));
    if (picAanmeldenZichtbaar)
        tekst(lblAanmeldenTekst, QRect(picAanmelden.left() + 16, picAanmelden.top() + 12,
                                       picAanmelden.width() - 32, 20));
    return lijst;
}

} // namespace tk
