#include "tests/support/Werkplek.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

QString dm(const DisplayMode& m) {
    return QStringLiteral("%1x%2x%3").arg(m.width).arg(m.height).arg(m.depth);
}

QStringList gevraagd(Werkplek& w) {
    QStringList uit;
    for (const DisplayMode& m : w.platform.fakeDisplay().asked)
        uit << dm(m);
    return uit;
}

// What a start leaves standing, in one line: the overlay, its text and button, the wait, the
// taskbar kept on top, the stand of the display.
QString toestand(Werkplek& w) {
    const FrmBureaubladStarter& s = w.s();
    QStringList uit;
    for (const auto& [aan, naam] : {std::pair{s.picDisableZichtbaar, "overlay"},
                                    {s.lblDisableZichtbaar, "tekst"},
                                    {s.cmdShellWaitZichtbaar, "knop"},
                                    {s.tmrShellWait.isActive(), "wacht"},
                                    {s.tmrTaakbalk.isActive(), "balk"}})
        if (aan)
            uit << QString::fromLatin1(naam);
    return uit.join(u' ') + QStringLiteral(" stand ") + s.ShellWachtStand;
}

// The program has ended: tmrShellWait sees it gone twice, a moment apart.
void tikNaEinde(Werkplek& w) {
    w.s().tmrShellWait_Timer();
    w.platform.fakeClock().advance(ModMainStarten::LeegMs);
    w.s().tmrShellWait_Timer();
}

} // namespace

TEST(StartApplicatieTest, ASecondClickWithinTwoSecondsIsDropped) {
    Werkplek w(Werkplek::starter);
    auto& started = w.platform.fakeProcesses().started;
    w.s().StartApplicatie("/bin/sh", "-c true", "", "1024x768x32xNEE", "Shell");
    EXPECT_EQ(started, QStringList{"/bin/sh -c true (in /bin)"});
    for (int stap : {1999, 1}) { // blocked at 1999 ms, free at 2000
        w.platform.fakeClock().advance(stap);
        EXPECT_EQ(w.s().StartGeblokkeerd(), stap == 1999);
        w.s().StartApplicatie("/bin/sh", "", "", "", "Shell");
    }
    EXPECT_EQ(started.size(), 2);
}

TEST(StartApplicatieTest, TheDisplayChangesOnlyForADemandThatDiffersFromThePresentMode) {
    struct Case {
        const char* eis;
        bool beheer;      // a management workstation
        const char* mode; // the mode asked of the display, "" for none
        bool wachten;     // the overlay stands and the program is waited for
        bool verbergen;   // the taskbar is hidden
    };
    const Case cases[] = {
        {"1024x768x32xNEE", false, "", false, false}, // the present mode: a plain start
        {"1024x768x32", false, "", false, false},
        {"800x600", false, "", false, false},       // two values never change anything
        {"1024x768", false, "", false, false},      //
        {"800x600x0xNEE", false, "", false, false}, // depth 0: no change
        {"", false, "", false, false},              //
        {"800x600x32xNEE", false, "800x600x32", true, false},
        {"1024x600x32", false, "1024x600x32", true, false},     // the height alone
        {"1024x768x16xNEE", false, "1024x768x16", true, false}, // the depth alone
        {"1024x768x8", false, "1024x768x8", true, false},
        {"1024x768x32xJA", false, "", true, true},        // only the taskbar goes
        {"640x480x8xja", false, "640x480x8", true, true}, // the flag in any case
        {"800x600x32xNEE", true, "", false, false},       // a management workstation
        {"800x600x32xJA", true, "", true, true},          // hides the taskbar all the same
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.eis + std::string(c.beheer ? " beheer" : ""));
        Werkplek w(Werkplek::starter);
        w.p.modMain.ModusBeheer = c.beheer;
        w.s().StartApplicatie("/bin/sh", "", "", c.eis, "Shell");
        ASSERT_EQ(w.platform.fakeProcesses().started.size(), 1);
        EXPECT_EQ(gevraagd(w), c.mode[0] ? QStringList{c.mode} : QStringList{});
        EXPECT_EQ(w.s().picDisableZichtbaar, c.wachten);
        EXPECT_EQ(w.s().tmrShellWait.isActive(), c.wachten);
        EXPECT_EQ(w.s().TaakbalkVerbergen, c.verbergen);
        EXPECT_EQ(w.s().ShellWachtStand, c.mode[0] ? "1" : "0");
        EXPECT_TRUE(w.meldingen().isEmpty());
    }
}

TEST(StartApplicatieTest, WithoutAGivenFolderTheProgramRunsInItsOwnFolder) {
    struct Case {
        const char* opdracht;
        const char* map;
        const char* werkmap;
    };
    const Case cases[] = {
        {"C:\\Programma's\\Paint\\paint.exe", "", "C:\\Programma's\\Paint"},
        {"C:\\Programma's\\Paint\\paint.exe", "E:\\Werk", "E:\\Werk"}, // a given folder stays
        {"paint.exe", "", ""}, // no backslash: the folder as given
        {"paint.exe", "E:\\Werk", "E:\\Werk"},
        {"/usr/bin/xlogo", "", "/usr/bin"},
        {"/usr/bin/xterm -e /bin/sh", "", "/usr/bin"}, // a command line counts with its program
        {"\\Programma's\\tekenen.sh", "", "\\Programma's"},
        {"\\Programma's\\Mijn spel\\spel.sh", "", "\\Programma's\\Mijn spel"},
        {"C:\\Program Files\\Spel\\spel.exe /volledig", "", "C:\\Program Files\\Spel"},
        {"%TEMP%\\les.pdf", "", "%TEMP%"},
        {"/spel", "", "/"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.opdracht);
        EXPECT_EQ(ModMainStarten::WerkMap(c.opdracht, c.map), c.werkmap);
    }

    // The folder reaches the program; a program-relative "\" folder is made native.
    Werkplek w(Werkplek::starter);
    w.schrijf("Programma's/Paint/paint.sh", "#!/bin/sh\n");
    QFile(w.pad("Programma's/Paint/paint.sh"))
        .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    w.s().StartApplicatie("\\Programma's\\Paint\\paint.sh", "", "", "", "Paint");
    ASSERT_EQ(w.platform.fakeProcesses().started.size(), 1);
    EXPECT_EQ(w.platform.fakeProcesses().started[0],
              w.pad("Programma's/Paint/paint.sh") + " (in " + w.pad("Programma's/Paint") + ")");
}

TEST(StartApplicatieTest, AProgramThatDemandsAModeRunsInItAndTheDesktopComesBackAfter) {
    Werkplek w(Werkplek::starter);
    w.s().Schermopname = [] {
        QImage beeld(1024, 768, QImage::Format_RGB32);
        beeld.fill(Qt::darkGreen);
        return beeld;
    };
    auto& processen = w.platform.fakeProcesses();
    w.s().StartApplicatie("/bin/sh", "", "", "800x600x16xJA", "Rekenen");

    // The overlay: the captured screen, the text, and the button centred on the new screen.
    EXPECT_EQ(toestand(w), "overlay tekst knop wacht stand 1");
    EXPECT_EQ(w.s().picDisable, QRect(0, 0, 1024, 768));
    EXPECT_EQ(w.s().picDisableBeeld.pixelColor(5, 5), QColor(Qt::darkGreen));
    EXPECT_EQ(w.s().lblDisableTekst, w.p.modTaal.LaadTekst(747));
    EXPECT_EQ(w.s().cmdShellWaitTekst, "Close Program");
    EXPECT_EQ(w.s().cmdShellWait.topLeft(), QPoint(400 - 80, 300 - 16));
    EXPECT_EQ(w.s().lblDisable.topLeft(), QPoint(400 - 200, 300 - 80));
    EXPECT_TRUE(w.s().tmrDisable.isActive());

    EXPECT_EQ(gevraagd(w), QStringList{"800x600x16"});
    EXPECT_EQ(w.s().OudeWeergave, "1024x768x32");
    EXPECT_EQ(QSize(w.s().BreedteNu, w.s().HoogteNu), QSize(800, 600));
    // The taskbar learns the new height, and stays down while the program runs.
    EXPECT_EQ(w.opnameBalk.log, QStringList({"TekenKnop", "VensterPositie 600", "Zichtbaar 0"}));
    EXPECT_EQ(w.platform.fakeWindows().log, QStringList{"ontop 77 0"});
    ASSERT_EQ(processen.started.size(), 1);
    const qint64 pid = w.s().ShellProces;
    ASSERT_GT(pid, 0);

    // While it runs nothing happens, and no other program starts.
    w.later();
    w.s().tmrShellWait_Timer();
    EXPECT_TRUE(w.s().StartGeblokkeerd());
    w.s().StartApplicatie("/bin/sh", "", "", "", "Ander");
    EXPECT_EQ(processen.started.size(), 1);
    EXPECT_EQ(toestand(w), "overlay tekst knop wacht stand 1");

    processen.running.remove(pid);
    tikNaEinde(w);
    EXPECT_EQ(toestand(w), "balk stand 0");
    EXPECT_EQ(gevraagd(w), QStringList({"800x600x16", "1024x768x32"}));
    EXPECT_EQ(QSize(w.s().BreedteNu, w.s().HoogteNu), QSize(1024, 768));
    EXPECT_EQ(w.opnameBalk.log.mid(3), QStringList({"VensterPositie 768", "Zichtbaar 1"}));
    EXPECT_EQ(w.platform.fakeWindows().log, QStringList({"ontop 77 0", "ontop 77 1"}));
    EXPECT_EQ(w.getoond, 1);
    EXPECT_TRUE(w.s().picDisableBeeld.isNull());
    EXPECT_FALSE(w.s().StartGeblokkeerd());
    EXPECT_TRUE(w.meldingen().isEmpty());
}

TEST(StartApplicatieTest, TheWaitEndsByCloseProgramOrALogOffAndRestoresTheDisplay) {
    Werkplek w(Werkplek::starter);
    auto& processen = w.platform.fakeProcesses();
    w.s().StartApplicatie("/bin/sh", "", "", "800x600x32xNEE", "Rekenen");
    const qint64 pid = w.s().ShellProces;
    // The program was started through a wrapper that has ended already.
    processen.children[pid] = {pid + 50};
    processen.running.insert(pid + 50);
    processen.running.remove(pid);
    w.s().tmrShellWait_Timer();
    EXPECT_TRUE(w.s().tmrShellWait.isActive());
    // Close Program ends everything the start gave.
    w.s().cmdShellWait_Click();
    EXPECT_EQ(processen.killed, QList<qint64>{pid});
    EXPECT_FALSE(processen.running.contains(pid + 50));
    EXPECT_EQ(toestand(w), "balk stand 0");
    EXPECT_EQ(gevraagd(w), QStringList({"800x600x32", "1024x768x32"}));

    // A desktop that goes while a program runs in its mode (a log-off) leaves the screen as it
    // was; without a changed mode nothing is asked.
    for (const char* eis : {"800x600x16xNEE", "1024x768x32xJA"}) {
        SCOPED_TRACE(eis);
        Werkplek v(Werkplek::starter);
        v.s().StartApplicatie("/bin/sh", "", "", eis, "Rekenen");
        v.starterWeg();
        EXPECT_EQ(gevraagd(v),
                  eis[0] == '8' ? QStringList({"800x600x16", "1024x768x32"}) : QStringList());
        EXPECT_EQ(v.platform.fakeDisplay().mode, (DisplayMode{1024, 768, 32}));
    }
}

TEST(StartApplicatieTest, ADisplayThatCannotBeRestoredIsSaidAndStaysChanged) {
    Werkplek w(Werkplek::starter);
    w.s().StartApplicatie("/bin/sh", "", "", "800x600x32xNEE", "Rekenen");
    w.platform.fakeDisplay().fails = true;
    w.platform.fakeProcesses().running.clear();
    tikNaEinde(w);
    EXPECT_EQ(w.meldingen(), QStringList{w.p.modTaal.LaadTekst(701)});
    EXPECT_EQ(w.s().BreedteNu, 800);
    EXPECT_EQ(toestand(w), "balk stand 0");
}

TEST(StartApplicatieTest, AModeTheScreenCannotShowStillStartsTheProgramAtThePresentOne) {
    Werkplek w(Werkplek::starter);
    w.platform.fakeDisplay().modes = {{1024, 768, 32}};
    w.s().tmrTaakbalk.start(); // the desktop keeps its bar on top
    w.s().StartApplicatie("/bin/sh", "", "", "640x480x8xNEE", "Oud spel");
    // The height stays unfilled: the text names it by another placeholder.
    ASSERT_EQ(w.meldingen().size(), 1);
    EXPECT_EQ(w.meldingen()[0], "The entered display settings, 640 by %breedte% pixels (8 color "
                                "quality) cannot be applied.");
    EXPECT_EQ(gevraagd(w), QStringList{"640x480x8"});
    EXPECT_EQ(w.platform.fakeWindows().log, QStringList{"ontop 77 0"});
    EXPECT_EQ(w.platform.fakeProcesses().started.size(), 1);
    // Nothing to undo when it ends, but the desktop comes back.
    EXPECT_EQ(toestand(w), "overlay tekst knop wacht stand 0");
    EXPECT_EQ(w.s().cmdShellWait.topLeft(), QPoint(512 - 80, 384 - 16));
    w.platform.fakeProcesses().running.clear();
    tikNaEinde(w);
    EXPECT_EQ(gevraagd(w), QStringList{"640x480x8"});
    EXPECT_EQ(toestand(w), "balk stand 0");
    EXPECT_EQ(w.platform.fakeWindows().log.last(), "ontop 77 1");
}

TEST(StartApplicatieTest, OnlyAProgramDeniedItsModeHasItsFirstWindowShownMaximised) {
    for (const char* eis : {"640x480x8xNEE", "640x480x32xNEE", "1024x768x32xJA"}) {
        SCOPED_TRACE(eis);
        const bool geweigerd = QByteArray(eis) == "640x480x8xNEE";
        Werkplek w(Werkplek::starter);
        if (geweigerd)
            w.platform.fakeDisplay().modes = {{1024, 768, 32}};
        w.s().StartApplicatie("/bin/sh", "", "", eis, "Spel");
        const qint64 pid = w.s().ShellProces;
        ASSERT_GT(pid, 0);
        auto& windows = w.platform.fakeWindows();
        // No window yet: nothing to maximise; another program's window is left alone.
        windows.windows.append(WindowInfo{.handle = 5, .title = "Ander", .pid = 4242});
        w.s().tmrShellWait_Timer();
        EXPECT_EQ(windows.log.filter("maximize"), QStringList());
        windows.windows.append(WindowInfo{.handle = 9, .title = "Spel", .pid = pid});
        w.s().tmrShellWait_Timer();
        // A dialog it opens later keeps its own size.
        windows.windows.append(WindowInfo{.handle = 10, .title = "Opties", .pid = pid});
        w.s().tmrShellWait_Timer();
        EXPECT_EQ(windows.log.filter("maximize"),
                  geweigerd ? QStringList{"maximize 9"} : QStringList());
    }
}

TEST(StartApplicatieTest, AFailedStartIsNamedAndReportedAutomatically) {
    struct Case {
        int platformCode; // what the machine's start answered
        const char* naam;
        bool padMelding; // the dedicated message of a path not found
    };
    const Case cases[] = {
        {2, "File not found", false},
        {3, "Path not found", true},
        {5, "Access denied", false},
        {8, "Out of memory", false},
        {11, "Invalid EXE file or error in EXE image", false},
        {31, "No association for file extension", false},
        {0, "The operating system is out of memory or resources.", false},
        {17, "Unknown error", false},
    };
    for (const char* eis : {"1024x768x32xNEE", "800x600x32xJA"}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(eis) + " " + c.naam);
            Werkplek w(Werkplek::starter);
            w.platform.fakeProcesses().failWith = c.platformCode;
            w.s().StartApplicatie("/bin/sh", "", "", eis, "Rekenen");
            const QString regels = "Name: Rekenen\r\nLocation: /bin/sh\r\nError description: " +
                                   QString::fromLatin1(c.naam);
            ASSERT_EQ(w.meldingen().size(), 1);
            if (c.padMelding)
                EXPECT_EQ(w.meldingen()[0], "It is not possible to start the application.\r\n\r\n"
                                            "Error description: Path not found");
            else
                EXPECT_EQ(w.meldingen()[0],
                          "An error occurred while starting the application.\r\n\r\n" + regels);
            // The fault report: logged and offered to send, under its own name.
            EXPECT_EQ(w.dialogen.getoond, QStringList{"frmFoutrapportage"});
            EXPECT_EQ(w.p.frmFoutrapportage.Module, "Automatische melding");
            EXPECT_EQ(w.p.frmFoutrapportage.Omschrijving, QString(regels).replace("\r\n", "|"));
            EXPECT_TRUE(
                w.lees("Logboek/" + w.platform.fakeClock().now().toString("d-M-yyyy") + ".txt")
                    .contains("Automatische melding"));
            // Nothing stays of an overlay or a changed display.
            EXPECT_FALSE(w.s().picDisableZichtbaar);
            EXPECT_FALSE(w.s().tmrShellWait.isActive());
            EXPECT_EQ(w.platform.fakeDisplay().mode, (DisplayMode{1024, 768, 32}));
        }
    }
}

TEST(StartApplicatieTest, BadStartCommandsAreNamedWithoutHarm) {
    struct Case {
        const char* opdracht;
        const char* eis;
        const char* fout;
    };
    const Case cases[] = {
        {"/geen/programma", "", "File not found"},
        {"/bin/sh", "axbxc", "cannot be applied"}, // a demand that is no size
        {"/bin/sh", "99999x99999x32", "cannot be applied"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.opdracht + std::string(" ") + c.eis);
        Werkplek w(Werkplek::starter);
        w.platform.fakeDisplay().modes = {{1024, 768, 32}};
        w.s().StartApplicatie(c.opdracht, "", "", c.eis, "X");
        ASSERT_FALSE(w.meldingen().isEmpty());
        EXPECT_TRUE(w.meldingen().last().contains(c.fout)) << w.meldingen().last().toStdString();
        EXPECT_EQ(w.platform.fakeDisplay().mode, (DisplayMode{1024, 768, 32}));
    }
}

TEST(StartApplicatieTest, AClickOnAnIconCountsTheStartOnTheServerWithoutWaiting) {
    struct Case {
        int soort;
        const char* verwacht;
    };
    const Case cases[] = {{0, "OPSTEL12|7|0"}, {1, "OPSTEL12|7|1"}, {2, "OPSTEL12|7|2"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.soort);
        Werkplek w(Werkplek::starter);
        w.applicatie(c.soort, 3, "12", "Rekenen", "standaard|3", "/bin/sh", "-", "", "-c true");
        w.s().StartApplicatieRij(c.soort, 3, "7");
        EXPECT_EQ(w.kanaal.verstuurd, QStringList{c.verwacht});
        EXPECT_EQ(w.kanaal.gewacht, QList<bool>{false});
        EXPECT_EQ(w.platform.fakeProcesses().started, QStringList{"/bin/sh -c true (in /bin)"});
    }
    // Offline the start is not counted, but happens.
    Werkplek w(Werkplek::starter);
    w.kanaal.verbonden = false;
    w.applicatie(2, 0, "12", "Rekenen", "standaard|3", "/bin/sh");
    w.s().StartApplicatieRij(2, 0, "7");
    EXPECT_TRUE(w.kanaal.verstuurd.isEmpty());
    EXPECT_EQ(w.platform.fakeProcesses().started.size(), 1);
}

TEST(StartApplicatieTest, AnIconWhoseProgramIsMissingOrThisProgramStartsNothing) {
    Werkplek w(Werkplek::starter);
    w.applicatie(0, 0, "12", "Rekenen", "standaard|3", "C:\\Programma's\\Reken\\reken.exe");
    w.s().StartApplicatieRij(0, 0, "7");
    EXPECT_EQ(w.kanaal.verstuurd, QStringList{"OPSTEL12|7|0"});
    EXPECT_EQ(w.meldingen(), QStringList{"Location of the application cannot be found."});
    EXPECT_TRUE(w.platform.fakeProcesses().started.isEmpty());
    EXPECT_EQ(w.p.frmFoutrapportage.Module, "Automatische melding");
    EXPECT_EQ(
        w.p.frmFoutrapportage.Omschrijving,
        "Location of the application cannot be found.|Name: Rekenen|"
        "Location: C:\\Programma's\\Reken|Startup command: C:\\Programma's\\Reken\\reken.exe");
    // A refused start does not arm the guard.
    EXPECT_FALSE(w.s().StartGeblokkeerd());

    // This program itself is not started again.
    const QString zelf = w.platform.programFile();
    w.schrijf(QStringLiteral("tafelkrater"), "#!/bin/sh\n");
    for (const QString& opdracht : {zelf, zelf + ".exe"}) {
        w.dialogen.gesteld.clear();
        w.applicatie(2, 0, "5", "Tafelkrater", "standaard|3", opdracht);
        w.s().StartApplicatieRij(2, 0, "7");
        EXPECT_EQ(w.meldingen(), QStringList{w.p.modTaal.LaadTekst(702)});
    }
    EXPECT_TRUE(w.platform.fakeProcesses().started.isEmpty());
}

TEST(StartSchijfTest, TheDriveItemOpensAMediumThatIsThereAndSaysSoWhenNoneIs) {
    Werkplek w(Werkplek::starter);
    auto& media = w.platform.fakeEnvironment().media;
    auto& gestart = w.platform.fakeProcesses().started;
    // The disc the item was drawn with was taken out, a stick was put in: that one opens.
    media = {"/media/usb0"};
    w.s().StartSchijf("/media/cdrom0");
    ASSERT_EQ(gestart.size(), 1);
    EXPECT_TRUE(gestart[0].contains("/media/usb0")) << gestart[0].toStdString();
    EXPECT_FALSE(gestart[0].contains("cdrom0"));
    EXPECT_TRUE(w.meldingen().isEmpty());

    // Nothing in any drive: said and logged, nothing started, the next click may try again.
    media.clear();
    w.s().LaatsteStart = QDateTime();
    w.s().StartSchijf("/media/usb0");
    EXPECT_EQ(gestart.size(), 1);
    EXPECT_EQ(w.meldingen(), QStringList{w.p.modTaal.LaadTekst(9550)});
    EXPECT_TRUE(w.p.modTaal.LaadTekst(9550).contains("no disc"));
    EXPECT_TRUE(w.lees("Logboek/" + w.platform.fakeClock().now().toString("d-M-yyyy") + ".txt")
                    .contains("no disc or removable medium"));
    EXPECT_FALSE(w.s().StartGeblokkeerd());
    media = {"/media/cdrom0"};
    w.s().StartSchijf("");
    ASSERT_EQ(gestart.size(), 2);
    EXPECT_TRUE(gestart[1].contains("/media/cdrom0"));
}

TEST(ProcesLeeftTest, TheWaitFollowsTheProgramsWindowsAndWhatAWrapperLeft) {
    Werkplek w(Werkplek::starter);
    auto& processen = w.platform.fakeProcesses();
    auto& vensters = w.platform.fakeWindows().windows;
    const ModMainStarten::Gestart g = w.starten().ShellExecAndWait("/bin/sh", "", "");
    ASSERT_TRUE(g.gelukt());
    const qint64 wrapper = g.proces, programma = g.proces + 100, helper = g.proces + 101;

    // Starting: the wrapper runs, no window yet.
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    // The wrapper started the program and ended.
    processen.children[wrapper] = {programma};
    processen.running.insert(programma);
    processen.running.remove(wrapper);
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    // Its window shows; the program starts a helper.
    vensters.append(WindowInfo{.handle = 9, .title = "Rekenen", .pid = programma});
    processen.children[programma] = {helper};
    processen.running.insert(helper);
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    // The window closes, the helper stays: a window may still come, for a while.
    vensters.clear();
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    w.platform.fakeClock().advance(ModMainStarten::NawachtMs - 1);
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    // A window that comes back starts the count anew.
    vensters.append(WindowInfo{.handle = 10, .title = "Rekenen", .pid = helper});
    w.platform.fakeClock().advance(10);
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    vensters.clear();
    EXPECT_TRUE(w.starten().ProcesLeeft(wrapper));
    w.platform.fakeClock().advance(ModMainStarten::NawachtMs);
    EXPECT_FALSE(w.starten().ProcesLeeft(wrapper));
    EXPECT_TRUE(processen.running.contains(helper)); // left to itself

    // A program without windows is followed by its processes alone; a window of another
    // program does not count.
    const ModMainStarten::Gestart h = w.starten().ShellExecAndWait("/bin/sh", "", "");
    vensters.append(WindowInfo{.handle = 11, .title = "Ander", .pid = 4242});
    processen.running.insert(4242);
    w.platform.fakeClock().advance(60000);
    EXPECT_TRUE(w.starten().ProcesLeeft(h.proces));
    // Gone is gone once it has been seen so for a moment: a process that is not listed yet
    // comes back within it.
    processen.running.remove(h.proces);
    EXPECT_TRUE(w.starten().ProcesLeeft(h.proces));
    processen.running.insert(h.proces);
    w.platform.fakeClock().advance(ModMainStarten::LeegMs);
    EXPECT_TRUE(w.starten().ProcesLeeft(h.proces));
    processen.running.remove(h.proces);
    EXPECT_TRUE(w.starten().ProcesLeeft(h.proces));
    w.platform.fakeClock().advance(ModMainStarten::LeegMs - 1);
    EXPECT_TRUE(w.starten().ProcesLeeft(h.proces));
    w.platform.fakeClock().advance(1);
    EXPECT_FALSE(w.starten().ProcesLeeft(h.proces));
    EXPECT_FALSE(w.starten().ProcesLeeft(0));
}
