#pragma once

#include "screens/taskbar/FrmTaakbalk2.h"
#include "tests/support/OpnameSchermen.h"
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace tk::test {

// A workstation with the default theme and the desktop's taskbar over the fake window system,
// the desktop up. The bar's window is handle 5; the programs' windows are what a test puts in
// vensters().windows.
struct TaakbalkWerkplek : Werkplek {
    TaakbalkWerkplek() {
        kopieerThema();
        p.maak(p.modThema, p);
        p.modThema->LaadThema();
        p.maak(p.frmTaakbalk2, p);
        p.BureaubladOpen = true;
        balk().VensterHandle = [] { return quint64(5); };
        balk().onChanged = [this] { ++hertekend; };
        p.schermen = &schermen;
        const auto noteer = [this](const char* actie) {
            return [this, actie] { acties << QString::fromLatin1(actie); };
        };
        QObject::connect(&balk(), &FrmTaakbalk2::internetGevraagd, noteer("InternetWeergeven"));
        QObject::connect(&balk(), &FrmTaakbalk2::bureaubladGevraagd, noteer("BureaubladWeergeven"));
        QObject::connect(&balk(), &FrmTaakbalk2::afmeldenGevraagd, noteer("Afmelden"));
        QObject::connect(&balk(), &FrmTaakbalk2::onderhoudGevraagd, noteer("Onderhoud"));
        balk().Form_Load();
        balk().tmrTaken.stop(); // a test ticks by hand
        balk().tmrMuis.stop();
        vensters().log.clear();
    }
    FrmTaakbalk2& balk() { return *p.frmTaakbalk2; }
    FakeWindows& vensters() { return platform.fakeWindows(); }

    // An ordinary program window.
    static WindowInfo venster(quint64 handle, const QString& titel) {
        WindowInfo w;
        w.handle = handle;
        w.title = titel;
        return w;
    }
    void programma(quint64 handle, const QString& titel) {
        vensters().windows.append(venster(handle, titel));
    }
    void tik() { balk().tmrTaken_Timer(); }

    // The titles of the task buttons in their order.
    QStringList knopTitels() {
        QStringList uit;
        for (int i = 0; i < balk().AantalKnoppen; ++i)
            uit << balk().Knoppen(i, FrmTaakbalk2::Titel);
        return uit;
    }
    int kolom(int rij, FrmTaakbalk2::Kolom k) { return balk().Knoppen(rij, k).toInt(); }
    // The middle of task button `rij`.
    QPoint midden(int rij) {
        return QPoint(
            (kolom(rij, FrmTaakbalk2::KaderLinks) + kolom(rij, FrmTaakbalk2::KaderRechts)) / 2,
            balk().Hoogte / 2);
    }
    // Everything the log book holds.
    QString logboek() const {
        QString alles;
        QDirIterator it(pad(QStringLiteral("Logboek")), QDir::Files);
        while (it.hasNext()) {
            QFile f(it.next());
            f.open(QIODevice::ReadOnly);
            alles += QString::fromUtf8(f.readAll());
        }
        return alles;
    }

    void kopieerThema() {
        kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/1/"));
    }

    int hertekend = 0;
    OpnameSchermen schermen;
    QStringList& acties = schermen.log;
};

} // namespace tk::test
