#pragma once

#include "screens/common/Laadbalk.h"

#include <QColor>
#include <QString>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// What the windows with a loading bar share (frmWachten, frmAanmelden, frmAfmelden): the bar
// picLaden, its three colours, the timer tmrLaden that makes the block bounce with the window's
// text, whether the window stands, and the hook its view repaints on.
class LoadingBarWindow {
public:
    explicit LoadingBarWindow(Programma& p);
    virtual ~LoadingBarWindow() = default;
    LoadingBarWindow(const LoadingBarWindow&) = delete;
    LoadingBarWindow& operator=(const LoadingBarWindow&) = delete;

    void Sluiten();
    // One tick of tmrLaden: the block moves on, with the window's text.
    void tmrLaden_Timer();
    bool tmrLadenActief() const { return m_tmrLaden.isActive(); }

    Laadbalk picLaden;
    bool Zichtbaar = false;
    QColor KleurRand{30, 58, 95}, KleurStatus{255, 255, 255}, KleurStreep{76, 175, 80};

    std::function<void()> onChanged;

protected:
    // The text the bouncing block carries (none by default).
    virtual QString balkTekst() const { return {}; }
    // The block from its start, bouncing on the timer; the window stands.
    void startSpringen();
    void stopTimer() { m_tmrLaden.stop(); }
    // The bar's colours from the theme's [Kleuren] ("Laadbalk rand", "status", "streep").
    void leesBalkKleuren(const char* procedure);
    void hertekenen();
    Programma& p;

private:
    QTimer m_tmrLaden;
};

} // namespace tk
