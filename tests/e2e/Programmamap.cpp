#include "Programmamap.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcessEnvironment>

namespace tk::test {

Programmamap::Programmamap(quint16 serverPoort) {
    QProcess install;
    install.setProcessChannelMode(QProcess::MergedChannels);
    install.start(QStringLiteral(TK_CMAKE),
                  {QStringLiteral("--install"), QStringLiteral(TK_BUILD_DIR),
                   QStringLiteral("--prefix"), m_map.path()});
    if (!install.waitForFinished(120000) || install.exitCode() != 0) {
        m_fout = QStringLiteral("install failed: ") + QString::fromUtf8(install.readAll());
        return;
    }
    QDir().mkpath(pad(QStringLiteral("Register")));
    QFile reg(pad(QStringLiteral("Register/HKEY_LOCAL_MACHINE.reg")));
    if (!reg.open(QIODevice::WriteOnly)) {
        m_fout = QStringLiteral("cannot write the registry store");
        return;
    }
    reg.write(QStringLiteral("REGEDIT4\n\n"
                             "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Tafelkrater]\n"
                             "\"Modus\"=\"1\"\n"
                             "\"Locatie server\"=\"\\\\tafelkrater-server\"\n\n"
                             "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows "
                             "NT\\CurrentVersion\\Winlogon]\n"
                             "\"Shell\"=\"%1\"\n")
                  .arg(pad(QStringLiteral("tafelkrater")))
                  .toUtf8());
    // Activated: the workstation's own account runs the client, which asks nothing of it.
    QDir().mkpath(pad(QStringLiteral("Data")));
    QFile instellingen(pad(QStringLiteral("Data/Instellingen.ini")));
    if (!instellingen.open(QIODevice::WriteOnly)) {
        m_fout = QStringLiteral("cannot write the settings file");
        return;
    }
    instellingen.write(QStringLiteral("[Algemeen]\r\nGeactiveerd=JA\r\n[Instellingen]\r\n"
                                      "Serverlocatie=localhost:%1\r\n")
                           .arg(serverPoort)
                           .toLatin1());
}

Programmamap::~Programmamap() {
    if (m_launcher.state() != QProcess::NotRunning)
        stopLauncher();
}

QString Programmamap::pad(const QString& relatief) const {
    return relatief.isEmpty() ? m_map.path() : m_map.filePath(relatief);
}

bool Programmamap::startLauncher() {
    QProcessEnvironment omgeving = QProcessEnvironment::systemEnvironment();
    omgeving.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    omgeving.insert(QStringLiteral("USERNAME"), QStringLiteral("TAFELKRATER"));
    m_launcher.setProcessEnvironment(omgeving);
    m_launcher.setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(&m_launcher, &QProcess::readyRead,
                     [this] { m_uitvoer += QString::fromUtf8(m_launcher.readAll()); });
    m_launcher.start(pad(QStringLiteral("tafelkrater-startup")),
                     {pad(QStringLiteral("tafelkrater"))});
    return m_launcher.waitForStarted(5000);
}

QString Programmamap::uitvoer() {
    return m_uitvoer;
}

bool Programmamap::wachtOpUitvoer(const QString& tekst, int ms) {
    QElapsedTimer klok;
    klok.start();
    while (!m_uitvoer.contains(tekst) && klok.elapsed() < ms &&
           m_launcher.state() == QProcess::Running)
        m_launcher.waitForReadyRead(50);
    return m_uitvoer.contains(tekst);
}

bool Programmamap::stopLauncher() {
    m_launcher.terminate();
    if (m_launcher.waitForFinished(15000))
        return true;
    m_launcher.kill();
    m_launcher.waitForFinished(3000);
    return false;
}

} // namespace tk::test
