#pragma once

#include "server/Store.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTcpSocket>

namespace tk::bench {

// A maximal school in the store: 21 classes, 100 teachers, 20 categories and 200 applications of
// each kind, 400 forbidden words.
bool seedMaximalSchool(tk::server::Store& store);

// The real server on a data folder, on free ports; with `fileLimit` above 0 it runs under that
// open-file limit. Its log is read away so that its pipe never fills.
class BenchServer {
public:
    bool start(const QString& dataFolder, int fileLimit = 0);
    quint16 port() const { return m_port; }
    qint64 pid() const { return m_process.processId(); }
    // The server's resident memory now and its peak, in kB.
    qint64 residentKb() const;
    qint64 peakKb() const;
    // How many descriptors the server holds open now (each one is watched by its event loop).
    int openFiles() const;
    // User and system time the server has used so far, in milliseconds.
    qint64 cpuMs() const;
    // Drains the log; counts lines that contain `text` since the start.
    void readLog();
    int logCount(const QString& text) const;
    void stop();

private:
    QProcess m_process;
    quint16 m_port = 0;
    QByteArray m_partial;
    QStringList m_lines;
};

// One client's start-up load, one request at a time, parsing the paged replies to know what to
// ask next. Keeps every reply, so that a run can be compared with a quiet one, and the time from
// connecting to the last reply.
class LoadingClient {
public:
    LoadingClient(quint16 port, int* done, qint64* requests);
    bool finished() const { return m_finished; }
    qint64 loadMs() const { return m_loadMs; }
    const QStringList& replies() const { return m_replies; }

private:
    void ask(const QString& m);
    void next(const QString& reply);

    QTcpSocket m_socket;
    QElapsedTimer m_clock;
    QStringList m_replies;
    int* m_done;
    qint64* m_requests;
    int m_step = 0;
    int m_last = 0;
    int m_n = 0;
    qint64 m_loadMs = -1;
    bool m_finished = false;
};

} // namespace tk::bench
