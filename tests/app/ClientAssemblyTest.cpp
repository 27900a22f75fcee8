// The client's composition root: everything a lower layer asks of a higher one is wired, and
// what is not is named.
#include "app/ClientAssembly.h"
#include "link/ModMainVerbinding.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <functional>
#include <gtest/gtest.h>

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

TEST(ClientAssemblyTest, AStepNoLayerFillsSaysSoInTheLogBookOnce) {
    Werkplek w;
    ClientAssembly client(w.p);
    OpstartStappen& stappen = client.stappen();
    EXPECT_FALSE(stappen.VeiligeModus()); // Linux has no safe mode
    EXPECT_FALSE(stappen.VeiligeModus());
    stappen.SchermbeveiligingUit();
    EXPECT_EQ(client.stappen().gemeld(), (QStringList{QStringLiteral("VeiligeModus"),
                                                      QStringLiteral("SchermbeveiligingUit")}));
    EXPECT_EQ(QDir(w.pad(QStringLiteral("Logboek"))).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(QString::fromUtf8(
                    w.lees(QStringLiteral("Logboek/") +
                           QDir(w.pad(QStringLiteral("Logboek"))).entryList(QDir::Files).value(0)))
                    .contains(QStringLiteral("VeiligeModus is not built on this workstation yet")));
}

TEST(ClientAssemblyTest, SessionStepsOfTheClientAreContainedUnlessTheSettingSaysSysteem) {
    Werkplek w;
    ClientAssembly client(w.p);
    client.stappen().ZetAutomatischeAanmelding(QStringLiteral("GLOBAL"), QString(), QString(),
                                               true);
    const QStringList regels = QString::fromUtf8(w.lees(QStringLiteral("Logboek/systeem.log")))
                                   .split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(regels.size(), 2);
    EXPECT_TRUE(regels[0].endsWith(u" autologon-set global"));
    EXPECT_TRUE(regels[1].endsWith(u" logoff"));
    EXPECT_TRUE(w.p.beeindigd);
}
