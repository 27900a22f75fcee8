#include "FrmTaakbalk1View.h"

#include "FrmTaakbalk1.h"
#include "TaakbalkKnopView.h"
#include "controls/Ondergrond.h"
#include "controls/SkinnedButtonView.h"
#include "screens/common/PaintingViewAccessible.h"

#include <QMouseEvent>
#include <QPainter>

namespace tk {

FrmTaakbalk1View::FrmTaakbalk1View(FrmTaakbalk1& model, QWidget* ouder) : QWidget(ouder), m(model) {
    setFixedSize(FrmTaakbalk1::Breedte, FrmTaakbalk1::Hoogte);
    setMouseTracking(true);
    for (int i = 0; i < 3; ++i)
        m_accounts[i] = new SkinnedButtonView(m.Account[i], this);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmTaakbalk1View::~FrmTaakbalk1View() {
    m.onChanged = nullptr;
}

void FrmTaakbalk1View::bijwerken() {
    gewijzigd();
    setVisible(m.Zichtbaar);
    for (SkinnedButtonView* a : m_accounts)
        a->bijwerken();
    update();
    PaintingViewAccessible::meldFocus(this, *this, m_focusGemeld);
}

QList<PaintedControl> FrmTaakbalk1View::maakGeschilderd() const {
    return m.bedieningen();
}

void FrmTaakbalk1View::druk(const PaintedControl& control) {
    m.drukFocus(control.stop);
}

void FrmTaakbalk1View::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), m.achtergrondKleur);
    if (!m.achtergrond.isNull())
        p.drawImage(0, 0, m.achtergrond);
    for (const FrmTaakbalk1::Knop& k : m.knoppen)
        TaakbalkKnopView::teken(
            p, k, m.knopFont, 40,
            Ondergrond{m.achtergrond, m.achtergrond.size(), m.achtergrondKleur});
}

void FrmTaakbalk1View::mouseMoveEvent(QMouseEvent* e) {
    const QPoint punt = e->position().toPoint();
    for (const FrmTaakbalk1::Knop& k : m.knoppen) {
        const bool erboven = k.plek.contains(punt);
        if (erboven != k.hover) {
            m.TekenKnop(k.naam, erboven);
            return;
        }
    }
}

void FrmTaakbalk1View::leaveEvent(QEvent*) {
    m.TekenKnop();
}

void FrmTaakbalk1View::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton)
        return;
    const QPoint punt = e->position().toPoint();
    for (const FrmTaakbalk1::Knop& k : m.knoppen)
        if (k.plek.contains(punt)) {
            const QString naam = k.naam;
            m.KnopActie(naam);
            return;
        }
}

} // namespace tk
