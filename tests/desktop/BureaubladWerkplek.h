#pragma once

#include "core/CommandChannel.h"
#include "data/ModData.h"
#include "screens/desktop/FrmBureaublad.h"
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QStringList>

namespace tk::test {

// A command channel that answers the load requests it knows at once (as the dispatcher would
// fill the reply slot; the places of a desktop are empty unless given) and records everything
// that was sent.
class AntwoordKanaal : public CommandChannel {
public:
    explicit AntwoordKanaal(Programma& p) : p(p) {}
    bool isConnected() override { return verbonden; }
    void WS_Versturen(const QString& bericht, bool) override {
        verstuurd.append(bericht);
        const auto it = antwoorden.constFind(bericht);
        if (it != antwoorden.constEnd()) {
            p.modMain.Antwoord = *it;
            p.modMain.AntwoordOntvangen = true;
        } else if (bericht.startsWith(QStringLiteral("LDNAPPPOS"))) {
            // A desktop without stored places.
            p.modMain.Antwoord = QStringLiteral("POS");
            p.modMain.AntwoordOntvangen = true;
        }
    }
    Programma& p;
    bool verbonden = true;
    QHash<QString, QString> antwoorden;
    QStringList verstuurd;
};

// A workstation with the default theme as theme "1", the standard icon library, the data tables
// and the desktop, connected through an answering channel.
struct BureaubladWerkplek : Werkplek {
    BureaubladWerkplek() : kanaal(p) {
        kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/1/"));
        QDir().mkpath(pad(QStringLiteral("Afbeeldingen/Pictogrammen")));
        QFile::copy(QStringLiteral(TK_STANDARD_ICL),
                    pad(QStringLiteral("Afbeeldingen/Pictogrammen/standaard.icl")));
        p.kanaal = &kanaal;
        p.maak(p.modData, p);
        p.maak(p.modThema, p);
        p.modThema->LaadThema();
        p.maak(p.frmBureaublad, p);
        b().onChanged = [this] { ++hertekend; };
        b().Form_Load();
    }
    FrmBureaublad& b() { return *p.frmBureaublad; }
    ModData& d() { return *p.modData; }

    // A class row: name, ID, desktop, internet, background.
    void klas(int rij, const QString& naam, const QString& id, const QString& applicaties,
              const QString& internet = "Ja", const QString& achtergrond = "Bureaublad.jpg") {
        FixedTable& k = d().Klassen;
        k(rij, 0) = naam;
        k(rij, 1) = naam.left(2);
        k(rij, 3) = achtergrond;
        k(rij, 4) = "klas" + id;
        k(rij, 5) = "geheim";
        k(rij, 6) = id;
        k(rij, 7) = applicaties;
        k(rij, 8) = internet;
        k(rij, 10) = "1";
    }
    // A teacher row: last, first and middle name, ID, password, desktop.
    void leraar(int rij, const QString& achternaam, const QString& voornaam,
                const QString& tussenvoegsel, const QString& id, const QString& wachtwoord,
                const QString& applicaties = "", const QString& account = "") {
        FixedTable& l = d().Leraren;
        l(rij, 0) = achternaam;
        l(rij, 1) = "standaard|pictogram 3";
        l(rij, 2) = "Geen";
        l(rij, 3) = account.isEmpty() ? achternaam.toLower() : account;
        l(rij, 4) = wachtwoord;
        l(rij, 5) = id;
        l(rij, 6) = voornaam;
        l(rij, 7) = tussenvoegsel;
        l(rij, 8) = applicaties;
        l(rij, 9) = "Nee";
        l(rij, 14) = "1";
    }
    // An application of a kind in a row: ID, name, icon reference, command.
    void applicatie(int soort, int rij, const QString& id, const QString& naam,
                    const QString& pictogram = "standaard|3", const QString& opdracht = "/bin/true",
                    const QString& omschrijving = "-", const QString& categorie = "") {
        FixedTable& t = d().Applicaties[soort];
        t(rij, 0) = id;
        t(rij, 1) = naam;
        t(rij, 2) = categorie;
        t(rij, 3) = opdracht;
        t(rij, 4) = omschrijving;
        t(rij, 5) = pictogram;
        t(rij, 8) = "1024x768x32xNEE";
    }
    // The stored places of a class's or teacher's desktop, as the server gives them.
    void posities(const QString& eigenaar, const QString& tekst) {
        kanaal.antwoorden.insert("LDNAPPPOS" + eigenaar, "POS" + tekst);
    }
    // The drawn item of an Iconen row, or null.
    const FrmBureaublad::Icoon* icoon(int rij) {
        for (const auto& i : b().zichtbareIconen)
            if (i.rij == rij)
                return &i;
        return nullptr;
    }
    QPoint plek(int rij) {
        const auto* i = icoon(rij);
        return i ? i->beeld.topLeft() : QPoint(-1, -1);
    }

    AntwoordKanaal kanaal;
    int hertekend = 0;
};

} // namespace tk::test
