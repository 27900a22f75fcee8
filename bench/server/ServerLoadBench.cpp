// Many clients load everything at once: a maximal school (21 classes, 100 teachers, 20
// categories and 200 applications of each kind) is put in a fresh store, the real server is
// started on it, and N clients (200 by default) connect together and each runs the start-up
// load in lock-step, parsing the paged replies to know what to ask next. Prints the wall time
// until the last client is done, the requests answered, and the server's peak resident memory.
#include "server/OwnerRecord.h"
#include "server/Store.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>

using tk::server::Store;

namespace {

QString s(const char* t) {
    return QString::fromLatin1(t);
}

bool seed(Store& store) {
    QString error;
    auto fail = [&] {
        std::fprintf(stderr, "seed: %s\n", qPrintable(error));
        return false;
    };
    QStringList words;
    for (int i = 0; i < 400; ++i)
        words << QStringLiteral("woord%1").arg(i);
    if (!store.setSettings({{s("language"), s("1043")},
                            {s("forbidden_words"), words.join(QLatin1Char('|'))},
                            {s("allowed_sites"), s("a.nl|b.nl|c.nl")}},
                           &error))
        return fail();
    for (int kind = 0; kind < 3; ++kind) {
        QList<qint64> cats;
        for (int c = 0; c < Store::maxCategories; ++c) {
            qint64 id = 0;
            if (!store.addCategory(kind, QStringLiteral("Categorie %1").arg(c), &id, &error))
                return fail();
            cats << id;
        }
        for (int a = 0; a < Store::maxApplications; ++a) {
            qint64 id = 0;
            if (!store.reserveApplicationId(kind, &id, &error) ||
                !store.saveApplication(
                    kind,
                    {QString::number(id), QStringLiteral("Applicatie met een naam %1").arg(a),
                     QString::number(cats[a % cats.size()]), s("/usr/bin/xclock"),
                     s("Een omschrijving van een regel of wat tekst voor de tooltip"),
                     s("standaard|12"), s("-digital -update 1"), s("1024x768x32xNEE")},
                    &error))
                return fail();
        }
    }
    QStringList desktop;
    for (int i = 1; i <= 45; ++i)
        desktop << QString::number(i);
    for (int c = 0; c < Store::maxClasses; ++c) {
        qint64 id = 0;
        if (!store.saveRow(tk::server::classRecord,
                           {QStringLiteral("Groep %1").arg(c), s("G"), s("1a.jpg"), s("Geen"),
                            QStringLiteral("groep%1").arg(c), s("Sleutelwrk42"), s("0"),
                            desktop.join(QLatin1Char('|')), s("Ja"), QString(), s("Standaard"),
                            s("0,0"), s("1|2|3|a1")},
                           &id, &error))
            return fail();
    }
    for (int t = 0; t < Store::maxTeachers; ++t) {
        QStringList columns(tk::server::teacherRecord.columns());
        columns[0] = QStringLiteral("Achternaam%1").arg(t);
        columns[3] = QStringLiteral("leraar%1").arg(t);
        columns[4] = s("wachtwoord");
        columns[5] = s("0");
        columns[6] = s("Voornaam");
        columns[8] = desktop.join(QLatin1Char('|'));
        columns[9] = s("Ja");
        columns[10] = s("1|2|3|4|5|6");
        columns[11] = s("Nee");
        columns[12] = s("Nee|Nee");
        columns[15] = s("1|2|a1");
        qint64 id = 0;
        if (!store.saveRow(tk::server::teacherRecord, columns, &id, &error))
            return fail();
    }
    return true;
}

// One client's start-up load, one request at a time.
class LoadingClient {
public:
    LoadingClient(quint16 port, int* done, qint64* requests) : m_done(done), m_requests(requests) {
        QObject::connect(&m_socket, &QTcpSocket::connected, [this] { next(QString()); });
        QObject::connect(&m_socket, &QTcpSocket::readyRead,
                         [this] { next(QString::fromLatin1(m_socket.readAll())); });
        m_socket.connectToHost(QHostAddress::LocalHost, port);
    }
    bool finished() const { return m_finished; }

private:
    void ask(const QString& m) {
        ++*m_requests;
        m_socket.write(m.toLatin1());
    }
    void next(const QString& reply) {
        // The fixed opening, then the paged tables, then the small sets.
        static const char* const opening[] = {"TST", "INFVER1.0.0", "INFDMN", "INFCOMPC", "LDNTAA"};
        if (m_step < 5) {
            ask(s(opening[m_step++]));
            return;
        }
        if (m_step == 5) {
            m_step = 6;
            ask(s("LDNKLSSNC"));
            return;
        }
        if (m_step == 6) { // classes: blocks 0..last
            if (reply.startsWith(s("LDNKLSSNC")))
                m_last = reply.mid(9).section(QLatin1Char('|'), 0, 0).toInt(), m_n = 0;
            if (m_n <= m_last) {
                ask(QStringLiteral("LDNKLSDA%1").arg(m_n++));
                return;
            }
            m_step = 7;
            ask(s("LDNLRNSNC"));
            return;
        }
        if (m_step == 7) { // teachers
            if (reply.startsWith(s("LDNLRNSNC")))
                m_last = reply.mid(9).section(QLatin1Char('|'), 0, 0).toInt(), m_n = 0;
            if (m_n <= m_last) {
                ask(QStringLiteral("LDNLRNDA%1").arg(m_n++));
                return;
            }
            m_step = 8;
        }
        static const char* const middle[] = {"LDNWCH", "LDNOVR", "LDNTHE",
                                             "LDNCAK", "LDNCAL", "LDNCAA"};
        if (m_step >= 8 && m_step < 14) {
            ask(s(middle[m_step++ - 8]));
            return;
        }
        if (m_step >= 14 && m_step < 17) { // applications of each kind
            const QString letter = s("KLA").mid(m_step - 14, 1);
            if (reply.startsWith(s("LDNAP") + letter + s("SNC")))
                m_last = reply.mid(9).section(QLatin1Char('|'), 0, 0).toInt(), m_n = 1;
            else if (!reply.startsWith(s("LDNAP") + letter)) {
                ask(s("LDNAP") + letter + s("SNC"));
                return;
            }
            if (m_n <= m_last) {
                ask(s("LDNAP") + letter + QStringLiteral("DAT%1").arg(m_n++));
                return;
            }
            ++m_step;
            next(QString());
            return;
        }
        if (m_step == 17) {
            m_step = 18;
            ask(s("LDNIVWINF"));
            return;
        }
        if (m_step == 18) {
            if (reply.startsWith(s("LDNIVWINF")))
                m_last = reply.mid(9).toInt(), m_n = 1;
            if (m_n <= m_last) {
                ask(QStringLiteral("LDNIVWPA%1").arg(m_n++));
                return;
            }
            m_step = 19;
        }
        static const char* const tail[] = {"LDNPICWIJ", "LDNITS", "LDNMOD", "LDNPRN"};
        if (m_step >= 19 && m_step < 23) {
            ask(s(tail[m_step++ - 19]));
            return;
        }
        if (!m_finished) {
            m_finished = true;
            ++*m_done;
            m_socket.disconnectFromHost();
        }
    }

    QTcpSocket m_socket;
    int* m_done;
    qint64* m_requests;
    int m_step = 0;
    int m_last = 0;
    int m_n = 0;
    bool m_finished = false;
};

quint16 freePort() {
    QTcpServer probe;
    probe.listen(QHostAddress::Any, 0);
    return probe.serverPort();
}

QString peakMemory(qint64 pid) {
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return s("?");
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return QString::fromLatin1(line.mid(6).trimmed());
    return s("?");
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication app(argc, argv);
    const int clients = argc > 1 ? std::atoi(argv[1]) : 200;
    QTemporaryDir data;
    {
        Store store;
        QString error;
        if (!store.open(data.path(), &error) || !seed(store))
            return 1;
    }
    const quint16 port = freePort();
    QProcess server;
    server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    server.start(s(TK_SERVER_EXE),
                 {s("--data"), data.path(), s("--port"), QString::number(port),
                  s("--client-data-port"), QString::number(freePort()), s("--client-info-port"),
                  QString::number(freePort()), s("--upload-data-port"), QString::number(freePort()),
                  s("--upload-info-port"), QString::number(freePort())});
    QByteArray log;
    while (!log.contains("listening") && server.waitForReadyRead(10000))
        log += server.readAllStandardOutput();
    if (!log.contains("listening")) {
        std::fprintf(stderr, "the server did not start: %s\n", log.constData());
        return 1;
    }
    const QString before = peakMemory(server.processId());

    int done = 0;
    qint64 requests = 0;
    QElapsedTimer clock;
    clock.start();
    std::vector<std::unique_ptr<LoadingClient>> all;
    for (int i = 0; i < clients; ++i)
        all.push_back(std::make_unique<LoadingClient>(port, &done, &requests));
    while (done < clients && clock.elapsed() < 120000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        server.readAllStandardOutput(); // keep the server's log pipe from filling
    }
    const qint64 ms = clock.elapsed();
    std::printf("%d of %d clients loaded everything in %lld ms (%lld requests, %.0f a second)\n",
                done, clients, static_cast<long long>(ms), static_cast<long long>(requests),
                requests * 1000.0 / std::max<qint64>(ms, 1));
    std::printf("server peak resident memory: %s at rest before the load, %s after\n",
                qPrintable(before), qPrintable(peakMemory(server.processId())));
    server.terminate();
    server.waitForFinished(10000);
    return done == clients ? 0 : 1;
}
