// The desktop's traffic over a scripted server on loopback: the places asked once when a desktop
// opens, and answers that come whole, cut or merged with a keep-alive.
#include "tests/support/ScriptedPeer.h"
#include "tests/support/WaitUntil.h"
#include "tests/support/Werkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::ScriptedPeer;
using tk::test::Werkplek;
using Levering = ScriptedPeer::Levering;

TEST(BureaubladWireTest, PlacesAreAskedOnceByLetterAndIdAndTakenFromWholeCutOrMergedAnswers) {
    const QPoint r0 = FrmBureaublad::RasterPlek(0), r1 = FrmBureaublad::RasterPlek(1);
    struct Case {
        const char* naam;
        const char* antwoord;
        Levering levering;
        qsizetype geplaatst;
        QPoint plekken[3]; // of the class's applications 5, 6 and 7
    };
    const Case cases[] = {
        {"whole",
         "LDNAPPPOS6|k|300x400><7|k|500x200",
         Levering::Heel,
         2,
         {r0, {285, 400}, {485, 200}}},
        // One read is one message: the first half ("6|k|300x400><7|k|50") is the whole answer,
        // and what the cut left of the second place is not a place.
        {"cut",
         "LDNAPPPOS6|k|300x400><7|k|500x200><5|k|100x100><99|k|1x1",
         Levering::Gesplitst,
         1,
         {r0, {285, 400}, r1}},
        // The keep-alive becomes part of the last value: "400PIN" is no number, so no place.
        {"merged",
         "LDNAPPPOS6|k|300x400",
         Levering::Samengevoegd,
         0,
         {r0, r1, FrmBureaublad::RasterPlek(2)}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        ScriptedPeer peer;
        peer.op("TST", "TST").op("LDNAPPPOSK3", c.antwoord, c.levering);
        if (c.levering == Levering::Samengevoegd)
            peer.zelf("PIN");
        Werkplek w(peer.poort(), Werkplek::Rol::Netwerk);
        for (int i = 0; i < 3; ++i)
            w.applicatie(0, i, QString::number(5 + i), "App");
        w.klas(0, "Groep 3", "3", "5|6|7", "Nee");
        w.b();
        w.p.kanaal = w.p.frmMain;
        ASSERT_TRUE(w.verbind());
        w.b().Openen(0, "3");
        tk::test::pompVoor(150);
        EXPECT_TRUE(peer.fouten.isEmpty()) << peer.fouten.join('/').toStdString();
        EXPECT_EQ(peer.ontvangen.count("LDNAPPPOSK3"), 1);
        ASSERT_EQ(w.b().zichtbareIconen.size(), 3);
        EXPECT_EQ(w.b().posApplicatie.size(), c.geplaatst);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(w.plek(i), c.plekken[i]) << i;
    }
}
