#include "session/SystemTool.h"

#include "tests/session/SessieWerkplek.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using tk::SystemTool;

namespace {

struct Uitkomst {
    int code;
    QString uit;
};

// A file's text, empty when it cannot be read.
QString inhoudVan(const QString& pad) {
    QFile f(pad);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

// A program of the system with its output (its input written first); code -1 when it could not
// be started.
Uitkomst draai(const QString& programma, const QStringList& args,
               const QProcessEnvironment& omgeving = QProcessEnvironment::systemEnvironment(),
               const QByteArray& invoer = {}) {
    QProcess proces;
    proces.setProcessEnvironment(omgeving);
    proces.setProcessChannelMode(QProcess::MergedChannels);
    proces.start(programma, args);
    proces.write(invoer);
    proces.closeWriteChannel();
    if (!proces.waitForStarted(10000) || !proces.waitForFinished(120000))
        return {-1, proces.errorString()};
    return {proces.exitCode(), QString::fromUtf8(proces.readAll())};
}

// The real program against a temporary system root holding the account files of a bare system.
class SystemToolTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(root.isValid());
        tk::test::kaleRoot(root.path());
    }
    void schrijf(const char* pad, const QByteArray& inhoud) {
        QFile f(root.filePath(QString::fromLatin1(pad)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(inhoud);
    }
    QString lees(const char* pad) const {
        return inhoudVan(root.filePath(QString::fromLatin1(pad)));
    }
    // Every file under the root with its content, to see that nothing else changed.
    QStringList inhoud() const {
        QStringList uit;
        QDirIterator it(root.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString pad = it.next();
            QFile f(pad);
            f.open(QIODevice::ReadOnly);
            uit << pad.mid(root.path().size()) + QLatin1Char('=') +
                       QString::fromLatin1(
                           QCryptographicHash::hash(f.readAll(), QCryptographicHash::Md5).toHex());
        }
        uit.sort();
        return uit;
    }
    Uitkomst start(const QStringList& args, const QByteArray& invoer = {}, bool doorSudo = false) {
        auto omgeving = QProcessEnvironment::systemEnvironment();
        omgeving.insert("TK_SYSTEEM_ROOT", root.path());
        // Also when the suite itself runs under sudo, only the rows that say so come through it.
        omgeving.remove("SUDO_UID");
        if (doorSudo)
            omgeving.insert("SUDO_UID", "1000");
        const Uitkomst u = draai(QStringLiteral(TK_SYSTEEM_PAD), args, omgeving, invoer);
        EXPECT_NE(-1, u.code) << u.uit.toStdString();
        return u;
    }
    QTemporaryDir root;
};

TEST_F(SystemToolTest, RefusesWhatIsNotOnItsListAndWritesNothing) {
    // Each command line with its arguments apart by "|".
    const QString veertig(40, 'a');
    // clang-format off
    const QString regels[] = {
        "", "rm|-rf|/", "autologon-set", "autologon-set|jan de vries", "autologon-set|" + veertig,
        "autologon-set|Jan", "autologon-set|../../etc/x", "autologon-set|jan\n[Seat:*]",
        "account-create|-root", "proxy-set|a b:80", "proxy-set|host:99999",
        "proxy-set|host:80\nexport X=1", "wallpaper-set|/geen/bestand.bmp",
        "net|user|jan de vries|pw|/add", "net|user|jan|pw|/add|/expires:never",
        "net|localgroup|Users|jan|/add", "--root|relatief|autologon-remove",
        "session-install|extra",
        // The system's own accounts are not logged on, granted or removed; nor is a person's
        // account of this machine that the program did not make, though its owner may call the
        // program (a member of the administrators' group): a pupil must not reach it.
        "autologon-set|root", "admin-add|root", "net|localgroup|Administrators|root|/add",
        "account-delete|root", "net|user|root|/delete", "account-delete|jan", "net|user|jan|/delete",
        "autologon-set|jan", "admin-add|jan", "net|localgroup|Administrators|jan|/add",
    };
    // clang-format on
    schrijf("etc/passwd", "root:x:0:0:root:/root:/bin/bash\njan:x:1001:1001::/home/jan:/bin/sh\n");
    schrijf("etc/group", "root:x:0:\ntafelkrater-beheer:x:999:jan\n");
    const QStringList voor = inhoud();
    for (const QString& regel : regels) {
        SCOPED_TRACE(regel.toStdString());
        const Uitkomst u = start(regel.split(u'|', Qt::SkipEmptyParts));
        EXPECT_EQ(2, u.code);
        EXPECT_TRUE(u.uit.contains(u"refused")) << u.uit.toStdString();
    }
    // Through sudo the caller chooses no root of its own, neither by --root nor by the
    // environment: a link in a folder of its own would have root write where it points.
    for (const QStringList& regel : {QStringList{"autologon-remove"},
                                     QStringList{"--root", root.path(), "autologon-remove"}}) {
        const Uitkomst u = start(regel, {}, true);
        EXPECT_EQ(2, u.code) << u.uit.toStdString();
        EXPECT_TRUE(u.uit.contains(u"through sudo")) << u.uit.toStdString();
    }
    EXPECT_EQ(voor, inhoud());
}

TEST_F(SystemToolTest, WritesTheLogonSessionAndProxyFilesWholeAndRemovesThem) {
    EXPECT_EQ(0, start({"autologon-set", "tafelkrater"}).code);
    // What LightDM makes of it is checked against LightDM itself below.
    EXPECT_EQ(SystemTool::lightdmDropIn("tafelkrater"), lees(SystemTool::DropInPath));
    // A second account replaces the first whole; no temporary file stays beside it.
    EXPECT_EQ(0, start({"autologon-set", "global"}).code);
    EXPECT_TRUE(lees(SystemTool::DropInPath).contains(u"autologin-user=global\n"));
    EXPECT_EQ(
        QStringList{"60-tafelkrater.conf"},
        QDir(root.filePath("etc/lightdm/lightdm.conf.d")).entryList(QDir::Files | QDir::Hidden));

    EXPECT_EQ(0, start({"session-install"}).code);
    const QString map = QFileInfo(QStringLiteral(TK_SYSTEEM_PAD)).absolutePath();
    EXPECT_TRUE(
        lees(SystemTool::SessionPath)
            .contains("Exec=/bin/sh -c \"openbox & exec " + map + "/tafelkrater-startup\"\n"));
    EXPECT_EQ(0, start({"proxy-set", "tafelkrater-internetfilter.invalid:8080"}).code);
    EXPECT_TRUE(
        lees(SystemTool::ProxyPath)
            .contains(u"export http_proxy=http://tafelkrater-internetfilter.invalid:8080/ "));
    EXPECT_EQ(0, start({"wallpaper-set", QStringLiteral(TK_SYSTEEM_PAD)}).code);

    for (const char* verb : {"autologon-remove", "session-remove", "proxy-clear", "wallpaper-clear",
                             "autologon-remove"})
        EXPECT_EQ(0, start({QString::fromLatin1(verb)}).code) << verb;
    for (const char* pad : {SystemTool::DropInPath, SystemTool::SessionPath, SystemTool::ProxyPath,
                            SystemTool::WallpaperPath})
        EXPECT_FALSE(QFileInfo::exists(root.filePath(QString::fromLatin1(pad)))) << pad;
}

TEST_F(SystemToolTest, APasswordWithQuotesAndBlanksIsStoredAsTyped) {
    if (geteuid() != 0)
        GTEST_SKIP() << "useradd --prefix needs root; CI runs the tests as root";
    const QByteArray wachtwoord = "it's \"een\" $PATH `x`";
    ASSERT_EQ(0, start({"account-create", "jan"}, wachtwoord + '\n').code);
    // The stored hash is the one of the very text: hashed again with its salt it is the same.
    QString hash;
    for (const QString& regel : lees("etc/shadow").split(QLatin1Char('\n')))
        if (regel.startsWith(u"jan:"))
            hash = regel.section(QLatin1Char(':'), 1, 1);
    ASSERT_TRUE(hash.startsWith(u"$6$")) << hash.toStdString();
    const Uitkomst u =
        draai("openssl", {"passwd", "-6", "-salt", hash.section(u'$', 2, 2), "-stdin"},
              QProcessEnvironment::systemEnvironment(), wachtwoord + '\n');
    EXPECT_EQ(hash, u.uit.trimmed());
}

TEST_F(SystemToolTest, LightdmTakesTheDropInAsTheLogonOfTheSeat) {
    ASSERT_EQ(0, start({"autologon-set", "tafelkrater"}).code);
    schrijf("etc/lightdm/lightdm.conf", "# the main file of a bare system\n");
    // LightDM reads the drop-in folders below its configuration and data folders: here only
    // those of the temporary root.
    QProcessEnvironment omgeving = QProcessEnvironment::systemEnvironment();
    omgeving.insert("XDG_CONFIG_DIRS", root.filePath("etc"));
    omgeving.insert("XDG_DATA_DIRS", root.filePath("usr/share"));
    const Uitkomst u = draai(
        "lightdm", {"--show-config", "-c", root.filePath("etc/lightdm/lightdm.conf")}, omgeving);
    ASSERT_NE(-1, u.code) << "lightdm is not installed (scripts/packages.txt lists it): "
                          << u.uit.toStdString();
    QStringList gezien;
    for (const QString& regel : u.uit.split(QLatin1Char('\n')))
        if (regel.startsWith(u"A  ") && regel.contains(u'='))
            gezien << regel.mid(3).trimmed();
    EXPECT_EQ(gezien, (QStringList{"autologin-user=tafelkrater", "autologin-user-timeout=0",
                                   "autologin-session=tafelkrater", "user-session=tafelkrater",
                                   "greeter-session=lightdm-autologin-greeter"}))
        << u.uit.toStdString();
    EXPECT_TRUE(u.uit.contains("60-tafelkrater.conf"));
}

// The accounts of a network workstation live in a directory (LDAP, a domain), not in the
// system's passwd: on the machine itself the name service is asked, and its user ID decides as
// the file's would. The account tools are a script here, so nothing of this machine changes.
TEST(SystemToolDirectoryTest, AnAccountOnlyTheNameServiceKnowsIsGrantedAsOneOfTheFile) {
    QStringList gedraaid;
    const auto runner = [&](const QString& programma, const QStringList& args, const QString&) {
        gedraaid << programma + ' ' + args.join(' ');
        const QMap<QString, QString> adresboek{
            {"tkldapleerling", "tkldapleerling:*:20001:20001::/home/tkldapleerling:/bin/sh\n"},
            {"tkldapdienst", "tkldapdienst:*:999:999::/:/usr/sbin/nologin\n"},
            {"tkldapanders", "tkldapandersnaam:*:20002:20002::/:/bin/sh\n"}};
        if (programma == "getent")
            return SystemTool::Result{adresboek.contains(args.value(1)) ? 0 : 2,
                                      adresboek.value(args.value(1))};
        return SystemTool::Result{0, {}};
    };
    struct Case {
        const char* naam;
        int code; // 0 granted, 1 unknown, 2 refused as the system's own
    };
    const Case cases[] = {
        {"tkldapleerling", 0}, {"tkldapdienst", 2}, {"tkldaponbekend", 1}, {"tkldapanders", 1}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.naam);
        gedraaid.clear();
        SystemTool tool("/opt/tafelkrater", "", false, runner);
        EXPECT_EQ(c.code, tool.run({"admin-add", c.naam}, {}).code);
        EXPECT_EQ(c.code == 0, gedraaid.last().startsWith("groupmod -a -U " + QString(c.naam)))
            << gedraaid.join(", ").toStdString();
    }
}

TEST(SystemInstallTest, AnInstallIntoASystemPrefixPlacesTheSudoersDropInTheSessionAndTheGroup) {
    // The last prefix the session's command line cannot take as it is: the install stops before
    // anything of the system is placed.
    for (const QString prefix : {"/opt/tafelkrater", "/srv/demo", "/opt/a b"}) {
        SCOPED_TRACE(prefix.toStdString());
        const bool systeem = prefix.startsWith(u"/opt");
        QTemporaryDir destdir;
        QProcessEnvironment omgeving = QProcessEnvironment::systemEnvironment();
        omgeving.insert("DESTDIR", destdir.path());
        const Uitkomst u = draai(QStringLiteral(TK_CMAKE),
                                 {"--install", QStringLiteral(TK_BUILD_DIR), "--prefix", prefix,
                                  "--component", "systeem"},
                                 omgeving);
        if (prefix.contains(u' ')) {
            EXPECT_NE(0, u.code);
            EXPECT_TRUE(u.uit.contains(u"command line")) << u.uit.toStdString();
            EXPECT_FALSE(QFileInfo::exists(destdir.filePath("etc"))) << "nothing placed";
            EXPECT_FALSE(QFileInfo::exists(destdir.filePath("usr")));
            continue;
        }
        ASSERT_EQ(0, u.code) << u.uit.toStdString();
        auto pad = [&](const QString& onder) { return destdir.path() + onder; };
        // For the machine, the program that runs as root lies where only root writes, and the
        // program folder it serves stands beside it.
        const QString libexec = pad("/usr/libexec/tafelkrater/");
        EXPECT_EQ(!systeem, QFileInfo(pad(prefix + "/tafelkrater-systeem")).isExecutable());
        EXPECT_EQ(systeem, QFileInfo(libexec + "tafelkrater-systeem").isExecutable());
        const QString sudoers = pad("/etc/sudoers.d/tafelkrater");
        ASSERT_EQ(systeem, QFile::exists(sudoers));
        if (!systeem) {
            EXPECT_FALSE(QFile::exists(pad("/usr")));
            continue;
        }
        EXPECT_EQ(prefix + '\n', inhoudVan(libexec + "programmamap"));
        // 0440: the owner's, group's and others' bits (the "user" bits depend on who asks).
        EXPECT_EQ(QFile(sudoers).permissions() & 0x7077,
                  QFileDevice::ReadOwner | QFileDevice::ReadGroup);
        EXPECT_TRUE(inhoudVan(sudoers).contains("%tafelkrater-beheer ALL=(root) NOPASSWD: "
                                                "/usr/libexec/tafelkrater/tafelkrater-systeem\n"));
        const Uitkomst check = draai("visudo", {"-c", "-f", sudoers});
        ASSERT_NE(-1, check.code) << "visudo is not installed (the sudo package): "
                                  << check.uit.toStdString();
        EXPECT_EQ(0, check.code) << check.uit.toStdString();
        EXPECT_EQ(SystemTool::sessionFile(prefix),
                  inhoudVan(pad("/usr/share/xsessions/tafelkrater.desktop")));
        EXPECT_TRUE(inhoudVan(pad("/usr/lib/sysusers.d/tafelkrater.conf"))
                        .contains(u"g tafelkrater-beheer -\n"));
    }
}

} // namespace
