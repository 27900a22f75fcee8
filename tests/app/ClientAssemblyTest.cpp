// The client's composition root: everything a lower layer asks of a higher one is wired, and
// what is not is named.
#include "app/ClientAssembly.h"
#include "app/GuiDialogs.h"
#include "link/ModMainVerbinding.h"
#include "platform/RegistryStore.h"
#include "screens/browser/BrowserPane.h"
#include "session/ModMainSessie.h"
#include "tests/support/Werkplek.h"

#include <QApplication>
#include <QDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

#include <unistd.h>

using namespace tk;
using tk::test::Werkplek;

TEST(ClientAssemblyTest, TheWholeClientIsWiredAndAnythingLeftOutIsNamed) {
    Werkplek w;
    ClientAssembly client(w.p);
    ASSERT_EQ(client.unwired(), QStringList());
    EXPECT_EQ(w.p.opstartStappen, &client.stappen());

    struct Case {
        const char* naam;
        std::function<void()> losmaken;
    };
    const Case cases[] = {
        {"startScreenEvents", [&] { w.p.startScreenEvents = nullptr; }},
        {"schermen", [&] { w.p.schermen = nullptr; }},
        {"opstartStappen", [&] { w.p.opstartStappen = &w.p.unbuiltSteps; }},
        {"modMainVerbinding.namen", [&] { w.p.modMainVerbinding->namen = nullptr; }},
        {"kanaal", [&] { w.p.kanaal = nullptr; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        c.losmaken();
        EXPECT_TRUE(client.unwired().contains(QString::fromLatin1(c.naam)))
            << client.unwired().join(u',').toStdString();
    }
    EXPECT_EQ(client.unwired().size(), std::size(cases));
}

// What the questions asked about is gone (a stay ended by force): every question window on the
// screen closes as if Cancel was chosen, the inner one of two nested and the outer.
TEST(ClientAssemblyTest, ClosingTheQuestionsEndsEveryOpenQuestionWindowAsCancelled) {
    Werkplek w;
    GuiDialogs dialogen(w.p);
    w.p.dialogen = &dialogen;
    QString binnen;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] { dialogen.sluitVragen(); });
        binnen = dialogen.vraag("t", "binnen", "?");
    });
    EXPECT_EQ(dialogen.vraag("t", "buiten", "?"), "nee");
    EXPECT_EQ(binnen, "nee");
    w.p.dialogen = &w.dialogen;
}

TEST(ClientAssemblyTest, AStepNoLayerFillsSaysSoInTheLogBookAndTheSessionStepsAreContained) {
    Werkplek w;
    ClientAssembly client(w.p);
    OpstartStappen& stappen = client.stappen();
    EXPECT_FALSE(stappen.VeiligeModus()); // Linux has no safe mode
    EXPECT_FALSE(stappen.VeiligeModus());
    stappen.SchermbeveiligingUit();
    EXPECT_EQ(client.stappen().gemeld(), (QStringList{"VeiligeModus", "SchermbeveiligingUit"}));
    const QStringList logboek = QDir(w.pad("Logboek")).entryList(QDir::Files);
    EXPECT_EQ(logboek.size(), 1);
    EXPECT_TRUE(QString::fromUtf8(w.lees("Logboek/" + logboek.value(0)))
                    .contains(u"VeiligeModus is not built on this workstation yet"));
    // The session's steps are contained unless the setting says Systeem: written to a log.
    client.stappen().ZetAutomatischeAanmelding("GLOBAL", QString(), QString(), true);
    const QStringList regels =
        QString::fromUtf8(w.lees("Logboek/systeem.log")).split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(regels.size(), 2);
    EXPECT_TRUE(regels[0].endsWith(u" autologon-set global"));
    EXPECT_TRUE(regels[1].endsWith(u" logoff"));
    EXPECT_TRUE(w.p.beeindigd);
}

// The internet pane of a desktop whose favourites hold the other programs behind the filter:
// when tmrProxy fires, the proxy's registry values are written and the programs the desktop
// starts get the dead proxy; favourites without the switch leave both alone.
TEST(ClientAssemblyTest, TheFavouritesProxySwitchReachesTheStartedProgramsWhenTmrProxyFires) {
    if (::getuid() == 0) {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("QTWEBENGINE_DISABLE_SANDBOX"))
            << "the engine runs as root only with QTWEBENGINE_DISABLE_SANDBOX=1";
    }
    for (const bool proxy : {true, false}) {
        SCOPED_TRACE(proxy);
        test::Werkplek w(test::Werkplek::bureaublad);
        ClientAssembly client(w.p, TK_BROWSER_PLUGIN);
        // The answering channel and the scripted dialogs, in place of the client's own.
        w.p.kanaal = &w.kanaal;
        w.p.dialogen = &w.dialogen;
        w.klas(0, "Groep 8", "12", "");
        w.kanaal.antwoorden.insert("LDNFAVGroep12", proxy ? "0|Nee|Nee|Ja;<>;http://a/|A||Ja"
                                                          : "0|Nee|Nee|Nee;<>;http://a/|A||Ja");
        w.p.schermen->openBureaublad(0, "12");
        ASSERT_TRUE(w.p.schermen->openInternet());
        BrowserPane* pane = nullptr;
        for (QWidget* widget : QApplication::allWidgets())
            if (auto* b = dynamic_cast<BrowserPane*>(widget))
                pane = b;
        ASSERT_NE(pane, nullptr);
        EXPECT_EQ(pane->tmrProxy().isActive(), proxy);
        EXPECT_TRUE(w.platform.fakeProcesses().webProxy.isEmpty());
        pane->tmrProxy_Timer();
        const auto enable = w.platform.registry().read(
            RegistryRoot::CurrentUser, ModMainSessie::Internetinstellingen, "ProxyEnable");
        EXPECT_EQ(enable.has_value(), proxy);
        EXPECT_EQ(w.platform.fakeProcesses().webProxy,
                  proxy ? QString::fromLatin1(ModMainSessie::LinuxFilterproxy) : QString());
        w.p.schermen->bureaubladVerlaten();
        EXPECT_EQ(w.meldingen(), QStringList());
    }
}
