#include "Wacht.h"

#include "platform/Clock.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace tk {

Wacht::Uitkomst Wacht::Tot(const std::function<bool()>& voorwaarde, std::optional<qint64> deadline,
                           bool stopBijVerlies, std::optional<quint64> verliezenBijBegin) {
    const quint64 verliezenBijStart = verliezenBijBegin.value_or(m_verliezen);
    // A timer wakes the loop while nothing else happens, so that the deadline is seen.
    QTimer wekker;
    wekker.start(deadline ? 5 : 50);
    QEventLoop lus;
    while (true) {
        if (m_gestopt)
            return Uitkomst::Gestopt;
        if (voorwaarde())
            return Uitkomst::Voldaan;
        if (stopBijVerlies && m_verliezen != verliezenBijStart)
            return Uitkomst::VerbindingVerloren;
        if (deadline && m_klok.msecsSinceStart() >= *deadline)
            return Uitkomst::Verlopen;
        if (!QCoreApplication::instance())
            return Uitkomst::Verlopen;
        lus.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void Wacht::Duur(qint64 ms) {
    const qint64 einde = m_klok.msecsSinceStart() + ms;
    Tot([] { return false; }, einde, false);
}

void Wacht::Pomp() {
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

} // namespace tk
