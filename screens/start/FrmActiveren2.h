#pragma once

#include "core/Form.h"

#include <QString>
#include <functional>

namespace tk {

class ModMainSessie;
class Programma;

// The step of the wizard that carries the take-over out, with a window that asks the user to
// wait: the accounts and their rights, then the settings of the activated workstation and the
// kept wallpaper. It does not change the logon itself (WijzigOpstarten does, after the wizard).
class FrmActiveren2 : public Form {
public:
    FrmActiveren2(Programma& p, ModMainSessie& sessie) : p(p), m_sessie(sessie) {}
    QString formNaam() const override { return QStringLiteral("frmActiveren2"); }
    void LaadTaal() override;

    // True when the accounts were made; false after string 503, and then nothing was written.
    bool Openen();

    QString Caption, lblInfo, lblWacht;
    bool Zichtbaar = false;
    std::function<void()> onChanged;

private:
    void zichtbaar(bool ja);
    Programma& p;
    ModMainSessie& m_sessie;
};

} // namespace tk
