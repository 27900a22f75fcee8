#include "FrmActiverenView.h"

#include "FrmActiveren.h"
#include "VoortgangVenster.h"

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
    gewijzigd();
    update();
    if (m.Klaar && isVisible())
        accept();
}

void FrmActiverenView::tekenInhoud(QPainter& p) {
    const FrmActiveren::Rij* rijen[] = {&m.optRegister, &m.optResolutie, &m.optFirewall};
    const QFont gewoon = p.font();
    QFont klein = gewoon;
    klein.setPointSize(8);
    for (int i = 0; i < 3; ++i) {
        p.setFont(gewoon);
        VoortgangVenster::tekenKop(p, tekstVak(i), rijen[i]->lblTekst);
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
        c.focus = i == focusVlak();
        c.stop = i;
        lijst << c;
    }
    return lijst;
}

} // namespace tk
