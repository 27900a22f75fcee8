#pragma once

#include "core/Form.h"

#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// The window in which the user names the server: a text box "host" or "host:port" and the
// network neighbourhood, which stays empty on Linux (the text box is enough).
class FrmNetwerk : public Form {
public:
    explicit FrmNetwerk(Programma& p) : p(p) {}
    QString formNaam() const override { return QStringLiteral("frmNetwerk"); }
    void LaadTaal() override;

    // Shows the window modally; the text of the box, or empty on Cancel.
    QString Computernaam();
    void txtNaam_Change(const QString& tekst);
    // A node of the neighbourhood: a name beginning with "\\" goes into the box without them.
    void tvwNetwork_NodeClick(const QString& naam);
    void cmdOK_Click();
    void cmdAnnuleren_Click();

    QString Caption, lblUitleg, lblNaam, cmdOK, cmdAnnuleren, lblBezig, wortelNode;
    QString txtNaam;
    bool cmdOKEnabled = false;
    QString Antwoord;

private:
    Programma& p;
};

} // namespace tk
