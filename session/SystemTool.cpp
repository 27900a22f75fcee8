#include "SystemTool.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

namespace tk {

namespace {
SystemTool::Result refused(const QString& why) {
    return {2, QStringLiteral("tafelkrater-systeem: refused: ") + why + QLatin1Char('\n')};
}
SystemTool::Result failed(const QString& why) {
    return {1, QStringLiteral("tafelkrater-systeem: ") + why + QLatin1Char('\n')};
}
// The lines the client's success test reads, as the system's own account tool prints them.
const QString klaar() {
    return QStringLiteral("The command completed successfully.\n");
}
const QString alLid() {
    return QStringLiteral("The specified account name is already a member of the local group.\n");
}
// A folder or file name that stands in a desktop entry's command line and in a shell line as it
// is, without quoting.
bool isPlainPath(const QString& path) {
    static const QRegularExpression plain(QStringLiteral("^/[A-Za-z0-9/._+-]*$"));
    return plain.match(path).hasMatch() && !path.contains(QStringLiteral(".."));
}
} // namespace

SystemTool::SystemTool(const QString& programFolder, const QString& rootFromEnvironment,
                       bool throughSudo, Runner runner)
    : m_programFolder(programFolder),
      m_root(rootFromEnvironment.isEmpty() ? QStringLiteral("/") : rootFromEnvironment),
      m_throughSudo(throughSudo), m_rootFromEnvironment(!rootFromEnvironment.isEmpty()),
      m_runner(std::move(runner)) {}

bool SystemTool::isAccountName(const QString& name) {
    static const QRegularExpression naam(QStringLiteral("^[a-z_][a-z0-9_-]{0,31}$"));
    return naam.match(name).hasMatch();
}

QString SystemTool::usage() {
    return QStringLiteral(
        "usage: tafelkrater-systeem [--root DIR] VERB ARGS...\n"
        "  autologon-set ACCOUNT      log ACCOUNT on into the Tafelkrater session (LightDM)\n"
        "  autologon-remove           give the display manager its own logon back\n"
        "  session-install            install the Tafelkrater X session\n"
        "  session-remove             remove it\n"
        "  account-create ACCOUNT     make a local account; its password on standard input\n"
        "  account-delete ACCOUNT     remove a local account with its home folder\n"
        "  admin-add ACCOUNT          add an account to the group tafelkrater-beheer\n"
        "  wallpaper-set FILE         the wallpaper of the session\n"
        "  wallpaper-clear            no wallpaper of ours\n"
        "  proxy-set HOST:PORT        the web proxy of the programs of the session\n"
        "  proxy-clear                no proxy of ours\n"
        "  net user ACCOUNT PASSWORD /add [...] | net user ACCOUNT /delete\n"
        "  net localgroup Administrators [DOMAIN\\]ACCOUNT... /add\n"
        "                             the same, printing the lines of the system's net tool;\n"
        "                             with several accounts one line each, the account first\n"
        "Every path lies under DIR, else under $TK_SYSTEEM_ROOT, else under /; through sudo\n"
        "always under /.\n");
}

QString SystemTool::lightdmDropIn(const QString& account) {
    return QStringLiteral("# Written by tafelkrater-systeem: this workstation logs %1 on into the "
                          "Tafelkrater session,\n# after every start and every log off.\n"
                          "[Seat:*]\n"
                          "autologin-user=%1\n"
                          "autologin-user-timeout=0\n"
                          "autologin-session=tafelkrater\n"
                          "user-session=tafelkrater\n"
                          "greeter-session=lightdm-autologin-greeter\n")
        .arg(account);
}

QString SystemTool::sessionFile(const QString& programFolder) {
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Tafelkrater\n"
                          "Comment=The Tafelkrater workstation\n"
                          "Exec=/bin/sh -c \"openbox & exec %1/tafelkrater-startup\"\n")
        .arg(programFolder);
}

QString SystemTool::proxyFile(const QString& proxy) {
    return QStringLiteral(
               "# Written by tafelkrater-systeem: the programs of the session reach the "
               "web through this proxy.\n"
               "export http_proxy=http://%1/ https_proxy=http://%1/ ftp_proxy=http://%1/\n"
               "export HTTP_PROXY=http://%1/ HTTPS_PROXY=http://%1/\n"
               "export no_proxy=localhost,127.0.0.1 NO_PROXY=localhost,127.0.0.1\n")
        .arg(proxy);
}

QString SystemTool::path(const char* relative) const {
    return QDir(m_root).filePath(QString::fromLatin1(relative));
}

QStringList SystemTool::prefix() const {
    if (QDir(m_root).canonicalPath() == u"/")
        return {};
    return {QStringLiteral("--prefix"), m_root};
}

SystemTool::Result SystemTool::write(const char* relative, const QString& content) {
    const QString doel = path(relative);
    if (!QDir().mkpath(QFileInfo(doel).path()))
        return failed(QStringLiteral("cannot make the folder of ") + doel);
    QSaveFile bestand(doel);
    if (!bestand.open(QIODevice::WriteOnly))
        return failed(QStringLiteral("cannot write ") + doel + QStringLiteral(": ") +
                      bestand.errorString());
    bestand.write(content.toUtf8());
    bestand.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                           QFileDevice::ReadGroup | QFileDevice::ReadOther);
    if (!bestand.commit())
        return failed(QStringLiteral("cannot write ") + doel + QStringLiteral(": ") +
                      bestand.errorString());
    return {0, QString()};
}

SystemTool::Result SystemTool::remove(const char* relative) {
    const QString doel = path(relative);
    if (QFileInfo::exists(doel) && !QFile::remove(doel))
        return failed(QStringLiteral("cannot remove ") + doel);
    return {0, QString()};
}

std::optional<QByteArray> SystemTool::passwdLine(const QString& name) const {
    QFile passwd(path("etc/passwd"));
    if (!passwd.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray begin = name.toUtf8() + ':';
    while (!passwd.atEnd())
        if (QByteArray regel = passwd.readLine(); regel.startsWith(begin))
            return regel;
    return std::nullopt;
}

int SystemTool::userId(const QString& name) const {
    if (const auto regel = passwdLine(name)) {
        bool ok = false;
        const int id = regel->split(':').value(2).toInt(&ok);
        // A line without a readable ID counts as the system's: nothing is done to it.
        return ok && id >= 0 ? id : 0;
    }
    // An account of a directory (LDAP, a domain: the accounts of a network workstation) is not
    // in the file; on the machine itself the name service knows it.
    if (!prefix().isEmpty())
        return -1;
    const Result regel =
        m_runner(QStringLiteral("getent"), {QStringLiteral("passwd"), name}, QString());
    const QStringList velden = regel.output.trimmed().split(QLatin1Char(':'));
    if (regel.code != 0 || velden.value(0) != name)
        return -1;
    bool ok = false;
    const int id = velden.value(2).toInt(&ok);
    return ok && id >= 0 ? id : 0;
}

std::optional<SystemTool::Result> SystemTool::refusedAsSystemAccount(const QString& name, int id) {
    if (id >= 0 && id < FirstUserId)
        return refused(
            QStringLiteral("%1 is an account of the system itself (user ID %2)").arg(name).arg(id));
    return std::nullopt;
}

QStringList SystemTool::madeAccounts() const {
    QFile lijst(path(AccountsPath));
    if (!lijst.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(lijst.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

SystemTool::Result SystemTool::recordAccount(const QString& name, bool made) {
    QStringList namen = madeAccounts();
    namen.removeAll(name);
    if (made)
        namen << name;
    return write(AccountsPath, namen.isEmpty() ? QString() : namen.join(QLatin1Char('\n')) + u'\n');
}

std::optional<SystemTool::Result> SystemTool::refusedAsPersonsAccount(const QString& name) const {
    if (passwdLine(name) && !madeAccounts().contains(name))
        return refused(QStringLiteral("%1 is an account of this machine that this program did "
                                      "not make")
                           .arg(name));
    return std::nullopt;
}

QStringList SystemTool::groupMembers(bool* exists) const {
    *exists = false;
    QFile group(path("etc/group"));
    if (!group.open(QIODevice::ReadOnly))
        return {};
    const QByteArray begin = QByteArray(AdminGroup) + ':';
    while (!group.atEnd()) {
        const QByteArray regel = group.readLine().trimmed();
        if (regel.startsWith(begin)) {
            *exists = true;
            return QString::fromUtf8(regel.split(':').value(3))
                .split(QLatin1Char(','), Qt::SkipEmptyParts);
        }
    }
    return {};
}

SystemTool::Result SystemTool::accountCreate(const QString& name, const QString& password) {
    if (accountExists(name))
        return failed(QStringLiteral("the account %1 already exists").arg(name));
    const Result hash =
        m_runner(QStringLiteral("openssl"),
                 {QStringLiteral("passwd"), QStringLiteral("-6"), QStringLiteral("-stdin")},
                 password + QLatin1Char('\n'));
    if (hash.code != 0)
        return failed(QStringLiteral("cannot hash the password: ") + hash.output.trimmed());
    const Result gemaakt =
        m_runner(QStringLiteral("useradd"),
                 prefix() + QStringList{QStringLiteral("-m"), QStringLiteral("-s"),
                                        QStringLiteral("/bin/bash"), QStringLiteral("-p"),
                                        hash.output.trimmed(), name},
                 QString());
    if (gemaakt.code != 0)
        return failed(QStringLiteral("useradd failed: ") + gemaakt.output.trimmed());
    return recordAccount(name, true);
}

SystemTool::Result SystemTool::accountDelete(const QString& name) {
    const int id = userId(name);
    // One it made that went by other means is gone as asked.
    if (id < 0 && madeAccounts().contains(name))
        return recordAccount(name, false);
    if (id < 0)
        return failed(QStringLiteral("the account %1 does not exist").arg(name));
    if (const auto nee = refusedAsSystemAccount(name, id))
        return *nee;
    // Only the accounts this program made go: a member of the administrators' group may call
    // it, and the administrator's own account is a member too.
    if (!madeAccounts().contains(name))
        return refused(QStringLiteral("%1 is no account this program made").arg(name));
    const Result weg = m_runner(QStringLiteral("userdel"),
                                prefix() + QStringList{QStringLiteral("-r"), name}, QString());
    // 12: the home folder or mail spool was not there; the account is gone all the same.
    if (weg.code != 0 && weg.code != 12)
        return failed(QStringLiteral("userdel failed: ") + weg.output.trimmed());
    return recordAccount(name, false);
}

QList<SystemTool::Result> SystemTool::adminAdd(const QStringList& names) {
    QList<Result> uit(names.size());
    bool bestaat = false;
    const QStringList leden = groupMembers(&bestaat);
    QStringList nieuw;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString& naam = names[i];
        if (!isAccountName(naam))
            uit[i] = refused(QStringLiteral("'%1' is no account name Linux takes").arg(naam));
        else if (const int id = userId(naam); id < 0)
            uit[i] = failed(QStringLiteral("the account %1 does not exist").arg(naam));
        else if (const auto nee = refusedAsSystemAccount(naam, id))
            uit[i] = *nee;
        else if (const auto andermans = refusedAsPersonsAccount(naam))
            uit[i] = *andermans;
        else if (leden.contains(naam))
            uit[i] = {0, alLid()};
        else if (!nieuw.contains(naam))
            nieuw << naam;
    }
    if (!nieuw.isEmpty()) {
        // One change of the group for all new members: groupmod appends them under the lock
        // the account tools share (and tells the name caches), so that an account made or a
        // password changed meanwhile by another tool is neither lost nor half-written; logins
        // only read the group file and see the old one or the new one whole.
        Result gedaan{0, klaar()};
        if (!bestaat) {
            const Result groep = m_runner(
                QStringLiteral("groupadd"),
                prefix() + QStringList{QStringLiteral("-f"), QString::fromLatin1(AdminGroup)},
                QString());
            if (groep.code != 0)
                gedaan = failed(QStringLiteral("groupadd failed: ") + groep.output.trimmed());
        }
        if (gedaan.code == 0) {
            const Result lid =
                m_runner(QStringLiteral("groupmod"),
                         prefix() + QStringList{QStringLiteral("-a"), QStringLiteral("-U"),
                                                nieuw.join(QLatin1Char(',')),
                                                QString::fromLatin1(AdminGroup)},
                         QString());
            if (lid.code != 0)
                gedaan = failed(QStringLiteral("groupmod failed: ") + lid.output.trimmed());
        }
        for (qsizetype i = 0; i < names.size(); ++i)
            if (uit[i].output.isEmpty())
                uit[i] = gedaan;
    }
    return uit;
}

SystemTool::Result SystemTool::net(const QStringList& args) {
    auto account = [](const QString& naam) {
        return naam.section(QLatin1Char('\\'), -1).toLower();
    };
    auto geldig = [&](const QString& naam) { return isAccountName(account(naam)); };
    const QStringList a = args;
    auto is = [&](int i, const char* woord) {
        return a.value(i).compare(QLatin1String(woord), Qt::CaseInsensitive) == 0;
    };
    Result uit;
    if (a.size() >= 3 && is(0, "user") && is(2, "/delete") && a.size() == 3) {
        if (!geldig(a[1]))
            return refused(QStringLiteral("'%1' is no account name Linux takes").arg(a[1]));
        uit = accountDelete(account(a[1]));
    } else if (a.size() >= 4 && is(0, "user") && is(3, "/add")) {
        if (!geldig(a[1]))
            return refused(QStringLiteral("'%1' is no account name Linux takes").arg(a[1]));
        for (const QString& optie : a.mid(4))
            if (!optie.startsWith(QStringLiteral("/passwordreq:"), Qt::CaseInsensitive) &&
                !optie.startsWith(QStringLiteral("/passwordchg:"), Qt::CaseInsensitive))
                return refused(QStringLiteral("unknown option '%1' of net user").arg(optie));
        uit = accountCreate(account(a[1]), a[2]);
    } else if (a.size() >= 4 && is(0, "localgroup") && is(1, "Administrators") &&
               is(a.size() - 1, "/add")) {
        // One name answers as the system's own tool does; several (one call for a whole batch of
        // grants) answer with a line per name, the name as given first.
        const QStringList namen = a.mid(2, a.size() - 3);
        QStringList accounts;
        for (const QString& naam : namen)
            accounts << account(naam);
        const QList<Result> uitslagen = adminAdd(accounts);
        if (namen.size() == 1)
            return uitslagen[0];
        uit = {0, QString()};
        qsizetype geweigerd = 0, mislukt = 0;
        for (qsizetype i = 0; i < namen.size(); ++i) {
            const Result& r = uitslagen[i];
            uit.output +=
                namen[i] + QStringLiteral(": ") + r.output.section(u'\n', 0, 0) + QLatin1Char('\n');
            geweigerd += r.code == 2;
            mislukt += r.code != 0;
        }
        // Refused when nothing at all was taken, failed when some of it was not done.
        uit.code = geweigerd == namen.size() ? 2 : mislukt ? 1 : 0;
        return uit;
    } else {
        return refused(QStringLiteral("net takes only user ... /add, user ... /delete and "
                                      "localgroup Administrators ... /add"));
    }
    if (uit.code == 0)
        uit.output = klaar();
    return uit;
}

SystemTool::Result SystemTool::verb(const QString& naam, const QStringList& args,
                                    const QString& input) {
    auto aantal = [&](int n) { return args.size() == n; };
    if (naam == u"net")
        return net(args);
    if (naam == u"autologon-remove" && aantal(0))
        return remove(DropInPath);
    if (naam == u"session-remove" && aantal(0))
        return remove(SessionPath);
    if (naam == u"wallpaper-clear" && aantal(0))
        return remove(WallpaperPath);
    if (naam == u"proxy-clear" && aantal(0))
        return remove(ProxyPath);
    if (naam == u"session-install" && aantal(0)) {
        if (!isPlainPath(m_programFolder))
            return refused(
                QStringLiteral("the program folder '%1' needs quoting").arg(m_programFolder));
        return write(SessionPath, sessionFile(m_programFolder));
    }
    if (naam == u"proxy-set" && aantal(1)) {
        static const QRegularExpression proxy(
            QStringLiteral("^[A-Za-z0-9]([A-Za-z0-9.-]{0,252})?:[0-9]{1,5}$"));
        if (!proxy.match(args[0]).hasMatch() ||
            args[0].section(QLatin1Char(':'), 1).toInt() > 65535)
            return refused(QStringLiteral("'%1' is no HOST:PORT").arg(args[0]));
        return write(ProxyPath, proxyFile(args[0]));
    }
    if (naam == u"wallpaper-set" && aantal(1)) {
        if (!isPlainPath(args[0]) || !QFileInfo(args[0]).isFile())
            return refused(QStringLiteral("'%1' is no picture file").arg(args[0]));
        return write(WallpaperPath, args[0] + QLatin1Char('\n'));
    }
    const bool metAccount = naam == u"autologon-set" || naam == u"account-create" ||
                            naam == u"account-delete" || naam == u"admin-add";
    if (metAccount && aantal(1)) {
        if (!isAccountName(args[0]))
            return refused(QStringLiteral("'%1' is no account name Linux takes (a lower-case "
                                          "letter first, then letters, digits, _ or -, at most "
                                          "32)")
                               .arg(args[0]));
        if (naam == u"autologon-set") {
            // An account the system's passwd does not hold (one of a directory) may be logged on.
            if (const auto nee = refusedAsSystemAccount(args[0], userId(args[0])))
                return *nee;
            if (const auto nee = refusedAsPersonsAccount(args[0]))
                return *nee;
            return write(DropInPath, lightdmDropIn(args[0]));
        }
        if (naam == u"account-create")
            return accountCreate(args[0], input.section(QLatin1Char('\n'), 0, 0));
        if (naam == u"account-delete")
            return accountDelete(args[0]);
        return adminAdd({args[0]}).first();
    }
    return refused(QStringLiteral("'%1' with %2 argument(s) is not a verb of this program\n")
                       .arg(naam)
                       .arg(args.size()) +
                   usage());
}

SystemTool::Result SystemTool::run(const QStringList& arguments, const QString& input) {
    QStringList args = arguments;
    if (m_throughSudo && (args.value(0) == u"--root" || m_rootFromEnvironment))
        return refused(QStringLiteral("through sudo the system root is /: --root and "
                                      "TK_SYSTEEM_ROOT are for root and the tests"));
    if (args.value(0) == u"--root") {
        if (args.size() < 2)
            return refused(QStringLiteral("--root needs a folder"));
        m_root = args[1];
        args = args.mid(2);
    }
    if (!QDir::isAbsolutePath(m_root) || !QFileInfo(m_root).isDir())
        return refused(
            QStringLiteral("the system root '%1' is no existing absolute folder").arg(m_root));
    if (args.isEmpty())
        return refused(QStringLiteral("no verb\n") + usage());
    return verb(args.first(), args.mid(1), input);
}

} // namespace tk
