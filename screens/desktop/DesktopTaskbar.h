#pragma once

namespace tk {

// The desktop's taskbar as the desktop and its launcher see it: the taskbar implements it and
// hangs itself on the desktop when it becomes that desktop's bar.
class DesktopTaskbar {
public:
    virtual ~DesktopTaskbar() = default;
    // InternetOpen while the internet pane is in front: the bar then shows the pane's button
    // pressed and the desktop's own buttons as they stand behind it.
    static constexpr int InternetActief = 65535;
    // Draws the bar's buttons anew (the desktop changed what it shows, or who is logged in).
    virtual void tekenKnoppen() = 0;
    // Places the strip for a screen of this height (after a change of display mode).
    virtual void plaatsVoorScherm(int hoogte) = 0;
    // Keeps the bar on top of the programs.
    virtual void houdBoven() = 0;
    // Takes the strip away while a program that demands a hidden taskbar runs (false), and
    // brings it back after (true): a strip the window manager keeps free would otherwise stay.
    virtual void strookTonen(bool zichtbaar) = 0;
    // The keyboard: the bar never takes it, so the desktop hands its Tab on. neemFocus puts the
    // focus on the bar's first button (or its last, going back); focusToets moves or presses.
    // Both return false when the focus is not (or no longer) on the bar. A bar without buttons
    // never takes the focus.
    virtual bool neemFocus(bool /*vooraan*/) { return false; }
    virtual bool focusToets(int /*toets*/, bool /*shift*/) { return false; }
};

} // namespace tk
