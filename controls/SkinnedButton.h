#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <functional>

namespace tk {

// What the two picture-drawn buttons (Knop2 and Accounts) share: their place, the hover timer's
// rules that pick the picture (normal, hover, pressed), the press and click, the keyboard focus
// and the name a screen reader says. SkinnedButtonView shows any of them; each button paints its
// own pictures in Teken.
class SkinnedButton {
public:
    virtual ~SkinnedButton() = default;

    bool Enabled = true;
    qint16 X = 0;
    qint16 Y = 0;
    bool Visible = true;
    QString ToolTipText;

    // --- run time
    int toestand = 0; // 0 normal, 1 pressed picture, 2 hover picture
    bool ingedrukt = false;
    // The keyboard focus, set by the screen that owns the button; the view draws a ring for it.
    bool focus = false;
    // The ring's colour: the screen gives it from its theme.
    QColor focusKleur{30, 58, 95};
    // The name a screen reader says when it is more than the caption (a class button's full
    // name beside its short caption); empty: the caption.
    QString Naam;
    // The name a screen reader gives a button without a caption: the kind and number
    // ("Groep 3"), set by the screen that makes the button.
    QString naamZonderTekst;

    std::function<void()> Click;
    std::function<void(int knop, int shift, QPoint plek)> MouseDown;
    std::function<void(int knop, int shift, QPoint plek)> MouseUp;

    // tmrHover: `cursor` in screen coordinates, `venster` the control's window rectangle.
    // Returns true when the state changed and the control must be drawn anew.
    bool tmrHover_Timer(QPoint cursor, QRect venster);
    virtual void UserControl_MouseDown(int knop, int shift, QPoint plek);
    virtual void UserControl_MouseUp(int knop, int shift, QPoint plek);
    virtual void UserControl_MouseMove(int, int, QPoint) {}
    virtual void UserControl_DblClick() {}
    void UserControl_Click();

    // The caption on the button, and the name a screen reader says (AccessibleName): Naam, else
    // the caption, else the tooltip, else naamZonderTekst.
    virtual QString tekst() const = 0;
    QString toegankelijkeNaam() const;
    // A button that stays chosen (the chosen account) is checkable; checked while chosen.
    virtual bool aanvinkbaar() const { return false; }
    virtual bool aangevinkt() const { return false; }

    virtual QSize Grootte() const = 0;
    // The composited picture of the present state.
    virtual QImage Teken() const = 0;
    int tekeningen() const { return m_tekeningen; }
    void Refresh() { ++m_tekeningen; }

protected:
    // Whether the button has a pressed picture (without it a press keeps the normal one).
    virtual bool heeftIngedruktBeeld() const = 0;

private:
    int m_tekeningen = 0;
};

} // namespace tk
