#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

class QPainter;

namespace tk {

class Laadbalk;
class LoadingBarWindow;

// Paints a loading bar as Laadbalk describes it: the rim, the bar, the blocks, and the text
// centred on its point. Shared by the start screen and the wait windows.
struct LoadingBarPainter {
    QColor rand, status, streep, tekstKleur;
    QFont font;

    // `plek` is picLaden on the painter; blocks and text point are relative to it.
    void teken(QPainter& p, const QRect& plek, const QList<QRect>& blokken, const QString& tekst,
               const QPoint& tekstMidden) const;
    // A bar with its own state, as it stands now.
    void teken(QPainter& p, const Laadbalk& balk) const;
    // The painter of a window's bar in that window's colours, its text in `tekstKleur`.
    static LoadingBarPainter van(const LoadingBarWindow& venster, const QColor& tekstKleur,
                                 const QFont& font);
};

} // namespace tk
