#include "BenchSchool.h"

#include "server/OwnerRecord.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <cstdio>

namespace tk::bench {

using tk::server::Store;

namespace {
QString s(const char* t) {
    return QString::fromLatin1(t);
}
} // namespace

bool seedMaximalSchool(Store& store) {
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

bool BenchServer::start(const QString& dataFolder, int fileLimit) {
    QStringList args{s("--data"), dataFolder, s("--port"), s("0")};
    // TK_BENCH_SERVER runs another build of the server (an older one, side by side).
    const QString exe = qEnvironmentVariable("TK_BENCH_SERVER", s(TK_SERVER_EXE));
    if (fileLimit > 0)
        m_process.start(
            s("/bin/sh"),
            QStringList{s("-c"),
                        QStringLiteral("ulimit -n %1 && exec \"$0\" \"$@\"").arg(fileLimit), exe} +
                args);
    else
        m_process.start(exe, args);
    const QRegularExpression listening(s("listening on port (\\d+) "));
    QDeadlineTimer deadline(20000);
    while (!deadline.hasExpired()) {
        m_process.waitForReadyRead(100);
        readLog();
        for (const QString& line : m_lines) {
            const auto match = listening.match(line);
            if (match.hasMatch()) {
                m_port = quint16(match.captured(1).toUInt());
                return true;
            }
        }
        if (m_process.state() == QProcess::NotRunning)
            break;
    }
    std::fprintf(stderr, "the server did not start: %s\n",
                 qPrintable(m_lines.join(QLatin1Char('\n'))));
    return false;
}

void BenchServer::readLog() {
    m_partial += m_process.readAllStandardOutput();
    const qsizetype end = m_partial.lastIndexOf('\n');
    if (end < 0)
        return;
    for (const QByteArray& line : m_partial.left(end).split('\n'))
        m_lines << QString::fromUtf8(line);
    m_partial.remove(0, end + 1);
}

int BenchServer::logCount(const QString& text) const {
    int n = 0;
    for (const QString& line : m_lines)
        n += line.contains(text) ? 1 : 0;
    return n;
}

namespace {
qint64 statusKb(qint64 pid, const char* field) {
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(field))
            return line.mid(qsizetype(qstrlen(field))).trimmed().split(' ').value(0).toLongLong();
    return -1;
}
} // namespace

qint64 BenchServer::residentKb() const {
    return statusKb(pid(), "VmRSS:");
}

qint64 BenchServer::peakKb() const {
    return statusKb(pid(), "VmHWM:");
}

int BenchServer::openFiles() const {
    return int(QDir(QStringLiteral("/proc/%1/fd").arg(pid())).count()) - 2;
}

qint64 BenchServer::cpuMs() const {
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid()));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = stat.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toLongLong() + fields.value(12).toLongLong()) * 10;
}

void BenchServer::stop() {
    m_process.terminate();
    if (!m_process.waitForFinished(10000))
        m_process.kill();
    readLog();
}

LoadingClient::LoadingClient(quint16 port, int* done, qint64* requests)
    : m_done(done), m_requests(requests) {
    QObject::connect(&m_socket, &QTcpSocket::connected, [this] { next(QString()); });
    QObject::connect(&m_socket, &QTcpSocket::readyRead, [this] {
        const QString reply = QString::fromLatin1(m_socket.readAll());
        m_replies << reply;
        next(reply);
    });
    m_clock.start();
    m_socket.connectToHost(QHostAddress::LocalHost, port);
}

void LoadingClient::ask(const QString& m) {
    ++*m_requests;
    m_socket.write(m.toLatin1());
}

void LoadingClient::next(const QString& reply) {
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
        m_loadMs = m_clock.elapsed();
        ++*m_done;
        m_socket.disconnectFromHost();
    }
}

} // namespace tk::bench
