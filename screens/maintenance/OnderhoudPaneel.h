#pragma once

#include <QString>
#include <functional>

namespace tk {

// One panel of the maintenance module, plugged into frmOnderhoud under its number. Nothing of a
// panel is loaded before its entry is chosen: Tonen is where it reads what it shows.
class OnderhoudPaneel {
public:
    virtual ~OnderhoudPaneel() = default;
    // The caption in the panel's header (also its accessible name).
    virtual QString titel() const = 0;
    // The entry `rij` of the panel's group chose it (the audience of the shared panels).
    virtual void Tonen(int rij) = 0;
    // The language changed.
    virtual void LaadTaal() {}
    // The stay ended: what the panel showed for the one who used it goes, so that the next stay,
    // maybe somebody else's, begins as the first did.
    virtual void Verlaten() {}
    // The view repaints the panel.
    std::function<void()> onChanged;

protected:
    void hertekenen() {
        if (onChanged)
            onChanged();
    }
};

} // namespace tk
