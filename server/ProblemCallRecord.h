#pragma once

#include "Store.h"

#include <QString>

namespace tk::server {

// The record of "HLPOPS" in its two layouts, told apart by their number of fields (";<>;"):
// - a fault report, 10 fields: Datum, Tijd, Computernaam, Rapporteur, Module, Applicatie,
//   description block, "Nee" (no screenshot), moment, type ("Error report");
// - a problem call of the help form, 8 fields: type (a value of the client), Computernaam,
//   Rapporteur, Module, Applicatie, description, screenshot "Ja"/"Nee", moment "d-m-yyyy h:nn:ss".
// Any other number of fields is refused.
class ProblemCallRecord {
public:
    struct Parsed {
        bool ok = false;
        QString error;
        Store::ProblemCall call;
        bool screenshotFollows = false;
    };
    static Parsed parse(const QString& record);
    // The types the overview of the client knows; anything else from a help form is "Manual".
    static QString knownType(const QString& text);
};

} // namespace tk::server
