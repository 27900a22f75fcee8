#include "ModDataThemas.h"

#include "archive/UcArchief.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/StartScreenEvents.h"
#include "core/Wire.h"
#include "link/FrmMainLink.h"
#include "theme/ModThema.h"

#include <QDir>

namespace tk {

namespace {
const QString reg() {
    return QString::fromLatin1(ModDataThemas::Register);
}
QString skins(const QString& id) {
    return QStringLiteral("\\Afbeeldingen\\Skins\\") + id;
}
QString pakket(const QString& id) {
    return QStringLiteral("\\Afbeeldingen\\Skins\\Pakketten\\") + id + QStringLiteral(".thema");
}
// A theme id names one folder below Skins: no separators, no "." or "..".
bool geldigeId(const QString& id) {
    return !id.isEmpty() && id != u"." && id != u".." && !id.contains(QLatin1Char('/')) &&
           !id.contains(QLatin1Char('\\')) && !id.contains(QLatin1Char(':'));
}
} // namespace

QStringList ModDataThemas::lokaleLijst() {
    QStringList lijst;
    ModMain& m = p.modMain;
    if (m.BestandBestaat(reg())) {
        const int aantal =
            m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Aantal"), reg()).toInt();
        for (int n = 1; n <= aantal; ++n) {
            const QString id = m.LeesIni(QStringLiteral("themaID"), QString::number(n), reg());
            if (!id.isEmpty())
                lijst << id + QLatin1Char('|') +
                             m.LeesIni(QStringLiteral("Versie"), QString::number(n), reg());
        }
    } else if (m.BestandBestaat(skins(QStringLiteral("1")) +
                                QStringLiteral("\\Instellingen.ini"))) {
        const QString versie =
            m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Versie"),
                      skins(QStringLiteral("1")) + QStringLiteral("\\Instellingen.ini"));
        m.MaakMappen(QStringLiteral("\\Data"));
        m.SchrijfIni(QStringLiteral("1"), QStringLiteral("Algemeen"), QStringLiteral("Aantal"),
                     reg());
        m.SchrijfIni(QStringLiteral("1"), QStringLiteral("themaID"), QStringLiteral("1"), reg());
        m.SchrijfIni(versie, QStringLiteral("Versie"), QStringLiteral("1"), reg());
        lijst << QStringLiteral("1|") + versie;
    }
    return lijst;
}

void ModDataThemas::schrijfRij(const QString& id, const QString& versie) {
    ModMain& m = p.modMain;
    const int aantal =
        m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Aantal"), reg()).toInt();
    for (int n = 1; n <= aantal; ++n) {
        if (m.LeesIni(QStringLiteral("themaID"), QString::number(n), reg()) == id) {
            m.SchrijfIni(versie, QStringLiteral("Versie"), QString::number(n), reg());
            return;
        }
    }
    const QString rij = QString::number(aantal + 1);
    m.SchrijfIni(rij, QStringLiteral("Algemeen"), QStringLiteral("Aantal"), reg());
    m.SchrijfIni(id, QStringLiteral("themaID"), rij, reg());
    m.SchrijfIni(versie, QStringLiteral("Versie"), rij, reg());
}

void ModDataThemas::verwijder(const QString& id) {
    ModMain& m = p.modMain;
    const int aantal =
        m.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Aantal"), reg()).toInt();
    for (int n = 1; n <= aantal; ++n) {
        if (m.LeesIni(QStringLiteral("themaID"), QString::number(n), reg()) == id) {
            m.SchrijfIni(QString(), QStringLiteral("themaID"), QString::number(n), reg());
            m.SchrijfIni(QString(), QStringLiteral("Versie"), QString::number(n), reg());
        }
    }
    if (geldigeId(id)) {
        QDir(m.Pad(skins(id))).removeRecursively();
        if (m.BestandBestaat(pakket(id)))
            m.VerwijderBestand(pakket(id));
    }
}

bool ModDataThemas::haalPakket(const QString& id, bool toonVoortgang) {
    ModMain& m = p.modMain;
    FrmMainLink& f = *p.frmMain;
    m.MaakMappen(QStringLiteral("\\Afbeeldingen\\Skins\\Pakketten"));
    f.Receiver.Reset();
    f.Receiver.setLocalPortBinary(f.ReceiverPortBinary);
    f.Receiver.setLocalPortInfo(f.ReceiverPortInfo);
    if (!f.Receiver.Listen())
        return false;
    m.AntwoordOntvangen = false;
    f.ReceiverVraag = false;
    f.WS_Versturen(wire::LDNTH + id, false);
    // Both the empty reply on the command channel and the offer on the file channel.
    if (p.wacht.Tot([&] { return m.AntwoordOntvangen && f.ReceiverVraag; }) !=
        Wacht::Uitkomst::Voldaan)
        return false;
    f.ReceiverKlaar = false;
    f.LaadbalkBijOntvangst = toonVoortgang;
    f.ThemaLaden = toonVoortgang;
    f.Receiver.AcceptSendRequest(pakket(id));
    const bool ontvangen = p.wacht.Tot([&] { return f.ReceiverKlaar; }) == Wacht::Uitkomst::Voldaan;
    f.LaadbalkBijOntvangst = false;
    f.ThemaLaden = false;
    if (!ontvangen)
        return false;
    QDir(m.Pad(skins(id))).removeRecursively();
    UcArchief archief;
    archief.Pomp = [this] { p.wacht.Pomp(); };
    archief.ExtractFilesFromArchiv(m.Pad(pakket(id)), m.Pad(skins(id)), false);
    return true;
}

void ModDataThemas::LaadThemas(bool toonVoortgang) {
    Procedure(p, "modData.LaadThemas", [&] {
        ModMain& m = p.modMain;
        // Without the server there is nothing to compare with.
        if (!p.frmMain || !m.Verbonden())
            return;
        const QStringList lokaal = lokaleLijst();
        m.AntwoordOntvangen = false;
        p.frmMain->WS_Versturen(QString(wire::LDNTHE), false);
        if (p.wacht.Tot([&] { return m.AntwoordOntvangen; }) != Wacht::Uitkomst::Voldaan)
            return;
        QStringList serverIds;
        QList<QStringList> halen;
        for (const QString& item : m.Antwoord.split(wire::itemSep, Qt::SkipEmptyParts)) {
            const QStringList velden = item.split(wire::valueSep);
            const QString id = velden.value(0);
            if (!geldigeId(id))
                continue;
            serverIds << id;
            if (velden.value(2).toUpper() == wire::ja)
                m.SchrijfIni(id, QStringLiteral("Instellingen"), QStringLiteral("Thema"),
                             QString::fromLatin1(ModMain::Instellingen));
            bool gevonden = false;
            bool nieuwer = false;
            for (const QString& hier : lokaal) {
                if (hier.section(QLatin1Char('|'), 0, 0) != id)
                    continue;
                gevonden = true;
                nieuwer = ModMain::ControleerNieuwereVersie(velden.value(1),
                                                            hier.section(QLatin1Char('|'), 1));
            }
            if (!gevonden || nieuwer)
                halen << QStringList{id, velden.value(1)};
        }
        // The start screen's loading bar, shown when there is something to fetch.
        if (!halen.isEmpty() && toonVoortgang && p.startScreenEvents)
            p.startScreenEvents->LaadLaadbalkLaden();
        for (const QStringList& item : halen) {
            // A package that fails leaves its folder gone and its row as it was; the others
            // go on.
            if (Procedure(p, "modData.LaadThemas", false,
                          [&] { return haalPakket(item[0], toonVoortgang); }))
                schrijfRij(item[0], item[1]);
        }
        for (const QString& hier : lokaal) {
            const QString id = hier.section(QLatin1Char('|'), 0, 0);
            if (!serverIds.contains(id))
                verwijder(id);
        }
        // The windows that show the theme take it again.
        if (p.modThema)
            p.modThema->LaadThema();
    });
}

} // namespace tk
