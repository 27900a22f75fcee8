#include "SkinnedButton.h"

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
    QString naam = tekst();
    naam.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    naam.replace(QLatin1Char('\n'), QLatin1Char(' '));
    naam = naam.simplified();
    return naam.isEmpty() ? naamZonderTekst : naam;
}

} // namespace tk
