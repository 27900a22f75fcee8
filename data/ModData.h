#pragma once

#include "data/Favorieten.h"
#include "data/FixedTable.h"
#include "data/SealedCache.h"
#include "link/NameLookup.h"

#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

namespace tk {

class Programma;

// modData: the global tables of classes, teachers, categories and applications and the smaller
// data sets, their loaders (from the server with a link, from the offline cache without one),
// the lookups every screen uses, and the saves and deletes with their wire payloads.
class ModData : public NameLookup {
public:
    explicit ModData(Programma& p);

    // --- the tables. A row is free when its first column is empty.
    static constexpr int KlassenRijen = 21, KlassenKolommen = 14;
    static constexpr int LerarenRijen = 100, LerarenKolommen = 17;
    static constexpr int CategorieRijen = 20, ApplicatieRijen = 200, ApplicatieKolommen = 10;

    FixedTable Klassen{KlassenRijen, KlassenKolommen};
    FixedTable Leraren{LerarenRijen, LerarenKolommen};
    // By kind: 0 class, 1 teacher, 2 general. The teacher kind's categories have no third
    // (tree key) column.
    std::array<FixedTable, 3> Categorien{FixedTable(CategorieRijen, 3),
                                         FixedTable(CategorieRijen, 2),
                                         FixedTable(CategorieRijen, 3)};
    std::array<FixedTable, 3> Applicaties{FixedTable(ApplicatieRijen, ApplicatieKolommen),
                                          FixedTable(ApplicatieRijen, ApplicatieKolommen),
                                          FixedTable(ApplicatieRijen, ApplicatieKolommen)};
    QString LaatsteKlasID;
    QString LaatsteLeraarID;
    std::array<QString, 3> LaatsteCategorieID;
    std::array<QString, 3> LaatsteApplicatieID;

    // --- the smaller sets
    // "ONDERHOUD|ONDERHOUD", "GLOBAL|GLOBAL", "KLAS|<account>|<id>", "LERAAR|<last name>|<id>".
    QStringList Accounts;
    // The teachers' password, then the maintenance password.
    QStringList Wachtwoorden;
    // Start page, e-mail to, school name, e-mail sender, theme, language.
    QStringList Overige;
    bool Printermodule = false;
    bool ActiveDirectoryModule = false;
    QString Printers; // "name|share" items joined by "><"
    QString VerbodenWoorden;
    QString ToegestaneSites;

    // --- the loaders (each reports its own faults and keeps what it stored before one)
    void LaadKlassen();
    void LaadLeraren();
    void LaadCategorien(int soort);
    void LaadApplicaties(int soort);
    void LaadAccounts();
    void LaadWachtwoorden();
    void LaadOverigeInstellingen();
    void LaadModules();
    void LaadVerbodenWoorden();
    void LaadToegestaneSites();
    // These two run after the load: they open and seal the cache themselves.
    Favorieten LaadFavorieten(const QString& eigenaar);
    QString LaadApplicatiePosities(int soort, const QString& id);
    // Sends the stored fault reports that did not reach the server.
    void VerstuurFoutrapporten();

    // --- lookups
    int ZoekAppLijstID(int soort, const QString& id);   // 0 when none (as row 0)
    int ZoekAppLijstIDEx(int soort, const QString& id); // -1 when none
    int ZoekLijstID(int soort, const QString& id);      // 0 classes, 1 teachers; 0 when none
    int ZoekCatLijstID(int soort, const QString& id);   // numeric compare; 0 when none
    void ApplicatiesSorteren(int soort, QStringList& collectie);
    QString ZoekPrinterNaam(const QString& printer);

    // --- saves and deletes
    bool OpslaanVerbodenWoorden();
    bool OpslaanToegestaneSites();
    bool OpslaanFavorieten(const QString& eigenaar, const Favorieten& favorieten);
    bool Opslaan_Instellingen(const QString& instellingen);
    // The messages of a class and a teacher record, and of all teachers at once.
    QString KlasBericht(int rij, bool metAccountExtra = true);
    QString LeraarBericht(int rij);
    QString LerarenBericht(const QString& tekst);
    // Sends a record and waits for the server's answer (its ID, or "FOUT"); a new record (ID
    // "0" or "kopie<ID>") takes the ID the server gave. Empty when there is no link.
    QString OpslaanKlasRecord(int rij, bool metAccountExtra = true);
    QString OpslaanLeraarRecord(int rij);
    bool OpslaanAlleLerarenRecord(const QString& tekst);
    // VWNKLS / VWNLRN: on any answer but "FOUT" (or no link) the later rows move up one place.
    bool VerwijderKlas(int rij);
    bool VerwijderLeraar(int rij);

    // The name of a class or teacher for the location text: ("GROEP", id) gives the class's
    // name, ("LERAAR", id) "last, first middle". Empty when unknown.
    QString naamVan(const QString& soort, const QString& id) const override;

    // --- the loading bar of the start screen, painted by the screen's view
    struct Laadbalk {
        bool zichtbaar = false;
        int waarde = 0;
        int maximum = 0;
        QString tekst;
    };
    Laadbalk laadbalk;

    // The clear cache of the present load (opened and sealed by modMain.Laden).
    SealedCache cache;
    static constexpr const char* CacheBestand = "\\Data\\data.tijdelijk";
    static constexpr const char* PlatBestand = "\\Data\\Tijdelijk.ini";

private:
    // Hides the loading bar at the end of a loader that showed it, however the loader ends.
    struct LaadbalkWeg {
        ModData* d;
        bool aan = false;
        ~LaadbalkWeg() {
            if (aan)
                d->zetLaadbalk(false);
        }
    };
    // An answer of class A: with a link the request is sent and its answer (less `echo`
    // characters) written to the cache; without one, or when the link went while waiting, the
    // cache is read.
    QString haal(const QString& bericht, const QString& sectie, const QString& sleutel,
                 int echo = 0);
    bool verbonden();
    void laadBlokken(const QString& snc, const QString& da, const QString& sectie,
                     QString& laatsteID, const std::function<void(int, const QStringList&)>& zet);
    void zetLaadbalk(bool zichtbaar, int waarde = 0, int maximum = 0, const QString& tekst = {});
    // haal() for a loader that also runs outside a load (favourites, positions).
    QString haalApart(const char* procedure, const QString& bericht, const QString& sectie,
                      const QString& sleutel);

    Programma& p;
};

} // namespace tk
