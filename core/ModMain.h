#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QFile;

namespace tk {

class Programma;

// The program-wide procedures and values of the core: settings files, files and folders, the
// fault reporter and log book, the language, waits and questions, the reply slots of the link.
// The start-up procedures of the layers above are members of their own classes.
class ModMain {
public:
    explicit ModMain(Programma& p);
    ~ModMain();

    // --- settings store and file tree
    // A "\Data\x.ini" path (or a native absolute one) as a native path below the program folder.
    QString Pad(const QString& pad) const;
    // The profile function fills a buffer of 5000 characters: a value read ends at 4999.
    static constexpr qsizetype IniWaardeMax = 4999;
    QString LeesIni(const QString& sectie, const QString& sleutel, const QString& bestand);
    // The value comes first, as everywhere in the program.
    void SchrijfIni(const QString& waarde, const QString& sectie, const QString& sleutel,
                    const QString& bestand);
    // A folder counts as existing. A last part with * or ? is a pattern.
    bool BestandBestaat(const QString& pad);
    void MaakMappen(const QString& pad);
    // Deletes a file, trying up to ten times 500 ms apart with the pump running.
    void VerwijderBestand(const QString& pad);
    // The short form of a path; Linux has no other form, so this is the native path of an
    // existing file or folder, and empty for one that does not exist.
    QString KortPad(const QString& pad);
    void LaadWachttijden();

    // --- faults
    void Foutmelding(const QString& omschrijving, const QString& naam, const QString& procedure,
                     const QString& lijn, bool stil = false);
    void SchrijfLogboek(const QString& omschrijving, const QString& naam, const QString& procedure,
                        const QString& lijn);

    // --- language
    void LaadTaal();

    // --- waits, questions, the link
    void Wacht(qint64 ms);
    QString ToonVraag(const QString& titel, const QString& tekst, const QString& stijl);
    bool Verbonden();
    // The reply slot a question waits on: class A (AntwoordOntvangen, for ACD, LDN and INF
    // answers) or class B (AntwoordOpslaanOntvangen, for OPS and VWN answers: saves, deletes).
    enum Klasse { KlasseA, KlasseB };
    // The one wait for an answer of the server: clears the slot's flag, sends `bericht`, calls
    // `naVersturen` (a loader clears its table there), and pumps until the dispatcher raises the
    // flag. The answer, or nothing when there is no link or the link went while waiting.
    // There is deliberately no time limit: a question is answered or the link goes, and a lost
    // link ends every wait (the client then says so and restarts). A limit would have to guess
    // how long a server may take over a large save, and an edit that timed out would not know
    // whether the server had stored it.
    std::optional<QString> Vraag(const QString& bericht, Klasse klasse = KlasseA,
                                 const std::function<void()>& naVersturen = {});
    // The system's name, upper-cased by the caller where needed ("Windows XP").
    QString WindowsNaam();
    // "<major>.<minor>.<revision>" of this program.
    static QString ProgrammaVersie();
    // Whether version `nieuw` is greater than `oud`: three numeric parts each, compared as
    // numbers; anything else is not newer.
    static bool ControleerNieuwereVersie(const QString& nieuw, const QString& oud);
    // Breaks a text into lines of at most `breedte` characters, joined by `scheiding`: words
    // stay whole where they fit, blanks between words on a break are dropped, and a word longer
    // than a line is cut into pieces of `breedte` when `afbreken` (else it stands alone on its
    // own, longer line). Line breaks already in the text are kept.
    static QString WordWrapped_String(const QString& tekst, int breedte, const QString& scheiding,
                                      bool afbreken);

    // The command line of this run, upper-cased
    QString Opdrachtregel;

    // Modes and machine
    bool ModusStandalone = false;
    bool ModusNetwerk = false;
    bool ModusBeheer = false;
    bool IsWindows98 = false;
    bool StilActiveren = false;
    QString Gebruikersaccount;

    // Pauses from the settings file
    long Wachttijd = 500;
    double Verbindingspauze = 0;

    // Reply slots of the link: class A, class B, and the copy of the socket state
    QString Antwoord;
    bool AntwoordOntvangen = false;
    QString AntwoordOpslaan;
    bool AntwoordOpslaanOntvangen = false;
    bool VerbondenWaarde = false;
    // Where the user is, as last told to the server; the reporter of fault reports
    QString Locatie;

    static constexpr const char* Instellingen = "\\Data\\Instellingen.ini";
    // The built-in accounts of a workstation (everyone's start screen, the maintenance module)
    // and the one password they log on with.
    static QString GlobaalAccount() { return QStringLiteral("GLOBAL"); }
    static QString IngebouwdWachtwoord() { return QStringLiteral("Sleutelwrk42"); }

private:
    Programma& p;
    int m_rapportDiepte = 0;
    // Today's log-book file, kept open while it is still where it was found, so that a fault
    // costs one write.
    QString m_logboekNaam;
    std::unique_ptr<QFile> m_logboek;
};

} // namespace tk
