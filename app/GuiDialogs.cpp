#include "GuiDialogs.h"

#include "core/FrmFoutrapportage.h"
#include "core/FrmVersie.h"
#include "core/Programma.h"
#include "link/FrmNetwerk.h"
#include "screens/maintenance/FrmInternetFilter.h"
#include "screens/maintenance/FrmInternetFilterView.h"
#include "screens/start/FrmActiveren.h"
#include "screens/start/FrmActiverenView.h"
#include "screens/start/FrmFoutrapportageView.h"
#include "screens/start/FrmNetwerkView.h"
#include "screens/start/FrmVersieView.h"
#include "screens/start/FrmVraag.h"
#include "screens/start/FrmVraagView.h"
#include "screens/taskbar/FrmUitschakelen.h"
#include "screens/taskbar/FrmUitschakelenView.h"

#include <QTextStream>

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
        m_vragen.append(&view);
        view.exec();
        m_vragen.removeAll(&view);
    } else if (auto* rapport = dynamic_cast<FrmFoutrapportage*>(&form)) {
        FrmFoutrapportageView(*rapport).exec();
    } else if (auto* versie = dynamic_cast<FrmVersie*>(&form)) {
        FrmVersieView(*versie).exec();
    } else if (auto* uitschakelen = dynamic_cast<FrmUitschakelen*>(&form)) {
        FrmUitschakelenView(*uitschakelen).exec();
    } else if (auto* wizard = dynamic_cast<FrmActiveren*>(&form)) {
        FrmActiverenView(*wizard).exec();
    } else if (auto* netwerk = dynamic_cast<FrmNetwerk*>(&form)) {
        FrmNetwerkView(*netwerk).exec();
    } else if (auto* filter = dynamic_cast<FrmInternetFilter*>(&form)) {
        FrmInternetFilterView(*filter).exec();
    } else {
        // A form without a view answers as if closed; say so rather than hang or guess.
        QTextStream(stderr) << "tafelkrater: no window for " << form.formNaam() << Qt::endl;
    }
}

void GuiDialogs::sluitVragen() {
    // Each window's Cancel; its own loop ends when control returns to it.
    for (const QPointer<QDialog>& vraag : QList(m_vragen))
        if (vraag)
            vraag->reject();
}

} // namespace tk
