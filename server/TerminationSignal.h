#pragma once

#include <QObject>

class QSocketNotifier;

namespace tk::server {

// Turns SIGTERM and SIGINT into a Qt signal on the event loop, through a self-pipe, so that
// the server ends cleanly: the store closed, the sockets closed. All POSIX signal code of the
// server is here. One instance per process.
class TerminationSignal : public QObject {
    Q_OBJECT
public:
    explicit TerminationSignal(QObject* parent = nullptr);
    ~TerminationSignal() override;
    bool isValid() const { return m_notifier != nullptr; }

Q_SIGNALS:
    void received(int signalNumber);

private:
    void readPipe();
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace tk::server
