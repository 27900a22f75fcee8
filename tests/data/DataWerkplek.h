#pragma once

#include "core/Ansi.h"
#include "core/Form.h"
#include "data/ModData.h"
#include "data/ModMainLaden.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QStringList>

namespace tk::test {

// A Network workstation with the link and the data layer; the server location points at
// `poort` when one is given. Fault reports are recorded by procedure instead of shown.
struct DataWerkplek {
    explicit DataWerkplek(quint16 poort = 0) {
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        w.p.maak(w.p.modData, w.p);
        w.p.maak(w.p.modMainLaden, w.p);
        w.p.modMainVerbinding->namen = w.p.modData;
        w.p.modMain.ModusNetwerk = true;
        w.p.modMain.MaakMappen(QStringLiteral("\\Data"));
        if (poort)
            w.p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(poort),
                                   QStringLiteral("Instellingen"), QStringLiteral("Serverlocatie"),
                                   QString::fromLatin1(ModMain::Instellingen));
        // Every read of the clock moves it on, so that deadlines pass quickly.
        w.platform.fakeClock().setStepPerRead(100);
        w.dialogen.opModaal = [this](Form& f) {
            if (&f == &w.p.frmFoutrapportage)
                rapporten.append(w.p.frmFoutrapportage.Procedure);
        };
    }
    ModData& d() { return *w.p.modData; }
    bool verbind() {
        return w.p.modMainVerbinding->BepaalServerlocatie() && w.p.frmMain->ServerVerbinden(true);
    }
    // Connects, identifies the client and runs the whole load.
    void laadOnline() {
        if (verbind())
            w.p.modMainVerbinding->IdentificeerClient();
        w.p.modMainLaden->Laden();
    }
    QByteArray cache() const { return w.lees(QStringLiteral("Data/data.tijdelijk")); }
    void pompVoor(int ms) {
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < ms)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    Werkplek w;
    QStringList rapporten;
};

// Everything the loaders fill, as lines of text, so that two loads compare with a readable diff.
inline QStringList alleGegevens(ModData& d) {
    QStringList uit;
    auto tabel = [&](const QString& naam, const FixedTable& t) {
        for (int r = 0; r < t.rijen(); ++r)
            if (!t.rij(r).join(QString()).isEmpty())
                uit.append(naam + QStringLiteral("[%1] ").arg(r) +
                           t.rij(r).join(QStringLiteral("~")));
    };
    tabel(QStringLiteral("Klassen"), d.Klassen);
    tabel(QStringLiteral("Leraren"), d.Leraren);
    for (int s = 0; s < 3; ++s) {
        tabel(QStringLiteral("Categorien%1").arg(s), d.Categorien[s]);
        tabel(QStringLiteral("Applicaties%1").arg(s), d.Applicaties[s]);
        uit.append(QStringLiteral("LaatsteCategorieID%1 ").arg(s) + d.LaatsteCategorieID[s]);
        uit.append(QStringLiteral("LaatsteApplicatieID%1 ").arg(s) + d.LaatsteApplicatieID[s]);
    }
    uit.append(QStringLiteral("LaatsteKlasID ") + d.LaatsteKlasID);
    uit.append(QStringLiteral("LaatsteLeraarID ") + d.LaatsteLeraarID);
    uit.append(QStringLiteral("Accounts ") + d.Accounts.join(QStringLiteral("~")));
    uit.append(QStringLiteral("Wachtwoorden ") + d.Wachtwoorden.join(QStringLiteral("~")));
    uit.append(QStringLiteral("Overige ") + d.Overige.join(QStringLiteral("~")));
    uit.append(QStringLiteral("Modules %1 %2 ").arg(d.Printermodule).arg(d.ActiveDirectoryModule) +
               d.Printers);
    uit.append(QStringLiteral("VerbodenWoorden ") + d.VerbodenWoorden);
    uit.append(QStringLiteral("ToegestaneSites ") + d.ToegestaneSites);
    return uit;
}

} // namespace tk::test
