// The desktop's traffic over a scripted server on loopback: the places asked when a desktop
// opens, answers that come cut or merged, the start count that is never waited for.
#include "data/ModData.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "screens/desktop/FrmBureaublad.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using Levering = ScriptedPeer::Levering;

namespace {

// A Network workstation connected to the peer, with one class of three applications.
struct VerbondenBureaublad {
    explicit VerbondenBureaublad(quint16 poort) {
        Programma& p = w.p;
        p.maak(p.frmMain, p);
        p.maak(p.modMainVerbinding, p);
        p.maak(p.modData, p);
        p.modMain.ModusNetwerk = true;
        p.modMain.MaakMappen("\\Data");
        p.modMain.SchrijfIni(QStringLiteral("127.0.0.1:%1").arg(poort), "Instellingen",
                             "Serverlocatie", "\\Data\\Instellingen.ini");
        w.platform.fakeClock().setStepPerRead(100);
        ModData& d = *p.modData;
        for (int i = 0; i < 3; ++i) {
            d.Applicaties[0](i, 0) = QString::number(5 + i);
            d.Applicaties[0](i, 1) = "App " + QString::number(5 + i);
            d.Applicaties[0](i, 3) = "/bin/true";
            d.Applicaties[0](i, 8) = "1024x768x32xNEE";
        }
        d.Klassen(0, 0) = "Groep 3";
        d.Klassen(0, 6) = "3";
        d.Klassen(0, 7) = "5|6|7";
        d.Klassen(0, 8) = "Nee";
        p.maak(p.frmBureaublad, p);
    }
    bool verbind() {
        return w.p.modMainVerbinding->BepaalServerlocatie() && w.p.frmMain->ServerVerbinden(true);
    }
    QPoint plek(int rij) {
        for (const auto& i : w.p.frmBureaublad->zichtbareIconen)
            if (i.rij == rij)
                return i.beeld.topLeft();
        return {-1, -1};
    }
    tk::test::Werkplek w;
};

} // namespace

TEST(BureaubladWireTest, PlacesAskedOnceByLetterAndIdAndTaken) {
    ScriptedPeer peer;
    peer.op("TST", "TST").op("LDNAPPPOSK3", "LDNAPPPOS6|k|300x400><7|k|500x200");
    VerbondenBureaublad v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.frmBureaublad->Openen(0, "3");
    EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join('/').toStdString();
    EXPECT_EQ(peer.ontvangen.count("LDNAPPPOSK3"), 1);
    EXPECT_EQ(v.plek(0), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(v.plek(1), QPoint(285, 400));
    EXPECT_EQ(v.plek(2), QPoint(485, 200));
}

TEST(BureaubladWireTest, ACutAnswerOfThePlacesLeavesTheCutItemToTheGrid) {
    // One read is one message: the first half is the whole answer.
    ScriptedPeer peer;
    // Cut after "6|k|300x400><7|k|50".
    peer.op("TST", "TST")
        .op("LDNAPPPOSK3", "LDNAPPPOS6|k|300x400><7|k|500x200><5|k|100x100><99|k|1x1",
            Levering::Gesplitst);
    VerbondenBureaublad v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.frmBureaublad->Openen(0, "3");
    tk::test::pompVoor(150);
    FrmBureaublad& b = *v.w.p.frmBureaublad;
    ASSERT_EQ(b.zichtbareIconen.size(), 3);
    EXPECT_EQ(b.posApplicatie.size(), qsizetype(1));
    EXPECT_EQ(v.plek(1), QPoint(285, 400));
    // What the cut left of the second place is not a place: those items take the grid.
    EXPECT_EQ(v.plek(0), FrmBureaublad::RasterPlek(0));
    EXPECT_EQ(v.plek(2), FrmBureaublad::RasterPlek(1));
}

TEST(BureaubladWireTest, AnAnswerMergedWithAKeepAliveStillOpensTheDesktop) {
    ScriptedPeer peer;
    peer.op("TST", "TST")
        .op("LDNAPPPOSK3", "LDNAPPPOS6|k|300x400", Levering::Samengevoegd)
        .zelf("PIN");
    VerbondenBureaublad v(peer.poort());
    ASSERT_TRUE(v.verbind());
    v.w.p.frmBureaublad->Openen(0, "3");
    FrmBureaublad& b = *v.w.p.frmBureaublad;
    // The keep-alive became part of the last value: "400PIN" is no number, so no place.
    EXPECT_TRUE(b.posApplicatie.isEmpty());
    EXPECT_EQ(b.zichtbareIconen.size(), 3);
    EXPECT_EQ(v.plek(1), FrmBureaublad::RasterPlek(1));
}
