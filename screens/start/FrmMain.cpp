#include "FrmMain.h"

#include "controls/AccessibleName.h"
#include "controls/TextScale.h"
#include "core/Ansi.h"
#include "core/Fout.h"
#include "core/OpstartStappen.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/ScreenSwitches.h"
#include "core/Wire.h"
#include "data/ModData.h"
#include "link/ModMainVerbinding.h"
#include "platform/Environment.h"
#include "screens/common/FocusOrder.h"
#include "screens/common/Laadbalk.h"
#include "screens/common/ThemePicture.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk2.h"
#include "theme/ModThema.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

namespace tk {

namespace {
// The width a button may take in the default grid: the pitch less a small gap.
constexpr int rasterBreedte = 96;
} // namespace

FrmMain::FrmMain(Programma& p, FrmMainLink& link) : link(link), p(p) {
    knopGroep.push_back(std::make_unique<Knop2>());
    knopGroep[0]->Visible = false;
    knopFont = QFont(QStringLiteral("Verdana"), 14, QFont::Bold);
    ballonFont = QFont(QStringLiteral("Verdana"), 13, QFont::Bold);
    ladenFont = QFont(QStringLiteral("Verdana"), 9, QFont::Bold);
    aanmeldenFont = QFont(QStringLiteral("Verdana"), 8);
    // The larger text the workstation asks for.
    const double schaal =
        TextScale::factor(p.platform.environment().variable(QStringLiteral("TK_TEKSTSCHAAL")));
    for (QFont* f : {&knopFont, &ballonFont, &ladenFont, &aanmeldenFont})
        *f = TextScale::schaal(*f, schaal);
    m_tmrLaden.setInterval(30);
    connect(&m_tmrLaden, &QTimer::timeout, this, [this] { tmrLaden_Timer(); });
}

FrmMain::~FrmMain() {
    if (p.startScreenEvents == this)
        p.startScreenEvents = nullptr;
}

// --- what the layers below tell the start screen

void FrmMain::laadbalkGewijzigd() {
    if (!p.modData)
        return;
    const ModData::Laadbalk& b = p.modData->laadbalk;
    link.picLadenZichtbaar = b.zichtbaar;
    if (b.zichtbaar)
        TijdLadenEx(b.maximum, b.waarde, b.tekst);
    hertekenen();
}

void FrmMain::verzendVoortgang(qint64 totaal, qint64 verzonden) {
    if (VerzendVoortgang)
        VerzendVoortgang(totaal, verzonden);
}

void FrmMain::ontvangstVoortgang(qint64 ontvangen, qint64 totaal) {
    // The bar counts in whole percents, so that files past 2 GB fit its numbers.
    const int procent = totaal > 0 ? int(std::clamp<qint64>(ontvangen * 100 / totaal, 0, 100)) : 0;
    const int tekst = link.ThemaLaden ? 1620 : link.PictogrammenLaden ? 1621 : 1609;
    link.picLadenZichtbaar = true;
    TijdLadenEx(100, procent, p.modTaal.LaadTekst(tekst));
    hertekenen();
}

void FrmMain::hoofdvensterTonen() {
    Zichtbaar = true;
    if (VensterTonen)
        VensterTonen();
}

void FrmMain::taakbalkHertekenen() {
    if (!p.frmTaakbalk1)
        return;
    p.frmTaakbalk1->ZetAccountsZonderVerbinding(true);
    p.frmTaakbalk1->TekenKnop();
}

// The module is above the start screen: the ways between the screens reach it.
void FrmMain::onderhoudGevraagd() {
    if (p.schermen)
        p.schermen->onderhoudVerzoek(true);
}

void FrmMain::onderhoudVraagIngetrokken() {
    if (p.schermen)
        p.schermen->onderhoudVerzoek(false);
}

QPoint FrmMain::standaardPlek(int i) {
    if (i <= 7)
        return {i * 100 + 130, 304};
    if (i <= 11)
        return {(i - 8) * 100 + 130, 404};
    if (i <= 15)
        return {(i - 12) * 100 + 130, 504};
    return {(i - 16) * 100 + 130, 604};
}

Knop2* FrmMain::knop(int index) const {
    if (index < 0 || index >= int(knopGroep.size()))
        return nullptr;
    return knopGroep[size_t(index)].get();
}

OpstartStappen& FrmMain::stappen() {
    return *p.opstartStappen;
}

void FrmMain::hertekenen() {
    if (onChanged)
        onChanged();
}

void FrmMain::meld(const QString& wat) {
    meldingen << wat;
    p.modMain.SchrijfLogboek(wat, QStringLiteral("Tafelkrater"), QStringLiteral("frmMain"),
                             QString());
}

bool FrmMain::onderhoudBezet() {
    return p.schermen && p.schermen->ControleerAanwezigOnderhoudsmodule(false);
}

bool FrmMain::openBureaublad(int soort, const QString& id) {
    if (!p.schermen)
        return false;
    p.schermen->openBureaublad(soort, id);
    return true;
}

QString FrmMain::WachtwoordLeraren() const {
    return p.modData ? p.modData->Wachtwoorden.value(0) : QString();
}

QString FrmMain::WachtwoordOnderhoud() const {
    return p.modData ? p.modData->Wachtwoorden.value(1) : QString();
}

void FrmMain::Form_Load() {
    LadenVormgeving();
    m_tmrLaden.start();
}

void FrmMain::LadenVormgeving() {
    if (!p.modThema)
        return;
    const ThemeKeys k = p.modThema->keys();
    const QString kl = QStringLiteral("Kleuren"), pos = QStringLiteral("Positie");
    // Colours and places first, then the pictures: a missing picture is reported and leaves the
    // screen with its places.
    Procedure(p, "frmMain.LadenVormgeving", [&] {
        KleurLaden = kleur(k.colour(kl, QStringLiteral("Laden")));
        KleurRand = kleur(k.colour(kl, QStringLiteral("Laadbalk rand")));
        KleurStatus = kleur(k.colour(kl, QStringLiteral("Laadbalk status")));
        KleurStreep = kleur(k.colour(kl, QStringLiteral("Laadbalk streep")));
        KleurKoptekst = kleur(k.colour(kl, QStringLiteral("Koptekst")));
        KleurAanmeldentekst = kleur(k.colour(kl, QStringLiteral("Aanmeldentekst")));
    });
    Procedure(p, "frmMain.LadenVormgeving", [&] {
        const QPoint aanmelden = k.position(pos, QStringLiteral("Aanmelden"));
        const QPoint laden = k.position(pos, QStringLiteral("Laden normaal"));
        const QPoint fout = k.position(pos, QStringLiteral("Laden fout"));
        const QPoint update = k.position(pos, QStringLiteral("Laden update"));
        const QPoint tekst = k.position(pos, QStringLiteral("Laden tekst"));
        AanmeldenX = aanmelden.x(), AanmeldenY = aanmelden.y();
        LadenX = laden.x(), LadenY = laden.y();
        FoutX = fout.x(), FoutY = fout.y();
        UpdateX = update.x(), UpdateY = update.y();
        LadenTekstX = tekst.x(), LadenTekstY = tekst.y();
        picLaden.moveTo(int(LadenX), int(LadenY));
        picAanmelden.moveTo(int(AanmeldenX), int(AanmeldenY));
    });
    Procedure(p, "frmMain.LadenVormgeving", [&] {
        ballonWeergeven = k.yes(QStringLiteral("Ballon"), QStringLiteral("Startscherm weergeven"));
        ballonPlek = k.position(QStringLiteral("Ballon"), QStringLiteral("Startscherm"));
    });
    Procedure(p, "frmMain.LadenVormgeving", [&] {
        achtergrond =
            laadBeeld(k.picture(QStringLiteral("Achtergronden"), QStringLiteral("Startscherm")));
    });
    Procedure(p, "frmMain.LadenVormgeving", [&] {
        picIcoon = laadBeeld(k.picture(QStringLiteral("Algemeen"), QStringLiteral("Poppetjes")));
    });
    Procedure(p, "frmMain.LadenVormgeving", [&] {
        wolkMask = QImage();
        wolk = laadBeeld(k.picture(QStringLiteral("Algemeen"), QStringLiteral("Wolk")));
        wolkMask = laadBeeld(k.picture(QStringLiteral("Algemeen"), QStringLiteral("Wolk (mask)")));
    });
    for (auto& k2 : knopGroep)
        if (k2)
            k2->lhDC = &achtergrond;
    hertekenen();
}

void FrmMain::WeergevenKlassen(bool herladen) {
    Procedure(p, "frmMain.WeergevenKlassen", [&] {
        if (!p.modData)
            return;
        const FixedTable& klassen = p.modData->Klassen;
        if (!herladen && KlassenGetoond) {
            if (klassen(0, 0).isEmpty())
                return;
            for (auto& k : knopGroep) {
                if (!k)
                    continue;
                k->toestand = 0;
                k->ingedrukt = false;
                k->Visible = true;
            }
            hertekenen();
            return;
        }
        knopGroep.resize(1);
        knopGroep[0] = std::make_unique<Knop2>();
        knopGroep[0]->Visible = false;
        const int laatste = qMin(klassen.rijen(), 21);
        QString mislukt;
        for (int i = 0; i < laatste; ++i) {
            if (klassen(i, 0).isEmpty())
                continue;
            if (i > 0) {
                if (int(knopGroep.size()) <= i)
                    knopGroep.resize(size_t(i) + 1);
                knopGroep[size_t(i)] = std::make_unique<Knop2>();
            }
            Knop2& k = *knopGroep[size_t(i)];
            k.Groepnummer = QString::number(i);
            k.Tekst = klassen(i, 1);
            k.ToolTipText = klassen(i, 0);
            k.Naam = klassen(i, 0);
            k.naamZonderTekst = p.modTaal.LaadTekst(9560).replace(QStringLiteral("%nummer%"),
                                                                  QString::number(i + 1));
            k.focusKleur = KleurRand;
            k.Font = knopFont;
            k.ForeColor = KleurKoptekst;
            const QStringList plek = klassen(i, 11).split(QLatin1Char(','));
            bool okX = false, okY = false;
            const int x = plek.value(0).trimmed().toInt(&okX);
            const int y = plek.value(1).trimmed().toInt(&okY);
            const QPoint standaard = standaardPlek(i);
            const bool eigen = plek.size() >= 2 && okX && okY && !(x == 0 && y == 0);
            k.X = qint16(eigen ? x : standaard.x());
            k.Y = qint16(eigen ? y : standaard.y());
            if (p.modThema) {
                const auto [normaal, hover] = p.modThema->keys().classButtonPictures(klassen(i, 2));
                k.Afbeelding_Normaal = QImage(normaal);
                k.Afbeelding_Hover = QImage(hover);
                if (k.Afbeelding_Normaal.isNull())
                    mislukt = normaal;
            }
            k.Tag =
                klassen(i, 4) + QLatin1Char('|') + klassen(i, 5) + QLatin1Char('|') + klassen(i, 6);
            k.lhDC = &achtergrond;
            k.picGroep_Mask = &picGroep_Mask;
            k.Visible = false;
        }
        // The mask of the group: the shape of the first button's picture, narrowed to the grid's
        // pitch when the picture is wider, so that neighbours never cover each other.
        QSize maat(rasterBreedte, 48);
        for (auto& k : knopGroep)
            if (k && !k->Afbeelding_Normaal.isNull()) {
                maat = QSize(qMin(k->Afbeelding_Normaal.width(), rasterBreedte),
                             k->Afbeelding_Normaal.height());
                break;
            }
        picGroep_Mask = QImage(maat, QImage::Format_RGB32);
        picGroep_Mask.fill(Qt::white);
        {
            QPainter m(&picGroep_Mask);
            m.setRenderHint(QPainter::Antialiasing);
            m.setPen(Qt::NoPen);
            m.setBrush(Qt::black);
            const qreal straal = qMin(maat.width(), maat.height()) * 0.25;
            m.drawRoundedRect(QRectF(0, 0, maat.width(), maat.height()), straal, straal);
        }
        KlassenGetoond = true;
        hertekenen();
        if (!mislukt.isEmpty())
            throw Fout(QStringLiteral("File not found (%1)").arg(mislukt));
    });
}

void FrmMain::HerschikGroepen() {
    Procedure(p, "frmMain.HerschikGroepen", [&] {
        if (!p.modData || p.modData->Klassen(0, 0).isEmpty()) {
            TekenBallon(p.modTaal.LaadTekst(1612));
            return;
        }
        for (auto& k : knopGroep)
            if (k && !k->Tag.isEmpty())
                k->Visible = true;
        TekenBallon(p.modTaal.LaadTekst(1613));
    });
}

void FrmMain::HerschikScherm(int stand) {
    Procedure(p, "frmMain.HerschikScherm", [&] {
        Scherm = stand;
        if (stand == 0) {
            // The start state: nothing but the background and the cloud.
            verbergKlassen();
            picAanmeldenZichtbaar = false;
            lblAccountZichtbaar = false;
            aanmeldenSchuif = 0;
        } else if (stand == 2) {
            picLaden.moveTo(int(LadenX), int(LadenY));
            link.picLadenZichtbaar = true;
        }
        hertekenen();
    });
}

void FrmMain::verbergKlassen() {
    for (auto& k : knopGroep)
        if (k)
            k->Visible = false;
}

void FrmMain::taakbalkAccountsVerbergen() {
    if (p.frmTaakbalk1) {
        p.frmTaakbalk1->VerbergAccounts();
        p.frmTaakbalk1->TekenKnop();
    }
}

void FrmMain::AccountKlik(int soort) {
    Procedure(p, "frmMain.AccountKlik", [&] {
        if (soort >= 3 && soort <= 5) {
            if (EerstePanelGetoond)
                return;
            EerstePanelGetoond = true;
            soort = soort == 3 ? 0 : soort == 4 ? 2 : 1;
        }
        if (Scherm == 0) {
            Scherm = 1;
            HerschikScherm(1);
        }
        wachtwoordBallon.clear();
        if (soort == 0) {
            picAanmeldenZichtbaar = false;
            WeergevenKlassen(false);
            HerschikGroepen();
            hertekenen();
            return;
        }
        if (soort != 1 && soort != 2)
            return;
        link.lblLadenZichtbaar = false;
        verbergKlassen();
        TekenBallon(QString());
        const QString knopTekst = p.frmTaakbalk1 ? p.frmTaakbalk1->Account[soort].Tekst
                                                 : p.modTaal.LaadTekst(2101 + soort);
        lblGebruiker = knopTekst.mid(1);
        txtWachtwoord.clear();
        wachtwoordGeselecteerd = false;
        picAanmelden.moveTo(int(AanmeldenX), int(AanmeldenY));
        aanmeldenSchuif = 0;
        lblAanmeldenTekst = p.modTaal.LaadTekst(1622);
        knopAanmeldenTekst = p.modTaal.LaadTekst(200);
        lblGebruikerZichtbaar = txtWachtwoordZichtbaar = knopAanmeldenZichtbaar = true;
        picAanmeldenZichtbaar = true;
        focusOpWachtwoord = true;
        if (soort == 1 && WachtwoordLeraren().isEmpty())
            wachtwoordBallon = p.modTaal.LaadTekst(1607);
        if (soort == 2 && WachtwoordOnderhoud().isEmpty())
            wachtwoordBallon = p.modTaal.LaadTekst(1608);
        hertekenen();
    });
}

void FrmMain::txtWachtwoord_KeyPress(int toets) {
    if (toets == 13)
        knopAanmelden_Click();
}

void FrmMain::knopAanmelden_Click() {
    Procedure(p, "frmMain.knopAanmelden_Click", [&] {
        ModMain& m = p.modMain;
        wachtwoordBallon.clear();
        if (txtWachtwoord == WachtwoordOnderhoud() && lblGebruiker == p.modTaal.LaadTekst(1601)) {
            const bool bezet = onderhoudBezet();
            if (!bezet && m.Verbonden()) {
                if (p.modMainVerbinding)
                    p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("ONDERHOUD"));
                AnimatieAanmelden(QStringLiteral("onderhoud"));
                if (m.ModusNetwerk) {
                    stappen().ZetAutomatischeAanmelding(QStringLiteral("ONDERHOUD"),
                                                        ModMain::IngebouwdWachtwoord(), QString(),
                                                        true);
                } else if (p.schermen && p.schermen->openOnderhoudsmodule(-1, {})) {
                    Zichtbaar = false;
                } else {
                    meld(
                        QStringLiteral("maintenance module asked for; location %1").arg(m.Locatie));
                }
            } else if (bezet && m.Verbonden()) {
                link.WS_Versturen(wire::INFONB, true);
            } else if (m.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(1602),
                                   QStringLiteral("?")) == u"ja") {
                picAanmeldenZichtbaar = false;
                if (p.frmTaakbalk1) {
                    p.frmTaakbalk1->ToonAccounts();
                    p.frmTaakbalk1->TekenKnop();
                }
                ZonderVerbinding = true;
                if (p.modMainVerbinding)
                    p.modMainVerbinding->StartVerbinding(true);
            }
        } else if (txtWachtwoord == WachtwoordLeraren() &&
                   lblGebruiker == p.modTaal.LaadTekst(1603)) {
            if (p.modMainVerbinding)
                p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("LERAAR|0"));
            AnimatieAanmelden(QStringLiteral("bureaublad"));
            if (openBureaublad(2, QString())) {
                Zichtbaar = false;
            } else {
                meld(QStringLiteral("teachers' list asked for; location %1").arg(m.Locatie));
            }
        } else {
            wachtwoordBallon = p.modTaal.LaadTekst(1604);
            wachtwoordGeselecteerd = true;
            focusOpWachtwoord = true;
        }
        hertekenen();
    });
}

void FrmMain::knopGroep_Click(int index) {
    Procedure(p, "frmMain.knopGroep_Click", [&] {
        Knop2* k = knop(index);
        if (!k)
            throw Fout(QStringLiteral("Control array element '%1' doesn't exist").arg(index));
        const QStringList tag = k->Tag.split(QLatin1Char('|'));
        const QString account = tag.value(0), wachtwoord = tag.value(1), id = tag.value(2);
        ModMain& m = p.modMain;
        if (m.ModusNetwerk && !m.IsWindows98) {
            const QString rechten = m.LeesIni(account, QStringLiteral("Administratorrechten"),
                                              QString::fromLatin1(ModMain::Instellingen));
            if (Ansi::hoofdletters(rechten) != u"JA") {
                m.ToonVraag(p.modTaal.LaadTekst(3),
                            p.modTaal.LaadTekst(1605).replace(QStringLiteral("%account%"), account),
                            QStringLiteral("-"));
                return;
            }
        }
        verbergKlassen();
        picAanmeldenZichtbaar = false;
        TekenBallon(p.modTaal.LaadTekst(1606));
        taakbalkAccountsVerbergen();
        hertekenen();
        if (p.modMainVerbinding)
            p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("GROEP|") + id);
        if (m.Gebruikersaccount == u"GLOBAL" && m.ModusNetwerk) {
            stappen().ZetAutomatischeAanmelding(account, wachtwoord, QString(), true);
        } else if (openBureaublad(0, id)) {
            Zichtbaar = false;
            HerschikScherm(0);
        } else {
            meld(QStringLiteral("class %1 logged in; location %2").arg(id, m.Locatie));
        }
    });
}

void FrmMain::OpenGroep(const QString& id) {
    Procedure(p, "frmMain.OpenGroep", [&] {
        if (p.modMainVerbinding)
            p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("GROEP|") + id);
        WeergevenKlassen(true);
        if (p.frmTaakbalk1) {
            p.frmTaakbalk1->Hoofdvenster = QStringLiteral("frmMain");
            p.frmTaakbalk1->LadenVormgeving();
        }
        Zichtbaar = true;
        bool numeriek = false;
        const int gezocht = id.toInt(&numeriek);
        for (int i = 0; i < int(knopGroep.size()); ++i) {
            Knop2* k = knop(i);
            if (!k || k->Tag.isEmpty())
                continue;
            const int eigen = k->Tag.section(QLatin1Char('|'), 2, 2).toInt();
            if (numeriek && eigen == gezocht) {
                knopGroep_Click(i);
                return;
            }
        }
    });
}

void FrmMain::OpenLeraar(const QString& id) {
    Procedure(p, "frmMain.OpenLeraar", [&] {
        if (p.modMainVerbinding)
            p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("Leraar|") + id +
                                                 QStringLiteral("|bureaublad"));
        if (p.frmTaakbalk1) {
            p.frmTaakbalk1->Hoofdvenster = QStringLiteral("frmMain");
            p.frmTaakbalk1->LadenVormgeving();
        }
        TekenBallon(p.modTaal.LaadTekst(1606));
        if (openBureaublad(1, id)) {
            Zichtbaar = false;
            HerschikScherm(0);
        } else {
            Zichtbaar = true;
            meld(QStringLiteral("teacher %1 logged in; location %2").arg(id, p.modMain.Locatie));
        }
    });
}

void FrmMain::OpenOnderhoud() {
    Procedure(p, "frmMain.OpenOnderhoud", [&] {
        if (p.modMainVerbinding)
            p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("Onderhoudsmodule"));
        Zichtbaar = true;
        AnimatieAanmelden(QStringLiteral("onderhoud"));
        if (onderhoudBezet()) {
            link.WS_Versturen(wire::INFONB, true);
            OpenFout(QStringLiteral("Onderhoudsmodule in gebruik"));
        } else if (p.schermen && p.schermen->openOnderhoudsmodule(-1, {})) {
            txtWachtwoord.clear();
            lblGebruiker.clear();
            Zichtbaar = false;
        } else {
            meld(
                QStringLiteral("maintenance module asked for; location %1").arg(p.modMain.Locatie));
        }
    });
}

void FrmMain::OpenGlobal(bool eerste) {
    Procedure(p, "frmMain.OpenGlobal", [&] {
        if (p.modMainVerbinding)
            p.modMainVerbinding->GeefLocatieDoor(QStringLiteral("GLOBAL"));
        HerschikScherm(1);
        Zichtbaar = true;
        if (ZonderVerbinding) {
            if (p.modMain.ToonVraag(p.modTaal.LaadTekst(3), p.modTaal.LaadTekst(1617),
                                    QStringLiteral("?")) == u"ja") {
                hertekenen();
                picLaden.moveTo(int(LadenX), int(LadenY));
                if (p.modMainVerbinding)
                    p.modMainVerbinding->StartVerbinding(true);
                return;
            }
        }
        AccountKlik(0);
        // The start screen's bar is the one in use again: the desktop's goes at once, with the
        // strip it kept free, instead of at its next tick.
        if (p.frmTaakbalk2)
            p.frmTaakbalk2->Ontladen();
        FrmTaakbalk1* balk = p.frmTaakbalk1;
        if (balk) {
            balk->Zichtbaar = true;
            balk->ZetAccountsZonderVerbinding(ZonderVerbinding);
        }
        ZonderVerbinding = false;
        if (eerste) {
            picLaden.moveTo(int(LadenX), int(LadenY));
            if (balk) {
                balk->Hoofdvenster = QStringLiteral("frmMain");
                balk->LadenVormgeving();
                balk->ToonAccounts();
            }
        }
        if (balk)
            balk->TekenKnop();
        hertekenen();
    });
}

void FrmMain::OpenFout(const QString& tekst) {
    Procedure(p, "frmMain.OpenFout", [&] {
        HerschikScherm(0);
        lblAccount = tekst;
        ControleerAccount();
        link.lblLadenZichtbaar = false;
        Zichtbaar = true;
        if (p.frmTaakbalk1)
            p.frmTaakbalk1->Hoofdvenster = QStringLiteral("frmMain");
        picLaden.moveTo(int(FoutX), int(FoutY));
        LadenVormgeving();
        if (p.beeindigd)
            return;
        if (p.modMain.ModusNetwerk)
            stappen().ZetAutomatischeAanmelding(QStringLiteral("Global"),
                                                ModMain::IngebouwdWachtwoord(), QString(), true);
        else
            OpenGlobal(true);
    });
}

void FrmMain::ControleerAccount() {
    Procedure(p, "frmMain.ControleerAccount", [&] {
        lblAccountZichtbaar = true;
        const int labelBreedte = QFontMetrics(ballonFont).horizontalAdvance(lblAccount);
        const int beeldBreedte = picIcoon.isNull() ? 0 : picIcoon.width();
        const int links = (Breedte - (labelBreedte + beeldBreedte)) / 2;
        imgAccountPlek = QPoint(links, 240);
        lblAccountPlek = QPoint(links + beeldBreedte + 30, 240 + (picIcoon.height() / 2));
        hertekenen();
    });
}

void FrmMain::TekenBallon(const QString& tekst) {
    ballonTekst = tekst;
    hertekenen();
}

QImage FrmMain::TekenWolk() const {
    if (wolk.isNull())
        return QImage();
    const QImage achter =
        achtergrond.isNull() ? QImage() : achtergrond.copy(QRect(ballonPlek, wolk.size()));
    QImage uit = Knop2::samenstellen(achter, wolkMask, wolk);
    if (!ballonTekst.isEmpty()) {
        // The text within the cloud's body: the upper three quarters, a margin each side.
        QImage binnen(uit.width() - 60, uit.height() * 3 / 4 - 20, QImage::Format_ARGB32);
        binnen.fill(Qt::transparent);
        Knop2::tekenTekst(binnen, ballonTekst, ballonFont, KleurKoptekst);
        QPainter pn(&uit);
        pn.drawImage(30, 20, binnen);
    }
    return uit;
}

QRect FrmMain::lblLadenRect() const {
    const QFontMetrics fm(ladenFont);
    QString tekst = link.lblLaden;
    tekst.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const QStringList regels = tekst.split(QLatin1Char('\n'));
    int breedte = 0;
    for (const QString& r : regels)
        breedte = qMax(breedte, fm.horizontalAdvance(r));
    return QRect(int(LadenTekstX) - breedte / 2, int(LadenTekstY), breedte,
                 fm.height() * int(regels.size()));
}

void FrmMain::AnimatieAanmelden(const QString& stand) {
    Procedure(p, "frmMain.AnimatieAanmelden", [&] {
        if (stand != u"laden") {
            lblGebruikerZichtbaar = false;
            taakbalkAccountsVerbergen();
            wachtwoordBallon.clear();
            if (picAanmeldenZichtbaar) {
                // The panel slides shut from the bottom up.
                const int stap = qMax(1, picAanmelden.height() / 8);
                for (aanmeldenSchuif = 0; aanmeldenSchuif < picAanmelden.height();
                     aanmeldenSchuif += stap) {
                    TekenAanmelden();
                    p.modMain.Wacht(10);
                }
            }
            txtWachtwoordZichtbaar = knopAanmeldenZichtbaar = false;
            picAanmeldenZichtbaar = false;
            aanmeldenSchuif = 0;
        }
        const int tekst = stand == u"onderhoud" ? 710 : stand == u"bureaublad" ? 708 : 1606;
        TekenBallon(p.modTaal.LaadTekst(tekst));
    });
}

void FrmMain::TekenAanmelden() {
    hertekenen();
}

void FrmMain::TijdLadenEx(int totaal, int huidig, const QString& tekst) {
    Procedure(p, "frmMain.TijdLadenEx", [&] {
        laadBlokken = Laadbalk::blokken(picLaden.width(), totaal, huidig);
        laadTekst = tekst;
        laadTekstPlek = Laadbalk::tekstPlek(picLaden.size());
        hertekenen();
    });
}

void FrmMain::TijdLadenEx2(int totaal, int huidig, const QString& tekst) {
    Procedure(p, "frmMain.TijdLadenEx2", [&] {
        laadBlokken = {Laadbalk::springBlok(picLaden.width(), totaal, huidig, richtingOmlaag)};
        laadTekst = tekst;
        laadTekstPlek = Laadbalk::tekstPlek(picLaden.size());
        hertekenen();
    });
}

void FrmMain::tmrLaden_Timer() {
    if (!link.tmrLadenAan || !link.picLadenZichtbaar)
        return;
    Laadbalk::stap(tellerLaden, richtingOmlaag);
    TijdLadenEx2(100, tellerLaden, p.modTaal.LaadTekst(1609));
}

void FrmMain::LaadLaadbalkLaden() {
    picLaden.moveTo(int(LadenX), int(LadenY));
    hertekenen();
}

void FrmMain::LaadLaadbalkUpdate() {
    picLaden.moveTo(int(UpdateX), int(UpdateY));
    hertekenen();
}

QList<QRect> FrmMain::focusPlekken() const {
    QList<QRect> plekken;
    for (int i = 0; i < int(knopGroep.size()); ++i) {
        const Knop2* k = knop(i);
        plekken.append(k && k->Visible && k->Enabled ? QRect(QPoint(k->X, k->Y), k->Grootte())
                                                     : QRect());
    }
    if (p.frmTaakbalk1)
        for (const QRect& r : p.frmTaakbalk1->focusPlekken())
            plekken.append(r.isEmpty() ? r : r.translated(0, Hoogte));
    return plekken;
}

void FrmMain::zetFocus(int plek) {
    focusPlek = plek;
    const int klassen = int(knopGroep.size());
    for (int i = 0; i < klassen; ++i)
        if (Knop2* k = knop(i))
            k->focus = i == plek;
    if (p.frmTaakbalk1)
        p.frmTaakbalk1->zetFocus(plek >= klassen ? plek - klassen : -1);
    hertekenen();
}

void FrmMain::drukFocus(int plek) {
    const int klassen = int(knopGroep.size());
    if (plek >= 0 && plek < klassen) {
        if (Knop2* k = knop(plek); k && k->Visible && k->Enabled)
            knopGroep_Click(plek);
    } else if (plek >= klassen && p.frmTaakbalk1) {
        p.frmTaakbalk1->drukFocus(plek - klassen);
    }
}

bool FrmMain::Toets(int toets, bool shift) {
    if (toets == Qt::Key_Escape && picAanmeldenZichtbaar) {
        AccountKlik(0);
        return true;
    }
    if (FocusOrder::isDrukken(toets) && focusPlek >= 0) {
        drukFocus(focusPlek);
        return true;
    }
    const auto stap = FocusOrder::stapVoor(toets, shift);
    if (!stap)
        return false;
    const QList<QRect> plekken = focusPlekken();
    int naar = FocusOrder::volgende(plekken, focusPlek < plekken.size() ? focusPlek : -1, *stap);
    // Tab past the last stop comes round to the first.
    if (naar < 0)
        naar = FocusOrder::volgende(plekken, -1, *stap);
    zetFocus(naar);
    return true;
}

QList<PaintedControl> FrmMain::bedieningen() const {
    QList<PaintedControl> lijst;
    auto tekst = [&](const QString& t, const QRect& plek) {
        PaintedControl::voegTekstToe(lijst, t, plek);
    };
    if (ballonWeergeven && !wolk.isNull())
        tekst(ballonTekst, QRect(ballonPlek, wolk.size()));
    if (lblAccountZichtbaar)
        tekst(lblAccount, QRect(lblAccountPlek - QPoint(0, 16), QSize(400, 20)));
    if (link.lblLadenZichtbaar)
        tekst(link.lblLaden, lblLadenRect());
    if (link.picLadenZichtbaar)
        tekst(laadTekst, picLaden);
    if (picAanmeldenZichtbaar) {
        tekst(lblGebruikerZichtbaar ? lblGebruiker : QString(),
              QRect(picAanmelden.left() + 20, picAanmelden.top() + 10, picAanmelden.width() - 40,
                    24));
        tekst(lblAanmeldenTekst, QRect(picAanmelden.left() + 20, picAanmelden.top() + 38,
                                       picAanmelden.width() - 40, 20));
        tekst(wachtwoordBallon,
              QRect(picAanmelden.left() + 20, picAanmelden.bottom() + 12, 320, 40));
    }
    return lijst;
}

} // namespace tk
