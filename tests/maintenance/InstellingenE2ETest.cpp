// The settings and server panels against the real server: a new language reaches the server and
// every caption of the module, and a backup made, followed by a change, brings the data back
// when it is imported.
#include "screens/maintenance/OnderhoudInstellingen.h"
#include "screens/maintenance/OnderhoudServer.h"
#include "tests/maintenance/OnderhoudWerkplek.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;

namespace {

// An administrator's workstation, connected, with the settings loaded and the module open.
struct Beheerder : tk::test::OnderhoudPlek {
    using OnderhoudPlek::OnderhoudPlek;
    bool binnen() {
        if (!ws.identificeer())
            return false;
        p().modData->LaadWachtwoorden();
        p().modData->LaadOverigeInstellingen();
        return router.openOnderhoudsmodule(-1, {});
    }
};

class InstellingenE2ETest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
        beheerder = std::make_unique<Beheerder>(server.poort());
        ASSERT_TRUE(beheerder->binnen());
    }
    // What a second workstation reads of the server now.
    QString leesVanServer(const QString& bericht) {
        Werkplek ander(server.poort(), Werkplek::Rol::Beheer, 10);
        return ander.identificeer() ? ander.vraag(bericht) : QStringLiteral("(no link)");
    }
    ServerProces server;
    std::unique_ptr<Beheerder> beheerder;
};

} // namespace

TEST_F(InstellingenE2ETest, ANewLanguageReachesTheServerAndEveryCaption) {
    Beheerder& b = *beheerder;
    // The demo school speaks Dutch; the administrator switches to English.
    b.p().modMain.LaadTaal();
    ASSERT_EQ(b.p().modTaal.Taal, 1043);
    b.f().Kies(400); // the settings heading
    using I = OnderhoudInstellingen;
    OnderhoudInstellingen& m = b.inst();
    const QList<Keuze>& talen = m.velden[I::Taal].keuzes;
    ASSERT_TRUE(
        std::any_of(talen.cbegin(), talen.cend(), [](const Keuze& k) { return k.data == "1033"; }));
    m.ZetVeld(I::Taal, "1033");
    m.cmd_Click(BewerkPaneel::Opslaan);
    EXPECT_TRUE(b.ws.meldingen().isEmpty()) << b.ws.meldingen().join("\n").toStdString();
    EXPECT_EQ(b.p().modTaal.Taal, 1033);
    EXPECT_EQ(leesVanServer("LDNTAA"), "1033");

    // Every row of the menu, and the captions of both panels, in English.
    const ModTaal& t = b.p().modTaal;
    int rijen = 0;
    for (int g = 0; g < FrmOnderhoud::Groepen; ++g)
        for (int r = 0; r < FrmOnderhoud::Rijen; ++r) {
            const QString id = b.f().cel(g, r, FrmOnderhoud::TekstId);
            if (id.isEmpty())
                continue;
            ++rijen;
            EXPECT_EQ(b.f().cel(g, r, FrmOnderhoud::Tekst), t.LaadTekst(id.toInt(), 1033));
        }
    EXPECT_EQ(rijen, 21);
    EXPECT_EQ(b.f().lblKop, t.LaadTekst(3359, 1033));
    EXPECT_EQ(b.f().lblMenuHelp, t.LaadTekst(3360, 1033));
    QStringList instellingen{m.knoppen[BewerkPaneel::Opslaan].tekst,
                             m.knoppen[BewerkPaneel::Herstellen].tekst};
    for (int veld : {I::WachtwoordBeheer, I::Startpagina, I::EmailAfzender, I::Thema})
        instellingen << m.velden[veld].groep << m.velden[veld].caption;
    QStringList verwacht{t.LaadTekst(3277, 1033), t.LaadTekst(3278, 1033)};
    for (auto [groep, caption] : {std::pair{3266, 3268}, {3269, 3270}, {3271, 3275}, {3438, 3276}})
        verwacht << t.LaadTekst(groep, 1033).trimmed() << t.LaadTekst(caption, 1033);
    EXPECT_EQ(instellingen, verwacht);
    const OnderhoudServer& s = b.server();
    EXPECT_EQ(
        QStringList({s.velden[OnderhoudServer::Locatie].caption, s.fraBackup, s.cmdServer[2],
                     s.cmdBackup[0], s.lblNoot}),
        QStringList({t.LaadTekst(3181, 1033), t.LaadTekst(3192, 1033).trimmed(),
                     t.LaadTekst(3190, 1033), t.LaadTekst(3193, 1033), t.LaadTekst(3191, 1033)}));
}

TEST_F(InstellingenE2ETest, AnExportedBackupBringsTheDataBackWhenImported) {
    Beheerder& b = *beheerder;
    b.f().Kies(400);
    b.f().Kies(401); // Settings > Server
    OnderhoudServer& s = b.server();
    const int voor = s.fraBackupEnabled ? int(s.cmbBackup.size()) : 0;
    const QString startpagina = b.inst().velden[OnderhoudInstellingen::Startpagina].tag;
    s.cmdBackup_Click(1);
    ASSERT_EQ(b.ws.meldingen(), QStringList(b.p().modTaal.LaadTekst(3327)))
        << server.uitvoer().toStdString();
    ASSERT_EQ(s.cmbBackup.size(), voor + 1) << "the new backup is listed at once";
    const QString gemaakt = s.cmbBackup[s.backupIndex];

    // A change after the backup.
    b.f().Kies(400);
    b.inst().ZetVeld(OnderhoudInstellingen::Startpagina, "http://na-de-backup.example");
    b.inst().cmd_Click(BewerkPaneel::Opslaan);
    ASSERT_TRUE(leesVanServer("LDNOVR").startsWith("http://na-de-backup.example"));

    b.f().Kies(400);
    b.f().Kies(401);
    const int index = int(s.cmbBackup.indexOf(gemaakt));
    ASSERT_GE(index, 0);
    s.cmbBackup_Click(index);
    b.ws.dialogen.antwoorden << "ja";
    s.cmdBackup_Click(0);
    EXPECT_EQ(b.ws.meldingen().mid(1),
              QStringList({b.p().modTaal.LaadTekst(3324), b.p().modTaal.LaadTekst(3325)}));
    EXPECT_TRUE(b.p().beeindigd) << "the client restarts after an import";
    const QString overige = leesVanServer("LDNOVR");
    EXPECT_TRUE(overige.startsWith(startpagina + ";<>;")) << overige.toStdString();
}
