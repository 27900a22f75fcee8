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
        const char* argumenten; // "@" is the scripted server's location
        bool schrijfbaar;
        const char* geweigerd; // the verb the machine refuses, "" none
        int code;
        const char* geactiveerd;
        bool shellIsOns;
    };
    // clang-format off
    const Rij rijen[] = {
        {"standalone", "--activeren --modus standalone", true, "", 0, "Ja", true},
        {"network", "--activeren --modus Netwerk --server @", true, "", 0, "Ja", true},
        {"no mode given or stored", "--activeren", true, "", 3, "", false},
        {"an unknown option", "--activeren --stil", true, "", 2, "", false},
        {"both at once", "--activeren --deactiveren", true, "", 2, "", false},
        {"a read-only store", "--activeren --modus 2", false, "", 4, "", false},
        {"net refused: no account, no change of the shell", "--activeren --modus 2", true, "net", 5, "", false},
        {"no sudo right for the session: nothing of the logon", "--activeren --modus 2", true, "session-install", 6, "Nee", false},
        {"no sudo right for the logon", "--activeren --modus 1", true, "autologon-set", 6, "Nee", false},
        {"hand-back", "--deactiveren --modus netwerk", true, "", 0, "Nee", false},
        {"hand-back, the logon refused", "--deactiveren --modus 1", true, "autologon-remove", 6, "Nee", false},
    };
    // clang-format on
    for (const Rij& rij : rijen) {
        SCOPED_TRACE(rij.naam);
        SessieWerkplek w;
        w.platform.fakeClock().setStepPerRead(10);
        w.p.maak(w.p.frmMain, w.p);
        w.p.maak(w.p.modMainVerbinding, w.p);
        test::ScriptedPeer server;
        server.op("FIR", "FIR");
        const QString locatie = QString("127.0.0.1:%1").arg(server.poort());
        QStringList argumenten = QString::fromLatin1(rij.argumenten).split(u' ');
        argumenten.replaceInStrings("@", locatie);
        if (!argumenten.contains(u"--server"))
            argumenten << "--server" << locatie;
        w.systeem.refused << QString::fromLatin1(rij.geweigerd);
        if (qstrcmp(rij.geweigerd, "net") != 0)
            w.systeem.outputs.insert("net", "The command completed successfully.\n");
        w.platform.fakeRegistry().setWritable(rij.schrijfbaar);
        QString tekst;
        QTextStream uit(&tekst);
        const int code = Uitrol(w.p, w.sessie, uit).Uitvoeren(argumenten);
        EXPECT_EQ(rij.code, code) << tekst.toStdString();
        EXPECT_TRUE(tekst.contains(u"tafelkrater: "));
        EXPECT_EQ(QString::fromLatin1(rij.geactiveerd), w.ini("Algemeen", "Geactiveerd"));
        EXPECT_EQ(rij.shellIsOns, w.sessie.IsShellIngesteld());
        EXPECT_FALSE(w.systeem.actions.contains(u"logoff")) << "the administrator restarts";
        EXPECT_FALSE(w.p.beeindigd);
    }
}

} // namespace
