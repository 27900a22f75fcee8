#include "ModDataPictogrammen.h"

#include "archive/UcArchief.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/StartScreenEvents.h"
#include "core/Wire.h"
#include "link/FrmMainLink.h"

#include <QDir>

namespace tk {

namespace {

const QString reg() {
    return QString::fromLatin1(ModDataPictogrammen::Register);
}

// The three groups: register section, folder, per-icon section prefix, command, request word.
struct Groep {
    const char* sectie;
    const char* prefix;
    QLatin1StringView commando;
    QLatin1StringView woord;
};
constexpr Groep groepen[3] = {
    {"Groepen", "Groep", wire::LDNPICGRP, wire::picGroep},
    {"Leerkrachten", "Leer", wire::LDNPICLRN, wire::picLeerkracht},
    {"Algemeen", "Algemeen", wire::LDNPICALG, wire::picAlgemeen},
};

QString map(const Groep& g) {
    return QString::fromLatin1(ModDataPictogrammen::Map) + QStringLiteral("\\Applicaties\\") +
           QString::fromLatin1(g.sectie);
}

// An application ID is a number; anything else could name a path.
bool geldigeId(const QString& id) {
    bool numeriek = false;
    id.toLongLong(&numeriek);
    return numeriek && !id.contains(QLatin1Char('-')) && !id.contains(QLatin1Char('+'));
}

} // namespace

QDateTime ModDataPictogrammen::leesDatum(const QString& tekst) {
    const QString t = tekst.trimmed();
    for (const char* vorm : {"d-M-yyyy H:mm", "d-M-yyyy H:mm:ss", "d-M-yyyy"}) {
        const QDateTime moment = QDateTime::fromString(t, QString::fromLatin1(vorm));
        if (moment.isValid())
            return moment;
    }
    return QDateTime(QDate(1900, 1, 1), QTime(0, 0));
}

QString ModDataPictogrammen::schrijfDatum(const QDateTime& moment) {
    return moment.toString(QStringLiteral("d-M-yyyy HH:mm"));
}

QString ModDataPictogrammen::ControleerPictogrammen(const QString& lijst, int groep) {
    return Procedure(p, "modData.ControleerPictogrammen", QString(), [&] {
        controleerIndex(groep, 3);
        const Groep& g = groepen[groep];
        ModMain& m = p.modMain;
        const QString sectie = QString::fromLatin1(g.sectie);
        // What the register held.
        QStringList oud;
        const int aantal = m.LeesIni(sectie, QStringLiteral("Aantal"), reg()).toInt();
        for (int n = 1; n <= aantal; ++n)
            oud << m.LeesIni(sectie, QString::number(n), reg());
        QStringList halen;
        QStringList nieuw;
        for (const QString& item : lijst.split(wire::itemSep, Qt::SkipEmptyParts)) {
            const QString id = item.section(wire::valueSep, 0, 0).trimmed();
            if (!geldigeId(id))
                continue;
            const QDateTime server = leesDatum(item.section(wire::valueSep, 1, 1));
            const QString per = QString::fromLatin1(g.prefix) + id;
            const QString hier = m.LeesIni(per, QStringLiteral("Wijziging"), reg());
            const bool ontbreekt =
                !m.BestandBestaat(map(g) + QLatin1Char('\\') + id + QStringLiteral(".pic"));
            if (ontbreekt || hier.isEmpty() || leesDatum(hier).secsTo(server) > 0)
                halen << id;
            nieuw << id;
            m.SchrijfIni(schrijfDatum(server), per, QStringLiteral("Wijziging"), reg());
            m.SchrijfIni(map(g) + QLatin1Char('\\') + id + QStringLiteral(".pic"), per,
                         QStringLiteral("Locatie"), reg());
        }
        m.SchrijfIni(QString::number(nieuw.size()), sectie, QStringLiteral("Aantal"), reg());
        for (int n = 0; n < nieuw.size(); ++n)
            m.SchrijfIni(nieuw[n], sectie, QString::number(n + 1), reg());
        for (int n = int(nieuw.size()); n < aantal; ++n)
            p.iniFiles.removeKey(m.Pad(reg()), sectie, QString::number(n + 1));
        for (const QString& id : oud) {
            if (nieuw.contains(id) || !geldigeId(id))
                continue;
            const QString pic = map(g) + QLatin1Char('\\') + id + QStringLiteral(".pic");
            if (m.BestandBestaat(pic))
                m.VerwijderBestand(pic);
            p.iniFiles.removeSection(m.Pad(reg()), QString::fromLatin1(g.prefix) + id);
        }
        return halen.join(wire::valueSep);
    });
}

bool ModDataPictogrammen::LaadPictogrammen() {
    return Procedure(p, "modData.LaadPictogrammen", false, [&] {
        ModMain& m = p.modMain;
        if (!p.frmMain || !m.Verbonden())
            return false;
        m.MaakMappen(QStringLiteral("\\Data"));
        const QStringList secties = {QStringLiteral("Standaard"), QStringLiteral("Groepen"),
                                     QStringLiteral("Leerkrachten"), QStringLiteral("Algemeen")};
        QList<QDateTime> lokaal;
        for (const QString& s : secties) {
            const QString tekst = m.LeesIni(s, QStringLiteral("Wijziging"), reg());
            lokaal << (tekst.isEmpty() ? QDateTime(QDate(2004, 1, 1), QTime(0, 0))
                                       : leesDatum(tekst));
        }
        m.AntwoordOntvangen = false;
        p.frmMain->WS_Versturen(QString(wire::LDNPICWIJ), false);
        if (p.wacht.Tot([&] { return m.AntwoordOntvangen; }) != Wacht::Uitkomst::Voldaan)
            return false;
        const QStringList serverDatums = m.Antwoord.split(wire::valueSep);
        QList<QDateTime> server;
        for (int i = 0; i < 4; ++i)
            server << leesDatum(serverDatums.value(i));

        QStringList verzoek;
        const QString standaard = QString::fromLatin1(Map) + QStringLiteral("\\standaard.icl");
        const bool standaardGewijzigd =
            lokaal[0].secsTo(server[0]) > 0 || !m.BestandBestaat(standaard);
        if (standaardGewijzigd) {
            if (m.BestandBestaat(standaard))
                m.VerwijderBestand(standaard);
            verzoek << QString(wire::picStandaard);
        }
        for (int g = 0; g < 3; ++g) {
            if (lokaal[g + 1].secsTo(server[g + 1]) <= 0)
                continue;
            m.MaakMappen(map(groepen[g]));
            m.AntwoordOntvangen = false;
            p.frmMain->WS_Versturen(QString(groepen[g].commando), false);
            if (p.wacht.Tot([&] { return m.AntwoordOntvangen; }) != Wacht::Uitkomst::Voldaan)
                return false;
            const QString ids = ControleerPictogrammen(m.Antwoord, g);
            if (!ids.isEmpty())
                verzoek << QString(groepen[g].woord) + wire::valueSep + ids;
            m.SchrijfIni(schrijfDatum(server[g + 1]), QString::fromLatin1(groepen[g].sectie),
                         QStringLiteral("Wijziging"), reg());
        }
        if (verzoek.isEmpty())
            return true;
        if (p.startScreenEvents)
            p.startScreenEvents->LaadLaadbalkUpdate();
        m.MaakMappen(QStringLiteral("\\Tijdelijk"));
        const QString pakket = QStringLiteral("\\Tijdelijk\\pakket.pictogrammen");
        p.frmMain->LaadbalkBijOntvangst = true;
        p.frmMain->PictogrammenLaden = true;
        const bool ontvangen =
            p.frmMain->OntvangBestand(wire::LDNPICPAK + verzoek.join(wire::fieldSep), pakket, true);
        p.frmMain->LaadbalkBijOntvangst = false;
        p.frmMain->PictogrammenLaden = false;
        if (!ontvangen)
            return false;
        UcArchief archief;
        archief.Pomp = [this] { p.wacht.Pomp(); };
        archief.ExtractFilesFromArchiv(m.Pad(pakket), m.Pad(QString::fromLatin1(Map)), false);
        if (standaardGewijzigd)
            m.SchrijfIni(schrijfDatum(server[0]), QStringLiteral("Standaard"),
                         QStringLiteral("Wijziging"), reg());
        m.SchrijfIni(standaard, QStringLiteral("Standaard"), QStringLiteral("Locatie"), reg());
        QDir(m.Pad(QStringLiteral("\\Tijdelijk"))).removeRecursively();
        return true;
    });
}

void ModDataPictogrammen::TijdelijkeMapVerwijderen() {
    Procedure(p, "modData.TijdelijkeMapVerwijderen", [&] {
        QDir(p.modMain.Pad(QStringLiteral("\\Tijdelijk"))).removeRecursively();
        QDir(p.modMain.Pad(QStringLiteral("\\Updates"))).removeRecursively();
    });
}

void ModDataPictogrammen::TijdelijkePictogrammenVerwijderen() {
    Procedure(p, "modData.TijdelijkePictogrammenVerwijderen", [&] {
        for (const Groep& g : groepen) {
            QDir dir(p.modMain.Pad(map(g)));
            for (const QString& lnk : dir.entryList({QStringLiteral("*.lnk")}, QDir::Files))
                dir.remove(lnk);
        }
    });
}

} // namespace tk
