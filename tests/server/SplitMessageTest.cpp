// The client's link against the real server through a network that cuts every long message into
// segments with pauses between them: each side reads such a message whole.
#include "RunningServer.h"
#include "WireClient.h"
#include "core/Programma.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/SplittingProxy.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using namespace tk::server;
using namespace tk::server::test;

TEST(SplitMessageTest, LongMessagesCutIntoSegmentsArriveWholeInBothDirections) {
    // Quiet times far above the pauses, so that a slow machine does not cut a message.
    RunningServer server([](ServerOptions& o) { o.pieceQuietMs = 500; });
    tk::test::SplittingProxy proxy(server.port(), 1400, 20);
    tk::test::Werkplek w(proxy.port(), tk::test::Werkplek::Rol::Netwerk);
    Programma& p = w.p;
    p.frmMain->Berichten.setQuietMs(500);
    ASSERT_TRUE(w.verbind());

    QStringList list;
    for (int i = 0; list.join(QLatin1Char('|')).size() < 5000; ++i)
        list << QString("school%1.example.nl").arg(i);
    const QString sites = list.join(QLatin1Char('|'));

    // Towards the server: a save of more than three segments is stored whole.
    p.frmMain->WS_Versturen("OPSITS" + sites, false);
    EXPECT_TRUE(waitFor([&] { return server.store().setting("allowed_sites") == sites; }));
    EXPECT_GE(proxy.splitToServer(), 1);

    // Towards the client: the answer of a load is one message, and the next one its own.
    EXPECT_EQ(sites, w.vraag("LDNITS"));
    EXPECT_GE(proxy.splitToClient(), 1);
    EXPECT_EQ("1043", w.vraag("LDNTAA"));
    EXPECT_TRUE(w.meldingen().isEmpty()) << w.meldingen().join(QLatin1Char('\n')).toStdString();
}
