#pragma once

// The fixture of every maintenance test that talks to a peer: one workstation pointed at a
// scripted peer, or two workstations and the real server.
#include "core/UnbuiltStartSteps.h"
#include "data/ModData.h"
#include "link/FrmMainLink.h"
#include "link/ModMainVerbinding.h"
#include "screens/ScreenRouter.h"
#include "screens/maintenance/BewerkPaneel.h"
#include "screens/maintenance/FrmOnderhoud.h"
#include "screens/maintenance/FrmOnderhoudVraag.h"
#include "screens/maintenance/OnderhoudInstellingen.h"
#include "screens/maintenance/OnderhoudServer.h"
#include "screens/start/FrmMain.h"
#include "tests/support/ScriptedPeer.h"
#include "tests/support/Werkplek.h"
#include "theme/ModThema.h"

#include <gtest/gtest.h>
#include <memory>

#ifdef TK_SERVER_PAD
#include "tests/e2e/ServerProces.h"
#endif

namespace tk::test {

// Start steps that note the automatic logon asked for: "ACCOUNT/PASSWORD[/afmelden]".
struct AanmeldStappen : UnbuiltStartSteps {
    using UnbuiltStartSteps::UnbuiltStartSteps;
    void ZetAutomatischeAanmelding(const QString& a, const QString& w, const QString&,
                                   bool afmelden) override {
        aanmelding = a + "/" + w + (afmelden ? "/afmelden" : "");
    }
    QString aanmelding;
};

// A Beheer workstation pointed at `poort`, with the default theme, the data tables, the start
// screen, the router and the exclusive-access question (its timer ticks on every turn of the
// event loop; what it decides follows from the injected clock).
struct OnderhoudPlek {
    explicit OnderhoudPlek(quint16 poort) : ws(poort, Werkplek::Rol::Beheer, 10), router(p()) {
        Programma& p = this->p();
        ws.kopieer(QStringLiteral(TK_DEFAULT_THEME), QStringLiteral("Afbeeldingen/Skins/1/"));
        p.maak(p.modData, p);
        p.modMainVerbinding->namen = p.modData;
        p.maak(p.modThema, p);
        p.modThema->LaadThema();
        p.maak(p.startScreen, p, *p.frmMain);
        p.startScreenEvents = p.startScreen;
        p.schermen = &router;
        p.maak(p.frmOnderhoudVraag, p);
        vraag().tmrAuto.setInterval(0);
    }
    Programma& p() { return ws.p; }
    FrmOnderhoud& f() { return *p().frmOnderhoud; }
    OnderhoudInstellingen& inst() {
        return dynamic_cast<OnderhoudInstellingen&>(*f().paneel(FrmOnderhoud::PInstellingen));
    }
    OnderhoudServer& server() {
        return dynamic_cast<OnderhoudServer&>(*f().paneel(FrmOnderhoud::PServer));
    }
    FrmOnderhoudVraag& vraag() { return *p().frmOnderhoudVraag; }
    FakeClock& klok() { return ws.platform.fakeClock(); }
    // Connects without the identification a scripted peer would have to expect.
    bool verbindKaal() {
        return p().modMainVerbinding->BepaalServerlocatie() && p().frmMain->ServerVerbinden(true);
    }
    // The administrator enters as the start screen lets him: the check, the location, the menu.
    // Without a link (port 0) the check is skipped, since it would keep him out.
    bool betreed() {
        if (p().modMain.Verbonden() && router.ControleerAanwezigOnderhoudsmodule(false))
            return false;
        p().modMainVerbinding->GeefLocatieDoor(QStringLiteral("ONDERHOUD"));
        return router.openOnderhoudsmodule(-1, {});
    }
    Werkplek ws;
    ScreenRouter router;
};

// The enabled buttons of an edit-pattern panel as a word of six letters: C(hange) N(ew)
// D(elete) S(ave) c(ancel) R(estore), "." for a button that is off or gone.
inline QString knoppen(const BewerkPaneel& b) {
    const char letters[] = "CNDScR";
    QString uit;
    for (size_t i = 0; i < 6; ++i)
        uit += b.knoppen[i].ingeschakeld ? QChar::fromLatin1(letters[i]) : QChar(u'.');
    return uit;
}

inline QStringList waarden(const BewerkPaneel& b) {
    QStringList uit;
    for (const auto& v : b.velden)
        uit << v.waarde;
    return uit;
}

// The lists the module reads from a scripted peer when it is first made (Form_Load); `backups`
// is the answer to BCKLST.
inline ScriptedPeer&
eersteLading(ScriptedPeer& peer,
             const QString& backups = QStringLiteral("BCK2024-01-02 10.00.00.backup")) {
    return peer.op(QStringLiteral("LDNWSA"), QStringLiteral("LDNWSA groep1 ||Groep2"))
        .op(QStringLiteral("LDNGRPGLB"), QStringLiteral("LDNGRPDomain Users:x|Leraren:y"))
        .op(QStringLiteral("LDNGRPLKL"), QStringLiteral("LDNGRPGebruikers:z"))
        .op(QStringLiteral("LDNACCLST"), QStringLiteral("LDNACC\\\\srv\\a.bat|b.cmd"))
        .op(QStringLiteral("BCKLST"), backups);
}

// What a scripted peer hears when the administrator enters (OnderhoudPlek::betreed): the link
// test, nobody inside, the location, and the first load.
inline void binnenkomst(ScriptedPeer& peer) {
    peer.op(QStringLiteral("TST"), QStringLiteral("TST"))
        .op(QStringLiteral("INFOND"), QStringLiteral("INFONDNEE"))
        .op(QStringLiteral("LOCONDERHOUD"), QStringLiteral("LOC"));
    eersteLading(peer);
}

#ifdef TK_SERVER_PAD
// Two workstations and the real server on free ports. After SetUp `binnen` is inside the module
// and `nieuw` waits at its start screen; both clocks move only when a test moves them.
class OnderhoudServerTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
        binnen = std::make_unique<OnderhoudPlek>(server.poort());
        nieuw = std::make_unique<OnderhoudPlek>(server.poort());
        ASSERT_TRUE(binnen->ws.identificeer());
        ASSERT_TRUE(nieuw->ws.identificeer());
        ASSERT_TRUE(binnen->betreed());
        ASSERT_EQ(nieuw->ws.vraag(QStringLiteral("INFOND")), QStringLiteral("JA"));
        binnen->klok().setStepPerRead(0);
        nieuw->klok().setStepPerRead(0);
    }
    ServerProces server;
    std::unique_ptr<OnderhoudPlek> binnen, nieuw;
};
#endif

} // namespace tk::test
