#include "FrmOnderhoudVraagView.h"

#include "FrmOnderhoudVraag.h"

#include <QPainter>

namespace tk {

FrmOnderhoudVraagView::FrmOnderhoudVraagView(FrmOnderhoudVraag& model, QWidget* ouder)
    : DialogFrame(ouder), m(model) {
    setWindowModality(Qt::ApplicationModal);
    m.onChanged = [this] { bijwerken(); };
    m.tonen = [this](bool aan) {
        if (aan) {
            bijwerken();
            show();
            raise();
        } else {
            hide();
        }
    };
    bijwerken();
}

FrmOnderhoudVraagView::~FrmOnderhoudVraagView() {
    m.onChanged = nullptr;
    m.tonen = nullptr;
}

void FrmOnderhoudVraagView::bijwerken() {
    setWindowTitle(m.Caption);
    zetLijf(Breedte, m.Hoogte);
    vlakken.clear();
    const int knopBoven = m.Hoogte - 40;
    if (m.cmdAfmeldenZichtbaar) {
        Vlak afmelden;
        afmelden.plek = QRect(Breedte - 230, knopBoven, 100, 28);
        afmelden.tekst = m.cmdAfmeldenCaption;
        afmelden.standaard = true;
        afmelden.klik = [this] { m.cmdAfmelden_Click(); };
        vlakken << afmelden;
    }
    Vlak annuleer;
    annuleer.plek = QRect(m.Modus == -1 ? (Breedte - 100) / 2 : Breedte - 118, knopBoven, 100, 28);
    annuleer.tekst = m.cmdAnnulerenCaption;
    annuleer.standaard = !m.cmdAfmeldenZichtbaar;
    annuleer.klik = [this] { m.cmdAnnuleren_Click(); };
    vlakken << annuleer;
    update();
}

void FrmOnderhoudVraagView::voegTekstenToe(QList<PaintedControl>& lijst) const {
    PaintedControl::voegTekstToe(lijst, m.lblVraag, QRect(64, 12, Breedte - 82, 70));
    PaintedControl::voegTekstToe(lijst, m.lblAftellen, QRect(64, 86, Breedte - 82, 36));
}

void FrmOnderhoudVraagView::tekenInhoud(QPainter& p) {
    tekenIcoon(p, QRect(18, 12, 32, 32), 0);
    p.setPen(tekstKleur());
    p.setFont(QFont(QStringLiteral("Verdana"), 9));
    p.drawText(QRect(64, 12, Breedte - 82, 70), Qt::TextWordWrap | Qt::AlignLeft, m.lblVraag);
    p.drawText(QRect(64, 86, Breedte - 82, 36), Qt::TextWordWrap | Qt::AlignLeft, m.lblAftellen);
}

void FrmOnderhoudVraagView::annuleren() {
    m.cmdAnnuleren_Click();
}

bool FrmOnderhoudVraagView::klaar() const {
    return !m.Open;
}

} // namespace tk
