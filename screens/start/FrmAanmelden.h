#pragma once

#include "screens/common/LoadingBarWindow.h"

#include <QFont>
#include <QImage>
#include <QString>

namespace tk {

// The logging-in window between a login and the desktop: the whole screen with the start
// screen's background and the start-screen taskbar's picture, and in the middle the bouncing
// block with string 201. Whoever opens a desktop calls Openen first and Sluiten when the desktop
// stands. FrmAanmeldenView paints it.
class FrmAanmelden : public LoadingBarWindow {
public:
    explicit FrmAanmelden(Programma& p);

    static constexpr int Breedte = 1024;
    static constexpr int Hoogte = 768;
    static constexpr int SchermHoogte = 685; // the taskbar's picture below it

    // Form_Load: centre the bar, read the look, paint the bar and start the timer; shows itself.
    void Openen();
    void LaadVormgeving();
    void TekenLaadbalk();

    QString Caption; // string 200

    QImage achtergrond; // Startscherm
    QImage taakbalk;    // Taakbalk - Startscherm
    QColor KleurAchtergrond{92, 180, 238}, KleurTaakbalk{41, 90, 143};
    QFont ladenFont;

protected:
    QString balkTekst() const override; // string 201
};

} // namespace tk
