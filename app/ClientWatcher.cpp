#include "ClientWatcher.h"

#include "link/ModMainVerbinding.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QTextStream>

namespace tk {

namespace {

// A word and the end of its client can arrive in either order: the client writes its word and
// ends at once. Whatever the client's end means is decided this long after it, so that a word
// still on its way counts.
constexpr int SettleMs = 300;

} // namespace

ClientWatcher::ClientWatcher(const QString& programFolder, const QString& client,
                             const QStringList& extra)
    : m_folder(programFolder), m_client(client), m_extra(extra) {
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_grace.setSingleShot(true);
    m_grace.setInterval(GraceMs);
    connect(&m_grace, &QTimer::timeout, this, &ClientWatcher::graceOver);
    connect(&m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        QTimer::singleShot(SettleMs, this, [this, code, status] { clientFinished(code, status); });
    });
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            log(QStringLiteral("the client could not be started: %1").arg(m_process.errorString()));
            finish(1);
        }
    });
    connect(&m_words, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* s = m_words.nextPendingConnection()) {
            connect(s, &QLocalSocket::readyRead, s, [s] {
                s->setProperty("buffer", s->property("buffer").toByteArray() + s->readAll());
            });
            connect(s, &QLocalSocket::disconnected, this, [this, s] {
                const QByteArray tekst = s->property("buffer").toByteArray() + s->readAll();
                s->deleteLater();
                for (const QString& word : QString::fromUtf8(tekst).split(
                         QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts))
                    takeWord(word);
            });
        }
    });

    QDir().mkpath(m_folder + QStringLiteral("/Logboek"));
    m_log.setFileName(m_folder + QStringLiteral("/Logboek/") + logFileName());
}

ClientWatcher::~ClientWatcher() {
    if (m_process.state() != QProcess::NotRunning) {
        m_process.disconnect(this);
        m_process.kill();
        m_process.waitForFinished(3000);
    }
}

bool ClientWatcher::start() {
    if (!QFileInfo(m_client).isExecutable()) {
        log(QStringLiteral("no client at %1").arg(m_client));
        return false;
    }
    const QString naam = ModMainVerbinding::launcherNaam(m_folder);
    // A socket left behind by a launcher that died would block the name.
    QLocalServer::removeServer(naam);
    if (!m_words.listen(naam)) {
        log(QStringLiteral("cannot listen on %1: %2").arg(naam, m_words.errorString()));
        return false;
    }
    launch(QStringLiteral("STARTUP"));
    return true;
}

void ClientWatcher::launch(const QString& word) {
    m_next = Next::Nothing;
    m_grace.stop();
    log(QStringLiteral("starting the client with %1").arg(word));
    m_process.start(m_client, QStringList{word} + m_extra);
}

void ClientWatcher::takeWord(const QString& word) {
    const QString w = word.toLower();
    log(QStringLiteral("word \"%1\"").arg(word));
    if (w == u"afsluiten")
        m_next = Next::Stop;
    else if (w == u"resolutie")
        m_next = Next::Restart;
    else if (w == u"update")
        m_next = Next::Update;
    else {
        log(QStringLiteral("unknown word \"%1\" ignored").arg(word));
        return;
    }
    if (m_process.state() != QProcess::NotRunning)
        m_grace.start();
}

void ClientWatcher::stop() {
    log(QStringLiteral("asked to stop"));
    m_next = Next::Stop;
    if (m_process.state() == QProcess::NotRunning) {
        finish(0);
        return;
    }
    m_process.terminate();
    m_grace.start();
}

void ClientWatcher::graceOver() {
    if (m_process.state() == QProcess::NotRunning)
        return;
    log(QStringLiteral("the client did not end within %1 seconds; ending it").arg(GraceMs / 1000));
    m_process.terminate();
    if (!m_process.waitForFinished(3000))
        m_process.kill();
}

void ClientWatcher::clientFinished(int code, QProcess::ExitStatus status) {
    if (m_process.state() != QProcess::NotRunning)
        return; // started again meanwhile
    m_grace.stop();
    const bool crashed = status == QProcess::CrashExit;
    log(crashed ? QStringLiteral("the client crashed")
                : QStringLiteral("the client ended with code %1").arg(code));
    switch (m_next) {
    case Next::Stop:
        log(QStringLiteral("stopping with the client"));
        finish(0);
        return;
    case Next::Restart:
        launch(QStringLiteral("STARTUP"));
        return;
    case Next::Update:
        log(QStringLiteral("restarting the client for its update"));
        launch(QStringLiteral("STARTUP"));
        return;
    case Next::Nothing:
        break;
    }
    if (!crashed && code == 0) {
        log(QStringLiteral("the client ended on purpose; stopping too"));
        finish(0);
        return;
    }
    const QDateTime nu = QDateTime::currentDateTimeUtc();
    m_crashes.append(nu);
    while (!m_crashes.isEmpty() && m_crashes.first().msecsTo(nu) > 60000)
        m_crashes.removeFirst();
    if (m_crashes.size() > MaxCrashesPerMinute) {
        log(QStringLiteral("the client failed %1 times in a minute; giving up")
                .arg(m_crashes.size()));
        finish(1);
        return;
    }
    launch(QStringLiteral("STARTUPFOUT"));
}

void ClientWatcher::finish(int code) {
    m_exitCode = code;
    m_words.close();
    QCoreApplication::exit(code);
}

void ClientWatcher::log(const QString& text) {
    const QString regel = QDateTime::currentDateTime().toString(Qt::ISODate) +
                          QStringLiteral(" tafelkrater-startup: ") + text;
    QTextStream(stdout) << regel << Qt::endl;
    // Keep the log small: past its limit only its newer half stays.
    if (m_log.size() > MaxLogBytes && m_log.open(QIODevice::ReadOnly)) {
        QByteArray inhoud = m_log.readAll();
        m_log.close();
        inhoud = inhoud.mid(inhoud.size() / 2);
        inhoud = inhoud.mid(inhoud.indexOf('\n') + 1);
        if (m_log.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            m_log.write(inhoud);
            m_log.close();
        }
    }
    if (m_log.open(QIODevice::Append | QIODevice::Text)) {
        m_log.write((regel + QLatin1Char('\n')).toUtf8());
        m_log.close();
    }
}

} // namespace tk
