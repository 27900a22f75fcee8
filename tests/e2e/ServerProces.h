#pragma once

#include "tests/support/FreePorts.h"

#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace tk::test {

// A real tafelkrater-server for one test: started with the demo school in a temporary data folder
// on ports it picks itself (or on `poort`), stopped with SIGTERM at the end.
class ServerProces {
public:
    explicit ServerProces(const QStringList& extra = {}, quint16 poort = 0);
    ~ServerProces();
    bool gestart() const { return m_gestart; }
    quint16 poort() const { return m_poort; }
    // The transfer ports it named: the client's data and info, the uploads' data and info.
    QList<quint16> overdrachtPoorten() const { return m_overdrachtPoorten; }
    QString uitvoer() const { return m_uitvoer; }
    // The server's data folder (its store is "tafelkrater.sqlite" there).
    QString dataMap() const { return m_data.path(); }
    // Waits until the server's log holds `tekst`; false when it did not come within ms.
    bool wachtOpUitvoer(const QString& tekst, int ms);

private:
    FreePorts m_clientPoorten{2};
    QTemporaryDir m_data;
    QProcess m_proces;
    quint16 m_poort = 0;
    QList<quint16> m_overdrachtPoorten;
    bool m_gestart = false;
    QString m_uitvoer;
};

} // namespace tk::test
