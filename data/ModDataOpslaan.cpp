// modData: the saves and deletes and the messages they send.
#include "ModData.h"

#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/Wire.h"

namespace tk {

namespace {

QString kolommen(const FixedTable& tabel, int rij, std::initializer_list<int> welke) {
    QStringList waarden;
    for (int kolom : welke)
        waarden.append(tabel(rij, kolom));
    return waarden.join(wire::itemSep);
}

// Removes row `rij`: every later used row moves up one place in columns 0 to `laatsteKolom`,
// and the last used row is blanked in those columns.
void schuifOp(FixedTable& tabel, int rij, int laatsteKolom) {
    controleerIndex(rij, tabel.rijen());
    const int laatste = std::max(rij, tabel.gebruikt() - 1);
    for (int r = rij; r < laatste; ++r)
        for (int k = 0; k <= laatsteKolom; ++k)
            tabel(r, k) = tabel(r + 1, k);
    for (int k = 0; k <= laatsteKolom; ++k)
        tabel(laatste, k).clear();
}

bool isNieuw(const QString& id) {
    return id == u"0" || id.startsWith(QStringLiteral("kopie"));
}

} // namespace

QString ModData::KlasBericht(int rij, bool metAccountExtra) {
    // Column 9 is never sent.
    QString bericht =
        wire::OPSKLZ + kolommen(Klassen, rij, {6, 0, 1, 2, 3, 4, 5, 7, 8, 10, 11, 12});
    if (metAccountExtra)
        bericht += wire::itemSep + Klassen(rij, 13);
    return bericht;
}

QString ModData::LeraarBericht(int rij) {
    // Column 13 is never sent; the categories stand before the theme.
    return wire::OPSLRZ +
           kolommen(Leraren, rij, {5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15, 14, 16});
}

QString ModData::LerarenBericht(const QString& tekst) {
    const int aantal = Leraren.gebruikt();
    QString bericht = wire::OPSLRN + tekst + wire::fieldSep + QString::number(aantal);
    if (aantal > 0) {
        QStringList rijen;
        for (int rij = 0; rij < aantal; ++rij)
            rijen.append(kolommen(Leraren, rij, {5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15}));
        bericht += wire::fieldSep + rijen.join(wire::fieldSep);
    }
    return bericht;
}

QString ModData::OpslaanKlasRecord(int rij, bool metAccountExtra) {
    return Procedure(p, "modData.OpslaanKlasRecord", QString(), [&] {
        const QString antwoord =
            p.modMain.Vraag(KlasBericht(rij, metAccountExtra), ModMain::KlasseB)
                .value_or(QString());
        if (!antwoord.isEmpty() && antwoord != u"FOUT" && isNieuw(Klassen(rij, 6)))
            Klassen(rij, 6) = antwoord;
        return antwoord;
    });
}

QString ModData::OpslaanLeraarRecord(int rij) {
    return Procedure(p, "modData.OpslaanLeraarRecord", QString(), [&] {
        const QString antwoord =
            p.modMain.Vraag(LeraarBericht(rij), ModMain::KlasseB).value_or(QString());
        if (!antwoord.isEmpty() && antwoord != u"FOUT" && isNieuw(Leraren(rij, 5)))
            Leraren(rij, 5) = antwoord;
        return antwoord;
    });
}

bool ModData::OpslaanAlleLerarenRecord(const QString& tekst) {
    return Procedure(p, "modData.OpslaanAlleLerarenRecord", false, [&] {
        return p.modMain.Vraag(LerarenBericht(tekst), ModMain::KlasseB) == wire::ok;
    });
}

bool ModData::VerwijderKlas(int rij) {
    return Procedure(p, "modData.VerwijderKlas", false, [&] {
        const auto antwoord = p.modMain.Vraag(wire::VWNKLS + Klassen(rij, 6), ModMain::KlasseB);
        if (!antwoord || *antwoord == u"FOUT")
            return false;
        schuifOp(Klassen, rij, 12);
        return true;
    });
}

bool ModData::VerwijderLeraar(int rij) {
    return Procedure(p, "modData.VerwijderLeraar", false, [&] {
        const auto antwoord = p.modMain.Vraag(wire::VWNLRN + Leraren(rij, 5), ModMain::KlasseB);
        if (!antwoord || *antwoord == u"FOUT")
            return false;
        schuifOp(Leraren, rij, 15);
        return true;
    });
}

bool ModData::OpslaanVerbodenWoorden() {
    return Procedure(p, "modData.OpslaanVerbodenWoorden", false, [&] {
        QStringList stukken;
        if (VerbodenWoorden.size() < 2000) {
            stukken.append(VerbodenWoorden);
        } else {
            // Pieces under 2000 characters; every piece after the first begins with "+".
            auto stuk = [&](const QStringList& items) {
                return (stukken.isEmpty() ? QString() : QStringLiteral("+")) +
                       items.join(wire::valueSep);
            };
            QStringList huidige;
            for (const QString& item : VerbodenWoorden.split(wire::valueSep)) {
                const QStringList proef = huidige + QStringList{item};
                if (!huidige.isEmpty() && stuk(proef).size() >= 2000) {
                    stukken.append(stuk(huidige));
                    huidige = {item};
                } else {
                    huidige = proef;
                }
            }
            stukken.append(stuk(huidige));
        }
        std::optional<QString> antwoord;
        for (const QString& stuk : std::as_const(stukken)) {
            antwoord =
                p.modMain.Vraag(QString(wire::OPSVBW) + wire::OPSVBWkop + stuk, ModMain::KlasseB);
            if (!antwoord)
                return false;
        }
        return antwoord == wire::ok;
    });
}

bool ModData::OpslaanToegestaneSites() {
    return Procedure(p, "modData.OpslaanToegestaneSites", false, [&] {
        return p.modMain.Vraag(wire::OPSITS + ToegestaneSites, ModMain::KlasseB) == wire::ok;
    });
}

bool ModData::OpslaanFavorieten(const QString& eigenaar, const Favorieten& favorieten) {
    return Procedure(p, "modData.OpslaanFavorieten", false, [&] {
        Favorieten schoon = favorieten;
        if (const int veranderd = schoon.zonderScheidingstekens())
            p.modMain.SchrijfLogboek(
                QStringLiteral("The favourites of %1: removed the wire's separators \"|\", \"<\" "
                               "and \">\" from %2 values before saving")
                    .arg(eigenaar)
                    .arg(veranderd),
                QStringLiteral("Tafelkrater"), QStringLiteral("modData.OpslaanFavorieten"),
                QString());
        return p.modMain.Vraag(wire::OPSFAV + eigenaar + wire::fieldSep + schoon.alsTekst(),
                               ModMain::KlasseB) == wire::ok;
    });
}

bool ModData::Opslaan_Instellingen(const QString& instellingen) {
    return Procedure(p, "modData.Opslaan_Instellingen", false, [&] {
        return p.modMain.Vraag(wire::OPSINS + instellingen, ModMain::KlasseB) == wire::ok;
    });
}

} // namespace tk
