#pragma once

#include "screens/common/Laadbalk.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <QTimer>
#include <functional>

namespace tk {

class Programma;

// The logging-in window between a login and the desktop: the whole screen with the start
// screen's background and the start-screen taskbar's picture, and in the middle the bouncing
// block with string 201. Whoever opens a desktop calls Openen first and Sluiten when the desktop
// stands. FrmAanmeldenView paints it.
class FrmAanmelden {
public:
    explicit FrmAanmelden(Programma& p);

    static constexpr int Breedte = 1024;
    static constexpr int Hoogte = 768;
    static constexpr int SchermHoogte = 685; // the taskbar's picture below it

    // Form_Load: centre the bar, read the look, paint the bar and start the timer; shows itself.
    void Openen();
    void Sluiten();
    void LaadVormgeving();
    void TekenLaadbalk();
    void tmrLaden_Timer();
    bool tmrLadenActief() const { return m_tmrLaden.isActive(); }

    QString Caption; // string 200
    Laadbalk picLaden;
    bool Zichtbaar = false;

    QImage achtergrond; // Startscherm
    QImage taakbalk;    // Taakbalk - Startscherm
    QColor KleurRand{30, 58, 95}, KleurStatus{255, 255, 255}, KleurStreep{76, 175, 80};
    QColor KleurAchtergrond{92, 180, 238}, KleurTaakbalk{41, 90, 143};
    QFont ladenFont;

    std::function<void()> onChanged;

private:
    void hertekenen();
    Programma& p;
    QTimer m_tmrLaden;
};

} // namespace tk
