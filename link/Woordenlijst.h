#pragma once

#include <QString>

namespace tk {

// The wire vocabulary as the client reads it: every received message is sorted into a reply
// class by testing its first characters in a fixed order (exact and case-sensitive). A pure
// function, so that it can be tested as a table and fuzzed.
class Woordenlijst {
public:
    enum class Klasse {
        A, // payload to Antwoord, AntwoordOntvangen set
        B, // payload to AntwoordOpslaan, AntwoordOpslaanOntvangen set
        C, // a bare acknowledgement: BevestigdBericht set
        D  // acted on at once, or dropped
    };
    enum class Actie { Geen, Ping, Fir, Infdmn, Infona, Infonc, Vallen };
    struct Sortering {
        Klasse klasse = Klasse::D;
        Actie actie = Actie::Vallen; // Vallen: the message matches nothing and is dropped
        bool metPayload = false;     // false: the flag alone, the old text stays
        QString payload;
    };

    static Sortering sorteer(const QString& bericht);
};

} // namespace tk
