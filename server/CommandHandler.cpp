#include "CommandHandler.h"

#include "ClientConnection.h"
#include "CommandServer.h"
#include "LoadCache.h"
#include "PackageBuilder.h"
#include "ServerLog.h"
#include "Store.h"
#include "TransferChannel.h"
#include "WireText.h"

#include <QRegularExpression>

namespace tk::server {

namespace {

const QString fieldSep = QStringLiteral(";<>;");
const QString itemSep = QStringLiteral("><");
const QString ok = QStringLiteral("OK");
const QString fout = QStringLiteral("FOUT");

QString s(const char* text) {
    return QString::fromLatin1(text);
}

// Separators that would break a record when the client splits it again.
bool breaksRecords(const QStringList& fields) {
    for (const QString& f : fields)
        if (f.contains(fieldSep) || f.contains(QStringLiteral(";|;")))
            return true;
    return false;
}

// A printable excerpt of a message for the log.
QString excerpt(const QString& message) {
    QString out;
    for (const QChar ch : message.left(40))
        out += ch.isPrint() ? ch : QLatin1Char('?');
    return message.size() > 40 ? out + QStringLiteral("...") : out;
}

const char* const iconFolders[3] = {"Groepen", "Leerkrachten", "Algemeen"};

} // namespace

CommandHandler::CommandHandler(CommandServer& server, Store& store, TransferChannel& transfers,
                               const PackageBuilder& packages)
    : m_server(server), m_store(store), m_transfers(transfers), m_packages(packages) {}

int CommandHandler::kindOf(const QString& letter) {
    const QString l = letter.toLower();
    if (l == QStringLiteral("k"))
        return 0;
    if (l == QStringLiteral("l"))
        return 1;
    if (l == QStringLiteral("a"))
        return 2;
    return -1;
}

void CommandHandler::refuse(ClientConnection& c, const QString& prefix, const QString& why) {
    ServerLog::fault(QStringLiteral("connection %1 %2").arg(c.number()).arg(prefix), why);
    c.sendReply(prefix + fout);
}

void CommandHandler::handle(ClientConnection& c, const QString& m) {
    if (m.startsWith(s("PING")))
        return;
    if (m.startsWith(s("TST"))) {
        c.sendReply(s("TST"));
        return;
    }
    if (m.startsWith(s("FIR"))) {
        // The answer within the client's five seconds is what counts. A network client keeps
        // the domain behind "FIR"; the local server of a Standalone workstation (started with
        // FIREWALL) has no domain to tell, so its answer is the bare "FIR".
        c.sendReply(s("FIR") + (m_server.options().firewallStart ? QString() : m_server.domain()));
        return;
    }
    if (m.startsWith(s("LOC"))) {
        const QString location = m.mid(3);
        // Who is where, for whoever reads the log: only a change, not every repeat.
        if (location != c.location)
            ServerLog::line(QStringLiteral("connection %1 at location %2")
                                .arg(c.number())
                                .arg(excerpt(location)));
        c.location = location;
        c.sendReply(s("LOC"));
        return;
    }
    if (m.startsWith(s("INF")) && handleInfo(c, m))
        return;
    if (m.startsWith(s("LDN")) && (handleLoad(c, m) || handleAccounts(c, m)))
        return;
    if (m.startsWith(s("ACD")) && handleAccounts(c, m))
        return;
    if (m.startsWith(s("OPS")) && handleSave(c, m))
        return;
    if (m.startsWith(s("VWN")) && handleDelete(c, m))
        return;
    ServerLog::fault(QStringLiteral("connection %1").arg(c.number()),
                     QStringLiteral("unknown message \"%1\" dropped").arg(excerpt(m)));
}

bool CommandHandler::handleInfo(ClientConnection& c, const QString& m) {
    const QString sub = m.mid(3, 3);
    if (sub == s("VER")) {
        c.clientVersion = m.mid(6);
        c.sendReply(s("INFVER"));
    } else if (sub == s("DMN")) {
        const ServerOptions& o = m_server.options();
        c.sendReply(s("INFDMN") + QStringList{m_server.domain(), QString::number(o.clientDataPort),
                                              QString::number(o.clientInfoPort),
                                              QString::number(o.uploadDataPort),
                                              QString::number(o.uploadInfoPort),
                                              m_store.setting(s("flag_a"), s("NEE")),
                                              m_store.setting(s("flag_b"), s("NEE"))}
                                      .join(QLatin1Char('|')));
    } else if (sub == s("COM")) {
        c.computerName = m.mid(6);
        c.sendReply(s("INFCOM"));
    } else if (sub == s("OND")) {
        c.sendReply(s("INFOND") + (m_server.insider(&c) ? s("JA") : s("NEE")));
    } else if (sub == s("ONA")) {
        m_server.askInsider(&c); // no answer: the client does not wait
    } else if (sub == s("ONB")) {
        m_server.newcomerGivesUp(&c);
        c.sendSettlingReply(s("INFOK"));
    } else if (sub == s("ONC")) {
        m_server.insiderRefuses(&c);
        c.sendSettlingReply(s("INFOK"));
    } else {
        return false;
    }
    return true;
}

bool CommandHandler::handleLoad(ClientConnection& c, const QString& m) {
    LoadCache& cache = m_server.loadCache();
    auto snapshot = [&] {
        if (!c.loading)
            c.loading = cache.current();
        return c.loading;
    };
    auto begin = [&] {
        c.loading = cache.current();
        return c.loading;
    };
    auto block = [&](const QString& prefix, const QStringList& blocks) {
        const QString n = m.mid(prefix.size());
        qint64 number = 0;
        if (!WireText::number(n, &number)) {
            refuse(c, prefix, QStringLiteral("no block number in \"%1\"").arg(excerpt(m)));
            return;
        }
        c.sendReply(prefix + n + QLatin1Char('|') +
                    (number < blocks.size() ? blocks[number] : QString()));
    };

    if (m == s("LDNKLSSNC")) {
        c.sendReply(m + begin()->classInfo);
    } else if (m.startsWith(s("LDNKLSDA"))) {
        block(s("LDNKLSDA"), snapshot()->classBlocks);
    } else if (m == s("LDNLRNSNC")) {
        c.sendReply(m + begin()->teacherInfo);
    } else if (m.startsWith(s("LDNLRNDA"))) {
        block(s("LDNLRNDA"), snapshot()->teacherBlocks);
    } else if (m.size() == 6 && m.startsWith(s("LDNCA")) && kindOf(m.mid(5)) >= 0) {
        c.sendReply(m + cache.current()->categories[kindOf(m.mid(5))]);
    } else if (m.startsWith(s("LDNAPPPOS"))) {
        const QString owner = m.mid(9);
        qint64 id = 0;
        if (owner.size() < 2 || kindOf(owner.left(1)) < 0 || kindOf(owner.left(1)) > 1 ||
            !WireText::number(owner.mid(1), &id)) {
            refuse(c, s("LDNAPPPOS"), QStringLiteral("no owner in \"%1\"").arg(excerpt(m)));
            return true;
        }
        c.sendReply(s("LDNAPPPOS") + m_store.positions(owner.left(1).toUpper() + owner.mid(1)));
    } else if (m.size() >= 9 && m.startsWith(s("LDNAP")) && kindOf(m.mid(5, 1)) >= 0 &&
               (m.mid(6, 3) == s("SNC") || m.mid(6, 3) == s("DAT"))) {
        const int kind = kindOf(m.mid(5, 1));
        const QString prefix = m.left(9);
        if (m.mid(6, 3) == s("SNC")) {
            c.sendReply(prefix + begin()->applicationInfo[kind]);
            return true;
        }
        qint64 number = 0;
        const auto snap = snapshot();
        if (!WireText::number(m.mid(9), &number) || number < 1 ||
            number > snap->applications[kind].size()) {
            refuse(c, prefix, QStringLiteral("no record \"%1\"").arg(excerpt(m.mid(9))));
            return true;
        }
        c.sendReply(prefix + snap->applications[kind][number - 1]);
    } else if (m == s("LDNPICWIJ")) {
        QStringList dates{WireText::date(m_store.iconsChanged(3))};
        for (int kind = 0; kind < 3; ++kind)
            dates << WireText::date(m_store.iconsChanged(kind));
        c.sendReply(m + dates.join(QLatin1Char('|')));
    } else if (m == s("LDNPICGRP") || m == s("LDNPICLRN") || m == s("LDNPICALG")) {
        const int kind = m == s("LDNPICGRP") ? 0 : m == s("LDNPICLRN") ? 1 : 2;
        QStringList items;
        for (const Store::Icon& icon : m_store.icons(kind))
            items << QStringLiteral("%1|%2").arg(icon.id).arg(WireText::date(icon.changed));
        c.sendReply(m + items.join(itemSep));
    } else if (m.startsWith(s("LDNPICPAK"))) {
        sendIconPackage(c, m.mid(9));
    } else if (m == s("LDNWCH")) {
        c.sendReply(m + m_store.setting(s("password_teachers")) + s(";|;") +
                    m_store.setting(s("password_maintenance")));
    } else if (m == s("LDNOVR")) {
        QStringList values;
        for (const char* key :
             {"start_page", "mail_to", "mail_school", "mail_sender", "theme", "language"})
            values << m_store.setting(s(key));
        c.sendReply(m + values.join(fieldSep));
    } else if (m == s("LDNTAA")) {
        c.sendReply(m + m_store.setting(s("language"), s("1043")));
    } else if (m == s("LDNIVWINF")) {
        c.sendReply(m + QString::number(begin()->wordPages.size()));
    } else if (m.startsWith(s("LDNIVWPA"))) {
        qint64 number = 0;
        const auto snap = snapshot();
        if (!WireText::number(m.mid(8), &number) || number < 1 || number > snap->wordPages.size()) {
            refuse(c, s("LDNIVWPA"), QStringLiteral("no page \"%1\"").arg(excerpt(m.mid(8))));
            return true;
        }
        c.sendReply(m + snap->wordPages[number - 1]);
    } else if (m == s("LDNITS")) {
        c.sendReply(m + m_store.setting(s("allowed_sites")));
    } else if (m.startsWith(s("LDNFAV"))) {
        const auto fav = m_store.favourites(m.mid(6));
        c.sendReply(s("LDNFAV") + fav.first + fieldSep + fav.second);
    } else if (m == s("LDNMOD")) {
        c.sendReply(m + m_store.setting(s("module_printer"), s("NEE")) + QLatin1Char('|') +
                    m_store.setting(s("module_active_directory"), s("NEE")));
    } else if (m == s("LDNPRN")) {
        c.sendReply(m + m_store.setting(s("printers")));
    } else if (m == s("LDNTHE")) {
        QStringList items;
        for (const Store::Theme& t : m_store.themes())
            items << QStringList{t.id, t.version, t.standaard ? s("JA") : s("NEE")}.join(
                QLatin1Char('|'));
        c.sendReply(m + items.join(itemSep));
    } else if (m.startsWith(s("LDNTH")) && m.size() > 5) {
        const QString id = m.mid(5);
        const QByteArray package = m_store.themePackage(id);
        if (package.isEmpty()) {
            // The client waits for both a reply and a file offer. A theme the server does not
            // hold gets "LDNTHFOUT" and a package without files: the client's waits end, it
            // unpacks nothing, and its next load removes the theme the server's list lacks.
            ServerLog::fault(
                QStringLiteral("connection %1 LDNTH").arg(c.number()),
                QStringLiteral("no theme \"%1\"; an empty package sent").arg(excerpt(id)));
            const QByteArray nothing = m_packages.pack({});
            c.sendReply(s("LDNTHFOUT"));
            if (!nothing.isEmpty())
                m_transfers.sendFile(c.peerAddress(), id.left(64) + s(".thema"), nothing);
            return true;
        }
        c.sendReply(s("LDNTH"));
        m_transfers.sendFile(c.peerAddress(), id + s(".thema"), package);
    } else {
        return false;
    }
    return true;
}

bool CommandHandler::handleAccounts(ClientConnection& c, const QString& m) {
    QString why;
    if (m == s("LDNWSA")) {
        QStringList names;
        for (const Store::Account& a : m_store.accounts())
            if (a.present)
                names << a.name;
        c.sendReply(m + names.join(QLatin1Char('|')));
    } else if (m == s("LDNGRPGLB") || m == s("LDNGRPLKL")) {
        c.sendReply(s("LDNGRP") +
                    m_store.groups(m == s("LDNGRPGLB") ? s("g") : s("l")).join(QLatin1Char('|')));
    } else if (m.startsWith(s("LDNACCINF"))) {
        const Store::Account a = m_store.account(m.mid(9));
        QStringList groups;
        for (const QString& g : a.groups.split(QLatin1Char('|'), Qt::SkipEmptyParts)) {
            const int colon = g.indexOf(QLatin1Char(':'));
            groups << g.mid(colon + 1) + QLatin1Char(':') + g.left(std::max(colon, 0));
        }
        c.sendReply(
            s("LDNACC") +
            QStringList{a.profile, a.homeFolder, a.homeDrive, a.script, groups.join(itemSep)}.join(
                QLatin1Char('|')));
    } else if (m == s("LDNACCLST")) {
        c.sendReply(s("LDNACC") + m_store.setting(s("login_scripts")));
    } else if (m.startsWith(s("ACDCON"))) {
        c.sendReply(s("ACDCON") + (m_store.account(m.mid(6)).present ? s("JA") : s("NEE")));
    } else if (m.startsWith(s("ACDNIE"))) {
        const QStringList f = m.mid(6).split(QLatin1Char('|'));
        if (f.size() < 4 || f[0].trimmed().isEmpty()) {
            refuse(c, s("ACDNIE"), QStringLiteral("an account needs name, password, type, name"));
            return true;
        }
        Store::Account a = m_store.account(f[0]);
        a.present = true;
        a.password = f[1];
        a.type = f[2];
        a.fullName = f.mid(3).join(QLatin1Char('|'));
        if (!m_store.saveAccount(a, &why))
            refuse(c, s("ACDNIE"), why);
        else
            c.sendReply(s("ACDNIE") + ok);
    } else if (m.startsWith(s("ACDVWR"))) {
        if (!m_store.deleteAccount(m.mid(6), &why))
            refuse(c, s("ACDVWR"), why);
        else
            c.sendReply(s("ACDVWR") + ok);
    } else {
        return false;
    }
    return true;
}

void CommandHandler::applyAccountExtra(const QString& account, const QString& extra) {
    const QStringList f = extra.split(QLatin1Char('|'));
    if (account.isEmpty() || f.size() < 5 || !WireText::yes(f[4]))
        return;
    Store::Account a = m_store.account(account);
    a.profile = f[0];
    a.script = f[1];
    a.homeDrive = f[2];
    a.homeFolder = f[3];
    QString why;
    if (!m_store.saveAccount(a, &why))
        ServerLog::fault(QStringLiteral("account %1").arg(account), why);
}

bool CommandHandler::handleSave(ClientConnection& c, const QString& m) {
    QString why;
    if (m.startsWith(s("OPSKLZ"))) {
        saveClass(c, m.mid(6));
    } else if (m.startsWith(s("OPSLRZ"))) {
        saveTeacher(c, m.mid(6));
    } else if (m.startsWith(s("OPSLRN"))) {
        saveTeachers(c, m.mid(6));
    } else if (m.startsWith(s("OPSWAG"))) {
        const int at = m.indexOf(itemSep, 6);
        const QString account = at < 0 ? m.mid(6) : m.mid(6, at - 6);
        if (account.isEmpty()) {
            ServerLog::fault(QStringLiteral("connection %1 OPSWAG").arg(c.number()),
                             QStringLiteral("no account"));
        } else {
            Store::Account a = m_store.account(account);
            a.groups = at < 0 ? QString() : m.mid(at + 2);
            if (!m_store.saveAccount(a, &why))
                ServerLog::fault(QStringLiteral("connection %1 OPSWAG").arg(c.number()), why);
        }
        c.sendReply(s("OPSWAG")); // the client keeps no payload of this reply
    } else if (m.startsWith(s("OPSCAT"))) {
        saveCategories(c, m.mid(6));
    } else if (m.startsWith(s("OPSCAN"))) {
        saveCategory(c, m.mid(6));
    } else if (m.startsWith(s("OPSAPPNIE"))) {
        const int kind = kindOf(m.mid(9));
        qint64 id = 0;
        if (kind < 0)
            refuse(c, s("OPSAPP"), QStringLiteral("no kind \"%1\"").arg(excerpt(m.mid(9))));
        else if (!m_store.reserveApplicationId(kind, &id, &why))
            refuse(c, s("OPSAPP"), why);
        else
            c.sendReply(s("OPSAPP") + QString::number(id));
    } else if (m.startsWith(s("OPSAPPPOS"))) {
        const QString rest = m.mid(9);
        const int at = rest.indexOf(fieldSep);
        const QString owner = at < 0 ? rest : rest.left(at);
        qint64 id = 0;
        if (owner.size() < 2 || kindOf(owner.left(1)) < 0 || kindOf(owner.left(1)) > 1 ||
            !WireText::number(owner.mid(1), &id) || at < 0) {
            refuse(c, s("OPSAPP"), QStringLiteral("no owner in \"%1\"").arg(excerpt(rest)));
        } else if (!m_store.savePositions(owner.left(1).toUpper() + owner.mid(1),
                                          rest.mid(at + fieldSep.size()), &why)) {
            refuse(c, s("OPSAPP"), why);
        } else {
            c.sendReply(s("OPSAPP") + ok);
        }
    } else if (m.startsWith(s("OPSAP2"))) {
        takeIcon(c, m.mid(6));
    } else if (m.startsWith(s("OPSAPP"))) {
        saveApplication(c, m.mid(6));
    } else if (m.startsWith(s("OPSBEH"))) {
        const QStringList f = m.mid(6).split(itemSep);
        qint64 id = 0;
        const int who = f.isEmpty() ? -1 : kindOf(f[0]);
        if (f.size() < 5 || who < 0 || who > 1 || !WireText::number(f[1], &id))
            refuse(c, s("OPSBEH"), QStringLiteral("a desktop needs who, ID and three lists"));
        else if (breaksRecords(f) ||
                 !m_store.saveDesktop(f[0].toLower().at(0), id, f[2], f[3], f[4], &why))
            refuse(c, s("OPSBEH"), why.isEmpty() ? QStringLiteral("separator in a field") : why);
        else
            c.sendReply(s("OPSBEH") + ok);
    } else if (m.startsWith(s("OPSFAV"))) {
        const QStringList f = m.mid(6).split(fieldSep);
        const QString owner = f.value(0);
        qint64 id = 0;
        const bool known = (owner.startsWith(s("Groep")) && WireText::number(owner.mid(5), &id)) ||
                           (owner.startsWith(s("Leraar")) && WireText::number(owner.mid(6), &id));
        if (f.size() != 3 || !known || f[1].split(QLatin1Char('|')).size() != 4)
            refuse(c, s("OPSFAV"), QStringLiteral("favourites need owner, header and list"));
        else if (!m_store.saveFavourites(owner, f[1], f[2], &why))
            refuse(c, s("OPSFAV"), why);
        else
            c.sendReply(s("OPSFAV") + ok);
    } else if (m.startsWith(s("OPSVBW"))) {
        QString piece = m.mid(6);
        if (piece.startsWith(s(";<")))
            piece = piece.mid(2);
        QString words = piece;
        if (piece.startsWith(QLatin1Char('+'))) {
            const QString stored = m_store.setting(s("forbidden_words"));
            words = stored.isEmpty() ? piece.mid(1) : stored + QLatin1Char('|') + piece.mid(1);
        }
        if (!m_store.setSettings({{s("forbidden_words"), words}}, &why))
            refuse(c, s("OPSVBW"), why);
        else
            c.sendReply(s("OPSVBW") + ok);
    } else if (m.startsWith(s("OPSITS"))) {
        if (!m_store.setSettings({{s("allowed_sites"), m.mid(6)}}, &why))
            refuse(c, s("OPSITS"), why);
        else
            c.sendReply(s("OPSITS") + ok);
    } else if (m.startsWith(s("OPSINS"))) {
        const QStringList f = m.mid(6).split(fieldSep);
        static const char* const keys[] = {
            "password_teachers", "password_maintenance", "start_page", "mail_to",
            "mail_school",       "mail_sender",          "theme",      "language"};
        if (f.size() != 8) {
            refuse(c, s("OPSINS"), QStringLiteral("settings of %1 fields, not 8").arg(f.size()));
            return true;
        }
        QList<QPair<QString, QString>> values;
        for (int i = 0; i < 8; ++i)
            values.append({s(keys[i]), f[i]});
        if (!m_store.setSettings(values, &why))
            refuse(c, s("OPSINS"), why);
        else
            c.sendReply(s("OPSINS") + ok);
    } else if (m.startsWith(s("OPSTEL"))) {
        const QStringList f = m.mid(6).split(QLatin1Char('|'));
        qint64 app = 0, owner = 0, kind = 0;
        if (f.size() < 3 || !WireText::number(f[0], &app) || !WireText::number(f[1], &owner) ||
            !WireText::number(f[2], &kind) || kind > 2)
            ServerLog::fault(QStringLiteral("connection %1 OPSTEL").arg(c.number()),
                             QStringLiteral("not a start: \"%1\"").arg(excerpt(m.mid(6))));
        else if (!m_store.countStart(int(kind), app, owner, &why))
            ServerLog::fault(QStringLiteral("connection %1 OPSTEL").arg(c.number()), why);
        // no answer: the client does not wait
    } else {
        return false;
    }
    return true;
}

void CommandHandler::saveClass(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(itemSep);
    if (f.size() != 12 && f.size() != 13) {
        refuse(c, s("OPSKLZ"), QStringLiteral("a class of %1 fields").arg(f.size()));
        return;
    }
    if (f[1].trimmed().isEmpty() || breaksRecords(f)) {
        refuse(c, s("OPSKLZ"), QStringLiteral("a class without a name or with a separator"));
        return;
    }
    // The wire order is the columns 6, 0, 1, 2, 3, 4, 5, 7, 8, 10, 11, 12 (and 13).
    static const int column[] = {6, 0, 1, 2, 3, 4, 5, 7, 8, 10, 11, 12};
    QStringList columns(Store::classColumns);
    for (int i = 0; i < 12; ++i)
        columns[column[i]] = f[i];
    qint64 id = 0;
    QString why;
    if (!m_store.saveClass(columns, &id, &why)) {
        refuse(c, s("OPSKLZ"), why);
        return;
    }
    if (f.size() == 13)
        applyAccountExtra(columns[4], f[12]);
    c.sendReply(s("OPSKLZ") + QString::number(id));
}

namespace {
// The wire order of a teacher: columns 5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15, 14.
const int teacherColumn[] = {5, 0, 7, 6, 1, 2, 3, 4, 8, 9, 10, 11, 12, 15, 14};
} // namespace

void CommandHandler::saveTeacher(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(itemSep);
    if (f.size() != 15 && f.size() != 16) {
        refuse(c, s("OPSLRZ"), QStringLiteral("a teacher of %1 fields").arg(f.size()));
        return;
    }
    if (f[1].trimmed().isEmpty() || breaksRecords(f)) {
        refuse(c, s("OPSLRZ"), QStringLiteral("a teacher without a name or with a separator"));
        return;
    }
    QStringList columns(Store::teacherColumns);
    for (int i = 0; i < 15; ++i)
        columns[teacherColumn[i]] = f[i];
    qint64 id = 0;
    QString why;
    if (!m_store.saveTeacher(columns, &id, &why)) {
        refuse(c, s("OPSLRZ"), why);
        return;
    }
    if (f.size() == 16)
        applyAccountExtra(columns[3], f[15]);
    c.sendReply(s("OPSLRZ") + QString::number(id));
}

void CommandHandler::saveTeachers(ClientConnection& c, const QString& payload) {
    const QStringList parts = payload.split(fieldSep);
    qint64 count = 0;
    if (parts.size() < 2 || !WireText::number(parts[1], &count) ||
        parts.size() != (count == 0 ? 2 : 2 + count) || count > Store::maxTeachers) {
        refuse(c, s("OPSLRN"), QStringLiteral("the number of teachers does not match"));
        return;
    }
    QList<QStringList> rows;
    for (qint64 r = 0; r < count; ++r) {
        const QStringList f = parts[2 + r].split(itemSep);
        if (f.size() != 14 || f[1].trimmed().isEmpty() || breaksRecords(f)) {
            refuse(c, s("OPSLRN"), QStringLiteral("teacher %1 is not a whole record").arg(r + 1));
            return;
        }
        QStringList columns(Store::teacherColumns);
        for (int i = 0; i < 14; ++i)
            columns[teacherColumn[i]] = f[i];
        rows << columns;
    }
    QString why;
    // The bulk form carries no theme: the stored one stays, as does the reserve column.
    if (!m_store.saveTeachers(rows, {13, 14}, &why))
        refuse(c, s("OPSLRN"), why);
    else
        c.sendReply(s("OPSLRN") + ok);
}

namespace {
int categoryKind(const QString& word) {
    const QString w = word.toLower();
    if (w == QStringLiteral("groep") || w == QStringLiteral("klas"))
        return 0;
    if (w == QStringLiteral("leer"))
        return 1;
    if (w == QStringLiteral("algemeen"))
        return 2;
    return -1;
}
bool badCategoryName(const QString& naam) {
    return naam.trimmed().isEmpty() || naam.contains(QLatin1Char('|')) ||
           naam.contains(QStringLiteral(";<>;"));
}
} // namespace

// "<word>;<>;<id>;<>;<naam>", with the ID -1 for a new category; the form
// "<word>;<>;<naam>;<>;-1" is taken as well.
void CommandHandler::saveCategory(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(fieldSep);
    const int kind = categoryKind(f.value(0));
    if (f.size() != 3 || kind < 0) {
        refuse(c, s("OPSCAT"), QStringLiteral("a category needs kind, ID and name"));
        return;
    }
    qint64 id = -1;
    QString naam;
    bool number = false;
    const qint64 first = f[1].toLongLong(&number);
    if (number && f[2] != QStringLiteral("-1")) {
        id = first;
        naam = f[2];
    } else {
        naam = f[1];
        id = f[2].toLongLong();
    }
    QString why;
    if (badCategoryName(naam)) {
        refuse(c, s("OPSCAT"), QStringLiteral("a category name \"%1\"").arg(excerpt(naam)));
        return;
    }
    const bool saved = id <= 0 ? m_store.addCategory(kind, naam, &id, &why)
                               : m_store.renameCategory(kind, id, naam, &why);
    if (!saved)
        refuse(c, s("OPSCAT"), why);
    else
        c.sendReply(s("OPSCAT") + QString::number(id));
}

// "<word>;<>;<value>;<>;<value>;<>;<n>><<id>><<naam>;<>;..."
void CommandHandler::saveCategories(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(fieldSep);
    const int kind = categoryKind(f.value(0));
    if (f.size() < 3 || kind < 0) {
        refuse(c, s("OPSCAT"), QStringLiteral("categories need a kind and two values"));
        return;
    }
    QList<Store::Category> list;
    for (qsizetype i = 3; i < f.size(); ++i) {
        const QStringList parts = f[i].split(itemSep);
        qint64 id = 0;
        if (parts.size() != 3 || !WireText::number(parts[1], &id) || badCategoryName(parts[2])) {
            refuse(c, s("OPSCAT"), QStringLiteral("category %1 is not whole").arg(i - 2));
            return;
        }
        list.append({id, parts[2]});
    }
    QString why;
    if (!m_store.saveCategories(kind, list, &why))
        refuse(c, s("OPSCAT"), why);
    else
        c.sendReply(s("OPSCAT") + ok);
}

// "<letter>><<ID>><ja|nee>><Naam>><Categorie>><Opdracht>><Pictogram>><Omschrijving>>
// <Parameter>><Beeldscherm>"
void CommandHandler::saveApplication(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(itemSep);
    const int kind = kindOf(f.value(0));
    if (f.size() != 10 || kind < 0) {
        refuse(c, s("OPSAPP"), QStringLiteral("an application of %1 fields").arg(f.size()));
        return;
    }
    if (f[3].trimmed().isEmpty() || breaksRecords(f)) {
        refuse(c, s("OPSAPP"), QStringLiteral("an application without a name"));
        return;
    }
    QString omschrijving = f[7];
    omschrijving.remove(QLatin1Char('\r')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const Store::Application fields{f[1], f[3], f[4], f[5], omschrijving, f[6], f[8], f[9]};
    QString why;
    if (!m_store.saveApplication(kind, fields, &why))
        refuse(c, s("OPSAPP"), why);
    else
        c.sendReply(s("OPSAPP") + ok);
}

// "<letter>|<file name>": the icon "<ID>.pic" follows over the upload ports.
void CommandHandler::takeIcon(ClientConnection& c, const QString& payload) {
    const int bar = payload.indexOf(QLatin1Char('|'));
    const int kind = bar < 0 ? -1 : kindOf(payload.left(bar));
    const QString name = payload.mid(bar + 1);
    const int slash =
        std::max(name.lastIndexOf(QLatin1Char('\\')), name.lastIndexOf(QLatin1Char('/')));
    const QString file = name.mid(slash + 1);
    qint64 id = 0;
    const bool known = kind >= 0 && file.endsWith(QStringLiteral(".pic"), Qt::CaseInsensitive) &&
                       WireText::number(file.chopped(4), &id);
    if (!known) {
        // The client sends the file whatever the answer: it is taken and dropped, so that its
        // wait for the end of the transfer ends.
        m_transfers.expectUpload(c.peerAddress(), file, [](const QByteArray&) {});
        refuse(c, s("OPSAP2"),
               QStringLiteral("not an icon of an application: \"%1\"").arg(excerpt(payload)));
        return;
    }
    Store* store = &m_store;
    m_transfers.expectUpload(c.peerAddress(), file, [store, kind, id](const QByteArray& bytes) {
        QString why;
        if (!store->saveIcon(kind, id, bytes, &why))
            ServerLog::fault(QStringLiteral("icon %1").arg(id), why);
    });
    c.sendReply(s("OPSAP2") + ok);
}

// Items joined by ";<>;", each "groep|", "leerkracht|" or "algemeen|" and the IDs asked,
// joined by "|"; an item "standaard" asks the standard icon library.
void CommandHandler::sendIconPackage(ClientConnection& c, const QString& request) {
    QList<PackageEntry> entries;
    for (const QString& item : request.split(fieldSep, Qt::SkipEmptyParts)) {
        const QStringList parts =
            item.split(QRegularExpression(QStringLiteral("\\||><")), Qt::SkipEmptyParts);
        const QString word = parts.value(0).toLower();
        const int kind = word == s("groep")        ? 0
                         : word == s("leerkracht") ? 1
                         : word == s("algemeen")   ? 2
                                                   : -1;
        if (word == s("standaard")) {
            const QByteArray library = m_store.standardLibrary();
            if (!library.isEmpty())
                entries.append({s("standaard.icl"), library});
            continue;
        }
        if (kind < 0)
            continue;
        for (qsizetype i = 1; i < parts.size(); ++i) {
            qint64 id = 0;
            if (!WireText::number(parts[i], &id))
                continue;
            const QByteArray icon = m_store.icon(kind, id);
            if (!icon.isEmpty())
                entries.append(
                    {QStringLiteral("Applicaties\\%1\\%2.pic").arg(s(iconFolders[kind])).arg(id),
                     icon});
        }
    }
    c.sendReply(s("LDNPICPAK"));
    const QByteArray package = m_packages.pack(entries);
    if (package.isEmpty()) {
        ServerLog::fault(QStringLiteral("connection %1 LDNPICPAK").arg(c.number()),
                         QStringLiteral("the icon package could not be made"));
        return;
    }
    m_transfers.sendFile(c.peerAddress(), s("pakket.pictogrammen"), package);
}

bool CommandHandler::handleDelete(ClientConnection& c, const QString& m) {
    const QString prefix = m.left(6);
    const QString rest = m.mid(6);
    QString why;
    qint64 id = 0;
    bool done = false;
    if (prefix == s("VWNKLS") || prefix == s("VWNLRN")) {
        if (!WireText::number(rest, &id))
            why = QStringLiteral("no ID \"%1\"").arg(excerpt(rest));
        else
            done = prefix == s("VWNKLS") ? m_store.deleteClass(id, &why)
                                         : m_store.deleteTeacher(id, &why);
    } else if (prefix == s("VWNAPP") || prefix == s("VWNCAT")) {
        const QStringList f = rest.split(QLatin1Char('|'));
        const int kind = kindOf(f.value(0));
        if (f.size() != 2 || kind < 0 || !WireText::number(f[1], &id))
            why = QStringLiteral("no kind and ID in \"%1\"").arg(excerpt(rest));
        else
            done = prefix == s("VWNAPP") ? m_store.deleteApplication(kind, id, &why)
                                         : m_store.deleteCategory(kind, id, &why);
    } else {
        return false;
    }
    if (done)
        c.sendReply(prefix + ok);
    else
        refuse(c, prefix, why);
    return true;
}

} // namespace tk::server
