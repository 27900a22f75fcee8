#include "FrmFoutrapportageView.h"

#include "core/FrmFoutrapportage.h"

#include <QPainter>

namespace tk {

namespace {
constexpr int marge = 18;
constexpr int regelRuimte = 4;
// A long description is cut here; the whole text is in the log book and the stored report.
constexpr int maxOmschrijvingHoogte = 160;
} // namespace

FrmFoutrapportageView::FrmFoutrapportageView(FrmFoutrapportage& model, QWidget* ouder)
    : DialogFrame(ouder), m(model) {
    setWindowTitle(m.Caption);
    const QFontMetrics fm(font());
    const int tekstBreedte = Breedte - 2 * marge;
    m_uitleg = QRect(
        marge, 14, tekstBreedte,
        fm.boundingRect(QRect(0, 0, tekstBreedte, 2000), Qt::TextWordWrap, m.lblUitleg).height());
    int y = m_uitleg.bottom() + 1 + 22; // room for the frame's caption
    const int kaderTop = y - 10;
    const int waardeBreedte = Breedte - marge - 12 - waardeLinks;
    const QStringList w = waarden();
    for (int i = 0; i < w.size(); ++i) {
        int h = fm.boundingRect(QRect(0, 0, waardeBreedte, 2000), Qt::TextWordWrap, w[i]).height();
        h = qBound(fm.height(), h, maxOmschrijvingHoogte);
        m_regels << QRect(marge + 12, y, Breedte - 2 * marge - 24, h);
        y += h + regelRuimte;
    }
    m_kader = QRect(marge, kaderTop, tekstBreedte, y + 8 - kaderTop);
    m_onder = m_kader.bottom() + 1;
    zetLijf(Breedte, m_onder + 12 + 22 + 10 + 26 + 16);
    bijwerken();
}

QStringList FrmFoutrapportageView::waarden() const {
    return {m.lblDatum,      m.lblTijd,   m.lblComputernaam, m.lblWindows,
            m.lblApplicatie, m.lblModule, m.lblProcedure,    m.lblOmschrijving};
}

void FrmFoutrapportageView::bijwerken() {
    vlakken.clear();
    Vlak negeren;
    negeren.soort = Soort::Vinkje;
    negeren.plek = QRect(marge, m_onder + 12, Breedte - 2 * marge, 22);
    negeren.tekst = m.chkNegerenCaption;
    negeren.aan = m.chkNegeren;
    negeren.klik = [this] { m.chkNegeren = !m.chkNegeren; };
    vlakken << negeren;
    const int knoppenBoven = negeren.plek.bottom() + 11;
    const int b = (Breedte - 2 * marge - 12) / 2;
    Vlak versturen;
    versturen.plek = QRect(marge, knoppenBoven, b, 26);
    versturen.tekst = m.cmdVersturenCaption;
    versturen.standaard = true;
    versturen.klik = [this] {
        m_klaar = true;
        m.cmdVersturen_Click();
    };
    vlakken << versturen;
    Vlak niet;
    niet.plek = QRect(Breedte - marge - b, knoppenBoven, b, 26);
    niet.tekst = m.cmdNietVersturenCaption;
    niet.klik = [this] { annuleren(); };
    vlakken << niet;
    update();
}

void FrmFoutrapportageView::voegTekstenToe(QList<PaintedControl>& lijst) const {
    PaintedControl::voegTekstToe(lijst, m.lblUitleg, m_uitleg);
}

void FrmFoutrapportageView::tekenInhoud(QPainter& p) {
    p.setPen(tekstKleur());
    p.drawText(m_uitleg, Qt::TextWordWrap | Qt::AlignLeft, m.lblUitleg);
    // The frame with its caption in a gap of its top line.
    QFont vet = p.font();
    vet.setBold(true);
    p.setPen(QPen(kopKleur().lighter(200), 1));
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(m_kader).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    p.setFont(vet);
    const QString kop = m.fraGegevens.trimmed();
    const int kopBreedte = p.fontMetrics().horizontalAdvance(kop) + 8;
    const QRect kopVak(m_kader.left() + 10, m_kader.top() - p.fontMetrics().height() / 2,
                       kopBreedte, p.fontMetrics().height());
    p.fillRect(kopVak, lijfKleur());
    p.setPen(kopKleur());
    p.drawText(kopVak, Qt::AlignCenter, kop);
    const QStringList w = waarden();
    for (int i = 0; i < m_regels.size(); ++i) {
        const QRect r = m_regels[i];
        p.setFont(vet);
        p.setPen(kopKleur());
        p.drawText(QRect(r.left(), r.top(), waardeLinks - r.left() - 8, r.height()),
                   Qt::AlignLeft | Qt::AlignTop, m.lblCaptions.value(i));
        p.setFont(font());
        p.setPen(tekstKleur());
        p.save();
        const QRect waarde(waardeLinks, r.top(), r.right() - waardeLinks, r.height());
        p.setClipRect(waarde);
        p.drawText(waarde, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, w.value(i));
        p.restore();
    }
}

void FrmFoutrapportageView::annuleren() {
    if (m_klaar)
        return;
    m_klaar = true;
    m.cmdNietVersturen_Click();
}

} // namespace tk
