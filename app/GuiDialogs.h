#pragma once

#include "core/DialogService.h"

#include <QDialog>
#include <QList>
#include <QPointer>

namespace tk {

class Programma;

// The modal windows of the client on the screen: each form shown through its own view, the
// question window through frmVraag.
class GuiDialogs : public DialogService {
public:
    explicit GuiDialogs(Programma& p) : p(p) {}
    QString vraag(const QString& titel, const QString& tekst, const QString& stijl) override;
    void toonModaal(Form& form) override;
    void sluitVragen() override;

private:
    Programma& p;
    QList<QPointer<QDialog>> m_vragen; // the question windows open, the innermost last
};

} // namespace tk
