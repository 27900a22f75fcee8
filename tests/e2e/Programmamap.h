#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tk::test {

// A fresh program folder made by the build's own install step, prepared as an activated
// Standalone workstation whose shell is already handed to the client (in the folder's own
// registry store) and whose client runs as the workstation's own account, with the launcher, the
// client and the server at its top. Its settings name the port of the test's server.
class Programmamap {
public:
    explicit Programmamap(quint16 serverPoort);
    ~Programmamap();
    // False with the install step's output when the folder could not be made.
    bool gemaakt() const { return m_fout.isEmpty(); }
    QString fout() const { return m_fout; }
    QString pad(const QString& relatief = {}) const;

    // Starts the launcher with the client on the offscreen platform; its output and the client's
    // are kept.
    bool startLauncher();
    QString uitvoer();
    // Waits until the launcher's and client's output holds `tekst`.
    bool wachtOpUitvoer(const QString& tekst, int ms);
    // Ends the launcher as a session would (SIGTERM); true when it ended.
    bool stopLauncher();
    QProcess& launcher() { return m_launcher; }

private:
    QTemporaryDir m_map;
    QProcess m_launcher;
    QString m_uitvoer;
    QString m_fout;
};

} // namespace tk::test
