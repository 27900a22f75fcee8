// modData: the lookups in the tables.
#include "ModData.h"

#include "core/Procedure.h"
#include "core/Wire.h"

namespace tk {

namespace {

// The leading whole number of a text, 0 when there is none ("12abc" is 12, "a3" is 0).
qlonglong voorloopGetal(const QString& tekst) {
    const QString kaal = tekst.trimmed();
    qsizetype n = 0;
    if (n < kaal.size() && (kaal[n] == u'-' || kaal[n] == u'+'))
        ++n;
    while (n < kaal.size() && kaal[n].isDigit() && n < 18)
        ++n;
    return kaal.left(n).toLongLong();
}

} // namespace

int ModData::ZoekAppLijstID(int soort, const QString& id) {
    return Procedure(p, "modData.ZoekAppLijstID", 0, [&] {
        if (soort < 0 || soort > 2)
            return 0;
        const FixedTable& tabel = Applicaties[soort];
        for (int rij = 0; rij < ApplicatieRijen; ++rij)
            if (tabel(rij, 0) == id)
                return rij;
        return 0;
    });
}

int ModData::ZoekAppLijstIDEx(int soort, const QString& id) {
    return Procedure(p, "modData.ZoekAppLijstIDEx", -1, [&] {
        if (soort < 0 || soort > 2)
            return -1;
        const FixedTable& tabel = Applicaties[soort];
        for (int rij = 0; rij < ApplicatieRijen; ++rij)
            if (tabel(rij, 0) == id)
                return rij;
        return -1;
    });
}

int ModData::ZoekLijstID(int soort, const QString& id) {
    return Procedure(p, "modData.ZoekLijstID", 0, [&] {
        if (soort == 0) {
            // Classes end at the first free row.
            for (int rij = 0; rij < KlassenRijen && !Klassen.vrij(rij); ++rij)
                if (Klassen(rij, 6) == id)
                    return rij;
        } else if (soort == 1) {
            for (int rij = 0; rij < LerarenRijen; ++rij)
                if (Leraren(rij, 5) == id)
                    return rij;
        }
        return 0;
    });
}

int ModData::ZoekCatLijstID(int soort, const QString& id) {
    return Procedure(p, "modData.ZoekCatLijstID", 0, [&] {
        if (soort < 0 || soort > 2)
            return 0;
        const FixedTable& tabel = Categorien[soort];
        const qlonglong gezocht = voorloopGetal(id);
        for (int rij = 0; rij < CategorieRijen; ++rij)
            if (!tabel.vrij(rij) && voorloopGetal(tabel(rij, 0)) == gezocht)
                return rij;
        return 0;
    });
}

void ModData::ApplicatiesSorteren(int soort, QStringList& collectie) {
    Procedure(p, "modData.ApplicatiesSorteren", [&] {
        // Rows: a category in column 0, its count in column 1, its items from column 2 on.
        FixedTable kladblok(20, 200);
        for (const QString& item : std::as_const(collectie)) {
            const QString app = item.section(wire::itemSep, 0, 0);
            QString categorie;
            if (app.startsWith(QLatin1Char('a'), Qt::CaseInsensitive)) {
                const int rij = ZoekAppLijstID(2, app.mid(1));
                categorie = QLatin1Char('a') + Applicaties[2](rij, 2);
            } else {
                controleerIndex(soort, 3);
                const int rij = ZoekAppLijstID(soort, app);
                categorie = Applicaties[soort](rij, 2);
            }
            int rij = 0;
            while (!kladblok.vrij(rij) && kladblok(rij, 0) != categorie)
                ++rij;
            if (kladblok.vrij(rij)) {
                kladblok(rij, 0) = categorie;
                kladblok(rij, 1) = QStringLiteral("1");
                kladblok(rij, 2) = item;
            } else {
                const int aantal = kladblok(rij, 1).toInt() + 1;
                kladblok(rij, 1) = QString::number(aantal);
                kladblok(rij, aantal + 1) = item;
            }
        }
        QStringList uit;
        for (int rij = 0; rij < 20 && !kladblok.vrij(rij); ++rij) {
            const int aantal = kladblok(rij, 1).toInt();
            uit.append(kladblok.rij(rij).mid(0, aantal + 2).join(QLatin1Char('|')));
        }
        collectie = uit;
    });
}

QString ModData::ZoekPrinterNaam(const QString& printer) {
    return Procedure(p, "modData.ZoekPrinterNaam", QString(), [&] {
        const QString gezocht = printer.trimmed().toLower();
        for (const QString& item : Printers.split(wire::itemSep, Qt::SkipEmptyParts)) {
            const QString naam = item.section(wire::valueSep, 0, 0);
            const QString share = item.section(wire::valueSep, 1);
            if (naam.toLower() == gezocht || share.toLower() == gezocht)
                return naam;
        }
        return QString();
    });
}

QString ModData::naamVan(const QString& soort, const QString& id) const {
    if (soort.toUpper() == u"GROEP") {
        for (int rij = 0; rij < KlassenRijen && !Klassen.vrij(rij); ++rij)
            if (Klassen(rij, 6) == id)
                return Klassen(rij, 0);
    } else if (soort.toUpper() == u"LERAAR") {
        for (int rij = 0; rij < LerarenRijen; ++rij) {
            if (Leraren.vrij(rij) || Leraren(rij, 5) != id)
                continue;
            QString naam = Leraren(rij, 0);
            if (!Leraren(rij, 6).isEmpty())
                naam += QStringLiteral(", ") + Leraren(rij, 6);
            if (!Leraren(rij, 7).isEmpty())
                naam += QLatin1Char(' ') + Leraren(rij, 7);
            return naam;
        }
    }
    return QString();
}

} // namespace tk
