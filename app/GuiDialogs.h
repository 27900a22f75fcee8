#pragma once

#include "core/DialogService.h"

namespace tk {

class Programma;

// The modal windows of the client on the screen: each form shown through its own view, the
// question window through frmVraag.
class GuiDialogs : public DialogService {
public:
    explicit GuiDialogs(Programma& p) : p(p) {}
    QString vraag(const QString& titel, const QString& tekst, const QString& stijl) override;
    void toonModaal(Form& form) override;

private:
    Programma& p;
};

} // namespace tk
