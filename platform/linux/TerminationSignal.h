#pragma once

#include <QObject>

class QSocketNotifier;

namespace tk {

// Turns SIGTERM and SIGINT into a Qt signal on the event loop, through a self-pipe, so that a
// program (the server, the launcher) ends cleanly: its files closed, its children ended. One
// instance per process.
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

} // namespace tk
