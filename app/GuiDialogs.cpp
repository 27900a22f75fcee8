#include "GuiDialogs.h"

#include "core/FrmFoutrapportage.h"
#include "core/FrmVersie.h"
#include "core/Programma.h"
#include "link/FrmNetwerk.h"
#include "screens/start/FrmVraag.h"
#include "screens/start/FrmVraagView.h"
#include "screens/taskbar/FrmUitschakelen.h"

#include <QCheckBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace tk {

QString GuiDialogs::vraag(const QString& titel, const QString& tekst, const QString& stijl) {
    // A message carries the information icon, every question the question mark.
    FrmVraag vraag(p);
    return vraag.Vraag(titel, tekst, stijl,
                       stijl == u"-" ? FrmVraag::Informatie : FrmVraag::Vraagteken);
}

void GuiDialogs::toonModaal(Form& form) {
    if (auto* vraag = dynamic_cast<FrmVraag*>(&form)) {
        FrmVraagView view(*vraag);
        view.exec();
    } else if (auto* rapport = dynamic_cast<FrmFoutrapportage*>(&form)) {
        QMessageBox box;
        box.setWindowTitle(rapport->Caption);
        box.setText(rapport->lblUitleg);
        box.setDetailedText(rapport->lblProcedure + QLatin1Char('\n') + rapport->lblOmschrijving);
        QPushButton* versturen =
            box.addButton(rapport->cmdVersturenCaption, QMessageBox::AcceptRole);
        box.addButton(rapport->cmdNietVersturenCaption, QMessageBox::RejectRole);
        auto* negeren = new QCheckBox(rapport->chkNegerenCaption);
        box.setCheckBox(negeren);
        box.exec();
        rapport->chkNegeren = negeren->isChecked();
        if (box.clickedButton() == versturen)
            rapport->cmdVersturen_Click();
        else
            rapport->cmdNietVersturen_Click();
    } else if (auto* versie = dynamic_cast<FrmVersie*>(&form)) {
        QStringList opties;
        for (int i = 0; i < 3; ++i)
            if (versie->optEnabled[i])
                opties << versie->optCaptions.value(i);
        bool ok = false;
        const QString keuze = QInputDialog::getItem(nullptr, versie->Caption, versie->lblTekst,
                                                    opties, 0, false, &ok);
        if (!ok) {
            versie->cmdSluiten_Click();
            return;
        }
        versie->Gekozen = int(versie->optCaptions.indexOf(keuze));
        versie->cmdOK_Click();
    } else if (auto* uitschakelen = dynamic_cast<FrmUitschakelen*>(&form)) {
        // The close options without the log-on as another user, which needs its own window.
        const QStringList opties = uitschakelen->optCaptions.mid(
            0, qMax<qsizetype>(0, uitschakelen->optCaptions.size() - 1));
        bool ok = false;
        const QString keuze = QInputDialog::getItem(nullptr, uitschakelen->Caption,
                                                    uitschakelen->lblKies, opties, 0, false, &ok);
        if (!ok || keuze.isEmpty()) {
            uitschakelen->cmdAnnuleren_Click();
            return;
        }
        uitschakelen->optAntwoord = int(opties.indexOf(keuze));
        uitschakelen->cmdOK_Click();
    } else if (auto* netwerk = dynamic_cast<FrmNetwerk*>(&form)) {
        bool ok = false;
        const QString tekst = QInputDialog::getText(nullptr, netwerk->Caption, netwerk->lblUitleg,
                                                    QLineEdit::Normal, netwerk->txtNaam, &ok);
        netwerk->txtNaam_Change(tekst);
        if (ok)
            netwerk->cmdOK_Click();
        else
            netwerk->cmdAnnuleren_Click();
    }
}

} // namespace tk
