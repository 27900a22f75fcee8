#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

class QPainter;

namespace tk {

// Paints a loading bar as Laadbalk describes it: the rim, the bar, the blocks, and the text
// centred on its point. Shared by the start screen and the wait windows.
struct LoadingBarPainter {
    QColor rand, status, streep, tekstKleur;
    QFont font;

    // `plek` is picLaden on the painter; blocks and text point are relative to it.
    void teken(QPainter& p, const QRect& plek, const QList<QRect>& blokken, const QString& tekst,
               const QPoint& tekstMidden) const;
};

} // namespace tk
