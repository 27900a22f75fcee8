// How a start command of an application is read on Linux: a program or command line, a
// freedesktop .desktop entry, or a file or folder opened by the application chosen for it.
#include "screens/desktop/BureaubladItem.h"
#include "tests/support/Werkplek.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tk;
using tk::test::Werkplek;

namespace {

// A file below the program folder, executable when asked.
QString maak(Werkplek& w, const QString& relatief, const QByteArray& inhoud,
             bool uitvoerbaar = false) {
    w.schrijf(relatief, inhoud);
    if (uitvoerbaar)
        QFile(w.pad(relatief))
            .setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return w.pad(relatief);
}

} // namespace

TEST(StartOpdrachtTest, ProgramsCommandLinesFilesAndFoldersAreRunAsTheirKindAsks) {
    Werkplek w(Werkplek::starter);
    const QString spel = maak(w, "Programma's/Spel/spel.sh", "#!/bin/sh\n", true);
    const QString les = maak(w, "Documenten/les 1.pdf", "%PDF-1.4\n");
    w.platform.fakeEnvironment().setVariable("TEMP", w.pad("Documenten"));

    struct Case {
        QString opdracht, parameters;
        QString programma;
        QStringList argumenten;
    };
    const Case cases[] = {
        {"/bin/sh", "-c \"echo a b\"", "/bin/sh", {"-c", "echo a b"}},
        {"sh -c true", "", "sh", {"-c", "true"}}, // a command line: its program on the PATH
        {"sh -c", "true", "sh", {"-c", "true"}},  // the parameters follow its own arguments
        {"\\Programma's\\Spel\\spel.sh", "--groot", spel, {"--groot"}}, // program-relative
        {spel, "", spel, {}},
        {"\\Documenten\\les 1.pdf", "", "xdg-open", {les}},      // a document: its application
        {"%TEMP%\\les 1.pdf", "", "xdg-open", {les}},            // with a placeholder filled in
        {"\\Documenten", "", "xdg-open", {w.pad("Documenten")}}, // a folder
        // The drive of the "cdrom" item in the file manager; without one, the home folder.
        {"%WINDIR%\\Explorer.exe", "/media/cdrom0", "xdg-open", {"/media/cdrom0"}},
        {"%WINDIR%\\Explorer.exe", "", "xdg-open", {QDir::homePath()}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.opdracht.toStdString() + " " + c.parameters.toStdString());
        const ModMainStarten::Opstart o = w.starten().LosOp(c.opdracht, c.parameters, "");
        EXPECT_EQ(o.resultaat, 0);
        EXPECT_EQ(o.programma, c.programma);
        EXPECT_EQ(o.argumenten, c.argumenten);
    }
    // The file manager runs without the system's folder it would have had.
    EXPECT_EQ(w.starten().LosOp("%WINDIR%\\Explorer.exe", "/media/cdrom0", "%WINDIR%").map, "");
}

TEST(StartOpdrachtTest, ADesktopEntryRunsItsExecWithFieldCodesFilledAndInItsPath) {
    Werkplek w(Werkplek::starter);
    const QString item = maak(w, "Snelkoppelingen/tekenen.desktop",
                              "# a shortcut\n"
                              "[Desktop Entry]\n"
                              "Type=Application\n"
                              "Name=Tekenen\n"
                              "Name[nl]=Tekenen (nl)\n"
                              "Icon=tekenen\n"
                              "Exec=\"/bin/sh\" --naam=%c --bestand %U %i -x%% %k \\s%d\n"
                              "Path=/tmp\n"
                              "[Desktop Action Nieuw]\n"
                              "Exec=/bin/false\n");
    const ModMainStarten::Opstart o =
        w.starten().LosOp("\\Snelkoppelingen\\tekenen.desktop", "\"a 1.png\" b.png", "");
    EXPECT_EQ(o.resultaat, 0);
    EXPECT_EQ(o.programma, "/bin/sh");
    EXPECT_EQ(o.argumenten, QStringList({"--naam=Tekenen", "--bestand", "a 1.png", "b.png",
                                         "--icon", "tekenen", "-x%", item}));
    EXPECT_EQ(o.map, "/tmp");
    EXPECT_EQ(o.bestand, item);

    // A link entry opens its address; a file that is an entry by its text counts without the
    // suffix.
    maak(w, "Snelkoppelingen/school", "[Desktop Entry]\nType=Link\nURL=https://school.example/\n");
    const ModMainStarten::Opstart link = w.starten().LosOp("\\Snelkoppelingen\\school", "", "");
    EXPECT_EQ(link.resultaat, 0);
    EXPECT_EQ(link.programma, "xdg-open");
    EXPECT_EQ(link.argumenten, QStringList{"https://school.example/"});

    // Through the launcher the entry's folder is the one the program runs in.
    w.s().StartApplicatie("\\Snelkoppelingen\\tekenen.desktop", "", "", "", "Tekenen");
    ASSERT_EQ(w.platform.fakeProcesses().started.size(), 1);
    EXPECT_TRUE(w.platform.fakeProcesses().started[0].endsWith(" (in /tmp)"));

    // An "eigen" application starts its shortcut, the copy of its .pic with ".lnk" behind it;
    // on Linux that shortcut is a .desktop entry, known by its text.
    maak(w, "Afbeeldingen/Pictogrammen/Applicaties/Algemeen/12.pic.lnk",
         "[Desktop Entry]\nType=Application\nName=Atlas\nExec=/bin/sh -c atlas\nPath=/tmp\n");
    w.applicatie(2, 4, "12", "Atlas", "eigen|", "C:\\Atlas\\atlas.exe");
    w.later();
    w.s().StartApplicatieRij(2, 4, "7");
    EXPECT_TRUE(w.meldingen().isEmpty()) << w.meldingen().join('\n').toStdString();
    EXPECT_EQ(w.kanaal.verstuurd, QStringList{"OPSTEL12|7|2"});
    EXPECT_EQ(w.platform.fakeProcesses().started.value(1), "/bin/sh -c atlas (in /tmp)");
}

TEST(StartOpdrachtTest, CommandsThatCannotRunAreNamed) {
    Werkplek w(Werkplek::starter);
    maak(w, "Kapot/zonder-exec.desktop", "[Desktop Entry]\nType=Application\nName=Leeg\n");
    maak(w, "Kapot/open-aanhaling.desktop", "[Desktop Entry]\nExec=/bin/sh \"-c\n");
    maak(w, "Kapot/geen-groep.desktop", "[Iets Anders]\nExec=/bin/sh\n");
    maak(w, "Kapot/geen-programma.desktop", "[Desktop Entry]\nExec=/geen/programma %f\n");
    // A shortcut of Windows: its header and class id, then a target nobody here can run.
    maak(w, "Kapot/atlas.pic.lnk",
         QByteArray("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20) +
             QByteArray(60, '\0') + "C:\\Atlas\\atlas.exe");
    const int weg = ModMainStarten::BestandNietGevonden,
              kapot = ModMainStarten::OnvolledigeKoppeling;
    EXPECT_EQ(w.starten().FoutNaam(weg), "File not found");
    EXPECT_EQ(w.starten().FoutNaam(kapot), "Incomplete or invalid file association");
    const std::pair<QString, int> cases[] = {
        {"", weg},
        {"   ", weg},
        {"/geen/programma", weg},
        {"\\Geen\\map\\spel.exe", weg},
        {"geen-programma-met-deze-naam", weg},
        {"\\Kapot\\zonder-exec.desktop", kapot},
        {"\\Kapot\\open-aanhaling.desktop", kapot},
        {"\\Kapot\\geen-groep.desktop", kapot},
        {"\\Kapot\\atlas.pic.lnk", kapot},
        {"\\Kapot\\geen-programma.desktop", weg},
    };
    for (const auto& [opdracht, resultaat] : cases) {
        SCOPED_TRACE(opdracht.toStdString());
        EXPECT_EQ(w.starten().LosOp(opdracht, "", "").resultaat, resultaat);
        EXPECT_EQ(w.starten().ShellExecute(opdracht, "", ""), resultaat);
    }
    EXPECT_TRUE(w.platform.fakeProcesses().started.isEmpty());
}

TEST(BureaubladItemTest, ExecValuesAreSplitAndFilledAsTheEntryFormatSays) {
    BureaubladItem item;
    item.naam = "Tekenen";
    item.icoon = "tekenen";
    struct Case {
        const char* exec;
        QStringList uit;
    };
    const Case cases[] = {
        {"tekenen %f", {"tekenen", "a.png"}}, // one file of the two
        {"tekenen %F", {"tekenen", "a.png", "b c.png"}},
        {"tekenen", {"tekenen"}},                                      // files are not added
        {"\"/opt/mijn spel/spel\" -x", {"/opt/mijn spel/spel", "-x"}}, // quoted blanks
        {"sh -c \"echo \\\"hoi\\\" \\$HOME\"", {"sh", "-c", "echo \"hoi\" $HOME"}},
        {"tekenen --titel=%c %%", {"tekenen", "--titel=Tekenen", "%"}},
        {"tekenen %i", {"tekenen", "--icon", "tekenen"}},
        {"tekenen %d %D %n %N %v %m", {"tekenen"}}, // deprecated codes go
        {"tekenen\\s%u", {"tekenen", "a.png"}},     // \s is a blank of the value
        {"  tekenen   -a  ", {"tekenen", "-a"}},
        {"tekenen \"open", {}}, // an unclosed quote: no command
        {"", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.exec);
        item.exec = QString::fromUtf8(c.exec);
        EXPECT_EQ(item.opdracht({"a.png", "b c.png"}, "/x.desktop"), c.uit);
    }
}

TEST(BureaubladItemTest, AnyTextReadsToAValueOfOneLineAndQuotedWordsComeBackWhole) {
    quint32 zaad = 12345;
    auto volgende = [&] { return zaad = zaad * 1103515245u + 12345u; };
    // Random bytes, and random lines in an entry's group: a value never runs past its line, and
    // without the group there is no command.
    for (int i = 0; i < 2000; ++i) {
        QByteArray tekst = i % 2 ? QByteArray("[Desktop Entry]\nExec=") : QByteArray();
        const int lengte = int(volgende() % 200);
        for (int j = 0; j < lengte; ++j)
            tekst.append(char(" %\"\\=[]\nfFuUcikx\xff\x01"[volgende() % 18]));
        const BureaubladItem item = BureaubladItem::lees(tekst);
        SCOPED_TRACE(tekst.toStdString());
        EXPECT_FALSE(item.exec.contains(u'\n'));
        if (i % 2 == 0) {
            EXPECT_TRUE(item.opdracht({"a"}, "/b").isEmpty());
        }
    }
    // Random words, each quoted as the format says (%% for %, a backslash before " \ ` $
    // inside quotes, then the value's own escapes): the command is those words.
    const char tekens[] = " %\"\\=[]\tfFuUcikx$`\xe9";
    for (int i = 0; i < 2000; ++i) {
        QStringList woorden;
        QString regel;
        for (int w = 0, n = 1 + int(volgende() % 4); w < n; ++w) {
            QString woord;
            for (int j = 0, lengte = int(volgende() % 8); j < lengte; ++j)
                woord += QChar::fromLatin1(tekens[volgende() % (sizeof tekens - 1)]);
            woorden << woord;
            regel += QLatin1String(w ? " \"" : "\"");
            for (const QChar c : woord)
                regel += c == u'%'                              ? QStringLiteral("%%")
                         : QStringLiteral("\"\\`$").contains(c) ? QString(u'\\') + c
                                                                : QString(c);
            regel += u'"';
        }
        BureaubladItem item;
        item.exec =
            regel.replace(u'\\', QStringLiteral("\\\\")).replace(u'\t', QStringLiteral("\\t"));
        EXPECT_EQ(item.opdracht({"a.png"}, "/x.desktop"), woorden) << item.exec.toStdString();
    }
}
