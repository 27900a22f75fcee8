#pragma once

#include "controls/AccessibleName.h"

#include <QAccessible>
#include <QList>
#include <QRect>
#include <QString>

namespace tk {

// What a screen's model says about one control that its view paints by hand (a task button, a
// desktop icon, the cloud): enough for a screen reader to name it, place it, tell its state and
// press it. The view hands a list of these to accessibility (PaintingViewAccessible).
struct PaintedControl {
    QAccessible::Role rol = QAccessible::Button;
    QString naam;         // AccessibleName::maak of the caption the model holds
    QString beschrijving; // a longer text (a tooltip), may be empty
    QRect plek;           // in the view's pixels
    bool focus = false;
    bool ingedrukt = false;
    bool uitgeschakeld = false;
    bool aanvinkbaar = false;
    bool aangevinkt = false;
    // Whether the control has a press action (a caption has none), and the focus stop of the
    // screen's model that the press goes to.
    bool drukbaar = true;
    int stop = -1;

    // A painted text (the cloud, a header, a notice) as a text object; a blank one is left out.
    static void voegTekstToe(QList<PaintedControl>& lijst, const QString& tekst,
                             const QRect& plek) {
        PaintedControl c;
        c.rol = QAccessible::StaticText;
        c.naam = AccessibleName::maak(tekst);
        c.plek = plek;
        c.drukbaar = false;
        if (!c.naam.isEmpty())
            lijst.append(c);
    }
};

} // namespace tk
