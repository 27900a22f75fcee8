#include "FrmNetwerkView.h"

#include "link/FrmNetwerk.h"

#include <QLineEdit>
#include <QPainter>

namespace tk {

FrmNetwerkView::FrmNetwerkView(FrmNetwerk& model, QWidget* ouder) : DialogFrame(ouder), m(model) {
    setWindowTitle(m.Caption);
    const QFontMetrics fm(font());
    const QRect uitleg =
        fm.boundingRect(QRect(0, 0, Breedte - 36, 2000), Qt::TextWordWrap, m.lblUitleg);
    m_uitleg = QRect(18, 14, Breedte - 36, uitleg.height());
    m_label = QRect(18, m_uitleg.bottom() + 14, Breedte - 36, fm.height());
    const QRect vak(18, m_label.bottom() + 4, Breedte - 36, 24);
    m_knoppenBoven = vak.bottom() + 16;
    m_naam = new QLineEdit(this);
    m_naam->setGeometry(inVenster(vak));
    m_naam->setText(m.txtNaam);
    m_naam->selectAll();
    connect(m_naam, &QLineEdit::textEdited, this, [this](const QString& t) {
        m.txtNaam_Change(t);
        bijwerken();
    });
    zetLijf(Breedte, m_knoppenBoven + 26 + 16);
    bijwerken();
    m_naam->setFocus();
}

void FrmNetwerkView::bijwerken() {
    vlakken.clear();
    voegKnoppenToe(
        Breedte, m_knoppenBoven, 26, m.cmdOK, m.cmdOKEnabled, [this] { m.cmdOK_Click(); },
        m.cmdAnnuleren);
    update();
}

void FrmNetwerkView::voegTekstenToe(QList<PaintedControl>& lijst) const {
    PaintedControl::voegTekstToe(lijst, m.lblUitleg, m_uitleg);
}

void FrmNetwerkView::tekenInhoud(QPainter& p) {
    p.setPen(tekstKleur());
    p.drawText(m_uitleg, Qt::TextWordWrap | Qt::AlignLeft, m.lblUitleg);
    QFont vet = p.font();
    vet.setBold(true);
    p.setFont(vet);
    p.drawText(m_label, Qt::AlignLeft | Qt::AlignVCenter, m.lblNaam);
}

void FrmNetwerkView::annuleren() {
    m.cmdAnnuleren_Click();
    m_klaar = true;
}

} // namespace tk
