// The desktop's traffic over a scripted server on loopback: the places asked when a desktop
// opens, answers that come cut or merged, the start count that is never waited for.
#include "tests/support/ScriptedPeer.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

namespace {

// A Network workstation connected to the peer, with one class of three applications whose
// desktop speaks over the link.
bool verbind(Werkplek& w) {
    for (int i = 0; i < 3; ++i)
        w.applicatie(0, i, QString::number(5 + i), "App");
    w.klas(0, "Groep 3", "3", "5|6|7", "Nee");
    w.b();
    w.p.kanaal = w.p.frmMain;
    return w.verbind();
}

} // namespace

TEST(BureaubladWireTest, PlacesAskedOnceByLetterAndIdAndTaken) {
    ScriptedPeer peer;
    peer.op("TST", "TST").op("LDNAPPPOSK3", "LDNAPPPOS6|k|300x400><7|k|500x200");
    Werkplek w(peer.poort(), Werkplek::Rol::Netwerk);
    ASSERT_TRUE(verbind(w));
    w.b().Openen(0, "3");
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join('/').toStdString();
    EXPECT_EQ(peer.ontvangen.count("LDNAPPPOSK3"), 1);
    EXPECT_EQ(w.plek(0), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(w.plek(1), QPoint(285, 400));
    EXPECT_EQ(w.plek(2), QPoint(485, 200));
}

TEST(BureaubladWireTest, ACutAnswerOfThePlacesLeavesTheCutItemToTheGrid) {
    // One read is one message: the first half is the whole answer.
    ScriptedPeer peer;
    // Cut after "6|k|300x400><7|k|50".
    peer.op("TST", "TST")
        .op("LDNAPPPOSK3", "LDNAPPPOS6|k|300x400><7|k|500x200><5|k|100x100><99|k|1x1",
            Levering::Gesplitst);
    Werkplek w(peer.poort(), Werkplek::Rol::Netwerk);
    ASSERT_TRUE(verbind(w));
    w.b().Openen(0, "3");
    tk::test::pompVoor(150);
    FrmBureaublad& b = w.b();
    ASSERT_EQ(b.zichtbareIconen.size(), 3);
    EXPECT_EQ(b.posApplicatie.size(), qsizetype(1));
    EXPECT_EQ(w.plek(1), QPoint(285, 400));
    // What the cut left of the second place is not a place: those items take the grid.
    EXPECT_EQ(w.plek(0), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(w.plek(2), FrmBureaublad::RasterPlek(1));
}

TEST(BureaubladWireTest, AnAnswerMergedWithAKeepAliveStillOpensTheDesktop) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNAPPPOSK3", "LDNAPPPOS6|k|300x400", Levering::Samengevoegd)
        .zelf("PIN");
    Werkplek w(peer.poort(), Werkplek::Rol::Netwerk);
    ASSERT_TRUE(verbind(w));
    w.b().Openen(0, "3");
    FrmBureaublad& b = w.b();
    // The keep-alive became part of the last value: "400PIN" is no number, so no place.
    EXPECT_TRUE(b.posApplicatie.isEmpty());
    EXPECT_EQ(b.zichtbareIconen.size(), 3);
    EXPECT_EQ(w.plek(1), FrmBureaublad::RasterPlek(1));
}
