#include "session/Uitrol.h"

#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/session/SessieWerkplek.h"
#include "tests/support/ScriptedPeer.h"

#include <gtest/gtest.h>

using namespace tk;
using namespace tk::test;

namespace {

TEST(UitrolTest, ScriptedTakeOverAndHandBackEndWithACodeAndLeaveTheSessionRunning) {
    struct Rij {
        const char* naam;
        QStringList argumenten;
        bool schrijfbaar;
        const char* geweigerd; // the verb the machine refuses, "" none
        int code;
        const char* geactiveerd;
        bool shellIsOns;
    };
    const QString a = QStringLiteral("--activeren"), d = QStringLiteral("--deactiveren"),
                  modus = QStringLiteral("--modus");
    const QString twee = QStringLiteral("2");
    const Rij rijen[] = {
        {"standalone", {a, modus, QStringLiteral("standalone")}, true, "", 0, "Ja", true},
        {"network",
         {a, modus, QStringLiteral("Netwerk"), QStringLiteral("--server"), QStringLiteral("@")},
         true,
         "",
         0,
         "Ja",
         true},
        {"no mode given or stored", {a}, true, "", 3, "", false},
        {"an unknown option", {a, QStringLiteral("--stil")}, true, "", 2, "", false},
        {"both at once", {a, d}, true, "", 2, "", false},
        {"a read-only store", {a, modus, twee}, false, "", 4, "", false},
        {"net refused: no account, no change of the shell",
         {a, modus, twee},
         true,
         "net",
         5,
         "",
         false},
        {"no sudo right for the session: nothing of the logon",
         {a, modus, twee},
         true,
         "session-install",
         6,
         "Nee",
         false},
        {"no sudo right for the logon",
         {a, modus, QStringLiteral("1")},
         true,
         "autologon-set",
         6,
         "Nee",
         false},
        {"hand-back", {d, modus, QStringLiteral("netwerk")}, true, "", 0, "Nee", false},
    };
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        SessieWerkplek w;
        w.platform.fakeClock().setStepPerRead(10);
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        test::ScriptedPeer server;
        server.op(QStringLiteral("FIR"), QStringLiteral("FIR"));
        const QString locatie = QStringLiteral("127.0.0.1:%1").arg(server.poort());
        QStringList argumenten = rij.argumenten;
        argumenten.replaceInStrings(QStringLiteral("@"), locatie);
        if (!argumenten.contains(u"--server"))
            argumenten << QStringLiteral("--server") << locatie;
        w.systeem.refused << QString::fromLatin1(rij.geweigerd);
        if (qstrcmp(rij.geweigerd, "net") != 0)
            w.systeem.outputs.insert(QStringLiteral("net"),
                                     QStringLiteral("The command completed successfully.\n"));
        w.platform.fakeRegistry().setWritable(rij.schrijfbaar);
        QString tekst;
        QTextStream uit(&tekst);
        const int code = Uitrol(w.p, w.sessie, uit).Uitvoeren(argumenten);
        EXPECT_EQ(rij.code, code) << tekst.toStdString();
        EXPECT_TRUE(tekst.contains(u"tafelkrater: "));
        EXPECT_EQ(QString::fromLatin1(rij.geactiveerd),
                  w.p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Geactiveerd"),
                                      QStringLiteral("\\Data\\Instellingen.ini")));
        EXPECT_EQ(rij.shellIsOns, w.sessie.IsShellIngesteld());
        EXPECT_FALSE(w.systeem.actions.contains(u"logoff")) << "the administrator restarts";
        EXPECT_FALSE(w.p.beeindigd);
    }
}

} // namespace
