#include "RunningServer.h"

#include "server/ArchivePackager.h"
#include "server/DemoSchool.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace tk::server::test {

RunningServer::RunningServer(const std::function<void(ServerOptions&)>& tune, bool demo) {
    m_options.dataFolder = m_folder.path();
    m_options.port = 0;
    m_options.clientDataPort = m_receiver.dataPort();
    m_options.clientInfoPort = m_receiver.infoPort();
    m_options.keepAliveSeconds = 60;
    m_options.settleMs = 300;
    m_options.transferTimeoutMs = 3000;
    if (tune)
        tune(m_options);
    QString error;
    EXPECT_TRUE(m_store.open(m_folder.path(), &error)) << error.toStdString();
    if (demo) {
        EXPECT_TRUE(DemoSchool::seed(m_store, QString(), ArchivePackager(), &error))
            << error.toStdString();
    }
    start();
}

RunningServer::~RunningServer() {
    m_server.reset();
    m_store.close();
}

void RunningServer::start() {
    m_server = std::make_unique<CommandServer>(m_store, m_options);
    QString error;
    EXPECT_TRUE(m_server->start(&error)) << error.toStdString();
}

void RunningServer::restart() {
    m_server.reset();
    m_store.close();
    QString error;
    EXPECT_TRUE(m_store.open(m_folder.path(), &error)) << error.toStdString();
    start();
}

namespace {

// The blocks of a paged table, with the echo of the block number taken off.
QStringList blocks(WireClient& c, const QString& snc, const QString& da) {
    const QStringList info = c.ask(snc).mid(snc.size()).split(QLatin1Char('|'));
    EXPECT_EQ(2, info.size());
    QStringList out;
    for (int n = 0; n <= info.value(0).toInt(); ++n) {
        const QString reply = c.ask(da + QString::number(n));
        EXPECT_TRUE(reply.startsWith(da)) << reply.toStdString();
        out << reply.mid(da.size()).mid(QString::number(n).size() + 1);
    }
    return out;
}

} // namespace

QList<QStringList> loadClasses(WireClient& c) {
    QList<QStringList> rows;
    for (const QString& block : blocks(c, "LDNKLSSNC", "LDNKLSDA"))
        for (const QString& record : block.split(";|;", Qt::SkipEmptyParts)) {
            const QStringList f = record.split(";<>;");
            QStringList row(14);
            for (int n = 1; n <= 11; ++n)
                row[n - 1] = f.value(n);
            if (row[10].isEmpty())
                row[10] = "Standaard";
            if (f.size() >= 13)
                row[11] = f[12];
            if (f.size() >= 14)
                row[12] = f[13];
            rows << row;
        }
    return rows;
}

QList<QStringList> loadTeachers(WireClient& c) {
    QList<QStringList> rows;
    for (const QString& block : blocks(c, "LDNLRNSNC", "LDNLRNDA"))
        for (const QString& record : block.split(";|;", Qt::SkipEmptyParts)) {
            const QStringList f = record.split(";<>;");
            QStringList row(17);
            for (int n = 0; n <= 13; ++n)
                row[n] = f.value(n);
            row[15] = f.value(14);
            row[14] = f.size() >= 16 ? f[15] : "Jungle (standaard)";
            rows << row;
        }
    return rows;
}

QList<QStringList> loadApplications(WireClient& c, const QString& letter) {
    const QString snc = QString("LDNAP%1SNC").arg(letter);
    const QString dat = QString("LDNAP%1DAT").arg(letter);
    const QStringList info = c.ask(snc).mid(10 - 1).split(QLatin1Char('|'));
    QList<QStringList> rows;
    for (int i = 1; i <= info.value(0).toInt(); ++i) {
        const QStringList f = c.ask(dat + QString::number(i)).mid(9).split("><");
        EXPECT_EQ(8, f.size());
        rows << f;
    }
    return rows;
}

QStringList loadCategories(WireClient& c, const QString& letter) {
    return c.ask("LDNCA" + letter).mid(6).split(";<>;");
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

void converse(WireClient& c, const QList<Exchange>& exchanges) {
    for (const Exchange& e : exchanges) {
        SCOPED_TRACE(e.request.left(60).toStdString());
        EXPECT_EQ(e.reply, c.ask(e.request));
    }
}

} // namespace tk::server::test
