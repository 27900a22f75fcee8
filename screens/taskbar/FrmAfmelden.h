#pragma once

#include "screens/common/Laadbalk.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// The window that stands while a user logs off: string 716 over the bouncing block, in the
// colours of the start screen's bar. FrmAfmeldenView paints it.
class FrmAfmelden {
public:
    explicit FrmAfmelden(Programma& p);

    static constexpr int Breedte = 440;
    static constexpr int Hoogte = 110;

    void Openen();
    void Sluiten();
    void LaadVormgeving();
    void tmrLaden_Timer();
    bool tmrLadenActief() const { return m_tmrLaden.isActive(); }

    QString lblAfmelden; // string 716
    Laadbalk picLaden;
    bool Zichtbaar = false;
    QColor KleurRand{30, 58, 95}, KleurStatus{255, 255, 255}, KleurStreep{76, 175, 80};
    QFont tekstFont;

    std::function<void()> onChanged;

private:
    void hertekenen();
    Programma& p;
    QTimer m_tmrLaden;
};

} // namespace tk
