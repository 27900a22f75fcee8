#include "FrmVersieView.h"

#include "core/FrmVersie.h"

#include <QPainter>

namespace tk {

namespace {
constexpr int knoppenBoven = 44 + 3 * 24 + 14;
constexpr int knopHoogte = 26;
} // namespace

FrmVersieView::FrmVersieView(FrmVersie& model, QWidget* ouder) : DialogFrame(ouder), m(model) {
    setWindowTitle(m.Caption);
    zetLijf(Breedte, knoppenBoven + knopHoogte + 16);
    bijwerken();
}

void FrmVersieView::bijwerken() {
    vlakken.clear();
    for (int i = 0; i < 3; ++i) {
        Vlak v;
        v.soort = Soort::Optie;
        v.plek = optieVak(i);
        v.tekst = m.optCaptions.value(i);
        v.enabled = m.optEnabled[i];
        v.aan = m.Gekozen == i;
        v.klik = [this, i] { m.Gekozen = i; };
        vlakken << v;
    }
    const bool kanKiezen = m.Gekozen >= 0 && m.Gekozen < 3 && m.optEnabled[m.Gekozen];
    voegKnoppenToe(
        Breedte, knoppenBoven, knopHoogte, m.cmdOK, kanKiezen, [this] { m.cmdOK_Click(); },
        m.cmdSluiten);
    update();
}

void FrmVersieView::tekenInhoud(QPainter& p) {
    p.setPen(tekstKleur());
    p.drawText(QRect(18, 12, Breedte - 36, 24), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap,
               m.lblTekst);
}

void FrmVersieView::annuleren() {
    m.cmdSluiten_Click();
    m_klaar = true;
}

} // namespace tk
