#include "QtDialogs.h"

#include "core/FrmFoutrapportage.h"
#include "core/FrmVersie.h"
#include "core/Programma.h"
#include "link/FrmNetwerk.h"
#include "screens/taskbar/FrmUitschakelen.h"

#include <QCheckBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace tk {

QString QtDialogs::vraag(const QString& titel, const QString& tekst, const QString& stijl) {
    QString zichtbaar = tekst;
    zichtbaar.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (stijl == u"-") {
        QMessageBox::information(nullptr, titel, zichtbaar);
        return QStringLiteral("ja");
    }
    if (stijl == u":") {
        return QMessageBox::question(nullptr, titel, zichtbaar,
                                     QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok
                   ? QStringLiteral("ja")
                   : QStringLiteral("nee");
    }
    if (stijl == u"?") {
        return QMessageBox::question(nullptr, titel, zichtbaar) == QMessageBox::Yes
                   ? QStringLiteral("ja")
                   : QStringLiteral("nee");
    }
    bool ok = false;
    QString antwoord;
    if (stijl == u"*") {
        antwoord =
            QInputDialog::getText(nullptr, titel, zichtbaar, QLineEdit::Password, QString(), &ok);
    } else if (stijl.contains(QLatin1Char('|'))) {
        antwoord = QInputDialog::getItem(nullptr, titel, zichtbaar, stijl.split(QLatin1Char('|')),
                                         0, false, &ok);
    } else {
        antwoord = QInputDialog::getText(nullptr, titel, zichtbaar, QLineEdit::Normal, stijl, &ok);
    }
    return ok ? antwoord : QString();
}

void QtDialogs::toonModaal(Form& form) {
    if (auto* rapport = dynamic_cast<FrmFoutrapportage*>(&form)) {
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
