#include "Woordenlijst.h"

#include <initializer_list>

namespace tk {

namespace {

using Klasse = Woordenlijst::Klasse;
using Actie = Woordenlijst::Actie;
using Sortering = Woordenlijst::Sortering;

bool begint(const QString& bericht, const char* voorvoegsel) {
    return bericht.startsWith(QLatin1String(voorvoegsel), Qt::CaseSensitive);
}

bool begintMetEen(const QString& bericht, std::initializer_list<const char*> voorvoegsels) {
    for (const char* v : voorvoegsels)
        if (begint(bericht, v))
            return true;
    return false;
}

// Mid(n) of the original: the text from character n on, counted from 1.
Sortering met(Klasse klasse, const QString& bericht, int n, Actie actie = Actie::Geen) {
    return Sortering{klasse, actie, true, bericht.mid(n - 1)};
}

Sortering zonder(Klasse klasse, Actie actie = Actie::Geen) {
    return Sortering{klasse, actie, false, QString()};
}

Sortering vallen() {
    return Sortering{Klasse::D, Actie::Vallen, false, QString()};
}

} // namespace

Woordenlijst::Sortering Woordenlijst::sorteer(const QString& b) {
    if (begint(b, "PIN"))
        return zonder(Klasse::D, Actie::Ping);
    if (begint(b, "TST") || begint(b, "LOC"))
        return zonder(Klasse::C);
    if (begintMetEen(b, {"ACDCON", "ACDNIE", "ACDVWR"}))
        return met(Klasse::A, b, 7);
    if (begint(b, "FIR"))
        return met(Klasse::A, b, 4, Actie::Fir);
    if (begint(b, "INF")) {
        if (begint(b, "INFVER") || begint(b, "INFCOM"))
            return zonder(Klasse::C);
        if (begint(b, "INFDMN"))
            return met(Klasse::C, b, 7, Actie::Infdmn);
        if (begint(b, "INFAFM") || begint(b, "INFAFS"))
            return zonder(Klasse::D, Actie::Geen);
        if (begint(b, "INFOND"))
            return met(Klasse::A, b, 7);
        if (begint(b, "INFONA"))
            return zonder(Klasse::D, Actie::Infona);
        if (begint(b, "INFONC"))
            return zonder(Klasse::D, Actie::Infonc);
        return zonder(Klasse::C);
    }
    if (begint(b, "UPD")) {
        if (begint(b, "UPDVER"))
            return met(Klasse::A, b, 7);
        if (begint(b, "UPDOPHINF"))
            return met(Klasse::A, b, 10);
        if (begint(b, "UPDOPH"))
            return vallen(); // UPDOPHREQ is answered by the transfer itself
        if (begint(b, "UPDCON"))
            return met(Klasse::A, b, 7);
        return vallen();
    }
    if (begint(b, "HLP")) {
        if (begint(b, "HLPOPS"))
            return zonder(Klasse::A);
        if (begintMetEen(b, {"HLPSNC", "HLPLDN", "HLPVWN"}))
            return met(Klasse::A, b, 7);
        return vallen();
    }
    if (begint(b, "BCK"))
        return met(Klasse::A, b, 4);
    if (begint(b, "LDN")) {
        if (begint(b, "LDNKLSSNC") || begint(b, "LDNLRNSNC"))
            return met(Klasse::A, b, 10);
        if (begint(b, "LDNKLSDA") || begint(b, "LDNLRNDA"))
            return met(Klasse::A, b, 9);
        if (begintMetEen(b, {"LDNCAK", "LDNCAL", "LDNCAA", "LDNAPP"}))
            return met(Klasse::A, b, 7);
        if (begintMetEen(
                b, {"LDNAPKSNC", "LDNAPLSNC", "LDNAPASNC", "LDNAPKDAT", "LDNAPLDAT", "LDNAPADAT"}))
            return met(Klasse::A, b, 10);
        if (begintMetEen(b, {"LDNAPK", "LDNAPL", "LDNAPA"}))
            return met(Klasse::A, b, 7);
        if (begintMetEen(b, {"LDNPICWIJ", "LDNPICGRP", "LDNPICLRN", "LDNPICALG"}))
            return met(Klasse::A, b, 10);
        if (begintMetEen(b, {"LDNPICSTD", "LDNPICGRL", "LDNPICLRL", "LDNPICALL"}))
            return zonder(Klasse::A);
        if (begint(b, "LDNPICPAK"))
            return zonder(Klasse::C);
        if (begint(b, "LDNPIC"))
            return vallen();
        if (begintMetEen(b, {"LDNWCH", "LDNOVR", "LDNTAA"}))
            return met(Klasse::A, b, 7);
        if (begint(b, "LDNIVWINF"))
            return met(Klasse::A, b, 10);
        if (begint(b, "LDNIVWPA"))
            return met(Klasse::A, b, 7);
        if (begint(b, "LDNIVW"))
            return vallen();
        if (begintMetEen(b, {"LDNITS", "LDNFAV", "LDNWSA", "LDNSIN", "LDNTHE", "LDNTHD", "LDNTHO"}))
            return met(Klasse::A, b, 7);
        if (begint(b, "LDNTHV"))
            return zonder(Klasse::A);
        if (begint(b, "LDNGRP"))
            return met(Klasse::A, b, 7);
        if (begint(b, "LDNTH"))
            return zonder(Klasse::A);
        if (begintMetEen(b, {"LDNPRN", "LDNMOD", "LDNACC"}))
            return met(Klasse::A, b, 7);
        return vallen();
    }
    if (begint(b, "OPS")) {
        if (begintMetEen(b, {"OPSINS", "OPSKLS", "OPSKLZ", "OPSLRN", "OPSLRZ", "OPSCAT", "OPSAPP",
                             "OPSBEH", "OPSFAV", "OPSVBW", "OPSITS"}))
            return met(Klasse::B, b, 7);
        if (begint(b, "OPSWAG") || begint(b, "OPSSIN"))
            return zonder(Klasse::B);
        if (begint(b, "OPSAP2"))
            return met(Klasse::A, b, 7);
        return vallen();
    }
    if (begintMetEen(b, {"VWNKLS", "VWNLRN", "VWNAPP", "VWNCAT"}))
        return met(Klasse::B, b, 7);
    return vallen();
}

} // namespace tk
