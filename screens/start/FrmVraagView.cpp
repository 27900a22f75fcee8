#include "FrmVraagView.h"

#include "FrmVraag.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace tk {

FrmVraagView::FrmVraagView(FrmVraag& model, QWidget* ouder) : DialogFrame(ouder), m(model) {
    setWindowTitle(m.Caption);
    m_tekst = new QLineEdit(this);
    m_tekst->setFont(m.font);
    m_tekst->setVisible(m.txtTekstZichtbaar);
    m_tekst->setEchoMode(m.wachtwoordTeken ? QLineEdit::Password : QLineEdit::Normal);
    m_tekst->setGeometry(inVenster(m.txtTekstVak));
    m_tekst->setText(m.txtTekst);
    m_tekst->selectAll();
    connect(m_tekst, &QLineEdit::textEdited, this, [this](const QString& t) {
        m.txtTekst_Change(t);
        bijwerken();
    });
    zetLijf(m.breedte, m.Hoogte);
    bijwerken();
    if (m.txtTekstZichtbaar)
        m_tekst->setFocus();
    else
        setFocus();
}

void FrmVraagView::bijwerken() {
    vlakken.clear();
    for (int i = 0; i < m.optKeuze.size(); ++i) {
        Vlak v;
        v.soort = Soort::Optie;
        v.plek = m.optKeuzeVakken.value(i);
        v.tekst = m.optKeuze[i];
        v.aan = i == m.gekozen;
        v.klik = [this, i] { m.optKeuze_Click(i); };
        vlakken << v;
    }
    Vlak ok;
    ok.plek = m.cmdOKVak;
    ok.tekst = m.cmdOKCaption;
    ok.enabled = m.cmdOKEnabled;
    ok.standaard = true;
    ok.klik = [this] { m.cmdOK_Click(); };
    vlakken << ok;
    if (m.cmdAnnulerenZichtbaar) {
        Vlak annuleer;
        annuleer.plek = m.cmdAnnulerenVak;
        annuleer.tekst = m.cmdAnnulerenCaption;
        annuleer.klik = [this] { m.cmdAnnuleren_Click(); };
        vlakken << annuleer;
    }
    update();
}

void FrmVraagView::voegTekstenToe(QList<PaintedControl>& lijst) const {
    PaintedControl::voegTekstToe(lijst, m.lblVraag, m.vraagVak);
}

void FrmVraagView::tekenInhoud(QPainter& p) {
    tekenIcoon(p, QRect(FrmVraag::IcoonPlek, QSize(FrmVraag::IcoonMaat, FrmVraag::IcoonMaat)),
               m.icoon);
    p.setFont(m.font);
    p.setPen(tekstKleur());
    p.drawText(m.vraagVak, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignVCenter, m.lblVraag);
}

void FrmVraagView::annuleren() {
    m.txtTekst_KeyPress(27);
}

bool FrmVraagView::klaar() const {
    return m.Klaar;
}

void FrmVraagView::keyPressEvent(QKeyEvent* e) {
    // Up and down move through the option buttons.
    if (!m.optKeuze.isEmpty() && (e->key() == Qt::Key_Up || e->key() == Qt::Key_Down)) {
        const int n = int(m.optKeuze.size());
        const int stap = e->key() == Qt::Key_Down ? 1 : -1;
        m.optKeuze_Click(m.gekozen < 0 ? (stap > 0 ? 0 : n - 1) : (m.gekozen + stap + n) % n);
        bijwerken();
        return;
    }
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
        m.txtTekst_KeyPress(13);
        naActie();
        return;
    }
    DialogFrame::keyPressEvent(e);
}

} // namespace tk
