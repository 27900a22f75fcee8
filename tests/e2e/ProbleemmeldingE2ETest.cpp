// A problem call with a screenshot, from the client's link to the real server and back.
#include "link/FrmMainLink.h"
#include "tests/e2e/ServerProces.h"
#include "tests/e2e/Werkstation.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::ServerProces;
using tk::test::Werkplek;
using tk::test::Werkstation;

TEST(ProbleemmeldingE2ETest, ACallWithAScreenshotIsStoredListedFetchedAndRemoved) {
    ServerProces server;
    ASSERT_TRUE(server.gestart()) << server.uitvoer().toStdString();
    Werkstation ws(server.poort(), false);
    Werkplek& w = ws.w;
    ASSERT_TRUE(ws.verbind());
    FrmMainLink& f = *w.p.frmMain;

    // A screenshot of bytes that a text path would spoil.
    QByteArray jpeg("\xff\xd8\xff\xe0");
    for (int i = 0; i < 30000; ++i)
        jpeg.append(char(i * 7));
    w.schrijf(QStringLiteral("Tijdelijk/screenshot17.jpg"), jpeg);

    const QString sep = QStringLiteral(";<>;");
    const QString record =
        QStringList{QStringLiteral("Manual"),   QStringLiteral("LOKAAL-12"),
                    QStringLiteral("Juf Anna"), QStringLiteral("Bureaublad"),
                    QStringLiteral("Tekenen"),  QStringLiteral("Start niet|Scherm blijft zwart"),
                    QStringLiteral("Ja"),       QStringLiteral("9-3-2026 8:30:00")}
            .join(sep);
    w.p.modMain.Antwoord = QStringLiteral("onaangeroerd");
    ws.vraag(QStringLiteral("HLPOPS") + record);
    EXPECT_EQ(w.p.modMain.Antwoord, QStringLiteral("onaangeroerd")); // the flag alone
    ASSERT_TRUE(f.VerstuurBestand(w.pad(QStringLiteral("Tijdelijk/screenshot17.jpg"))));

    // The fields and the list are the server's own tests; here the call and its picture travel.
    const QStringList velden = ws.vraag(QStringLiteral("HLPLDN1")).split(sep);
    ASSERT_EQ(velden.size(), 10);
    const QString id = velden[0];
    EXPECT_EQ(velden[8], QStringLiteral("Start niet|Scherm blijft zwart"));

    ASSERT_TRUE(f.OntvangBestand(QStringLiteral("HLPSCR") + id,
                                 QStringLiteral("\\Data\\Help\\") + id + QStringLiteral(".jpg")));
    QFile terug(w.pad(QStringLiteral("Data/Help/") + id + QStringLiteral(".jpg")));
    ASSERT_TRUE(terug.open(QIODevice::ReadOnly));
    EXPECT_EQ(terug.readAll(), jpeg);

    EXPECT_EQ(ws.vraag(QStringLiteral("HLPVWN") + id), QStringLiteral("OK"));
    EXPECT_EQ(ws.vraag(QStringLiteral("HLPSNC")).section(QLatin1Char('|'), 1), QStringLiteral("0"));
}
