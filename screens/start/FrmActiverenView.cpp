#include "FrmActiverenView.h"

#include "FrmActiveren.h"

#include <QKeyEvent>
#include <QPainter>

namespace tk {

namespace {
constexpr int rijHoogte = 74;
constexpr int rijenBoven = 14;
constexpr int knoppenBoven = rijenBoven + 3 * rijHoogte + 8;
constexpr int knopHoogte = 28;
QRect tekstVak(int rij) {
    return QRect(18, rijenBoven + rij * rijHoogte, 320, 20);
}
QRect uitlegVak(int rij) {
    return QRect(18, rijenBoven + rij * rijHoogte + 22, FrmActiverenView::Breedte - 36, 44);
}
} // namespace

FrmActiverenView::FrmActiverenView(FrmActiveren& model, QWidget* ouder)
    : DialogFrame(ouder), m(model) {
    setFocusPolicy(Qt::StrongFocus);
    m_hoogte = knoppenBoven + 2 * knopHoogte + 8 + 16;
    zetLijf(Breedte, m_hoogte);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmActiverenView::~FrmActiverenView() {
    m.onChanged = nullptr;
}

void FrmActiverenView::bijwerken() {
    setWindowTitle(m.Caption);
    setAccessibleName(m.Caption);
    vlakken.clear();
    const FrmActiveren::Rij* rijen[] = {&m.optRegister, &m.optResolutie, &m.optFirewall};
    for (int i = 0; i < 3; ++i) {
        // The tests decide the rows: the buttons show the answer and take no clicks.
        for (bool ja : {true, false}) {
            Vlak v;
            v.soort = Soort::Optie;
            v.plek = QRect(ja ? 350 : 428, tekstVak(i).top(), 74, 20);
            v.tekst = ja ? m.lblJa : m.lblNee;
            v.enabled = false;
            v.aan = rijen[i]->opt == (ja ? FrmActiveren::Keuze::Ja : FrmActiveren::Keuze::Nee);
            vlakken << v;
        }
    }
    const int b = (Breedte - 36 - 12) / 2;
    auto knop = [&](int kolom, int regel, const QString& tekst, bool aan, bool standaard,
                    std::function<void()> klik) {
        Vlak v;
        v.plek = QRect(kolom == 0 ? 18 : Breedte - 18 - b, knoppenBoven + regel * (knopHoogte + 8),
                       b, knopHoogte);
        v.tekst = tekst;
        v.enabled = aan;
        v.standaard = standaard;
        v.klik = std::move(klik);
        vlakken << v;
    };
    knop(0, 0, m.cmdFirewallCaption, m.cmdFirewallEnabled, false,
         [this] { m.cmdFirewall_Click(); });
    knop(1, 0, m.cmdServerlocatieCaption, m.cmdServerlocatieEnabled, false,
         [this] { m.cmdServerlocatie_Click(); });
    knop(0, 1, m.cmdActiverenCaption, m.cmdActiverenEnabled, true,
         [this] { m.cmdActiveren_Click(); });
    knop(1, 1, m.cmdSluitenCaption, m.cmdSluitenEnabled, false, [this] { m.cmdSluiten_Click(); });
    if (m_focus < 0 || m_focus >= vlakken.size() || !vlakken[m_focus].enabled)
        volgendeFocus(1);
    gewijzigd();
    update();
    if (m.Klaar && isVisible())
        accept();
}

void FrmActiverenView::volgendeFocus(int stap) {
    const int n = int(vlakken.size());
    for (int i = 1; i <= n; ++i) {
        const int kandidaat = ((m_focus < 0 ? (stap > 0 ? -1 : 0) : m_focus) + stap * i + n) % n;
        if (vlakken[kandidaat].enabled && vlakken[kandidaat].klik) {
            m_focus = kandidaat;
            return;
        }
    }
    m_focus = -1;
}

void FrmActiverenView::tekenInhoud(QPainter& p) {
    const FrmActiveren::Rij* rijen[] = {&m.optRegister, &m.optResolutie, &m.optFirewall};
    QFont vet = p.font();
    vet.setBold(true);
    QFont klein = p.font();
    klein.setPointSize(8);
    for (int i = 0; i < 3; ++i) {
        p.setFont(vet);
        p.setPen(kopKleur());
        p.drawText(tekstVak(i), Qt::AlignLeft | Qt::AlignVCenter, rijen[i]->lblTekst);
        p.setFont(klein);
        p.setPen(tekstKleur());
        p.drawText(uitlegVak(i), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   rijen[i]->lblUitleg);
        p.setPen(QColor(220, 226, 235));
        const int onder = rijenBoven + (i + 1) * rijHoogte - 4;
        p.drawLine(18, onder, Breedte - 18, onder);
    }
    p.setFont(font());
}

void FrmActiverenView::paintEvent(QPaintEvent* e) {
    DialogFrame::paintEvent(e);
    if (m_focus < 0 || m_focus >= vlakken.size() || !hasFocus())
        return;
    QPainter p(this);
    p.setPen(QPen(kopKleur(), 1, Qt::DotLine));
    p.drawRoundedRect(inVenster(vlakken[m_focus].plek).adjusted(3, 3, -4, -4), 3, 3);
}

void FrmActiverenView::keyPressEvent(QKeyEvent* e) {
    const bool terug = e->key() == Qt::Key_Backtab ||
                       (e->key() == Qt::Key_Tab && (e->modifiers() & Qt::ShiftModifier));
    if (e->key() == Qt::Key_Tab || terug) {
        volgendeFocus(terug ? -1 : 1);
        update();
        return;
    }
    if ((e->key() == Qt::Key_Space || e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) &&
        m_focus >= 0) {
        const auto klik = vlakken[m_focus].klik;
        if (vlakken[m_focus].enabled && klik) {
            klik();
            naActie();
        }
        return;
    }
    DialogFrame::keyPressEvent(e);
}

void FrmActiverenView::annuleren() {
    if (m.cmdSluitenEnabled)
        m.cmdSluiten_Click();
}

bool FrmActiverenView::klaar() const {
    return m.Klaar;
}

QList<PaintedControl> FrmActiverenView::maakGeschilderd() const {
    QList<PaintedControl> lijst;
    const FrmActiveren::Rij* rijen[] = {&m.optRegister, &m.optResolutie, &m.optFirewall};
    for (int i = 0; i < 3; ++i) {
        PaintedControl::voegTekstToe(lijst, rijen[i]->lblTekst, inVenster(tekstVak(i)));
        for (int j = 0; j < 2; ++j) {
            const Vlak& v = vlakken[i * 2 + j];
            PaintedControl c;
            c.rol = QAccessible::RadioButton;
            // "Firewall configured: Yes" reads as one answer.
            c.naam = AccessibleName::maak(rijen[i]->lblTekst + QLatin1Char(' ') + v.tekst);
            c.plek = inVenster(v.plek);
            c.aanvinkbaar = true;
            c.aangevinkt = v.aan;
            c.drukbaar = false;
            lijst << c;
        }
        PaintedControl::voegTekstToe(lijst, rijen[i]->lblUitleg, inVenster(uitlegVak(i)));
    }
    for (int i = 6; i < vlakken.size(); ++i) {
        PaintedControl c;
        c.naam = AccessibleName::maak(vlakken[i].tekst);
        c.plek = inVenster(vlakken[i].plek);
        c.uitgeschakeld = !vlakken[i].enabled;
        c.focus = i == m_focus;
        c.stop = i;
        lijst << c;
    }
    return lijst;
}

void FrmActiverenView::druk(const PaintedControl& control) {
    if (control.stop < 0 || control.stop >= vlakken.size())
        return;
    const auto klik = vlakken[control.stop].klik;
    if (vlakken[control.stop].enabled && klik) {
        klik();
        naActie();
    }
}

} // namespace tk
