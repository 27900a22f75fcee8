#include "ModData.h"

#include "core/Ansi.h"
#include "core/CommandChannel.h"
#include "core/Procedure.h"
#include "core/Programma.h"
#include "core/StartScreenEvents.h"
#include "core/Wire.h"
#include "link/ModMainVerbinding.h"
#include "platform/Clock.h"

namespace tk {

namespace {

QString t(const char* tekst) {
    return QString::fromLatin1(tekst);
}

// A count or number of the wire as the program reads it: an empty text is 0; any other text
// must be a whole number of the 16-bit range.
int getal(const QString& tekst, SourceLocation plek = SourceLocation::current()) {
    const QString kaal = tekst.trimmed();
    if (kaal.isEmpty())
        return 0;
    bool ok = false;
    const qlonglong waarde = kaal.toLongLong(&ok);
    if (!ok)
        throw Fout(QStringLiteral("Type mismatch (\"%1\" is not a number)").arg(kaal.left(40)),
                   plek);
    if (waarde < -32768 || waarde > 32767)
        throw Fout(QStringLiteral("Overflow (%1)").arg(waarde), plek);
    return int(waarde);
}

// A record must have at least `nodig` fields before any of them is stored.
void controleerVelden(const QStringList& velden, int nodig,
                      SourceLocation plek = SourceLocation::current()) {
    if (velden.size() < nodig)
        throw Fout(QStringLiteral("Subscript out of range (record has %1 of %2 fields)")
                       .arg(velden.size())
                       .arg(nodig),
                   plek);
}

void controleerSoort(int soort, SourceLocation plek = SourceLocation::current()) {
    controleerIndex(soort, 3, plek);
}

} // namespace

ModData::ModData(Programma& p) : p(p) {}

bool ModData::verbonden() {
    return p.modMain.Verbonden() && p.kanaal;
}

QString ModData::haal(const QString& bericht, const QString& sectie, const QString& sleutel,
                      int echo) {
    if (const auto antwoord = p.modMain.Vraag(bericht)) {
        const QString waarde = antwoord->mid(echo);
        cache.write(sectie, sleutel, waarde);
        return waarde;
    }
    return cache.read(sectie, sleutel);
}

void ModData::zetLaadbalk(bool zichtbaar, int waarde, int maximum, const QString& tekst) {
    laadbalk.zichtbaar = zichtbaar;
    laadbalk.waarde = waarde;
    laadbalk.maximum = maximum;
    laadbalk.tekst = tekst;
    if (p.startScreenEvents)
        p.startScreenEvents->laadbalkGewijzigd();
}

// --- classes and teachers

void ModData::laadBlokken(const QString& snc, const QString& da, const QString& sectie,
                          QString& laatsteID,
                          const std::function<void(int, const QStringList&)>& zet) {
    const QStringList info = haal(snc, sectie, t("Info")).split(wire::valueSep);
    const int laatsteBlok = getal(info[0]);
    controleerIndex(1, info.size());
    laatsteID = info[1].isEmpty() ? t("1") : info[1];
    int rij = 0;
    for (int blok = 0; blok <= laatsteBlok; ++blok) {
        const QString nummer = QString::number(blok);
        // The answer repeats the number and one separator character before the records.
        const QString tekst = haal(da + nummer, sectie, nummer, int(nummer.size()) + 1);
        if (tekst.isEmpty())
            continue;
        for (const QString& record : tekst.split(wire::recordSep))
            zet(rij++, record.split(wire::fieldSep));
    }
}

void ModData::LaadKlassen() {
    Procedure(p, "modData.LaadKlassen", [&] {
        laadBlokken(wire::LDNKLSSNC, wire::LDNKLSDA, t("Groepen"), LaatsteKlasID,
                    [this](int rij, const QStringList& v) {
                        controleerIndex(rij, KlassenRijen);
                        controleerVelden(v, 12);
                        // Field 0 is read and dropped; field n is column n-1.
                        for (int n = 1; n <= 11; ++n)
                            Klassen(rij, n - 1) = v[n];
                        if (v[11].isEmpty())
                            Klassen(rij, 10) = t("Standaard");
                        if (v.size() >= 13)
                            Klassen(rij, 11) = v[12];
                        if (v.size() >= 14)
                            Klassen(rij, 12) = v[13];
                        Klassen(rij, 13).clear();
                    });
    });
}

void ModData::LaadLeraren() {
    Procedure(p, "modData.LaadLeraren", [&] {
        laadBlokken(wire::LDNLRNSNC, wire::LDNLRNDA, t("Leerkrachten"), LaatsteLeraarID,
                    [this](int rij, const QStringList& v) {
                        controleerIndex(rij, LerarenRijen);
                        controleerVelden(v, 15);
                        for (int n = 0; n <= 13; ++n)
                            Leraren(rij, n) = v[n];
                        // The server sends the categories before the theme.
                        Leraren(rij, 15) = v[14];
                        Leraren(rij, 14) = v.size() >= 16 ? v[15] : t("Jungle (standaard)");
                        Leraren(rij, 16).clear();
                    });
    });
}

// --- categories and applications

void ModData::LaadCategorien(int soort) {
    Procedure(p, "modData.LaadCategorien", [&] {
        controleerSoort(soort);
        FixedTable& tabel = Categorien[soort];
        const QString letter = QString(wire::kindLetters[soort]);
        const QString sleutel = QString::number(soort);
        QString antwoord;
        if (const auto a = p.modMain.Vraag(wire::LDNCA + letter, ModMain::KlasseA,
                                           [&] { tabel.leegmaken(); })) {
            antwoord = *a;
            cache.write(t("Categorien"), sleutel, antwoord);
        } else {
            antwoord = cache.read(t("Categorien"), sleutel);
        }
        const QStringList elementen = antwoord.split(wire::fieldSep);
        LaatsteCategorieID[soort] = elementen[0];
        for (int i = 1; i < elementen.size(); ++i) {
            const QStringList waarden = elementen[i].split(wire::valueSep);
            controleerIndex(i - 1, CategorieRijen);
            controleerVelden(waarden, 2);
            tabel(i - 1, 0) = waarden[0];
            tabel(i - 1, 1) = waarden[1];
        }
    });
}

void ModData::LaadApplicaties(int soort) {
    LaadbalkWeg balk{this};
    Procedure(p, "modData.LaadApplicaties", [&] {
        controleerSoort(soort);
        FixedTable& tabel = Applicaties[soort];
        const QString voorvoegsel = wire::LDNAP + QString(wire::kindLetters[soort]);
        const QString sectie = t("Applicaties: ") + QString::number(soort);
        QString info;
        // The command goes out first, then the table is cleared, then the answer is awaited.
        if (const auto a = p.modMain.Vraag(voorvoegsel + wire::SNC, ModMain::KlasseA,
                                           [&] { tabel.leegmaken(); })) {
            info = *a;
            cache.write(sectie, t("Info"), info);
        } else {
            info = cache.read(sectie, t("Info"));
        }
        const QStringList delen = info.split(wire::valueSep);
        const int aantal = getal(delen[0]);
        controleerIndex(1, delen.size());
        LaatsteApplicatieID[soort] = delen[1];
        if (aantal > 0) {
            balk.aan = true;
            zetLaadbalk(true, 0, aantal);
        }
        for (int i = 1; i <= aantal; ++i) {
            const QString nummer = QString::number(i);
            const QStringList v =
                haal(voorvoegsel + wire::DAT + nummer, sectie, nummer).split(wire::itemSep);
            controleerIndex(i - 1, ApplicatieRijen);
            controleerVelden(v, 8);
            for (int k = 0; k <= 6; ++k)
                tabel(i - 1, k) = v[k];
            tabel(i - 1, 8) = v[7];
            zetLaadbalk(true, i, aantal,
                        p.modTaal.LaadTekst(2900 + soort)
                            .replace(t("%aantal%"), nummer)
                            .replace(t("%totaal%"), QString::number(aantal)));
        }
    });
}

// --- the smaller sets

void ModData::LaadAccounts() {
    Procedure(p, "modData.LaadAccounts", [&] {
        QStringList lijst{t("ONDERHOUD|ONDERHOUD"), t("GLOBAL|GLOBAL")};
        for (int rij = 0; rij < KlassenRijen; ++rij)
            if (!Klassen(rij, 0).isEmpty())
                lijst.append(t("KLAS|") + Klassen(rij, 4) + QLatin1Char('|') + Klassen(rij, 6));
        for (int rij = 0; rij < LerarenRijen; ++rij)
            if (!Leraren(rij, 0).isEmpty())
                lijst.append(t("LERAAR|") + Leraren(rij, 0) + QLatin1Char('|') + Leraren(rij, 5));
        Accounts = lijst;
    });
}

void ModData::LaadWachtwoorden() {
    Procedure(p, "modData.LaadWachtwoorden", [&] {
        Wachtwoorden = haal(wire::LDNWCH, t("Algemeen"), t("Wachtwoorden")).split(wire::recordSep);
    });
}

void ModData::LaadOverigeInstellingen() {
    Procedure(p, "modData.LaadOverigeInstellingen", [&] {
        Overige = haal(wire::LDNOVR, t("Algemeen"), t("Overige")).split(wire::fieldSep);
    });
}

void ModData::LaadModules() {
    Procedure(p, "modData.LaadModules", [&] {
        const QStringList modules =
            haal(wire::LDNMOD, t("Algemeen"), t("Printermodule")).split(wire::valueSep);
        Printermodule = Ansi::hoofdletters(modules.value(0)) == u"JA";
        ActiveDirectoryModule = Ansi::hoofdletters(modules.value(1)) == u"JA";
        Printers = haal(wire::LDNPRN, t("Algemeen"), t("Printers"));
    });
}

void ModData::LaadVerbodenWoorden() {
    LaadbalkWeg balk{this};
    Procedure(p, "modData.LaadVerbodenWoorden", [&] {
        const int paginas =
            getal(haal(wire::LDNIVWINF, t("Internetfilter"), t("Verboden woorden")));
        if (paginas > 5) {
            balk.aan = true;
            zetLaadbalk(true, 0, paginas);
        }
        QStringList woorden;
        for (int i = 1; i <= paginas; ++i) {
            const QString nummer = QString::number(i);
            QString pagina = haal(wire::LDNIVWPA + nummer, t("Internetfilter"), t("V") + nummer);
            woorden.append(pagina.remove(t("PA") + nummer));
            if (balk.aan)
                zetLaadbalk(true, i, paginas,
                            p.modTaal.LaadTekst(2903)
                                .replace(t("%aantal%"), nummer)
                                .replace(t("%totaal%"), QString::number(paginas)));
        }
        VerbodenWoorden = woorden.join(wire::valueSep);
    });
}

void ModData::LaadToegestaneSites() {
    Procedure(p, "modData.LaadToegestaneSites",
              [&] { ToegestaneSites = haal(wire::LDNITS, t("Internetfilter"), t("T1")); });
}

QString ModData::haalApart(const char* procedure, const QString& bericht, const QString& sectie,
                           const QString& sleutel) {
    // Outside a load the sealed cache is opened for this one answer and sealed again when the
    // answer changed it.
    const bool eigen = !cache.isOpen();
    SealedCache los;
    SealedCache& c = eigen ? los : cache;
    const QString pad = p.modMain.Pad(t(CacheBestand));
    bool leesbaar = true;
    if (eigen) {
        try {
            c.open(pad);
        } catch (const Fout& f) {
            // A cache that can't be read is reported and left on disk as it is.
            leesbaar = false;
            meldProcedureFout(p, procedure, f.omschrijving(), QString::number(f.lijn()), false);
        }
    }
    if (const auto antwoord = p.modMain.Vraag(bericht)) {
        c.write(sectie, sleutel, *antwoord);
        if (eigen && leesbaar) {
            p.modMain.MaakMappen(t("\\Data"));
            c.seal(pad);
        }
        return *antwoord;
    }
    return c.read(sectie, sleutel);
}

Favorieten ModData::LaadFavorieten(const QString& eigenaar) {
    return Procedure(p, "modData.LaadFavorieten", Favorieten(), [&] {
        return Favorieten::uitAntwoord(haalApart("modData.LaadFavorieten", wire::LDNFAV + eigenaar,
                                                 t("Favorieten"), eigenaar));
    });
}

QString ModData::LaadApplicatiePosities(int soort, const QString& id) {
    return Procedure(p, "modData.LaadApplicatiePosities", QString(), [&] {
        // The key puts the kind before the ID; the command the letter.
        const QString antwoord = haalApart(
            "modData.LaadApplicatiePosities", wire::LDNAPPPOS + (soort == 0 ? t("K") : t("L")) + id,
            t("Applicaties: posities"), QString::number(soort) + QLatin1Char('|') + id);
        p.modMain.Antwoord = antwoord;
        // The dispatcher keeps the text from the command's seventh character: "POS" first.
        return antwoord.startsWith(t("POS")) ? antwoord.mid(3) : antwoord;
    });
}

void ModData::VerstuurFoutrapporten() {
    Procedure(p, "modData.VerstuurFoutrapporten", [&] {
        if (!verbonden())
            return;
        const QString bestand = t(FrmFoutrapportage::Bestand);
        auto lees = [&](const QString& sectie, const char* sleutel) {
            return p.modMain.LeesIni(sectie, t(sleutel), bestand);
        };
        const int laatste = getal(lees(t("Foutrapportage"), "Laatste ID"));
        QStringList open;
        for (int id = 1; id <= laatste; ++id) {
            const QString sectie = QStringLiteral("ID=%1").arg(id);
            if (Ansi::hoofdletters(lees(sectie, "Verstuurd")) == u"NEE")
                open.append(sectie);
        }
        if (open.isEmpty())
            return;
        FrmFoutrapportage& f = p.frmFoutrapportage;
        for (int i = 0; i < open.size(); ++i) {
            const QString& sectie = open[i];
            zetLaadbalk(true, i + 1, int(open.size()),
                        p.modTaal.LaadTekst(2904)
                            .replace(t("%aantal%"), QString::number(i + 1))
                            .replace(t("%totaal%"), QString::number(open.size())));
            f.Datum = lees(sectie, "Datum");
            f.Tijd = lees(sectie, "Tijd");
            f.Rapporteur = lees(sectie, "Rapporteur");
            f.Computernaam = lees(sectie, "Computernaam");
            f.Windows = lees(sectie, "Windows");
            f.Applicatie = lees(sectie, "Applicatie");
            f.Module = lees(sectie, "Module");
            f.Procedure = lees(sectie, "Procedure");
            f.Lijn = lees(sectie, "Lijn");
            f.Omschrijving = lees(sectie, "Omschrijving");
            ModMain& m = p.modMain;
            m.AntwoordOntvangen = false;
            p.kanaal->WS_Versturen(wire::HLPOPS + f.HlpopsRecord(), false);
            const auto uitkomst = p.wacht.Tot([&m] { return m.AntwoordOntvangen; },
                                              p.platform.clock().msecsSinceStart() + 5000);
            // A report the server did not take stays for the next load.
            if (uitkomst == Wacht::Uitkomst::Voldaan)
                p.modMain.SchrijfIni(t("Ja"), sectie, t("Verstuurd"), bestand);
            if (!verbonden())
                break;
        }
        zetLaadbalk(false);
    });
}

} // namespace tk
