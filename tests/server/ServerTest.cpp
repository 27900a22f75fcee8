// The server against clients on loopback: reply forms parsed the way the client parses them,
// saves and loads, deletes, restarts, the maintenance handshake, and the framing rules.
#include "RunningServer.h"
#include "WireClient.h"
#include "archive/UcArchief.h"
#include "server/ArchivePackager.h"
#include "server/TransferChannel.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk::server;
using namespace tk::server::test;

namespace {

QString field(const QString& reply, const QString& prefix) {
    EXPECT_TRUE(reply.startsWith(prefix)) << reply.toStdString() << " for " << prefix.toStdString();
    return reply.mid(prefix.size());
}

QString newClass(const QString& naam) {
    // Columns 6, 0, 1, 2, 3, 4, 5, 7, 8, 10, 11, 12 on the wire.
    return QStringList{QStringLiteral("0"),      naam,
                       QStringLiteral("Nw"),     QStringLiteral("9a.jpg"),
                       QStringLiteral("Geen"),   QStringLiteral("nieuw"),
                       QStringLiteral("geheim"), QStringLiteral("1|a1|cdrom"),
                       QStringLiteral("Ja"),     QStringLiteral("Ruimte"),
                       QStringLiteral("120,80"), QStringLiteral("1|a1")}
        .join(QStringLiteral("><"));
}

} // namespace

TEST(ServerLoadTest, EveryLoadReplyParsesAsTheClientReadsIt) {
    RunningServer s;
    WireClient c(s.port());
    EXPECT_EQ(QStringLiteral("TST"), c.ask(QStringLiteral("TST")));
    EXPECT_EQ(QStringLiteral("INFVER"), c.ask(QStringLiteral("INFVER2.4.1")));
    const QStringList dmn =
        field(c.ask(QStringLiteral("INFDMN")), QStringLiteral("INFDMN")).split(QLatin1Char('|'));
    ASSERT_EQ(7, dmn.size());
    EXPECT_EQ(QString::number(s.receiver().dataPort()), dmn[1]);
    EXPECT_EQ(QString::number(s.receiver().infoPort()), dmn[2]);
    EXPECT_EQ(QString::number(s.options().uploadDataPort), dmn[3]);
    EXPECT_EQ(QString::number(s.options().uploadInfoPort), dmn[4]);
    EXPECT_EQ(QStringLiteral("INFCOM"), c.ask(QStringLiteral("INFCOMPC-07")));
    EXPECT_EQ(QStringLiteral("UPDVER2.4.1"), c.ask(QStringLiteral("UPDVER")));
    EXPECT_EQ(QStringLiteral("FIRTAFELBERG"), c.ask(QStringLiteral("FIR")));
    EXPECT_EQ(QStringLiteral("LDNTAA1043"), c.ask(QStringLiteral("LDNTAA")));
    EXPECT_EQ(QStringLiteral("LOC"), c.ask(QStringLiteral("LOCGLOBAL")));
    EXPECT_EQ(QStringLiteral("HLPOPSFOUT"), c.ask(QStringLiteral("HLPOPSfout;<>;regel 12")))
        << "too few fields";

    const auto classes = loadClasses(c);
    ASSERT_EQ(8, classes.size());
    EXPECT_EQ(QStringLiteral("Groep 1"), classes[0][0]);
    EXPECT_EQ(QStringLiteral("groep1"), classes[0][4]);
    EXPECT_EQ(QStringLiteral("1"), classes[0][6]);
    EXPECT_EQ(QStringLiteral("Standaard"), classes[0][10]); // an empty theme
    EXPECT_EQ(QStringLiteral("0,0"), classes[0][11]);
    EXPECT_FALSE(classes[0][12].isEmpty());
    EXPECT_EQ(QStringLiteral("8"),
              field(c.ask(QStringLiteral("LDNKLSSNC")), QStringLiteral("LDNKLSSNC"))
                  .section(QLatin1Char('|'), 1, 1));

    const auto teachers = loadTeachers(c);
    ASSERT_EQ(4, teachers.size());
    EXPECT_EQ(QStringLiteral("Vries"), teachers[0][0]);
    EXPECT_EQ(QStringLiteral("de"), teachers[0][7]);
    EXPECT_EQ(QStringLiteral("Ja|Ja"), teachers[0][12]);
    EXPECT_TRUE(teachers[0][15].contains(QLatin1Char('a'))) << "categories in column 15";

    for (const QString& letter : {QStringLiteral("K"), QStringLiteral("L"), QStringLiteral("A")}) {
        SCOPED_TRACE(letter.toStdString());
        const QStringList cats = loadCategories(c, letter);
        ASSERT_GE(cats.size(), 3);
        EXPECT_EQ(2, cats[1].split(QLatin1Char('|')).size());
        const auto apps = loadApplications(c, letter);
        ASSERT_FALSE(apps.isEmpty());
        EXPECT_TRUE(apps[0][7].startsWith(QStringLiteral("1024x768x32x")));
        EXPECT_TRUE(apps[0][5].startsWith(QStringLiteral("standaard|")));
    }

    EXPECT_EQ(2, field(c.ask(QStringLiteral("LDNWCH")), QStringLiteral("LDNWCH"))
                     .split(QStringLiteral(";|;"))
                     .size());
    EXPECT_EQ(6, field(c.ask(QStringLiteral("LDNOVR")), QStringLiteral("LDNOVR"))
                     .split(QStringLiteral(";<>;"))
                     .size());
    const int pages =
        field(c.ask(QStringLiteral("LDNIVWINF")), QStringLiteral("LDNIVWINF")).toInt();
    ASSERT_EQ(1, pages);
    QString words = c.ask(QStringLiteral("LDNIVWPA1")).mid(6);
    words.remove(QStringLiteral("PA1"));
    EXPECT_TRUE(words.split(QLatin1Char('|')).contains(QStringLiteral("casino")));
    const QStringList fav = field(c.ask(QStringLiteral("LDNFAVGroep1")), QStringLiteral("LDNFAV"))
                                .split(QStringLiteral(";<>;"));
    ASSERT_EQ(2, fav.size());
    EXPECT_EQ(4, fav[0].split(QLatin1Char('|')).size());
    EXPECT_EQ(4, fav[1].split(QStringLiteral("><"))[0].split(QLatin1Char('|')).size());
    EXPECT_EQ(QStringLiteral("JA|NEE"),
              field(c.ask(QStringLiteral("LDNMOD")), QStringLiteral("LDNMOD")));
    EXPECT_EQ(2, field(c.ask(QStringLiteral("LDNPRN")), QStringLiteral("LDNPRN"))
                     .split(QStringLiteral("><"))[0]
                     .split(QLatin1Char('|'))
                     .size());
    EXPECT_TRUE(field(c.ask(QStringLiteral("LDNITS")), QStringLiteral("LDNITS"))
                    .contains(QStringLiteral("wikipedia")));
    EXPECT_EQ(4, field(c.ask(QStringLiteral("LDNPICWIJ")), QStringLiteral("LDNPICWIJ"))
                     .split(QLatin1Char('|'))
                     .size());
    EXPECT_TRUE(field(c.ask(QStringLiteral("LDNWSA")), QStringLiteral("LDNWSA"))
                    .split(QLatin1Char('|'))
                    .contains(QStringLiteral("groep3")));
    EXPECT_TRUE(field(c.ask(QStringLiteral("LDNGRPGLB")), QStringLiteral("LDNGRP"))
                    .startsWith(QStringLiteral("Leerlingen:")));
    EXPECT_TRUE(field(c.ask(QStringLiteral("LDNGRPLKL")), QStringLiteral("LDNGRP"))
                    .startsWith(QStringLiteral("Gebruikers:")));
    const QStringList acc =
        field(c.ask(QStringLiteral("LDNACCINFjvries")), QStringLiteral("LDNACC"))
            .split(QLatin1Char('|'));
    ASSERT_EQ(5, acc.size());
    EXPECT_EQ(QStringLiteral("Leraren:g><Gebruikers:l"), acc[4]);
    EXPECT_EQ(2, field(c.ask(QStringLiteral("LDNACCLST")), QStringLiteral("LDNACC"))
                     .split(QLatin1Char('|'))
                     .size());
    EXPECT_EQ(QStringLiteral("ACDCONJA"), c.ask(QStringLiteral("ACDCONGROEP2")));
    EXPECT_EQ(QStringLiteral("ACDCONNEE"), c.ask(QStringLiteral("ACDCONonbekend")));
}

TEST(ServerLoadTest, ABlockStaysSmallAndAFullTableSplitsIntoSeveralBlocks) {
    RunningServer s(false);
    WireClient c(s.port());
    const QString longList = QStringList(45, QStringLiteral("a123")).join(QLatin1Char('|'));
    for (int i = 0; i < Store::maxClasses; ++i) {
        QString record = newClass(QStringLiteral("Klas %1").arg(i));
        record.replace(QStringLiteral("1|a1|cdrom"), longList);
        ASSERT_FALSE(c.ask(QStringLiteral("OPSKLZ") + record).endsWith(QStringLiteral("FOUT")));
    }
    EXPECT_EQ(QStringLiteral("OPSKLZFOUT"),
              c.ask(QStringLiteral("OPSKLZ") + newClass(QStringLiteral("22e"))));
    const int last =
        c.ask(QStringLiteral("LDNKLSSNC")).mid(9).section(QLatin1Char('|'), 0, 0).toInt();
    EXPECT_GT(last, 1);
    for (int n = 0; n <= last; ++n)
        EXPECT_LT(c.ask(QStringLiteral("LDNKLSDA%1").arg(n)).size(), 1460);
    EXPECT_EQ(21, loadClasses(c).size());
}

TEST(ServerSaveTest, SavedRecordsComeBackInTheirColumns) {
    RunningServer s;
    WireClient c(s.port());

    // A new class gets an ID above the last; its columns come back in place.
    const QString id =
        field(c.ask(QStringLiteral("OPSKLZ") + newClass(QStringLiteral("Nieuwe klas"))),
              QStringLiteral("OPSKLZ"));
    EXPECT_EQ(QStringLiteral("9"), id);
    auto classes = loadClasses(c);
    ASSERT_EQ(9, classes.size());
    const QStringList expected{QStringLiteral("Nieuwe klas"),
                               QStringLiteral("Nw"),
                               QStringLiteral("9a.jpg"),
                               QStringLiteral("Geen"),
                               QStringLiteral("nieuw"),
                               QStringLiteral("geheim"),
                               id,
                               QStringLiteral("1|a1|cdrom"),
                               QStringLiteral("Ja"),
                               QString(),
                               QStringLiteral("Ruimte"),
                               QStringLiteral("120,80"),
                               QStringLiteral("1|a1"),
                               QString()};
    EXPECT_EQ(expected, classes[8]);

    // A change of an existing class, and a copied class that takes over the favourites of the
    // class it was copied from.
    QString changed = newClass(QStringLiteral("Hernoemd"));
    changed.replace(0, 1, id);
    EXPECT_EQ(QStringLiteral("OPSKLZ") + id, c.ask(QStringLiteral("OPSKLZ") + changed));
    EXPECT_EQ(QStringLiteral("Hernoemd"), loadClasses(c)[8][0]);
    QString copy = newClass(QStringLiteral("Kopie"));
    copy.replace(0, 1, QStringLiteral("kopie1"));
    const QString copyId = field(c.ask(QStringLiteral("OPSKLZ") + copy), QStringLiteral("OPSKLZ"));
    EXPECT_EQ(c.ask(QStringLiteral("LDNFAVGroep1")), c.ask(QStringLiteral("LDNFAVGroep") + copyId));
    // The account panel's extra values go to the account of the class (column 4).
    changed.replace(QStringLiteral("><nieuw><"), QStringLiteral("><klas9><"));
    EXPECT_EQ(QStringLiteral("OPSKLZ") + id,
              c.ask(QStringLiteral("OPSKLZ") + changed +
                    QStringLiteral("><\\\\srv\\profiel9|klas.bat|K:|\\\\srv\\home9|JA")));
    EXPECT_EQ(QStringLiteral("LDNACC\\\\srv\\profiel9|\\\\srv\\home9|K:|klas.bat|"),
              c.ask(QStringLiteral("LDNACCINFklas9")));

    // A teacher: the wire order 5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15, 14, and the account
    // panel's extra values.
    const QString teacher = QStringLiteral(
        "0><Smit><van der><Karin><smit.ico><bos.jpg><ksmit><pw><3|cdrom><Ja><1|2><Ja>"
        "<Nee|Ja><2|a1><Oceaan><\\\\srv\\profiel|login.bat|H:|\\\\srv\\home|JA");
    const QString teacherId =
        field(c.ask(QStringLiteral("OPSLRZ") + teacher), QStringLiteral("OPSLRZ"));
    const auto teachers = loadTeachers(c);
    ASSERT_EQ(5, teachers.size());
    const QStringList& t = teachers[4];
    EXPECT_EQ(QStringLiteral("Smit"), t[0]);
    EXPECT_EQ(QStringLiteral("Karin"), t[6]);
    EXPECT_EQ(QStringLiteral("van der"), t[7]);
    EXPECT_EQ(teacherId, t[5]);
    EXPECT_EQ(QStringLiteral("Oceaan"), t[14]);
    EXPECT_EQ(QStringLiteral("2|a1"), t[15]);
    EXPECT_EQ((QStringList{QStringLiteral("smit.ico"), QStringLiteral("bos.jpg"),
                           QStringLiteral("ksmit"), QStringLiteral("pw")}),
              t.mid(1, 4));
    EXPECT_EQ((QStringList{QStringLiteral("3|cdrom"), QStringLiteral("Ja"), QStringLiteral("1|2"),
                           QStringLiteral("Ja"), QStringLiteral("Nee|Ja"), QString()}),
              t.mid(8, 6));
    EXPECT_EQ(QStringLiteral("LDNACC\\\\srv\\profiel|\\\\srv\\home|H:|login.bat|"),
              c.ask(QStringLiteral("LDNACCINFksmit")));

    // All teachers at once, in a new order, without themes: the stored themes stay.
    QStringList rows;
    for (int i = teachers.size() - 1; i >= 0; --i) {
        const QStringList& r = teachers[i];
        rows << QStringList{r[5], r[0], r[7], r[6],  r[1],  r[2],  r[3],
                            r[4], r[8], r[9], r[10], r[11], r[12], r[15]}
                    .join(QStringLiteral("><"));
    }
    EXPECT_EQ(QStringLiteral("OPSLRNOK"),
              c.ask(QStringLiteral("OPSLRNbeheer;<>;5;<>;") + rows.join(QStringLiteral(";<>;"))));
    const auto reordered = loadTeachers(c);
    EXPECT_EQ(QStringLiteral("Smit"), reordered[0][0]);
    EXPECT_EQ(QStringLiteral("Oceaan"), reordered[0][14]);
    EXPECT_EQ(QStringLiteral("OPSLRNFOUT"),
              c.ask(QStringLiteral("OPSLRNbeheer;<>;3;<>;") + rows[0]));

    // Categories: both forms of a new one, a rename, an order.
    const QString cat =
        field(c.ask(QStringLiteral("OPSCANgroep;<>;-1;<>;Muziek")), QStringLiteral("OPSCAT"));
    const QString cat2 =
        field(c.ask(QStringLiteral("OPSCANgroep;<>;Natuur;<>;-1")), QStringLiteral("OPSCAT"));
    EXPECT_NE(cat, cat2);
    EXPECT_EQ(QStringLiteral("OPSCAT") + cat,
              c.ask(QStringLiteral("OPSCANgroep;<>;%1;<>;Zang").arg(cat)));
    EXPECT_EQ(
        QStringLiteral("OPSCATOK"),
        c.ask(QStringLiteral("OPSCATklas;<>;nee;<>;nee;<>;1><%1><Zang;<>;2><1><Rekenen").arg(cat)));
    const QStringList cats = loadCategories(c, QStringLiteral("K"));
    EXPECT_EQ(cat2, cats[0]); // the last ID
    EXPECT_EQ(QStringLiteral("%1|Zang").arg(cat), cats[1]);
    EXPECT_EQ(QStringLiteral("1|Rekenen"), cats[2]);

    // An application: its ID first, then the record with Pictogram before Omschrijving.
    const QString app = field(c.ask(QStringLiteral("OPSAPPNIEa")), QStringLiteral("OPSAPP"));
    EXPECT_EQ(QStringLiteral("OPSAPPOK"),
              c.ask(QStringLiteral("OPSAPPa><%1><ja><Ogen><1></usr/bin/xeyes><eigen><Kijk\r\nmee>"
                                   "<-geometry 200x200><800x600x16xJA")
                        .arg(app)));
    const auto apps = loadApplications(c, QStringLiteral("A"));
    const QStringList expectedApp{app,
                                  QStringLiteral("Ogen"),
                                  QStringLiteral("1"),
                                  QStringLiteral("/usr/bin/xeyes"),
                                  QStringLiteral("Kijk mee"),
                                  QStringLiteral("eigen"),
                                  QStringLiteral("-geometry 200x200"),
                                  QStringLiteral("800x600x16xJA")};
    EXPECT_EQ(expectedApp, apps.last());
    EXPECT_EQ(QStringLiteral("OPSAPPFOUT"),
              c.ask(QStringLiteral("OPSAPPa><999><ja><X><1><x><y><z><p><b>"))); // never given out

    // Desktop, positions, favourites, word list in pieces, sites, settings, start counts.
    EXPECT_EQ(QStringLiteral("OPSBEHOK"), c.ask(QStringLiteral("OPSBEHk><2><7|a1|leeg><Nee><a1")));
    EXPECT_EQ(QStringLiteral("7|a1|leeg"), loadClasses(c)[1][7]);
    EXPECT_EQ(QStringLiteral("OPSAPPOK"),
              c.ask(QStringLiteral("OPSAPPPOSk2;<>;7|app|10x20><1|app|90x20")));
    EXPECT_EQ(QStringLiteral("LDNAPPPOS7|app|10x20><1|app|90x20"),
              c.ask(QStringLiteral("LDNAPPPOSK2")));
    EXPECT_EQ(QStringLiteral("OPSFAVOK"),
              c.ask(QStringLiteral("OPSFAVLeraar2;<>;2|Ja|Nee|Ja;<>;https://a.nl|A||Ja")));
    EXPECT_EQ(QStringLiteral("LDNFAV2|Ja|Nee|Ja;<>;https://a.nl|A||Ja"),
              c.ask(QStringLiteral("LDNFAVLeraar2")));
    EXPECT_EQ(QStringLiteral("OPSVBWOK"), c.ask(QStringLiteral("OPSVBW;<een|twee")));
    EXPECT_EQ(QStringLiteral("OPSVBWOK"), c.ask(QStringLiteral("OPSVBW;<+drie|vier")));
    EXPECT_EQ(QStringLiteral("LDNIVWPA1een|twee|drie|vier"),
              (c.ask(QStringLiteral("LDNIVWINF")), c.ask(QStringLiteral("LDNIVWPA1"))));
    EXPECT_EQ(QStringLiteral("OPSITSOK"), c.ask(QStringLiteral("OPSITSa.nl|b.nl")));
    EXPECT_EQ(QStringLiteral("LDNITSa.nl|b.nl"), c.ask(QStringLiteral("LDNITS")));
    EXPECT_EQ(QStringLiteral("OPSINSOK"),
              c.ask(QStringLiteral(
                  "OPSINSl1;<>;b1;<>;https://x.nl;<>;aan@x;<>;School;<>;van@x;<>;2;<>;1033")));
    EXPECT_EQ(QStringLiteral("LDNWCHl1;|;b1"), c.ask(QStringLiteral("LDNWCH")));
    EXPECT_EQ(QStringLiteral("LDNTAA1033"), c.ask(QStringLiteral("LDNTAA")));
    EXPECT_EQ(QStringLiteral("OPSINSFOUT"), c.ask(QStringLiteral("OPSINSalleen;<>;twee")));
    c.send(QStringLiteral("OPSTEL1|2|0"));
    EXPECT_TRUE(waitFor([&] { return s.store().starts(0, 1) == 1; }));
    c.send(QStringLiteral("OPSTEL1|3|0"));
    EXPECT_TRUE(waitFor([&] { return s.store().starts(0, 1) == 2; }));
    EXPECT_TRUE(c.reads().isEmpty()) << "a start is not answered";

    // Accounts.
    EXPECT_EQ(QStringLiteral("ACDNIEOK"),
              c.ask(QStringLiteral("ACDNIEnieuw|geheim|1|Nieuwe klas")));
    EXPECT_EQ(QStringLiteral("ACDCONJA"), c.ask(QStringLiteral("ACDCONnieuw")));
    EXPECT_EQ(QStringLiteral("OPSWAG"),
              c.ask(QStringLiteral("OPSWAGnieuw><l:Gebruikers|g:Leerlingen")));
    EXPECT_TRUE(c.ask(QStringLiteral("LDNACCINFnieuw"))
                    .endsWith(QStringLiteral("Gebruikers:l><Leerlingen:g")));
    EXPECT_EQ(QStringLiteral("ACDVWROK"), c.ask(QStringLiteral("ACDVWRnieuw")));
    EXPECT_EQ(QStringLiteral("ACDCONNEE"), c.ask(QStringLiteral("ACDCONnieuw")));
}

TEST(ServerSaveTest, DeletesRemoveRecordsAndRefuseUnknownIds) {
    RunningServer s;
    WireClient c(s.port());
    struct Case {
        const char* request;
        const char* reply;
    };
    const Case cases[] = {
        {"VWNKLS3", "VWNKLSOK"},     {"VWNKLS3", "VWNKLSFOUT"},   {"VWNKLSdrie", "VWNKLSFOUT"},
        {"VWNLRN2", "VWNLRNOK"},     {"VWNLRN77", "VWNLRNFOUT"},  {"VWNAPPk|3", "VWNAPPOK"},
        {"VWNAPPk|3", "VWNAPPFOUT"}, {"VWNAPPx|1", "VWNAPPFOUT"}, {"VWNCATk|1", "VWNCATOK"},
        {"VWNCATk|1", "VWNCATFOUT"},
    };
    for (const Case& t : cases) {
        SCOPED_TRACE(t.request);
        EXPECT_EQ(QString::fromLatin1(t.reply), c.ask(QString::fromLatin1(t.request)));
    }
    const auto classes = loadClasses(c);
    EXPECT_EQ(7, classes.size());
    for (const QStringList& row : classes)
        EXPECT_NE(QStringLiteral("3"), row[6]);
    EXPECT_EQ(3, loadTeachers(c).size());
    // The category's applications went with it: only those of category 2 and 3 are left.
    for (const QStringList& app : loadApplications(c, QStringLiteral("K")))
        EXPECT_NE(QStringLiteral("1"), app[2]);
    EXPECT_EQ(QStringLiteral("LDNFAV0|Nee|Nee|Nee;<>;"), c.ask(QStringLiteral("LDNFAVGroep3")));
}

TEST(ServerStoreTest, EverythingSavedIsThereAfterARestart) {
    RunningServer s;
    QString id;
    {
        WireClient c(s.port());
        id = field(c.ask(QStringLiteral("OPSKLZ") + newClass(QStringLiteral("Blijvend"))),
                   QStringLiteral("OPSKLZ"));
        EXPECT_EQ(QStringLiteral("OPSITSOK"), c.ask(QStringLiteral("OPSITSblijft.nl")));
        EXPECT_EQ(QStringLiteral("VWNLRNOK"), c.ask(QStringLiteral("VWNLRN1")));
    }
    s.restart();
    WireClient c(s.port());
    const auto classes = loadClasses(c);
    ASSERT_EQ(9, classes.size());
    EXPECT_EQ(QStringLiteral("Blijvend"), classes.last()[0]);
    EXPECT_EQ(id, classes.last()[6]);
    EXPECT_EQ(QStringLiteral("LDNITSblijft.nl"), c.ask(QStringLiteral("LDNITS")));
    EXPECT_EQ(3, loadTeachers(c).size());
    // IDs go on from where they were: a deleted ID is never given again.
    EXPECT_EQ(QString::number(id.toInt() + 1),
              field(c.ask(QStringLiteral("OPSKLZ") + newClass(QStringLiteral("Na herstart"))),
                    QStringLiteral("OPSKLZ")));
}

TEST(ServerMaintenanceTest, TheHandshakeIsRelayedBetweenInsiderAndNewcomer) {
    RunningServer s;
    WireClient insider(s.port());
    WireClient newcomer(s.port());
    EXPECT_EQ(QStringLiteral("INFONDNEE"), newcomer.ask(QStringLiteral("INFOND")));
    EXPECT_EQ(QStringLiteral("LOC"), insider.ask(QStringLiteral("LOCLERAAR|2|onderhoud")));
    EXPECT_EQ(QStringLiteral("INFONDJA"), newcomer.ask(QStringLiteral("INFOND")));
    EXPECT_EQ(QStringLiteral("INFONDNEE"), insider.ask(QStringLiteral("INFOND"))) << "not itself";

    // The insider refuses.
    newcomer.send(QStringLiteral("INFONA"));
    EXPECT_EQ(QStringLiteral("INFONA"), insider.next());
    EXPECT_EQ(QStringLiteral("INFOK"), insider.ask(QStringLiteral("INFONC")));
    EXPECT_EQ(QStringLiteral("INFONC"), newcomer.next());

    // The newcomer gives up.
    newcomer.send(QStringLiteral("INFONA"));
    EXPECT_EQ(QStringLiteral("INFONA"), insider.next());
    EXPECT_EQ(QStringLiteral("INFOK"), newcomer.ask(QStringLiteral("INFONB")));
    EXPECT_EQ(QStringLiteral("INFONC"), insider.next());

    // The insider goes back to the start screen: the module is free.
    EXPECT_EQ(QStringLiteral("LOC"), insider.ask(QStringLiteral("LOCGLOBAL")));
    EXPECT_EQ(QStringLiteral("INFONDNEE"), newcomer.ask(QStringLiteral("INFOND")));
    EXPECT_EQ(QStringLiteral("LOC"), insider.ask(QStringLiteral("LOCOnderhoudsmodule")));
    EXPECT_EQ(QStringLiteral("INFONDJA"), newcomer.ask(QStringLiteral("INFOND")));
}

TEST(ServerFramingTest, ANoticeNeverJoinsAReplyASlowReaderHasNotReadYet) {
    RunningServer s;
    WireClient insider(s.port());
    WireClient newcomer(s.port());
    WireClient other(s.port());
    EXPECT_EQ(QStringLiteral("LOC"), insider.ask(QStringLiteral("LOCONDERHOUD")));
    insider.setSlow(true);
    for (int round = 0; round < 3; ++round) {
        SCOPED_TRACE(round);
        // The insider's reply has arrived but is not read yet when the newcomer's request is
        // relayed to it.
        insider.send(QStringLiteral("TST"));
        ASSERT_TRUE(waitFor([&] { return insider.socket().bytesAvailable() > 0; }));
        newcomer.send(QStringLiteral("INFONA"));
        ASSERT_TRUE(waitFor([&] { return s.server().relayedNotices() == round + 1; }));
        // A round trip of another client lets anything already written reach the insider.
        EXPECT_EQ(QStringLiteral("TST"), other.ask(QStringLiteral("TST")));
        EXPECT_EQ(QStringLiteral("TST"), insider.take());
        ASSERT_TRUE(waitFor([&] { return insider.socket().bytesAvailable() > 0; }));
        EXPECT_EQ(QStringLiteral("INFONA"), insider.take());
    }
}

TEST(ServerFramingTest, AKeepAliveGoesOnlyToAnIdleClientAndSilenceEndsTheConnection) {
    RunningServer s(true, 1);
    WireClient answering(s.port());
    answering.setAnswerPings(true);
    WireClient silent(s.port());
    EXPECT_EQ(QStringLiteral("PIN"), silent.next(4000));
    EXPECT_TRUE(waitFor([&] { return silent.closedByServer(); }, 5000));
    EXPECT_GE(answering.pings(), 1);
    EXPECT_FALSE(answering.closedByServer());
    EXPECT_EQ(QStringLiteral("TST"), answering.ask(QStringLiteral("TST")));
}

TEST(ServerBadInputTest, BadMessagesAreRefusedOrDroppedAndNothingStoredIsLost) {
    RunningServer s;
    WireClient quiet(s.port()); // connects and never speaks
    WireClient bad(s.port());
    WireClient good(s.port());
    const auto before = loadClasses(good);

    struct Case {
        QByteArray request;
        const char* reply; // nullptr: dropped without an answer
    };
    const Case cases[] = {
        {"XYZ", nullptr},
        {"pin", nullptr},
        {QByteArray("\x00\xff\xfe\x01garbage", 11), nullptr},
        {"LDNKLSDAabc", "LDNKLSDAFOUT"},
        {"LDNAPKDAT999", "LDNAPKDATFOUT"},
        {"OPSKLZ1><te><weinig", "OPSKLZFOUT"},
        {"OPSKLZ1><Groep;<>;1><a><b><c><d><e><f><g><h><i><j", "OPSKLZFOUT"},
        {"OPSLRZ0><alleen", "OPSLRZFOUT"},
        {"OPSAPPk><1", "OPSAPPFOUT"},
        {"OPSCANgroep", "OPSCATFOUT"},
        {"OPSBEHk><abc><><><", "OPSBEHFOUT"},
        {"OPSFAVGeenEigenaar;<>;1|2|3|4;<>;", "OPSFAVFOUT"},
        {"ACDNIEalleen", "ACDNIEFOUT"},
        {"LDNAPPPOSX1", "LDNAPPPOSFOUT"},
    };
    for (const Case& t : cases) {
        SCOPED_TRACE(t.request.left(30).toStdString());
        bad.sendBytes(t.request);
        if (t.reply) {
            EXPECT_EQ(QString::fromLatin1(t.reply), bad.next());
        } else {
            // Dropped: the next request is answered, and by its own reply only.
            EXPECT_TRUE(waitFor([&] { return bad.socket().bytesToWrite() == 0; }));
            EXPECT_EQ(QStringLiteral("TST"), good.ask(QStringLiteral("TST")));
            EXPECT_EQ(QStringLiteral("TST"), bad.ask(QStringLiteral("TST")));
        }
    }
    EXPECT_EQ(before, loadClasses(good));
    EXPECT_TRUE(quiet.connected());
    EXPECT_TRUE(quiet.reads().isEmpty());
}

TEST(ServerTransferTest, AnUploadedIconIsListedAndComesBackInAPackage) {
    RunningServer s;
    WireClient c(s.port());
    const QString before = c.ask(QStringLiteral("LDNPICWIJ"));
    EXPECT_EQ(QStringLiteral("OPSAP2OK"), c.ask(QStringLiteral("OPSAP2k|\\Afbeeldingen\\2.pic")));
    QByteArray icon(9000, '\0');
    for (int i = 0; i < icon.size(); ++i)
        icon[i] = char(i * 7);
    FileSender upload(s.options().uploadInfoPort, s.options().uploadDataPort);
    upload.offer(QStringLiteral("2.pic"), icon);
    EXPECT_TRUE(waitFor([&] { return upload.finished(); }));
    EXPECT_EQ((QStringList{QStringLiteral("CNT"), QStringLiteral("ACP"), QStringLiteral("RFC")}),
              upload.answers());

    const QString after = c.ask(QStringLiteral("LDNPICWIJ"));
    EXPECT_NE(before.section(QLatin1Char('|'), 1, 1), after.section(QLatin1Char('|'), 1, 1));
    const QStringList list = field(c.ask(QStringLiteral("LDNPICGRP")), QStringLiteral("LDNPICGRP"))
                                 .split(QStringLiteral("><"));
    ASSERT_EQ(1, list.size());
    EXPECT_EQ(QStringLiteral("2|") + after.mid(9).section(QLatin1Char('|'), 1, 1), list[0]);

    EXPECT_EQ(QStringLiteral("LDNPICPAK"), c.ask(QStringLiteral("LDNPICPAKgroep|2;<>;algemeen|")));
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ(QStringLiteral("pakket.pictogrammen"), s.receiver().name());
    QTemporaryDir unpacked;
    const QString archive = unpacked.filePath(QStringLiteral("pakket"));
    {
        QFile f(archive);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(s.receiver().content());
    }
    tk::UcArchief reader;
    EXPECT_EQ(
        1, reader.ExtractFilesFromArchiv(archive, unpacked.filePath(QStringLiteral("uit")), false));
    QFile unpackedIcon(unpacked.filePath(QStringLiteral("uit/Applicaties/Groepen/2.pic")));
    ASSERT_TRUE(unpackedIcon.open(QIODevice::ReadOnly));
    EXPECT_EQ(icon, unpackedIcon.readAll());
}

TEST(ServerTransferTest, AnUnexpectedOrBrokenUploadStoresNothing) {
    RunningServer s;
    WireClient c(s.port());
    {
        FileSender stranger(s.options().uploadInfoPort, s.options().uploadDataPort);
        stranger.offer(QStringLiteral("5.pic"), QByteArray(100, 'x'));
        EXPECT_TRUE(waitFor([&] { return stranger.refused(); }));
    }
    EXPECT_EQ(QStringLiteral("OPSAP2OK"), c.ask(QStringLiteral("OPSAP2l|3.pic")));
    {
        FileSender halfway(s.options().uploadInfoPort, s.options().uploadDataPort);
        halfway.offer(QStringLiteral("3.pic"), QByteArray(20000, 'y'), 5000);
        EXPECT_TRUE(waitFor([&] { return s.server().transfers().activeTransfers() == 1; }));
        halfway.abort();
    }
    EXPECT_TRUE(waitFor([&] { return s.server().transfers().activeTransfers() == 0; }));
    EXPECT_EQ(QStringLiteral("LDNPICLRN"), c.ask(QStringLiteral("LDNPICLRN")));
    EXPECT_EQ(QStringLiteral("TST"), c.ask(QStringLiteral("TST")));
}

TEST(ServerTransferTest, AThemeIsListedAndSentAsAPackageTheClientUnpacks) {
    RunningServer s;
    QTemporaryDir theme;
    QDir(theme.path()).mkpath(QStringLiteral("Knoppen"));
    const QList<QPair<QString, QByteArray>> files{
        {QStringLiteral("Instellingen.ini"), QByteArray("[Algemeen]\r\nVersie=1.2.3\r\n")},
        {QStringLiteral("Knoppen/1a.jpg"), QByteArray("\xff\xd8\x00\x01 jpeg", 10)}};
    for (const auto& [name, bytes] : files) {
        QFile f(theme.filePath(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    QString error;
    ASSERT_TRUE(s.store().saveTheme({QStringLiteral("8"), QStringLiteral("1.2.3"), true},
                                    ArchivePackager().packFolder(theme.path()), &error));
    WireClient c(s.port());
    EXPECT_EQ(QStringLiteral("LDNTHE8|1.2.3|JA"), c.ask(QStringLiteral("LDNTHE")));
    EXPECT_EQ(QStringLiteral("LDNTH"), c.ask(QStringLiteral("LDNTH8")));
    ASSERT_TRUE(waitFor([&] { return s.receiver().complete(); }));
    EXPECT_EQ(QStringLiteral("8.thema"), s.receiver().name());
    QTemporaryDir out;
    QFile package(out.filePath(QStringLiteral("8.thema")));
    ASSERT_TRUE(package.open(QIODevice::WriteOnly));
    package.write(s.receiver().content());
    package.close();
    tk::UcArchief reader;
    EXPECT_EQ(2, reader.ExtractFilesFromArchiv(package.fileName(),
                                               out.filePath(QStringLiteral("8")), false));
    for (const auto& [name, bytes] : files) {
        QFile f(out.filePath(QStringLiteral("8/") + name));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
        EXPECT_EQ(bytes, f.readAll());
    }
}
