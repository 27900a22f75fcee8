#include "platform/RegFile.h"
#include "platform/RegistryHive.h"
#include "platform/linux/RegistryFileStore.h"
#include "tests/support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using namespace tk;

namespace {

QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void writeAll(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

} // namespace

TEST(RegistryHiveTest, KeyPathsIgnoreCaseKeepTheFirstSpellingAndGoWithTheirSubkeys) {
    RegistryHive hive;
    hive.setValue("SOFTWARE\\Tafelkrater", "Modus", RegistryValue::string("1"));
    hive.setValue("Software\\Tafelkrater", "Language", RegistryValue::string("1043"));
    hive.setValue("SOFTWARE\\TAFELKRATER", "MODUS", RegistryValue::string("2"));

    ASSERT_EQ(hive.keys().size(), 2); // SOFTWARE and SOFTWARE\Tafelkrater
    EXPECT_EQ(hive.keys()[1].path, "SOFTWARE\\Tafelkrater");
    ASSERT_EQ(hive.keys()[1].values.size(), 2);
    EXPECT_EQ(hive.keys()[1].values[0].name, "Modus");
    EXPECT_EQ(hive.value("software\\tafelkrater", "modus")->text, "2");
    // A path names the same key with stray backslashes at either end or doubled inside.
    for (const char* path :
         {"\\SOFTWARE\\tafelkrater", "SOFTWARE\\\\tafelkrater", "SOFTWARE\\tafelkrater\\"}) {
        EXPECT_EQ(RegistryHive::normalisePath(path), "SOFTWARE\\tafelkrater") << path;
        EXPECT_TRUE(hive.hasKey(path)) << path;
    }

    // Deleting a key takes its subkeys but not its neighbours.
    const auto v = RegistryValue::number(1);
    hive.setValue("A\\B", "x", v);
    hive.setValue("A\\B\\C", "x", v);
    hive.setValue("A\\BC", "x", v);
    hive.deleteKey("a\\b");
    EXPECT_FALSE(hive.hasKey("A\\B"));
    EXPECT_FALSE(hive.hasKey("A\\B\\C"));
    EXPECT_TRUE(hive.hasKey("A\\BC"));

    // A key levels below the deepest one there is made with every level between, each under
    // the spelling its parent already has.
    hive.createKey("software\\TAFELKRATER\\Een\\twee");
    hive.createKey("a\\b\\c");
    QStringList paths;
    for (const RegistryHive::Key& key : hive.keys())
        paths << key.path;
    EXPECT_EQ(paths, (QStringList{"SOFTWARE", "SOFTWARE\\Tafelkrater", "A", "A\\BC",
                                  "SOFTWARE\\Tafelkrater\\Een", "SOFTWARE\\Tafelkrater\\Een\\twee",
                                  "A\\b", "A\\b\\c"}));
}

TEST(RegFileTest, WritesAndReadsBackTypedValuesWithEscapes) {
    RegistryHive hive;
    hive.setValue("SOFTWARE\\Tafelkrater", "Modus", RegistryValue::string("1"));
    hive.setValue("SOFTWARE\\Tafelkrater", "Beta", RegistryValue::number(1));
    hive.setValue("SOFTWARE\\Tafelkrater", "Locatie server",
                  RegistryValue::string("C:\\Pad \"met\" quotes"));
    hive.setValue("SOFTWARE\\Tafelkrater", QString(), RegistryValue::string("standaard"));
    hive.setValue("SOFTWARE\\Tafelkrater", "Bin", RegistryValue::other("hex:01,02"));
    hive.setValue("SOFTWARE\\Tafelkrater", "Regels", RegistryValue::string("een\ntwee\r\ndrie\r"));
    // A space that ends a key's name is part of it, also when the key is last in its line.
    hive.createKey("SOFTWARE\\Spatie \\Eind ");
    const QString text = RegFile::write(RegistryRoot::LocalMachine, hive);
    EXPECT_TRUE(text.startsWith("REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE]\n"));
    EXPECT_TRUE(text.contains("\"Modus\"=\"1\"\n"));
    EXPECT_TRUE(text.contains("\"Beta\"=dword:00000001\n"));
    EXPECT_TRUE(text.contains("@=\"standaard\"\n"));
    EXPECT_TRUE(text.contains("\"Bin\"=hex:01,02\n"));

    RegistryHive back;
    const auto parsed = RegFile::parse(text);
    EXPECT_TRUE(parsed.hasHeader);
    EXPECT_EQ(parsed.skippedLines, 0);
    RegFile::apply(parsed, RegistryRoot::LocalMachine, back);
    EXPECT_EQ(back.value("SOFTWARE\\Tafelkrater", "Locatie server")->text,
              "C:\\Pad \"met\" quotes");
    EXPECT_EQ(*back.value("SOFTWARE\\Tafelkrater", "Beta"), RegistryValue::number(1));
    EXPECT_EQ(back.value("SOFTWARE\\Tafelkrater", "Regels")->text, "een\ntwee\r\ndrie\r");
    EXPECT_EQ(RegFile::write(RegistryRoot::LocalMachine, back), text);
}

TEST(RegFileTest, ReadsAsFarAsSensibleFromFilesThatAreNotOurs) {
    struct Case {
        const char* name;
        const char* text;
        int values;  // values that survive under HKLM\SOFTWARE\X
        int skipped; // lines skipped
    };
    const Case cases[] = {
        {"no header", "[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\n\"a\"=\"1\"\n", 1, 0},
        {"line without =", "REGEDIT4\n[HKLM\\SOFTWARE\\X]\nrubbish\n\"a\"=\"1\"\n", 1, 1},
        {"unclosed key", "REGEDIT4\n[HKLM\\SOFTWARE\\X\n\"a\"=\"1\"\n", 0, 2},
        {"unknown root", "REGEDIT4\n[HKEY_NOWHERE\\X]\n\"a\"=\"1\"\n", 0, 2},
        {"bad dword", "REGEDIT4\n[HKLM\\SOFTWARE\\X]\n\"a\"=dword:zz\n\"b\"=\"2\"\n", 1, 1},
        {"hex kept raw", "REGEDIT4\n[HKLM\\SOFTWARE\\X]\n\"a\"=hex:01,02,\\\n  03\n", 1, 0},
        {"hex on one line", "[HKLM\\SOFTWARE\\X]\n\"a\"=hex:01\n\"b\"=\"2\"\n", 2, 0},
        {"escaped quote", "[HKLM\\SOFTWARE\\X]\n\"a\"=\"x\\\"y\"\n\"b\"=\"2\"\n", 2, 0},
        {"value before a key", "\"a\"=\"1\"\n[HKLM\\SOFTWARE\\X]\n", 0, 1},
        {"root alone", "[HKEY_LOCAL_MACHINE]\n\"a\"=\"1\"\n", 0, 2},
        {"unknown type", "[HKLM\\SOFTWARE\\X]\n\"a\"=foo:1\n\"b\"=\"2\"\n", 1, 1},
        {"value deleted", "REGEDIT4\n[HKLM\\SOFTWARE\\X]\n\"a\"=\"1\"\n\"a\"=-\n", 0, 0},
        {"garbage bytes", "\x01\x02\xff\xfe[[[\n===\n\"\"\"\n", 0, 3},
        {"line end in a hex value", "[HKLM\\SOFTWARE\\X]\n\"a\"=hex:\"0\r\r\n1\"\n\"b\"=\"2\"\n", 1,
         1},
        {"quote in a hex value", "[HKLM\\SOFTWARE\\X]\n\"b\"=\"2\"\n\"a\"=hex:0\"1", 1, 1},
        {"backslash ending a hex value", "[HKLM\\SOFTWARE\\X]\n\"b\"=\"2\"\n\"a\"=hex:01\\\\", 1,
         1},
        {"CR LF lines", "REGEDIT4\r\n\r\n[HKLM\\SOFTWARE\\X]\r\n\"a\"=\"1\"\r\n", 1, 0},
        // A quote in a key line opens no string that would swallow the lines after it.
        {"quote in a key",
         "REGEDIT4\n[HKLM\\SOFTWARE\\Y\"\x01]\n[HKLM\\SOFTWARE\\X]\n\"a\"=\"1\"\n", 1, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const auto parsed = RegFile::parse(QString::fromLatin1(c.text));
        RegistryHive hive;
        RegFile::apply(parsed, RegistryRoot::LocalMachine, hive);
        int values = 0;
        for (const auto& key : hive.keys())
            if (key.path.compare("SOFTWARE\\X", Qt::CaseInsensitive) == 0)
                values = int(key.values.size());
        EXPECT_EQ(values, c.values);
        EXPECT_EQ(parsed.skippedLines, c.skipped);
    }
    // A hex value over two lines loses only the backslash between them.
    const auto hex = RegFile::parse("[HKLM\\X]\n\"a\"=hex:01,\\\n  02\n");
    ASSERT_EQ(hex.operations.size(), 2);
    EXPECT_EQ(hex.operations[1].value.text, "hex:01,  02");
}

TEST(RegistryFileStoreTest, KeepsEachRootInItsOwnFileAndTheCurrentUserPerAccount) {
    QTemporaryDir dir;
    RegistryFileStore store(dir.path(), "juf");
    ASSERT_TRUE(store.write(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater", "Modus",
                            RegistryValue::string("1")));
    ASSERT_TRUE(store.write(RegistryRoot::CurrentUser, "Control Panel\\Desktop", "Wallpaper",
                            RegistryValue::string("x.bmp")));
    EXPECT_EQ(readAll(dir.filePath("HKEY_LOCAL_MACHINE.reg")),
              QByteArray("REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE]\n\n"
                         "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Tafelkrater]\n\"Modus\"=\"1\"\n"));
    EXPECT_TRUE(QFile::exists(dir.filePath("HKEY_CURRENT_USER/juf.reg")));

    // A second store on the same folder (another process) sees the values, in any case.
    RegistryFileStore other(dir.path(), "juf");
    EXPECT_EQ(other.read(RegistryRoot::LocalMachine, "SOFTWARE\\TAFELKRATER", "modus")->text, "1");
    EXPECT_FALSE(other.read(RegistryRoot::Users, "SOFTWARE\\Tafelkrater", "Modus"));
}

TEST(RegistryFileStoreTest, ABatchReachesTheDiskWholeWhenItEndsAndReadsSeeItBefore) {
    QTemporaryDir dir;
    RegistryFileStore store(dir.path(), "a");
    const QString key = "SOFTWARE\\Tafelkrater";
    const auto lm = RegistryRoot::LocalMachine;
    auto tekst = [](const char* t) { return RegistryValue::string(QString::fromLatin1(t)); };
    ASSERT_TRUE(store.write(lm, key, "Oud", tekst("1")));
    const QByteArray voor = readAll(store.fileFor(lm));
    {
        RegistryBatch buiten(store);
        ASSERT_TRUE(store.write(lm, key, "Shell", tekst("tk")));
        {
            RegistryBatch binnen(store); // a nested batch does not write at its end
            ASSERT_TRUE(store.write(RegistryRoot::Users, key, "U", tekst("2")));
            ASSERT_TRUE(store.deleteValue(lm, key, "Oud"));
        }
        EXPECT_EQ(store.read(lm, key, "Shell")->text, "tk");
        EXPECT_FALSE(store.read(lm, key, "Oud"));
        EXPECT_EQ(voor, readAll(store.fileFor(lm)));
        EXPECT_FALSE(QFile::exists(store.fileFor(RegistryRoot::Users)));
    }
    RegistryFileStore ander(dir.path(), "a");
    EXPECT_EQ(ander.read(lm, key, "Shell")->text, "tk");
    EXPECT_FALSE(ander.read(lm, key, "Oud"));
    EXPECT_EQ(ander.read(RegistryRoot::Users, key, "U")->text, "2");
    // After the batch every write goes to the disk at once again.
    ASSERT_TRUE(store.write(lm, key, "Na", tekst("3")));
    EXPECT_EQ(ander.read(lm, key, "Na")->text, "3");
}

TEST(RegistryFileStoreTest, SeesChangesMadeByAnotherWriterAndMergesItsOwn) {
    QTemporaryDir dir;
    RegistryFileStore client(dir.path(), "a");
    RegistryFileStore server(dir.path(), "a");
    const QString key = "SOFTWARE\\Tafelkrater";
    ASSERT_TRUE(client.write(RegistryRoot::LocalMachine, key, "Modus", RegistryValue::string("1")));
    ASSERT_EQ(client.read(RegistryRoot::LocalMachine, key, "Modus")->text, "1");
    ASSERT_TRUE(server.write(RegistryRoot::LocalMachine, key, "Status server",
                             RegistryValue::string("0 loading")));
    EXPECT_EQ(client.read(RegistryRoot::LocalMachine, key, "Status server")->text, "0 loading");
    ASSERT_TRUE(
        client.write(RegistryRoot::LocalMachine, key, "Language", RegistryValue::string("1043")));
    EXPECT_TRUE(server.read(RegistryRoot::LocalMachine, key, "Status server"));
    EXPECT_TRUE(server.read(RegistryRoot::LocalMachine, key, "Language"));
    EXPECT_TRUE(server.read(RegistryRoot::LocalMachine, key, "Modus"));
}

TEST(RegistryFileStoreTest, AForeignFileIsKeptAsBackupAndItsKeysSurviveAWrite) {
    QTemporaryDir dir;
    const QString path = dir.filePath("HKEY_LOCAL_MACHINE.reg");
    const QByteArray foreign("garbage line\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Ander]\n"
                             "\"Houden\"=\"ja\"\n\xff\xfe\x00nonsense\n");
    writeAll(path, foreign);
    RegistryFileStore store(dir.path(), "a");
    EXPECT_EQ(store.read(RegistryRoot::LocalMachine, "Software\\Ander", "houden")->text, "ja");
    ASSERT_TRUE(store.write(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater", "Modus",
                            RegistryValue::string("2")));
    EXPECT_EQ(readAll(path + ".bak"), foreign);
    RegistryFileStore again(dir.path(), "a");
    EXPECT_TRUE(again.read(RegistryRoot::LocalMachine, "SOFTWARE\\Ander", "Houden"));
    EXPECT_TRUE(again.read(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater", "Modus"));
}

TEST(RegistryFileStoreTest, AnUnwritableFolderOrUnreadableFileAnswersThatTheStoreCannotBeWritten) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root writes and reads everywhere";
    QTemporaryDir dir;
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::ExeOwner);
    RegistryFileStore store(dir.path() + "/Register", "a");
    const auto schrijf = [](RegistryFileStore& s, const char* naam) {
        return s.write(RegistryRoot::LocalMachine, "Software", naam, RegistryValue::string("x"));
    };
    EXPECT_FALSE(schrijf(store, "test"));
    QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // A store file there but not readable is not written over with the one value.
    RegistryFileStore andere(dir.path(), "b");
    ASSERT_TRUE(schrijf(andere, "test"));
    const QString pad = andere.fileFor(RegistryRoot::LocalMachine);
    QFile::setPermissions(pad, QFile::WriteOwner); // writable, so only reading can stop it
    RegistryFileStore later(dir.path(), "b");
    EXPECT_FALSE(schrijf(later, "ander"));
    QFile::setPermissions(pad, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(
        RegistryFileStore(dir.path(), "b").read(RegistryRoot::LocalMachine, "Software", "test"));
}

TEST(RegistryFileStoreTest, ImportAppliesOperationsToEveryRootTheyName) {
    QTemporaryDir dir;
    RegistryFileStore store(dir.path(), "kind");
    store.write(RegistryRoot::LocalMachine, "SOFTWARE\\Weg", "a", RegistryValue::number(3));
    const auto parsed = RegFile::parse(
        QStringLiteral("REGEDIT4\n\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Weg]\n\n"
                       "[HKEY_CURRENT_USER\\Software\\Policies]\n\"NoRun\"=dword:00000001\n"));
    ASSERT_TRUE(store.import(parsed));
    EXPECT_FALSE(store.keyExists(RegistryRoot::LocalMachine, "SOFTWARE\\Weg"));
    EXPECT_EQ(store.read(RegistryRoot::CurrentUser, "software\\policies", "NoRun")->dword, 1u);
}
