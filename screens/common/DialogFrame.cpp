#include "DialogFrame.h"

#include "PaintingViewAccessible.h"
#include "WindowPlacement.h"
#include "controls/AccessibleName.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace tk {

DialogFrame::DialogFrame(QWidget* ouder) : QDialog(ouder, Qt::Dialog | Qt::FramelessWindowHint) {
    setModal(true);
    setMouseTracking(true);
    // The window itself takes the keys while the focus ring stands on a painted area.
    setFocusPolicy(Qt::StrongFocus);
    setFont(QFont(QStringLiteral("Verdana"), 9));
}

void DialogFrame::zetLijf(int breedte, int hoogte) {
    setFixedSize(breedte, hoogte + Kop);
    WindowPlacement::centreer(*this);
}

void DialogFrame::naActie() {
    bijwerken();
    update();
    if (klaar())
        accept();
}

void DialogFrame::reject() {
    // Escape or the window's close: Cancel for the model, then close when it has its answer.
    annuleren();
    bijwerken();
    if (klaar())
        QDialog::reject();
}

int DialogFrame::vlakOp(const QPoint& venster) const {
    const QPoint lijf = venster - QPoint(0, Kop);
    for (int i = 0; i < vlakken.size(); ++i)
        if (vlakken[i].enabled && vlakken[i].plek.contains(lijf))
            return i;
    return -1;
}

void DialogFrame::tekenIcoon(QPainter& p, const QRect& plek, int icoon) {
    if (icoon != 0 && icoon != 1)
        return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(kopKleur().darker(120), 1.5));
    p.setBrush(icoon == 0 ? QColor(92, 180, 238) : kopKleur());
    p.drawEllipse(QRectF(plek).adjusted(1, 1, -1, -1));
    QFont f(QStringLiteral("Verdana"), 15, QFont::Bold);
    if (icoon == 1)
        f.setItalic(true);
    p.setFont(f);
    p.setPen(Qt::white);
    p.drawText(plek, Qt::AlignCenter, icoon == 0 ? QStringLiteral("?") : QStringLiteral("i"));
    p.restore();
}

void DialogFrame::tekenVlak(QPainter& p, const Vlak& v, bool hover, bool ingedrukt) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QColor tekst = v.enabled ? tekstKleur() : QColor(150, 156, 165);
    if (v.soort == Soort::Knop) {
        QRectF r = QRectF(v.plek).adjusted(0.5, 0.5, -0.5, -0.5);
        QColor vul = ingedrukt ? QColor(196, 214, 236) : hover ? QColor(226, 238, 252) : Qt::white;
        if (!v.enabled)
            vul = QColor(236, 238, 241);
        p.setBrush(vul);
        p.setPen(QPen(v.enabled ? kopKleur() : QColor(180, 186, 195), v.standaard ? 2 : 1));
        p.drawRoundedRect(r, 5, 5);
        if (v.standaard && v.enabled) {
            p.setPen(Qt::NoPen);
            p.setBrush(accentKleur());
            p.drawRoundedRect(QRectF(r.left() + 3, r.bottom() - 4, r.width() - 6, 2), 1, 1);
        }
        QFont f = p.font();
        f.setBold(true);
        p.setFont(f);
        p.setPen(tekst);
        p.drawText(v.plek, Qt::AlignCenter, v.tekst);
    } else {
        const int maat = 13;
        const QRectF vak(v.plek.left(), v.plek.top() + (v.plek.height() - maat) / 2.0, maat, maat);
        p.setPen(QPen(v.enabled ? kopKleur() : QColor(180, 186, 195), 1.2));
        p.setBrush(hover ? QColor(226, 238, 252) : Qt::white);
        if (v.soort == Soort::Optie) {
            p.drawEllipse(vak);
            if (v.aan) {
                p.setPen(Qt::NoPen);
                p.setBrush(v.enabled ? accentKleur().darker(115) : QColor(170, 176, 185));
                p.drawEllipse(vak.adjusted(3.5, 3.5, -3.5, -3.5));
            }
        } else {
            p.drawRoundedRect(vak, 2, 2);
            if (v.aan) {
                QPainterPath vink;
                vink.moveTo(vak.left() + 2.5, vak.center().y());
                vink.lineTo(vak.left() + 5.5, vak.bottom() - 3);
                vink.lineTo(vak.right() - 2.5, vak.top() + 3);
                p.setPen(QPen(accentKleur().darker(125), 2));
                p.setBrush(Qt::NoBrush);
                p.drawPath(vink);
            }
        }
        p.setPen(tekst);
        p.drawText(QRect(v.plek.left() + maat + 8, v.plek.top(), v.plek.width() - maat - 8,
                         v.plek.height()),
                   Qt::AlignLeft | Qt::AlignVCenter, v.tekst);
    }
    p.restore();
}

void DialogFrame::paintEvent(QPaintEvent*) {
    // The subclass may have renewed its areas since the last frame.
    gewijzigd();
    if (m_focus >= vlakken.size() || (m_focus >= 0 && !vlakken[m_focus].enabled))
        m_focus = volgendVlak(m_focus, 1);
    QPainter p(this);
    p.fillRect(rect(), lijfKleur());
    // The caption band with a thin accent line under it, and a frame round the window.
    p.fillRect(QRect(0, 0, width(), Kop), kopKleur());
    p.fillRect(QRect(0, Kop - 3, width(), 3), accentKleur());
    QFont kopFont(QStringLiteral("Verdana"), 9, QFont::Bold);
    p.setFont(kopFont);
    p.setPen(Qt::white);
    p.drawText(QRect(12, 0, width() - 24, Kop - 3), Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(windowTitle(), Qt::ElideRight, width() - 24));
    p.setPen(QPen(kopKleur(), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    p.setFont(font());
    p.translate(0, Kop);
    tekenInhoud(p);
    for (int i = 0; i < vlakken.size(); ++i)
        tekenVlak(p, vlakken[i], i == m_hover, i == m_ingedrukt);
    if (m_focus >= 0 && hasFocus()) {
        // The focus ring: the caption band's dark blue on the light body (over 10:1).
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(kopKleur(), 2, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(vlakken[m_focus].plek).adjusted(-3, -3, 3, 3), 6, 6);
    }
    PaintingViewAccessible::meldFocus(this, *this, m_gemeld);
}

void DialogFrame::mouseMoveEvent(QMouseEvent* e) {
    const QPoint punt = e->position().toPoint();
    if (m_slepen) {
        move(e->globalPosition().toPoint() - m_sleepBegin);
        return;
    }
    const int hier = vlakOp(punt);
    if (hier != m_hover) {
        m_hover = hier;
        update();
    }
}

void DialogFrame::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton)
        return;
    const QPoint punt = e->position().toPoint();
    if (punt.y() < Kop) {
        m_slepen = true;
        m_sleepBegin = punt;
        return;
    }
    m_ingedrukt = vlakOp(punt);
    update();
}

void DialogFrame::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton)
        return;
    m_slepen = false;
    const int was = m_ingedrukt;
    m_ingedrukt = -1;
    const int hier = vlakOp(e->position().toPoint());
    if (was >= 0 && was == hier)
        drukVlak(hier);
    update();
}

void DialogFrame::leaveEvent(QEvent*) {
    m_hover = -1;
    update();
}

void DialogFrame::keyPressEvent(QKeyEvent* e) {
    const int k = e->key();
    if (k == Qt::Key_Space && m_focus >= 0) {
        drukVlak(m_focus);
        return;
    }
    if (k == Qt::Key_Return || k == Qt::Key_Enter) {
        // A focused button takes Enter; on an option or a box Enter stays the default button's.
        if (m_focus >= 0 && vlakken[m_focus].soort == Soort::Knop) {
            drukVlak(m_focus);
            return;
        }
        for (int i = 0; i < vlakken.size(); ++i)
            if (vlakken[i].standaard && vlakken[i].enabled) {
                drukVlak(i);
                return;
            }
        return;
    }
    if (k == Qt::Key_Escape) {
        reject();
        return;
    }
    if (m_focus >= 0 &&
        (k == Qt::Key_Left || k == Qt::Key_Up || k == Qt::Key_Right || k == Qt::Key_Down)) {
        zetFocus(volgendVlak(m_focus, k == Qt::Key_Left || k == Qt::Key_Up ? -1 : 1));
        return;
    }
    QDialog::keyPressEvent(e);
}

void DialogFrame::showEvent(QShowEvent* e) {
    QDialog::showEvent(e);
    // Without a field to type in, the keyboard starts on the default button.
    bool velden = false;
    for (QWidget* w = nextInFocusChain(); w && w != this; w = w->nextInFocusChain())
        velden = velden || (isAncestorOf(w) && w->isVisibleTo(this) && w->isEnabled() &&
                            (w->focusPolicy() & Qt::TabFocus));
    if (velden || m_focus >= 0)
        return;
    int standaard = -1;
    for (int i = 0; i < vlakken.size(); ++i)
        if (vlakken[i].standaard && vlakken[i].enabled)
            standaard = i;
    setFocus(Qt::ActiveWindowFocusReason);
    zetFocus(standaard >= 0 ? standaard : volgendVlak(-1, 1));
}

bool DialogFrame::focusNextPrevChild(bool volgende) {
    // The stops in Tab order: the window's own fields first, then the enabled painted areas.
    QList<QWidget*> velden;
    for (QWidget* w = nextInFocusChain(); w && w != this; w = w->nextInFocusChain())
        if (isAncestorOf(w) && w->isVisibleTo(this) && w->isEnabled() &&
            (w->focusPolicy() & Qt::TabFocus) && !velden.contains(w))
            velden << w;
    QList<int> stops; // >= 0: an area; < 0: field -1 - i
    for (int i = 0; i < velden.size(); ++i)
        stops << -1 - i;
    for (int i = 0; i < vlakken.size(); ++i)
        if (vlakken[i].enabled)
            stops << i;
    if (stops.isEmpty())
        return false;
    int nu = -1;
    QWidget* f = focusWidget();
    if (m_focus >= 0 && (!f || f == this))
        nu = int(stops.indexOf(m_focus));
    else if (f && f != this)
        nu = int(velden.indexOf(f));
    const int n = int(stops.size());
    const int stop = stops[nu < 0 ? (volgende ? 0 : n - 1) : (nu + (volgende ? 1 : -1) + n) % n];
    if (stop >= 0) {
        setFocus(volgende ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        zetFocus(stop);
    } else {
        zetFocus(-1);
        velden[-1 - stop]->setFocus(volgende ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    }
    return true;
}

int DialogFrame::volgendVlak(int vanaf, int stap) const {
    const int n = int(vlakken.size());
    for (int i = 1; i <= n; ++i) {
        const int j = ((vanaf + stap * i) % n + n) % n;
        if (vlakken[j].enabled)
            return j;
    }
    return -1;
}

void DialogFrame::zetFocus(int index) {
    m_focus = index;
    gewijzigd();
    update();
    PaintingViewAccessible::meldFocus(this, *this, m_gemeld);
}

void DialogFrame::drukVlak(int index) {
    if (index < 0 || index >= vlakken.size() || !vlakken[index].enabled || !vlakken[index].klik)
        return;
    // A copy: the click may renew the areas.
    const auto klik = vlakken[index].klik;
    klik();
    naActie();
}

QList<PaintedControl> DialogFrame::maakGeschilderd() const {
    QList<PaintedControl> lijst;
    voegTekstenToe(lijst);
    for (PaintedControl& t : lijst)
        t.plek = inVenster(t.plek);
    for (int i = 0; i < vlakken.size(); ++i) {
        const Vlak& v = vlakken[i];
        PaintedControl c;
        c.rol = v.soort == Soort::Knop    ? QAccessible::Button
                : v.soort == Soort::Optie ? QAccessible::RadioButton
                                          : QAccessible::CheckBox;
        c.naam = AccessibleName::maak(v.tekst);
        c.plek = inVenster(v.plek);
        c.focus = i == m_focus;
        c.uitgeschakeld = !v.enabled;
        c.aanvinkbaar = v.soort != Soort::Knop;
        c.aangevinkt = v.aan;
        c.drukbaar = bool(v.klik);
        c.stop = i;
        lijst << c;
    }
    return lijst;
}

void DialogFrame::druk(const PaintedControl& control) {
    drukVlak(control.stop);
}

void DialogFrame::voegKnoppenToe(int breedte, int boven, int hoogte, const QString& ok,
                                 bool okEnabled, std::function<void()> okKlik,
                                 const QString& annuleer) {
    const int b = (breedte - 36 - 12) / 2;
    Vlak okVlak;
    okVlak.plek = QRect(18, boven, b, hoogte);
    okVlak.tekst = ok;
    okVlak.standaard = true;
    okVlak.enabled = okEnabled;
    okVlak.klik = [this, okKlik = std::move(okKlik)] {
        okKlik();
        m_klaar = true;
    };
    vlakken << okVlak;
    Vlak annuleerVlak;
    annuleerVlak.plek = QRect(breedte - 18 - b, boven, b, hoogte);
    annuleerVlak.tekst = annuleer;
    annuleerVlak.klik = [this] { annuleren(); };
    vlakken << annuleerVlak;
}

} // namespace tk
