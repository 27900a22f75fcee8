#include "WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tk {

void WindowPlacement::centreer(QWidget& venster) {
    if (!venster.isWindow())
        return;
    QScreen* scherm = venster.screen() ? venster.screen() : QGuiApplication::primaryScreen();
    if (!scherm)
        return;
    const QRect vlak = scherm->availableGeometry();
    venster.move(vlak.center() - QPoint(venster.width() / 2, venster.height() / 2));
}

} // namespace tk
