#pragma once

#include "data/ModData.h"
#include "screens/start/FrmMain.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/ModMainAfsluiten.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace tk::test {

// A workstation with the default theme as theme "1", the data tables, the start screen and its
// taskbar, as the client makes them.
struct ScreenWerkplek : Werkplek {
    ScreenWerkplek() {
        // Every read of the clock moves it on, so that the short pauses of the slides end.
        platform.fakeClock().setStepPerRead(5);
        kopieerThema();
        p.maak(p.modData, p);
        p.maak(p.modThema, p);
        p.modThema->LaadThema();
        p.maak(p.frmMain, p);
        p.maak(p.startScreen, p, *p.frmMain);
        p.startScreenEvents = p.startScreen;
        p.maak(p.frmTaakbalk1, p);
        p.maak(p.modMainAfsluiten, p);
    }
    FrmMain& f() { return *p.startScreen; }
    FrmTaakbalk1& balk() { return *p.frmTaakbalk1; }
    void kopieerThema() {
        kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/1/"));
    }
    // A class row: name, short name, picture, account, password, id, position.
    void klas(int rij, const QString& naam, const QString& kort, const QString& beeld = "1a.jpg",
              const QString& plek = "0,0") {
        FixedTable& k = p.modData->Klassen;
        k(rij, 0) = naam;
        k(rij, 1) = kort;
        k(rij, 2) = beeld;
        k(rij, 4) = "acc" + QString::number(rij);
        k(rij, 5) = "pw" + QString::number(rij);
        k(rij, 6) = QString::number(100 + rij);
        k(rij, 11) = plek;
    }
};

} // namespace tk::test
