#include "SkinnedButton.h"

#include "AccessibleName.h"

namespace tk {

bool SkinnedButton::tmrHover_Timer(QPoint cursor, QRect venster) {
    const bool erboven =
        cursor.x() > venster.left() && cursor.x() < venster.left() + venster.width() &&
        cursor.y() > venster.top() && cursor.y() < venster.top() + venster.height() && Enabled;
    const int voor = toestand;
    if (erboven && toestand != 1 && ingedrukt) {
        if (heeftIngedruktBeeld())
            toestand = 1;
        else if (toestand != 0)
            toestand = 0;
    } else if (erboven && toestand != 2 && !ingedrukt) {
        toestand = 2;
    } else if (!erboven && toestand != 0) {
        toestand = 0;
    }
    if (voor == toestand)
        return false;
    Refresh();
    return true;
}

void SkinnedButton::UserControl_MouseDown(int knop, int shift, QPoint plek) {
    ingedrukt = true;
    if (MouseDown)
        MouseDown(knop, shift, plek);
}

void SkinnedButton::UserControl_MouseUp(int knop, int shift, QPoint plek) {
    ingedrukt = false;
    if (MouseUp)
        MouseUp(knop, shift, plek);
}

void SkinnedButton::UserControl_Click() {
    if (Enabled && Click)
        Click();
}

QString SkinnedButton::toegankelijkeNaam() const {
    // A caption left blank: the full text of the tooltip, else the kind and number.
    return AccessibleName::maak(
        Naam, AccessibleName::maak(tekst(), AccessibleName::maak(ToolTipText, naamZonderTekst)));
}

} // namespace tk
