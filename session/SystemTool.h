#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace tk {

// The privileged program tafelkrater-systeem: a closed list of verbs that change the machine for
// the session side of the client, each path under a system root ("/" in production, a temporary
// folder in tests). The client reaches it with "sudo -n"; everything it takes from its caller is
// checked before anything is written, and a file is written whole and atomically.
class SystemTool {
public:
    struct Result {
        int code = 0; // 0 done, 1 the action failed, 2 refused
        QString output;
    };
    // Runs an outside program (useradd and its kin) with a standard input; its exit code and
    // what it printed.
    using Runner = std::function<Result(const QString& program, const QStringList& arguments,
                                        const QString& input)>;

    // `programFolder` is where the client's programs are (the session file starts the launcher
    // there); `rootFromEnvironment` is TK_SYSTEEM_ROOT, used when no --root is given.
    // `throughSudo`: another account asked, through sudo. It may not choose the system root (a
    // folder of its own, with links from there to anywhere, would have root write and remove
    // where the links point): a root it gives is refused, and every path lies under "/".
    SystemTool(const QString& programFolder, const QString& rootFromEnvironment, bool throughSudo,
               Runner runner);

    // The command line after the program's name: [--root DIR] VERB ARGS...; `input` is its
    // standard input (a password).
    Result run(const QStringList& arguments, const QString& input);

    // A name useradd takes: a lower-case letter or underscore first, then lower-case letters,
    // digits, "_" and "-", at most 32 in all.
    static bool isAccountName(const QString& name);
    // The verbs with their arguments, as the help and the README list them.
    static QString usage();
    // The LightDM drop-in that logs `account` on into our session after every start and log off.
    static QString lightdmDropIn(const QString& account);
    static QString sessionFile(const QString& programFolder);
    static QString proxyFile(const QString& proxy);

    static constexpr const char* AdminGroup = "tafelkrater-beheer";
    // The first user ID of a person's account (UID_MIN of Debian's login.defs); below it are the
    // system's own accounts, root first, which no verb logs on, grants or removes.
    static constexpr int FirstUserId = 1000;
    static constexpr const char* DropInPath = "etc/lightdm/lightdm.conf.d/60-tafelkrater.conf";
    static constexpr const char* SessionPath = "usr/share/xsessions/tafelkrater.desktop";
    static constexpr const char* ProxyPath = "etc/X11/Xsession.d/60tafelkrater-proxy";
    static constexpr const char* WallpaperPath = "etc/tafelkrater/wallpaper";
    // The local accounts this program made, a name a line: the only ones it removes, and the
    // only local persons' accounts it logs on or grants (a pupil who may call it must not reach
    // the administrator's own account).
    static constexpr const char* AccountsPath = "etc/tafelkrater/accounts";

private:
    Result verb(const QString& naam, const QStringList& args, const QString& input);
    Result net(const QStringList& args);
    Result accountCreate(const QString& name, const QString& password);
    Result accountDelete(const QString& name);
    // Adds the accounts to the administrators' group with one change of the group; a result
    // per account, in their order.
    QList<Result> adminAdd(const QStringList& names);
    // The account's user ID in the system root's passwd, or on the machine itself from the name
    // service (getent); -1 when it has none.
    int userId(const QString& name) const;
    // The account's line in the system root's passwd, if it has one there.
    std::optional<QByteArray> passwdLine(const QString& name) const;
    bool accountExists(const QString& name) const { return userId(name) >= 0; }
    // Refused when `id`, the user ID of `name` (-1: none), is one of the system's own accounts.
    static std::optional<Result> refusedAsSystemAccount(const QString& name, int id);
    // The accounts this program made (AccountsPath), and that list with `name` added or taken
    // out.
    QStringList madeAccounts() const;
    Result recordAccount(const QString& name, bool made);
    // Refused when `name` is a person's account of this machine (in the system root's passwd)
    // that this program did not make. Accounts of a directory are not in that file.
    std::optional<Result> refusedAsPersonsAccount(const QString& name) const;
    // The members of the administrators' group; `exists` whether there is such a group.
    QStringList groupMembers(bool* exists) const;
    Result write(const char* relative, const QString& content);
    Result remove(const char* relative);
    // The prefix arguments of the account tools: none for "/".
    QStringList prefix() const;
    QString path(const char* relative) const;

    QString m_programFolder;
    QString m_root;
    bool m_throughSudo;
    bool m_rootFromEnvironment;
    Runner m_runner;
};

} // namespace tk
