#include "CommandHandler.h"

#include "ClientConnection.h"
#include "CommandServer.h"
#include "LoadCache.h"
#include "OwnerRecord.h"
#include "PackageBuilder.h"
#include "ServerLog.h"
#include "Store.h"
#include "TransferChannel.h"
#include "WireText.h"
#include "core/Wire.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace tk::server {

namespace {

// A request carried out: its word + "OK".
QString carriedOut(QLatin1StringView word) {
    return word + QString(wire::ok);
}

QString s(const char* text) {
    return QString::fromLatin1(text);
}

// A value that would break a load when the client splits it again: a separator inside, or a
// piece of one at its end that joins with the separator after it (a name ending in ";|").
// Whatever follows that separator, only the value's end can make it match early.
bool breaksLoad(const QString& value) {
    for (const QLatin1StringView sep : {wire::fieldSep, wire::recordSep})
        if (!wire::splitsBack({value, QStringLiteral("x")}, sep))
            return true;
    return false;
}

bool breaksRecords(const QStringList& fields) {
    return std::any_of(fields.cbegin(), fields.cend(), breaksLoad);
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
    c.sendReply(prefix + wire::fout);
}

void CommandHandler::handle(ClientConnection& c, const QString& m) {
    // The client's answer to the keep-alive goes alone, but a request sent right after it can
    // arrive in the same read: the rest is that request.
    if (m.startsWith(wire::PING)) {
        if (m.size() > wire::PING.size())
            handle(c, m.mid(wire::PING.size()));
        return;
    }
    if (m.startsWith(wire::TST)) {
        c.sendReply(wire::TST);
        return;
    }
    if (m.startsWith(wire::FIR)) {
        // The answer within the client's five seconds is what counts. A network client keeps
        // the domain behind "FIR"; the local server of a Standalone workstation (started with
        // FIREWALL) has no domain to tell, so its answer is the bare "FIR".
        c.sendReply(wire::FIR + (m_server.options().firewallStart ? QString() : m_server.domain()));
        return;
    }
    if (m.startsWith(wire::LOC)) {
        const QString location = m.mid(wire::LOC.size());
        // Who is where, for whoever reads the log: only a change, not every repeat.
        if (location != c.location)
            ServerLog::line(QStringLiteral("connection %1 at location %2")
                                .arg(c.number())
                                .arg(excerpt(location)));
        c.location = location;
        c.sendReply(wire::LOC);
        return;
    }
    if (m.startsWith(wire::OPS) && handleSave(c, m))
        return;
    if (m.startsWith(wire::VWN) && handleDelete(c, m))
        return;
    if (m.startsWith(wire::INF) || m.startsWith(wire::LDN) || m.startsWith(wire::ACD)) {
        answerFromReads(c, m);
        return;
    }
    ServerLog::fault(QStringLiteral("connection %1").arg(c.number()),
                     QStringLiteral("unknown message \"%1\" dropped").arg(excerpt(m)));
}

void CommandHandler::answerFromReads(ClientConnection& c, const QString& m) {
    // A reply made from a read of the store that failed would tell the client of an empty
    // table, which its load would take and cache over the good copy. The client waits for its
    // answer until the link goes, and a lost link is what it knows to work from its cache with:
    // the reply is dropped and the connection closed. (A save that read and failed says FOUT.)
    const quint64 failures = m_store.readFailures();
    c.holdReplies();
    const bool handled = (m.startsWith(wire::INF) && handleInfo(c, m)) ||
                         (m.startsWith(wire::LDN) && (handleLoad(c, m) || handleAccounts(c, m))) ||
                         (m.startsWith(wire::ACD) && handleAccounts(c, m));
    const bool whole = m_store.readFailures() == failures;
    c.releaseReplies(whole);
    if (!whole) {
        ServerLog::fault(
            QStringLiteral("connection %1").arg(c.number()),
            QStringLiteral("a read of the store failed (%1): no answer to \"%2\"; closed")
                .arg(m_store.lastReadError(), excerpt(m)));
        c.close();
    } else if (!handled) {
        ServerLog::fault(QStringLiteral("connection %1").arg(c.number()),
                         QStringLiteral("unknown message \"%1\" dropped").arg(excerpt(m)));
    }
}

bool CommandHandler::handleInfo(ClientConnection& c, const QString& m) {
    if (m.startsWith(wire::INFVER)) {
        c.clientVersion = m.mid(wire::INFVER.size());
        c.sendReply(wire::INFVER);
    } else if (m.startsWith(wire::INFDMN)) {
        const ServerOptions& o = m_server.options();
        c.sendReply(wire::INFDMN + QStringList{m_server.domain(), QString::number(o.clientDataPort),
                                               QString::number(o.clientInfoPort),
                                               QString::number(o.uploadDataPort),
                                               QString::number(o.uploadInfoPort),
                                               m_store.setting(s("flag_a"), wire::nee),
                                               m_store.setting(s("flag_b"), wire::nee)}
                                       .join(wire::valueSep));
    } else if (m.startsWith(wire::INFCOM)) {
        c.computerName = m.mid(wire::INFCOM.size());
        c.sendReply(wire::INFCOM);
    } else if (m.startsWith(wire::INFOND)) {
        c.sendReply(wire::INFOND + QString(m_server.insider(&c) ? wire::ja : wire::nee));
    } else if (m.startsWith(wire::INFONA)) {
        m_server.askInsider(&c); // no answer: the client does not wait
    } else if (m.startsWith(wire::INFONB)) {
        m_server.newcomerGivesUp(&c);
        c.sendSettlingReply(carriedOut(wire::INF));
    } else if (m.startsWith(wire::INFONC)) {
        m_server.insiderRefuses(&c);
        c.sendSettlingReply(carriedOut(wire::INF));
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
        c.sendReply(prefix + n + wire::valueSep +
                    (number < blocks.size() ? blocks[number] : QString()));
    };

    if (m == wire::LDNKLSSNC) {
        c.sendReply(m + begin()->classInfo);
    } else if (m.startsWith(wire::LDNKLSDA)) {
        block(wire::LDNKLSDA, snapshot()->classBlocks);
    } else if (m == wire::LDNLRNSNC) {
        c.sendReply(m + begin()->teacherInfo);
    } else if (m.startsWith(wire::LDNLRNDA)) {
        block(wire::LDNLRNDA, snapshot()->teacherBlocks);
    } else if (m.size() == 6 && m.startsWith(wire::LDNCA) && kindOf(m.mid(5)) >= 0) {
        c.sendReply(m + cache.current()->categories[kindOf(m.mid(5))]);
    } else if (m.startsWith(wire::LDNAPPPOS)) {
        const QString owner = m.mid(wire::LDNAPPPOS.size());
        qint64 id = 0;
        if (owner.size() < 2 || kindOf(owner.left(1)) < 0 || kindOf(owner.left(1)) > 1 ||
            !WireText::number(owner.mid(1), &id)) {
            refuse(c, wire::LDNAPPPOS, QStringLiteral("no owner in \"%1\"").arg(excerpt(m)));
            return true;
        }
        c.sendReply(wire::LDNAPPPOS + m_store.positions(owner.left(1).toUpper() + owner.mid(1)));
    } else if (m.size() >= 9 && m.startsWith(wire::LDNAP) && kindOf(m.mid(5, 1)) >= 0 &&
               (m.mid(6, 3) == wire::SNC || m.mid(6, 3) == wire::DAT)) {
        const int kind = kindOf(m.mid(5, 1));
        const QString prefix = m.left(9);
        if (m.mid(6, 3) == wire::SNC) {
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
    } else if (m == wire::LDNPICWIJ) {
        QStringList dates{WireText::date(m_store.iconsChanged(3))};
        for (int kind = 0; kind < 3; ++kind)
            dates << WireText::date(m_store.iconsChanged(kind));
        c.sendReply(m + dates.join(wire::valueSep));
    } else if (m == wire::LDNPICGRP || m == wire::LDNPICLRN || m == wire::LDNPICALG) {
        const int kind = m == wire::LDNPICGRP ? 0 : m == wire::LDNPICLRN ? 1 : 2;
        QStringList items;
        for (const Store::Icon& icon : m_store.icons(kind))
            items << QString::number(icon.id) + wire::valueSep + WireText::date(icon.changed);
        c.sendReply(m + items.join(wire::itemSep));
    } else if (m.startsWith(wire::LDNPICPAK)) {
        sendIconPackage(c, m.mid(wire::LDNPICPAK.size()));
    } else if (m == wire::LDNWCH) {
        c.sendReply(m + m_store.setting(s("password_teachers")) + wire::recordSep +
                    m_store.setting(s("password_maintenance")));
    } else if (m == wire::LDNOVR) {
        QStringList values;
        for (const char* key :
             {"start_page", "mail_to", "mail_school", "mail_sender", "theme", "language"})
            values << m_store.setting(s(key));
        c.sendReply(m + values.join(wire::fieldSep));
    } else if (m == wire::LDNTAA) {
        c.sendReply(m + m_store.setting(s("language"), s("1043")));
    } else if (m == wire::LDNIVWINF) {
        c.sendReply(m + QString::number(begin()->wordPages.size()));
    } else if (m.startsWith(wire::LDNIVWPA)) {
        qint64 number = 0;
        const auto snap = snapshot();
        if (!WireText::number(m.mid(8), &number) || number < 1 || number > snap->wordPages.size()) {
            refuse(c, wire::LDNIVWPA, QStringLiteral("no page \"%1\"").arg(excerpt(m.mid(8))));
            return true;
        }
        c.sendReply(m + snap->wordPages[number - 1]);
    } else if (m == wire::LDNITS) {
        c.sendReply(m + m_store.setting(s("allowed_sites")));
    } else if (m.startsWith(wire::LDNFAV)) {
        const auto fav = m_store.favourites(m.mid(wire::LDNFAV.size()));
        c.sendReply(wire::LDNFAV + fav.first + wire::fieldSep + fav.second);
    } else if (m == wire::LDNMOD) {
        c.sendReply(m + m_store.setting(s("module_printer"), wire::nee) + wire::valueSep +
                    m_store.setting(s("module_active_directory"), wire::nee));
    } else if (m == wire::LDNPRN) {
        c.sendReply(m + m_store.setting(s("printers")));
    } else if (m == wire::LDNTHE) {
        QStringList items;
        for (const Store::Theme& t : m_store.themes())
            items << QStringList{t.id, t.version, t.standaard ? wire::ja : wire::nee}.join(
                wire::valueSep);
        c.sendReply(m + items.join(wire::itemSep));
    } else if (m.startsWith(wire::LDNTH) && m.size() > 5) {
        const QString id = m.mid(wire::LDNTH.size());
        const QByteArray package = m_store.themePackage(id);
        if (package.isEmpty()) {
            // The client waits for both a reply and a file offer. A theme the server does not
            // hold gets "LDNTHFOUT" and a package without files: the client's waits end, it
            // unpacks nothing, and its next load removes the theme the server's list lacks.
            const QByteArray nothing = m_packages.pack({});
            if (nothing.isEmpty()) {
                packageFailed(c, wire::LDNTH);
                return true;
            }
            ServerLog::fault(
                QStringLiteral("connection %1 LDNTH").arg(c.number()),
                QStringLiteral("no theme \"%1\"; an empty package sent").arg(excerpt(id)));
            c.sendReply(wire::LDNTH + QString(wire::fout));
            m_transfers.sendFile(c.peerAddress(), id.left(64) + s(".thema"), nothing);
            return true;
        }
        c.sendReply(wire::LDNTH);
        m_transfers.sendFile(c.peerAddress(), id + s(".thema"), package);
    } else {
        return false;
    }
    return true;
}

bool CommandHandler::handleAccounts(ClientConnection& c, const QString& m) {
    QString why;
    if (m == wire::LDNWSA) {
        QStringList names;
        for (const Store::Account& a : m_store.accounts())
            if (a.present)
                names << a.name;
        c.sendReply(m + names.join(wire::valueSep));
    } else if (m == wire::LDNGRPGLB || m == wire::LDNGRPLKL) {
        c.sendReply(wire::LDNGRP +
                    m_store.groups(m == wire::LDNGRPGLB ? s("g") : s("l")).join(wire::valueSep));
    } else if (m.startsWith(wire::LDNACCINF)) {
        const Store::Account a = m_store.account(m.mid(wire::LDNACCINF.size()));
        QStringList groups;
        for (const QString& g : a.groups.split(wire::valueSep, Qt::SkipEmptyParts)) {
            const int colon = g.indexOf(QLatin1Char(':'));
            groups << g.mid(colon + 1) + QLatin1Char(':') + g.left(std::max(colon, 0));
        }
        c.sendReply(wire::LDNACC + QStringList{a.profile, a.homeFolder, a.homeDrive, a.script,
                                               groups.join(wire::itemSep)}
                                       .join(wire::valueSep));
    } else if (m == wire::LDNACCLST) {
        c.sendReply(wire::LDNACC + m_store.setting(s("login_scripts")));
    } else if (m.startsWith(wire::ACDCON)) {
        const bool present = m_store.account(m.mid(wire::ACDCON.size())).present;
        c.sendReply(wire::ACDCON + QString(present ? wire::ja : wire::nee));
    } else if (m.startsWith(wire::ACDNIE)) {
        const QStringList f = m.mid(wire::ACDNIE.size()).split(wire::valueSep);
        if (f.size() < 4 || f[0].trimmed().isEmpty()) {
            refuse(c, wire::ACDNIE, QStringLiteral("an account needs name, password, type, name"));
            return true;
        }
        Store::Account a = m_store.account(f[0]);
        a.present = true;
        a.password = f[1];
        a.type = f[2];
        a.fullName = f.mid(3).join(wire::valueSep);
        if (!m_store.saveAccount(a, &why))
            refuse(c, wire::ACDNIE, why);
        else
            c.sendReply(carriedOut(wire::ACDNIE));
    } else if (m.startsWith(wire::ACDVWR)) {
        if (!m_store.deleteAccount(m.mid(wire::ACDVWR.size()), &why))
            refuse(c, wire::ACDVWR, why);
        else
            c.sendReply(carriedOut(wire::ACDVWR));
    } else {
        return false;
    }
    return true;
}

void CommandHandler::applyAccountExtra(const QString& account, const QString& extra) {
    const QStringList f = extra.split(wire::valueSep);
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
    if (m.startsWith(wire::OPSKLZ)) {
        saveOwner(c, classRecord, m.mid(6));
    } else if (m.startsWith(wire::OPSLRZ)) {
        saveOwner(c, teacherRecord, m.mid(6));
    } else if (m.startsWith(wire::OPSLRN)) {
        saveTeachers(c, m.mid(6));
    } else if (m.startsWith(wire::OPSWAG)) {
        const int at = m.indexOf(wire::itemSep, 6);
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
        c.sendReply(wire::OPSWAG); // the client keeps no payload of this reply
    } else if (m.startsWith(wire::OPSCAT)) {
        saveCategories(c, m.mid(6));
    } else if (m.startsWith(wire::OPSCAN)) {
        saveCategory(c, m.mid(6));
    } else if (m.startsWith(wire::OPSAPPNIE)) {
        const int kind = kindOf(m.mid(9));
        qint64 id = 0;
        if (kind < 0)
            refuse(c, wire::OPSAPP, QStringLiteral("no kind \"%1\"").arg(excerpt(m.mid(9))));
        else if (!m_store.reserveApplicationId(kind, &id, &why))
            refuse(c, wire::OPSAPP, why);
        else
            c.sendReply(wire::OPSAPP + QString::number(id));
    } else if (m.startsWith(wire::OPSAPPPOS)) {
        const QString rest = m.mid(9);
        const int at = rest.indexOf(wire::fieldSep);
        const QString owner = at < 0 ? rest : rest.left(at);
        qint64 id = 0;
        if (owner.size() < 2 || kindOf(owner.left(1)) < 0 || kindOf(owner.left(1)) > 1 ||
            !WireText::number(owner.mid(1), &id) || at < 0) {
            refuse(c, wire::OPSAPP, QStringLiteral("no owner in \"%1\"").arg(excerpt(rest)));
        } else if (!m_store.savePositions(owner.left(1).toUpper() + owner.mid(1),
                                          rest.mid(at + wire::fieldSep.size()), &why)) {
            refuse(c, wire::OPSAPP, why);
        } else {
            c.sendReply(carriedOut(wire::OPSAPP));
        }
    } else if (m.startsWith(wire::OPSAP2)) {
        takeIcon(c, m.mid(6));
    } else if (m.startsWith(wire::OPSAPP)) {
        saveApplication(c, m.mid(6));
    } else if (m.startsWith(wire::OPSBEH)) {
        const QStringList f = m.mid(6).split(wire::itemSep);
        qint64 id = 0;
        const int who = f.isEmpty() ? -1 : kindOf(f[0]);
        if (f.size() < 5 || who < 0 || who > 1 || !WireText::number(f[1], &id))
            refuse(c, wire::OPSBEH, QStringLiteral("a desktop needs who, ID and three lists"));
        else if (breaksRecords(f) || !m_store.saveDesktop(who == 0 ? classRecord : teacherRecord,
                                                          id, f[2], f[3], f[4], &why))
            refuse(c, wire::OPSBEH, why.isEmpty() ? QStringLiteral("separator in a field") : why);
        else
            c.sendReply(carriedOut(wire::OPSBEH));
    } else if (m.startsWith(wire::OPSFAV)) {
        const QStringList f = m.mid(6).split(wire::fieldSep);
        const QString owner = f.value(0);
        qint64 id = 0;
        const bool known = (owner.startsWith(s("Groep")) && WireText::number(owner.mid(5), &id)) ||
                           (owner.startsWith(s("Leraar")) && WireText::number(owner.mid(6), &id));
        if (f.size() != 3 || !known || f[1].split(wire::valueSep).size() != 4)
            refuse(c, wire::OPSFAV, QStringLiteral("favourites need owner, header and list"));
        else if (!m_store.saveFavourites(owner, f[1], f[2], &why))
            refuse(c, wire::OPSFAV, why);
        else
            c.sendReply(carriedOut(wire::OPSFAV));
    } else if (m.startsWith(wire::OPSVBW)) {
        QString piece = m.mid(6);
        if (piece.startsWith(wire::OPSVBWkop))
            piece = piece.mid(wire::OPSVBWkop.size());
        QString words = piece;
        if (piece.startsWith(QLatin1Char('+'))) {
            const QString stored = m_store.setting(s("forbidden_words"));
            words = stored.isEmpty() ? piece.mid(1) : stored + wire::valueSep + piece.mid(1);
        }
        if (!m_store.setSettings({{s("forbidden_words"), words}}, &why))
            refuse(c, wire::OPSVBW, why);
        else
            c.sendReply(carriedOut(wire::OPSVBW));
    } else if (m.startsWith(wire::OPSITS)) {
        if (!m_store.setSettings({{s("allowed_sites"), m.mid(6)}}, &why))
            refuse(c, wire::OPSITS, why);
        else
            c.sendReply(carriedOut(wire::OPSITS));
    } else if (m.startsWith(wire::OPSINS)) {
        const QStringList f = m.mid(6).split(wire::fieldSep);
        static const char* const keys[] = {
            "password_teachers", "password_maintenance", "start_page", "mail_to",
            "mail_school",       "mail_sender",          "theme",      "language"};
        if (f.size() != 8) {
            refuse(c, wire::OPSINS, QStringLiteral("settings of %1 fields, not 8").arg(f.size()));
            return true;
        }
        // The two passwords are sent back joined by recordSep.
        if (!wire::splitsBack(f.mid(0, 2), wire::recordSep)) {
            refuse(c, wire::OPSINS, QStringLiteral("passwords that would not split back apart"));
            return true;
        }
        QList<QPair<QString, QString>> values;
        for (int i = 0; i < 8; ++i)
            values.append({s(keys[i]), f[i]});
        if (!m_store.setSettings(values, &why))
            refuse(c, wire::OPSINS, why);
        else
            c.sendReply(carriedOut(wire::OPSINS));
    } else if (m.startsWith(wire::OPSTEL)) {
        const QStringList f = m.mid(6).split(wire::valueSep);
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

// The fields of one class or teacher in the record's save order, and when one more follows, the
// account extra for the record's account.
void CommandHandler::saveOwner(ClientConnection& c, const OwnerRecord& kind,
                               const QString& payload) {
    const QStringList f = payload.split(wire::itemSep);
    const qsizetype fields = kind.saveOrder.size();
    // One field more is the account's extra (profile|script|drive|folder|JA or NEE); anything
    // else there is a value that held "><" and moved every column after it.
    const QStringList extra = f.value(fields).split(wire::valueSep);
    const bool metExtra =
        f.size() == fields + 1 && extra.size() == 5 &&
        (WireText::yes(extra[4]) || extra[4].compare(wire::nee, Qt::CaseInsensitive) == 0);
    if (f.size() != fields && !metExtra) {
        refuse(c, kind.saveWord, QStringLiteral("a %1 of %2 fields").arg(kind.noun).arg(f.size()));
        return;
    }
    // Field 1 is column 0, the name.
    if (f[1].trimmed().isEmpty() || breaksRecords(f)) {
        refuse(c, kind.saveWord,
               QStringLiteral("a %1 without a name or with a separator").arg(kind.noun));
        return;
    }
    QStringList columns(kind.columns());
    for (qsizetype i = 0; i < fields; ++i)
        columns[kind.saveOrder[i]] = f[i];
    qint64 id = 0;
    QString why;
    if (!m_store.saveRow(kind, columns, &id, &why)) {
        refuse(c, kind.saveWord, why);
        return;
    }
    if (metExtra)
        applyAccountExtra(columns[kind.accountColumn], f[fields]);
    c.sendReply(kind.saveWord + QString::number(id));
}

// "<text>;<>;<count>;<>;<teacher>;<>;...": every teacher in the single save's order without its
// last field, the theme.
void CommandHandler::saveTeachers(ClientConnection& c, const QString& payload) {
    const OwnerRecord& kind = teacherRecord;
    const std::span<const int> order = kind.saveOrder.first(kind.saveOrder.size() - 1);
    const QStringList parts = payload.split(wire::fieldSep);
    qint64 count = 0;
    if (parts.size() < 2 || !WireText::number(parts[1], &count) ||
        parts.size() != (count == 0 ? 2 : 2 + count) || count > kind.maximum) {
        refuse(c, wire::OPSLRN, QStringLiteral("the number of teachers does not match"));
        return;
    }
    QList<QStringList> rows;
    for (qint64 r = 0; r < count; ++r) {
        const QStringList f = parts[2 + r].split(wire::itemSep);
        if (f.size() != qsizetype(order.size()) || f[1].trimmed().isEmpty() || breaksRecords(f)) {
            refuse(c, wire::OPSLRN, QStringLiteral("teacher %1 is not a whole record").arg(r + 1));
            return;
        }
        QStringList columns(kind.columns());
        for (size_t i = 0; i < order.size(); ++i)
            columns[order[i]] = f[qsizetype(i)];
        rows << columns;
    }
    QString why;
    // The stored theme stays, as does the reserve column.
    if (!m_store.saveTeachers(rows, {kind.reserveColumn, kind.saveOrder.back()}, &why))
        refuse(c, wire::OPSLRN, why);
    else
        c.sendReply(carriedOut(wire::OPSLRN));
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
    return naam.trimmed().isEmpty() || naam.contains(wire::valueSep) || breaksLoad(naam);
}
} // namespace

// "<word>;<>;<id>;<>;<naam>", with the ID -1 for a new category; the form
// "<word>;<>;<naam>;<>;-1" is taken as well.
void CommandHandler::saveCategory(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(wire::fieldSep);
    const int kind = categoryKind(f.value(0));
    if (f.size() != 3 || kind < 0) {
        refuse(c, wire::OPSCAT, QStringLiteral("a category needs kind, ID and name"));
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
        refuse(c, wire::OPSCAT, QStringLiteral("a category name \"%1\"").arg(excerpt(naam)));
        return;
    }
    const bool saved = id <= 0 ? m_store.addCategory(kind, naam, &id, &why)
                               : m_store.renameCategory(kind, id, naam, &why);
    if (!saved)
        refuse(c, wire::OPSCAT, why);
    else
        c.sendReply(wire::OPSCAT + QString::number(id));
}

// "<word>;<>;<value>;<>;<value>;<>;<n>><<id>><<naam>;<>;..."
void CommandHandler::saveCategories(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(wire::fieldSep);
    const int kind = categoryKind(f.value(0));
    if (f.size() < 3 || kind < 0) {
        refuse(c, wire::OPSCAT, QStringLiteral("categories need a kind and two values"));
        return;
    }
    QList<Store::Category> list;
    for (qsizetype i = 3; i < f.size(); ++i) {
        const QStringList parts = f[i].split(wire::itemSep);
        qint64 id = 0;
        if (parts.size() != 3 || !WireText::number(parts[1], &id) || badCategoryName(parts[2])) {
            refuse(c, wire::OPSCAT, QStringLiteral("category %1 is not whole").arg(i - 2));
            return;
        }
        list.append({id, parts[2]});
    }
    QString why;
    if (!m_store.saveCategories(kind, list, &why))
        refuse(c, wire::OPSCAT, why);
    else
        c.sendReply(carriedOut(wire::OPSCAT));
}

// "<letter>><<ID>><ja|nee>><Naam>><Categorie>><Opdracht>><Pictogram>><Omschrijving>>
// <Parameter>><Beeldscherm>"
void CommandHandler::saveApplication(ClientConnection& c, const QString& payload) {
    const QStringList f = payload.split(wire::itemSep);
    const int kind = kindOf(f.value(0));
    if (f.size() != 10 || kind < 0) {
        refuse(c, wire::OPSAPP, QStringLiteral("an application of %1 fields").arg(f.size()));
        return;
    }
    if (f[3].trimmed().isEmpty() || breaksRecords(f)) {
        refuse(c, wire::OPSAPP, QStringLiteral("an application without a name"));
        return;
    }
    QString omschrijving = f[7];
    omschrijving.remove(QLatin1Char('\r')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    const Store::Application fields{f[1], f[3], f[4], f[5], omschrijving, f[6], f[8], f[9]};
    QString why;
    if (!m_store.saveApplication(kind, fields, &why))
        refuse(c, wire::OPSAPP, why);
    else
        c.sendReply(carriedOut(wire::OPSAPP));
}

// "<letter>|<file name>": the icon "<ID>.pic" follows over the upload ports.
void CommandHandler::takeIcon(ClientConnection& c, const QString& payload) {
    const int bar = payload.indexOf(wire::valueSep);
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
        refuse(c, wire::OPSAP2,
               QStringLiteral("not an icon of an application: \"%1\"").arg(excerpt(payload)));
        return;
    }
    Store* store = &m_store;
    m_transfers.expectUpload(c.peerAddress(), file, [store, kind, id](const QByteArray& bytes) {
        QString why;
        if (!store->saveIcon(kind, id, bytes, &why))
            ServerLog::fault(QStringLiteral("icon %1").arg(id), why);
    });
    c.sendReply(carriedOut(wire::OPSAP2));
}

void CommandHandler::packageFailed(ClientConnection& c, QLatin1StringView word) {
    // The client waits for the file its reply announces until the link goes: without a package
    // to send, the link goes, and the client works on with what it has.
    ServerLog::fault(QStringLiteral("connection %1 %2").arg(c.number()).arg(word),
                     QStringLiteral("the package could not be made; closed"));
    c.close();
}

// Items joined by ";<>;", each "groep|", "leerkracht|" or "algemeen|" and the IDs asked,
// joined by "|"; an item "standaard" asks the standard icon library.
void CommandHandler::sendIconPackage(ClientConnection& c, const QString& request) {
    static const QRegularExpression valueOrItemSep(
        QRegularExpression::escape(QString(wire::valueSep)) + QLatin1Char('|') +
        QRegularExpression::escape(wire::itemSep));
    // Each file once, however often it is asked: a request repeating one ID would otherwise
    // read and hold that icon once per mention.
    QList<PackageEntry> entries;
    QSet<QString> names;
    const auto add = [&](const QString& name, const QByteArray& bytes) {
        names.insert(name);
        if (!bytes.isEmpty())
            entries.append({name, bytes});
    };
    for (const QString& item : request.split(wire::fieldSep, Qt::SkipEmptyParts)) {
        const QStringList parts = item.split(valueOrItemSep, Qt::SkipEmptyParts);
        const QString word = parts.value(0).toLower();
        const int kind = word == wire::picGroep        ? 0
                         : word == wire::picLeerkracht ? 1
                         : word == wire::picAlgemeen   ? 2
                                                       : -1;
        if (word == wire::picStandaard) {
            if (!names.contains(s("standaard.icl")))
                add(s("standaard.icl"), m_store.standardLibrary());
            continue;
        }
        if (kind < 0)
            continue;
        for (qsizetype i = 1; i < parts.size(); ++i) {
            qint64 id = 0;
            if (!WireText::number(parts[i], &id))
                continue;
            const QString name =
                QStringLiteral("Applicaties\\%1\\%2.pic").arg(s(iconFolders[kind])).arg(id);
            if (!names.contains(name))
                add(name, m_store.icon(kind, id));
        }
    }
    const QByteArray package = m_packages.pack(entries);
    if (package.isEmpty()) {
        packageFailed(c, wire::LDNPICPAK);
        return;
    }
    c.sendReply(wire::LDNPICPAK);
    m_transfers.sendFile(c.peerAddress(), s("pakket.pictogrammen"), package);
}

bool CommandHandler::handleDelete(ClientConnection& c, const QString& m) {
    const QString prefix = m.left(6);
    const QString rest = m.mid(6);
    QString why;
    qint64 id = 0;
    bool done = false;
    if (prefix == classRecord.deleteWord || prefix == teacherRecord.deleteWord) {
        if (!WireText::number(rest, &id))
            why = QStringLiteral("no ID \"%1\"").arg(excerpt(rest));
        else
            done = m_store.deleteRow(prefix == classRecord.deleteWord ? classRecord : teacherRecord,
                                     id, &why);
    } else if (prefix == wire::VWNAPP || prefix == wire::VWNCAT) {
        const QStringList f = rest.split(wire::valueSep);
        const int kind = kindOf(f.value(0));
        if (f.size() != 2 || kind < 0 || !WireText::number(f[1], &id))
            why = QStringLiteral("no kind and ID in \"%1\"").arg(excerpt(rest));
        else
            done = prefix == wire::VWNAPP ? m_store.deleteApplication(kind, id, &why)
                                          : m_store.deleteCategory(kind, id, &why);
    } else {
        return false;
    }
    if (done)
        c.sendReply(prefix + wire::ok);
    else
        refuse(c, prefix, why);
    return true;
}

} // namespace tk::server
