#include "MaintenanceCommands.h"

#include "BackupKeeper.h"
#include "ClientConnection.h"
#include "PackageBuilder.h"
#include "ProblemCallRecord.h"
#include "ServerLog.h"
#include "Store.h"
#include "ThemeCatalogue.h"
#include "TransferChannel.h"
#include "UpdateOffer.h"
#include "WireText.h"
#include "core/Wire.h"

#include <QFile>
#include <QPointer>

namespace tk::server {

namespace {

QString s(const char* text) {
    return QString::fromLatin1(text);
}

QString excerpt(const QString& text) {
    QString out;
    for (const QChar ch : text.left(40))
        out += ch.isPrint() ? ch : QLatin1Char('?');
    return text.size() > 40 ? out + QStringLiteral("...") : out;
}

// The change moment of the problem calls as the client reads it.
QString moment(const QDateTime& when) {
    return when.isValid() ? when.toString(QStringLiteral("d-M-yyyy H:mm:ss"))
                          : QStringLiteral("1-1-2000 0:00:00");
}

} // namespace

QString MaintenanceCommands::serverVersion() {
    return QStringLiteral(TK_SERVER_VERSION);
}

MaintenanceCommands::MaintenanceCommands(Store& store, TransferChannel& transfers,
                                         const PackageBuilder& packages, BackupKeeper& backups,
                                         const UpdateOffer& updates,
                                         const ThemeCatalogue& catalogue)
    : m_store(store), m_transfers(transfers), m_packages(packages), m_backups(backups),
      m_updates(updates), m_catalogue(catalogue) {}

void MaintenanceCommands::refuse(ClientConnection& c, const QString& prefix, const QString& why) {
    ServerLog::fault(QStringLiteral("connection %1 %2").arg(c.number()).arg(prefix), why);
    c.sendReply(prefix + wire::fout);
}

bool MaintenanceCommands::handle(ClientConnection& c, const QString& m) {
    if (m.startsWith(wire::HLPOPS)) {
        storeProblemCall(c, m.mid(wire::HLPOPS.size()));
    } else if (m.startsWith(wire::HLPSNC)) {
        c.sendReply(wire::HLPSNC + moment(m_store.problemCallsChanged()) + wire::valueSep +
                    QString::number(m_store.problemCallCount()));
    } else if (m.startsWith(wire::HLPLDN)) {
        loadProblemCall(c, m.mid(wire::HLPLDN.size()));
    } else if (m.startsWith(wire::HLPSCR)) {
        sendScreenshot(c, m.mid(wire::HLPSCR.size()));
    } else if (m.startsWith(wire::HLPVWN)) {
        deleteProblemCall(c, m.mid(wire::HLPVWN.size()));
    } else if (m.startsWith(wire::BCKLST)) {
        c.sendReply(wire::BCK + m_backups.list().join(wire::valueSep));
    } else if (m.startsWith(wire::BCKMKB)) {
        makeBackup(c);
    } else if (m.startsWith(wire::BCKRST)) {
        restoreBackup(c, m.mid(wire::BCKRST.size()));
    } else if (m.startsWith(wire::UPD)) {
        return handleUpdate(c, m);
    } else if (m == wire::LDNSIN) {
        c.sendReply(wire::LDNSIN + QStringList{serverVersion(),
                                               m_store.setting(s("server_auto_update"), wire::nee),
                                               m_store.setting(s("server_beta"), wire::nee),
                                               s("SQLite")}
                                       .join(wire::fieldSep));
    } else if (m.startsWith(wire::OPSSIN)) {
        saveServerSettings(c, m.mid(wire::OPSSIN.size()));
    } else if (m == wire::LDNTHD) {
        QStringList items;
        for (const ThemeCatalogue::Entry& e : m_catalogue.entries())
            items << QStringList{e.id, e.naam, e.omschrijving, e.kosten, e.versie}.join(
                wire::valueSep);
        c.sendReply(wire::LDNTHD + items.join(wire::itemSep));
    } else if (m.startsWith(wire::LDNTHO)) {
        addCatalogueTheme(c, m.mid(wire::LDNTHO.size()));
    } else if (m.startsWith(wire::LDNTHV)) {
        removeTheme(c, m.mid(wire::LDNTHV.size()));
    } else {
        return false;
    }
    return true;
}

void MaintenanceCommands::storeProblemCall(ClientConnection& c, const QString& record) {
    ProblemCallRecord::Parsed parsed = ProblemCallRecord::parse(record);
    if (!parsed.ok) {
        refuse(c, wire::HLPOPS, parsed.error);
        return;
    }
    parsed.call.location = c.location;
    if (parsed.call.computernaam.isEmpty())
        parsed.call.computernaam = c.computerName;
    QString why;
    if (!m_store.addProblemCall(&parsed.call, &why)) {
        refuse(c, wire::HLPOPS, why);
        return;
    }
    if (parsed.screenshotFollows) {
        // The screenshot comes over the upload ports right after this reply; the call shows
        // "Screenshot Ja" only once all of it is stored.
        Store* store = &m_store;
        const qint64 id = parsed.call.id;
        // The client names it "screenshot" and a number of its own.
        m_transfers.expectUpload(
            c.peerAddress(), QStringLiteral("screenshot*"), [store, id](const QByteArray& jpeg) {
                QString why;
                if (!store->attachScreenshot(id, jpeg, &why))
                    ServerLog::fault(QStringLiteral("screenshot of problem call %1").arg(id), why);
            });
    }
    ServerLog::line(QStringLiteral("connection %1: problem call %2 stored")
                        .arg(c.number())
                        .arg(parsed.call.id));
    c.sendReply(wire::HLPOPS);
}

void MaintenanceCommands::loadProblemCall(ClientConnection& c, const QString& number) {
    qint64 n = 0;
    const QList<Store::ProblemCall> calls = WireText::number(number, &n) && n >= 1
                                                ? m_store.problemCalls(n - 1, 1)
                                                : QList<Store::ProblemCall>();
    if (calls.isEmpty()) {
        refuse(c, wire::HLPLDN,
               QStringLiteral("no problem call number \"%1\"").arg(excerpt(number)));
        return;
    }
    const Store::ProblemCall& p = calls.first();
    c.sendReply(wire::HLPLDN + QStringList{QString::number(p.id), p.type, p.datum, p.tijd,
                                           p.computernaam, p.rapporteur, p.module, p.applicatie,
                                           p.omschrijving, p.screenshot ? s("Ja") : s("Nee")}
                                   .join(wire::fieldSep));
}

void MaintenanceCommands::sendScreenshot(ClientConnection& c, const QString& idText) {
    qint64 id = 0;
    const QByteArray jpeg = WireText::number(idText, &id) ? m_store.screenshot(id) : QByteArray();
    if (jpeg.isEmpty()) {
        // Never an empty file: the client would wait for its bytes for ever. The client waits
        // for the transfer, not for a reply, so the refusal goes out only on a quiet line.
        ServerLog::fault(
            QStringLiteral("connection %1 HLPSCR").arg(c.number()),
            QStringLiteral("no screenshot of problem call \"%1\"").arg(excerpt(idText)));
        c.sendSettlingReply(wire::HLPSCR + QString(wire::fout));
        return;
    }
    m_transfers.sendFile(c.peerAddress(), QStringLiteral("%1.jpg").arg(id), jpeg);
}

void MaintenanceCommands::deleteProblemCall(ClientConnection& c, const QString& idText) {
    qint64 id = 0;
    QString why = QStringLiteral("no ID \"%1\"").arg(excerpt(idText));
    if (WireText::number(idText, &id) && m_store.deleteProblemCall(id, &why))
        c.sendReply(wire::HLPVWN + QString(wire::ok));
    else
        refuse(c, wire::HLPVWN, why);
}

void MaintenanceCommands::makeBackup(ClientConnection& c) {
    QPointer<ClientConnection> to(&c);
    m_backups.make([to](bool ok, const QString& nameOrWhy) {
        if (!to)
            return;
        if (ok) {
            to->sendReply(wire::BCK + nameOrWhy);
        } else {
            ServerLog::fault(QStringLiteral("connection %1 BCKMKB").arg(to->number()), nameOrWhy);
            to->sendReply(wire::BCK + QString(wire::fout));
        }
    });
}

void MaintenanceCommands::restoreBackup(ClientConnection& c, const QString& name) {
    QString why;
    if (!m_backups.restore(name, &why)) {
        refuse(c, wire::BCK, why); // the dispatcher keeps what follows "BCK"
        return;
    }
    c.sendReply(wire::BCK + QString(wire::ok));
}

bool MaintenanceCommands::handleUpdate(ClientConnection& c, const QString& m) {
    const auto offer = m_updates.client();
    if (m.startsWith(wire::UPDVER) || m.startsWith(wire::UPDCON)) {
        // Nothing on offer: the client's own version, so that it never updates unasked.
        const QString own = m.mid(6).isEmpty() ? c.clientVersion : m.mid(6);
        c.sendReply(m.left(6) + (offer ? offer->version : own));
    } else if (m.startsWith(wire::UPDOPHINF)) {
        if (!offer) {
            refuse(c, wire::UPDOPHINF, QStringLiteral("no update on offer"));
            return true;
        }
        c.sendReply(wire::UPDOPHINF + QStringList{QString::number(m_transfers.clientDataPort()),
                                                  QString::number(m_transfers.clientInfoPort()),
                                                  offer->fileName}
                                          .join(wire::valueSep));
    } else if (m.startsWith(wire::UPDOPHREQ)) {
        // The client waits for the transfer alone: a refusal is told in the log only, as any
        // text on the command channel could join the next reply in one read.
        QFile file(offer ? offer->path : QString());
        if (!offer || !file.open(QIODevice::ReadOnly)) {
            ServerLog::fault(QStringLiteral("connection %1 UPDOPHREQ").arg(c.number()),
                             QStringLiteral("no update on offer"));
            return true;
        }
        const QByteArray package = file.readAll();
        if (package.isEmpty()) {
            ServerLog::fault(QStringLiteral("connection %1 UPDOPHREQ").arg(c.number()),
                             QStringLiteral("the package %1 is empty").arg(offer->path));
            return true;
        }
        // The answer is the transfer itself.
        m_transfers.sendFile(c.peerAddress(), offer->fileName, package);
    } else {
        return false;
    }
    return true;
}

// "6;<>;<automatic update>;<>;<beta>;<>;<Nee>"
void MaintenanceCommands::saveServerSettings(ClientConnection& c, const QString& payload) {
    const QStringList f = WireText::split(payload, wire::fieldSep);
    if (f.size() != 4 || f[0] != s("6")) {
        refuse(c, wire::OPSSIN,
               QStringLiteral("server settings \"%1\" are not 6 and three values")
                   .arg(excerpt(payload)));
        return;
    }
    auto flag = [](const QString& v) { return QString(WireText::yes(v) ? wire::ja : wire::nee); };
    QString why;
    if (!m_store.setSettings({{s("server_auto_update"), flag(f[1])},
                              {s("server_beta"), flag(f[2])},
                              {s("server_last"), f[3]}},
                             &why))
        refuse(c, wire::OPSSIN, why);
    else
        c.sendReply(wire::OPSSIN);
}

// "<id>|<anything>": the catalogue's theme goes into what the server offers its clients.
void MaintenanceCommands::addCatalogueTheme(ClientConnection& c, const QString& payload) {
    const QString id = payload.section(wire::valueSep, 0, 0);
    const auto entry = m_catalogue.entry(id);
    if (!entry) {
        refuse(c, wire::LDNTHO,
               QStringLiteral("no theme \"%1\" in the catalogue").arg(excerpt(id)));
        return;
    }
    const QByteArray package = m_packages.packFolder(entry->folder);
    if (package.isEmpty()) {
        refuse(c, wire::LDNTHO, QStringLiteral("cannot pack the theme %1").arg(entry->folder));
        return;
    }
    bool standaard = false;
    for (const Store::Theme& t : m_store.themes())
        if (t.id == id)
            standaard = t.standaard;
    QString why;
    if (!m_store.saveTheme({id, entry->versie, standaard}, package, &why))
        refuse(c, wire::LDNTHO, why);
    else
        c.sendReply(wire::LDNTHO + QString(wire::ok));
}

void MaintenanceCommands::removeTheme(ClientConnection& c, const QString& id) {
    for (const Store::Theme& t : m_store.themes())
        if (t.id == id && t.standaard) {
            refuse(c, wire::LDNTHV, QStringLiteral("theme %1 is the school's default").arg(id));
            return;
        }
    QString why;
    if (!m_store.deleteTheme(id, &why))
        refuse(c, wire::LDNTHV, why);
    else
        c.sendReply(wire::LDNTHV + QString(wire::ok));
}

} // namespace tk::server
