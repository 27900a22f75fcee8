#pragma once

#include "core/CommandChannel.h"
#include "data/ModData.h"
#include "screens/desktop/FrmBureaubladStarter.h"
#include "screens/desktop/ModMainStarten.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/Werkplek.h"

#include <QStringList>
#include <memory>

namespace tk::test {

// A command channel that records what is sent and never answers.
class OpnameKanaal : public CommandChannel {
public:
    bool isConnected() override { return verbonden; }
    void WS_Versturen(const QString& bericht, bool wachten) override {
        verstuurd.append(bericht);
        gewacht.append(wachten);
    }
    bool verbonden = true;
    QStringList verstuurd;
    QList<bool> gewacht;
};

// A workstation with the data tables and the launcher of the desktop over the fake platform,
// connected through a recording channel.
struct DesktopWerkplek : Werkplek {
    DesktopWerkplek() {
        p.kanaal = &kanaal;
        p.maak(p.modData, p);
        starter = std::make_unique<FrmBureaubladStarter>(p);
        starter->VensterHandle = [] { return quint64(77); };
        starter->onChanged = [this] { ++hertekend; };
        starter->Tonen = [this] { ++getoond; };
        starter->taakbalk = &balk;
    }
    FrmBureaubladStarter& s() { return *starter; }
    ModMainStarten& starten() { return *p.modMainStarten; }
    // Moves the clock past the guard between two starts.
    void later(qint64 seconden = 3) { platform.fakeClock().advance(seconden * 1000); }
    // The row of an application of a kind: ID, name, command, icon, parameter, display demand.
    void applicatie(int soort, int rij, const QString& id, const QString& naam,
                    const QString& opdracht, const QString& pictogram = "standaard|3",
                    const QString& parameter = "", const QString& beeldscherm = "1024x768x32xNEE") {
        FixedTable& t = p.modData->Applicaties[soort];
        t(rij, 0) = id;
        t(rij, 1) = naam;
        t(rij, 3) = opdracht;
        t(rij, 5) = pictogram;
        t(rij, 6) = parameter;
        t(rij, 8) = beeldscherm;
    }

    OpnameKanaal kanaal;
    std::unique_ptr<FrmBureaubladStarter> starter;
    int hertekend = 0;
    int getoond = 0;
    OpnameTaakbalk balk;
    QStringList& taakbalk = balk.log;
};

} // namespace tk::test
