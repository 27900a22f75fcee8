#include "Woordenlijst.h"

#include "core/Wire.h"

#include <initializer_list>

namespace tk {

using namespace wire;

namespace {

using Klasse = Woordenlijst::Klasse;
using Actie = Woordenlijst::Actie;
using Sortering = Woordenlijst::Sortering;

bool begint(const QString& bericht, QLatin1StringView voorvoegsel) {
    return bericht.startsWith(voorvoegsel, Qt::CaseSensitive);
}

// The first of `voorvoegsels` the message begins with; an empty view when none.
QLatin1StringView begintMetEen(const QString& bericht,
                               std::initializer_list<QLatin1StringView> voorvoegsels) {
    for (const QLatin1StringView v : voorvoegsels)
        if (begint(bericht, v))
            return v;
    return {};
}

// The payload is the text after `kop`, which is the word tested, or for a few words a shorter
// family prefix whose remainder the receiving procedure strips itself.
Sortering met(Klasse klasse, const QString& bericht, QLatin1StringView kop,
              Actie actie = Actie::Geen) {
    return Sortering{klasse, actie, true, bericht.mid(kop.size())};
}

Sortering zonder(Klasse klasse, Actie actie = Actie::Geen) {
    return Sortering{klasse, actie, false, QString()};
}

Sortering vallen() {
    return Sortering{Klasse::D, Actie::Vallen, false, QString()};
}

} // namespace

Woordenlijst::Sortering Woordenlijst::sorteer(const QString& b) {
    QLatin1StringView w;
    // A word of a group: `w` is the one the message begins with.
    auto een = [&](std::initializer_list<QLatin1StringView> woorden) {
        w = begintMetEen(b, woorden);
        return !w.isEmpty();
    };
    if (begint(b, PIN))
        return zonder(Klasse::D, Actie::Ping);
    if (begint(b, TST) || begint(b, LOC))
        return zonder(Klasse::C);
    if (een({ACDCON, ACDNIE, ACDVWR}))
        return met(Klasse::A, b, w);
    if (begint(b, FIR))
        return met(Klasse::A, b, FIR, Actie::Fir);
    if (begint(b, INF)) {
        if (begint(b, INFVER) || begint(b, INFCOM))
            return zonder(Klasse::C);
        if (begint(b, INFDMN))
            return met(Klasse::C, b, INFDMN, Actie::Infdmn);
        if (begint(b, INFAFM) || begint(b, INFAFS))
            return zonder(Klasse::D, Actie::Geen);
        if (begint(b, INFOND))
            return met(Klasse::A, b, INFOND);
        if (begint(b, INFONA))
            return zonder(Klasse::D, Actie::Infona);
        if (begint(b, INFONC))
            return zonder(Klasse::D, Actie::Infonc);
        return zonder(Klasse::C);
    }
    if (begint(b, UPD)) {
        if (een({UPDVER, UPDOPHINF}))
            return met(Klasse::A, b, w);
        if (begint(b, UPDOPH))
            return vallen(); // UPDOPHREQ is answered by the transfer itself
        if (begint(b, UPDCON))
            return met(Klasse::A, b, UPDCON);
        return vallen();
    }
    if (begint(b, HLP)) {
        if (begint(b, HLPOPS))
            return zonder(Klasse::A);
        if (een({HLPSNC, HLPLDN, HLPVWN}))
            return met(Klasse::A, b, w);
        return vallen();
    }
    if (begint(b, BCK))
        return met(Klasse::A, b, BCK);
    if (begint(b, LDN)) {
        if (een({LDNKLSSNC, LDNLRNSNC, LDNKLSDA, LDNLRNDA, LDNCAK, LDNCAL, LDNCAA, LDNAPP}))
            return met(Klasse::A, b, w);
        if (een({LDNAPKSNC, LDNAPLSNC, LDNAPASNC, LDNAPKDAT, LDNAPLDAT, LDNAPADAT, LDNAPK, LDNAPL,
                 LDNAPA}))
            return met(Klasse::A, b, w);
        if (een({LDNPICWIJ, LDNPICGRP, LDNPICLRN, LDNPICALG}))
            return met(Klasse::A, b, w);
        if (een({LDNPICSTD, LDNPICGRL, LDNPICLRL, LDNPICALL}))
            return zonder(Klasse::A);
        if (begint(b, LDNPICPAK))
            return zonder(Klasse::C);
        if (begint(b, LDNPIC))
            return vallen();
        if (een({LDNWCH, LDNOVR, LDNTAA, LDNIVWINF}))
            return met(Klasse::A, b, w);
        // A page keeps "PA" and its number; the loader strips them.
        if (begint(b, LDNIVWPA))
            return met(Klasse::A, b, LDNIVW);
        if (begint(b, LDNIVW))
            return vallen();
        if (een({LDNITS, LDNFAV, LDNWSA, LDNSIN, LDNTHE, LDNTHD, LDNTHO}))
            return met(Klasse::A, b, w);
        if (begint(b, LDNTHV))
            return zonder(Klasse::A);
        if (begint(b, LDNGRP))
            return met(Klasse::A, b, LDNGRP);
        if (begint(b, LDNTH))
            return zonder(Klasse::A);
        if (een({LDNPRN, LDNMOD, LDNACC}))
            return met(Klasse::A, b, w);
        return vallen();
    }
    if (begint(b, OPS)) {
        if (een({OPSINS, OPSKLS, OPSKLZ, OPSLRN, OPSLRZ, OPSCAT, OPSAPP, OPSBEH, OPSFAV, OPSVBW,
                 OPSITS}))
            return met(Klasse::B, b, w);
        if (begint(b, OPSWAG) || begint(b, OPSSIN))
            return zonder(Klasse::B);
        if (begint(b, OPSAP2))
            return met(Klasse::A, b, OPSAP2);
        return vallen();
    }
    if (een({VWNKLS, VWNLRN, VWNAPP, VWNCAT}))
        return met(Klasse::B, b, w);
    return vallen();
}

} // namespace tk
