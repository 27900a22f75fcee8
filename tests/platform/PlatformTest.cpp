#include "platform/PathResolver.h"
#include "platform/linux/LinuxEnvironment.h"
#include "platform/linux/LinuxPlatform.h"
#include "tests/support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk;

TEST(PathResolverTest, MatchesEachPartWithoutRegardToCase) {
    QTemporaryDir dir;
    QDir(dir.path()).mkpath("Data/Internet");
    QFile f(dir.filePath("Data/Instellingen.ini"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    struct Case {
        const char* path;
        const char* expected; // relative to the folder
    };
    const Case cases[] = {
        {"\\Data\\Instellingen.ini", "Data/Instellingen.ini"},
        {"\\DATA\\instellingen.INI", "Data/Instellingen.ini"},
        {"\\data\\INTERNET\\nieuw.ini", "Data/Internet/nieuw.ini"},
        {"\\Nieuw\\Map\\x.txt", "Nieuw/Map/x.txt"},
        {"Data\\\\Instellingen.ini", "Data/Instellingen.ini"},
        {"\\Data\\.\\Internet", "Data/Internet"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(PathResolver::resolve(dir.path(), QString::fromLatin1(c.path)),
                  dir.path() + QLatin1Char('/') + QString::fromLatin1(c.expected));
    }
    EXPECT_EQ(PathResolver::resolve(dir.path(), "/etc/hosts"), "/etc/hosts");
}

TEST(LinuxEnvironmentTest, AnswersTheFiveValuesAndNothingElse) {
    LinuxEnvironment env;
    EXPECT_FALSE(env.variable("USERNAME").isEmpty());
    EXPECT_FALSE(env.variable("TEMP").isEmpty());
    EXPECT_TRUE(env.variable("LOGONSERVER").startsWith("\\\\"));
    EXPECT_TRUE(env.variable("PATH").isEmpty());
    const QString name = env.computerName();
    EXPECT_FALSE(name.isEmpty());
    EXPECT_LE(name.size(), 15);
    EXPECT_EQ(name, name.toUpper());
    EXPECT_EQ(env.osVersion().platformId, 2);
}

TEST(LinuxPlatformTest, KeepsTheRegistryInTheProgramFolder) {
    QTemporaryDir dir;
    LinuxPlatform platform(dir.path());
    platform.registry().write(RegistryRoot::LocalMachine, "SOFTWARE\\Tafelkrater", "Modus",
                              RegistryValue::string("0"));
    EXPECT_TRUE(QFile::exists(dir.filePath("Register/HKEY_LOCAL_MACHINE.reg")));
    EXPECT_EQ(platform.programFolder(), dir.path());
}
