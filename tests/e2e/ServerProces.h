#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tk::test {

// A real tafelkrater-server for one test: started on a free port with the demo school in a
// temporary data folder, stopped with SIGTERM at the end.
class ServerProces {
public:
    // On a free port, or on `poort` when it is given (the port of a Standalone workstation).
    explicit ServerProces(const QStringList& extra = {}, quint16 poort = 0);
    ~ServerProces();
    bool gestart() const { return m_gestart; }
    quint16 poort() const { return m_poort; }
    QString uitvoer() const { return m_uitvoer; }
    // The server's data folder (its store is "tafelkrater.sqlite" there).
    QString dataMap() const { return m_data.path(); }
    // Waits until the server's log holds `tekst`; false when it did not come within ms.
    bool wachtOpUitvoer(const QString& tekst, int ms);

private:
    QTemporaryDir m_data;
    QProcess m_proces;
    quint16 m_poort = 0;
    bool m_gestart = false;
    QString m_uitvoer;
};

} // namespace tk::test
