#pragma once

#include "core/Form.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tk {

class Programma;

// The close options behind the switch-off button: an answer word, or a log-on as a user.
class FrmUitschakelen : public Form {
public:
    explicit FrmUitschakelen(Programma& p) : p(p) {}
    QString formNaam() const override { return QStringLiteral("frmUitschakelen"); }
    void LaadTaal() override;

    // The answer words of optAntwoord, in order; the last option is the log-on.
    static QStringList antwoordWoorden();
    // Shows the dialog and returns the chosen word, "aanmelden|<group>|<user>|<id>", or empty on
    // Cancel.
    QString Vraag(QString& antwoord);
    // Fills cmbGebruiker for the group chosen in cmbGroep.
    void cmbGroep_Click(int index);
    // The chosen user must belong to the group; strings 2412 and 2413 need no user.
    bool Controleren() const;
    void cmdOK_Click();
    void cmdAnnuleren_Click();

    QString Caption, lblKies, lblAanmelden, lblGroep, lblAccount, cmdOK, cmdAnnuleren;
    QStringList optCaptions; // one per answer word
    int optAntwoord = 0;
    QStringList cmbGroep; // 2414, 2415, 2416
    int cmbGroepIndex = 0;
    struct Gebruiker {
        QString naam, id;
    };
    QList<Gebruiker> cmbGebruiker;
    int cmbGebruikerIndex = -1;
    QString Antwoord;

private:
    Programma& p;
};

} // namespace tk
