#include "FrmOnderhoudView.h"

#include "FrmOnderhoud.h"
#include "OnderhoudPaneel.h"
#include "controls/Contrast.h"
#include "controls/FocusRing.h"
#include "controls/Ondergrond.h"
#include "screens/common/FocusOrder.h"
#include "screens/common/PaintingViewAccessible.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace tk {

namespace {

QColor kleur(quint32 bgr) {
    return QColor(int(bgr & 0xff), int(bgr >> 8 & 0xff), int(bgr >> 16 & 0xff));
}

QFont menuFont(int grootte, bool kop) {
    QFont font(QStringLiteral("Verdana"));
    font.setPixelSize(grootte + 3);
    font.setBold(kop);
    return font;
}

} // namespace

FrmOnderhoudView::FrmOnderhoudView(FrmOnderhoud& model, QWidget* ouder)
    : KeyboardView(ouder), m(model) {
    setFixedSize(FrmOnderhoud::Breedte, FrmOnderhoud::Hoogte);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setWindowTitle(m.Caption);
    // The hit boxes are measured with the font the rows are painted in, bold for a heading.
    m.tekstBreedte = [](const QString& tekst, int grootte, bool kop) {
        return QFontMetrics(menuFont(grootte, kop)).horizontalAdvance(tekst);
    };
    m.onChanged = [this] { bijwerken(); };
}

FrmOnderhoudView::~FrmOnderhoudView() {
    m.onChanged = nullptr;
}

void FrmOnderhoudView::plaatsPaneelView(int nummer, QWidget* view) {
    view->setParent(this);
    view->setGeometry(m.paneelVak());
    view->hide();
    m_panelen[nummer] = view;
}

void FrmOnderhoudView::openen() {
    bijwerken();
    showFullScreen();
    raise();
    activateWindow();
}

void FrmOnderhoudView::bijwerken() {
    setWindowTitle(m.Caption);
    if (m_achtergrondPad != m.achtergrond) {
        m_achtergrondPad = m.achtergrond;
        m_achtergrond = QImage(m_achtergrondPad);
    }
    laatsteHertekening.clear();
    const auto rijen = m.Tekenmenu();
    if (m.menuVerschoven) {
        m.menuVerschoven = false;
        laatsteHertekening << menuVak();
    } else {
        // The hover box stands a few pixels around the row.
        for (const auto& [g, r] : rijen)
            laatsteHertekening << m.rijVak(g, r).adjusted(-6, -3, 6, 3);
    }
    for (const auto& [nummer, view] : m_panelen)
        view->setVisible(m.Zichtbaar && nummer == m.ZichtbaarPaneel);
    laatsteHertekening << m.infoVak() << m.afmeldenVak();
    // The ring goes with its row when the menu moves, and away with a row folded away.
    if (m_focusStop >= 0)
        laatsteHertekening << focusVak(m_focusStop).adjusted(-1, -1, 1, 1);
    for (const QRect& vak : laatsteHertekening)
        update(vak);
    gewijzigd();
    PaintingViewAccessible::meldFocus(this, *this, m_focusGemeld);
}

QList<PaintedControl> FrmOnderhoudView::maakGeschilderd() const {
    QList<PaintedControl> lijst = m.bedieningen();
    for (PaintedControl& c : lijst)
        c.focus = m_focusStop >= 0 && c.stop == m_focusStop;
    return lijst;
}

QRect FrmOnderhoudView::focusVak(int stop) const {
    if (stop == 999)
        return m.afmeldenVak().adjusted(-4, -3, 4, 3);
    const int g = stop / 100, r = stop % 100;
    if (stop < 0 || g >= FrmOnderhoud::Groepen || r >= FrmOnderhoud::Rijen ||
        m.cel(g, r, FrmOnderhoud::Getoond) != u"ja")
        return {};
    return m.rijVak(g, r).adjusted(-7, -3, 7, 3);
}

void FrmOnderhoudView::zetFocus(int stop) {
    if (stop == m_focusStop)
        return;
    update(focusVak(m_focusStop).adjusted(-1, -1, 1, 1));
    m_focusStop = stop;
    update(focusVak(m_focusStop).adjusted(-1, -1, 1, 1));
    gewijzigd();
    PaintingViewAccessible::meldFocus(this, *this, m_focusGemeld);
}

bool FrmOnderhoudView::toets(int toets, bool shift) {
    // A panel's field keeps its own keys; the menu is dead while a record is edited.
    QWidget* veld = window()->focusWidget();
    if ((veld && veld != this && isAncestorOf(veld)) || m.BewerkModus || !m.Zichtbaar)
        return false;
    if (toets == Qt::Key_Escape) {
        m.lblAfmelden_Click();
        return true;
    }
    if (FocusOrder::isDrukken(toets)) {
        if (m_focusStop < 0)
            return false;
        m.Kies(m_focusStop);
        return true;
    }
    const auto stap = FocusOrder::stapVoor(toets, shift);
    if (!stap)
        return false;
    const QList<PaintedControl> lijst = geschilderd();
    int naar = FocusOrder::volgendeStop(lijst, m_focusStop, *stap);
    if (naar < 0) {
        // Past either end the shown panel's fields come next; without any, round to the other
        // end of the menu.
        zetFocus(-1);
        focusNextPrevChild(*stap == FocusOrder::Stap::Volgende);
        QWidget* nu = window()->focusWidget();
        if (nu && nu != this && isAncestorOf(nu))
            return true;
        naar = FocusOrder::volgendeStop(lijst, -1, *stap);
    }
    zetFocus(naar);
    return true;
}

void FrmOnderhoudView::focusInEvent(QFocusEvent* e) {
    KeyboardView::focusInEvent(e);
    if (m_focusStop >= 0 || m.BewerkModus)
        return;
    if (e->reason() == Qt::TabFocusReason)
        zetFocus(FocusOrder::volgendeStop(geschilderd(), -1, FocusOrder::Stap::Volgende));
    else if (e->reason() == Qt::BacktabFocusReason)
        zetFocus(FocusOrder::volgendeStop(geschilderd(), -1, FocusOrder::Stap::Vorige));
}

void FrmOnderhoudView::druk(const PaintedControl& control) {
    m.Kies(control.stop);
}

void FrmOnderhoudView::tekenMenu(QPainter& g, const QRect& vak, const Ondergrond& achter) {
    for (int gr = 0; gr < FrmOnderhoud::Groepen && !m.cel(gr, 0, FrmOnderhoud::Tekst).isEmpty();
         ++gr) {
        int soort = -1;
        for (int s = 0; s < 7; ++s)
            if (m.MenuGroep[size_t(s)] == gr)
                soort = s;
        for (int r = 0; r < FrmOnderhoud::Rijen && !m.cel(gr, r, FrmOnderhoud::Tekst).isEmpty();
             ++r) {
            if (m.cel(gr, r, FrmOnderhoud::Getoond) != QStringLiteral("ja"))
                continue;
            const QRect rij = m.rijVak(gr, r);
            if (!vak.intersects(rij.adjusted(-48, -3, 6, 3)))
                continue;
            const bool kop = r == 0;
            const QColor tekst = kleur(m.cel(gr, r, FrmOnderhoud::Kleur).toUInt());
            const bool hover =
                m.MenuSleutel == QString::number(gr) + QLatin1Char('|') + QString::number(r);
            const QColor plaat = kleur(m.kleurLijn).lighter(115);
            if (hover) {
                g.setPen(kleur(m.kleurLijn));
                g.setBrush(plaat);
                g.drawRoundedRect(rij.adjusted(-5, -2, 5, 2), 3, 3);
                g.setBrush(Qt::NoBrush);
            }
            // The chosen row carries a bar before its caption, so that it shows as chosen in
            // any theme's colours, and to someone who does not tell those colours apart.
            if (m.cel(gr, r, FrmOnderhoud::Geselecteerd) == QStringLiteral("ja"))
                g.fillRect(QRect(rij.left() - 4, rij.top() + 2, 3, rij.height() - 4),
                           kleur(m.kleurGeselecteerd));
            if (kop && soort >= 0) {
                const QImage beeld(m.groepBeeld[size_t(soort)]);
                const QRect plek(rij.left() - 40, rij.center().y() - 14, 28, 28);
                if (!beeld.isNull())
                    g.drawImage(plek, beeld);
            }
            const QFont font = menuFont(m.cel(gr, r, FrmOnderhoud::Grootte).toInt(), kop);
            const QFontMetrics fm(font);
            const QString& bijschrift = m.cel(gr, r, FrmOnderhoud::Tekst);
            const int boven = rij.top() + (rij.height() - fm.height()) / 2;
            const QRect inkt(rij.left(), boven, fm.horizontalAdvance(bijschrift), fm.height());
            // A caption that does not stand out from what lies under it gets an outline.
            const Ondergrond onder = hover ? Ondergrond{{}, {}, plaat} : achter;
            const bool rand = onder.randNodig(tekst, inkt);
            g.setFont(font);
            Contrast::schrijf(g, QPoint(rij.left(), boven + fm.ascent()), bijschrift, tekst, rand);
        }
    }
}

void FrmOnderhoudView::paintEvent(QPaintEvent* e) {
    QPainter g(this);
    const QRect vak = e->rect();
    if (!m_achtergrond.isNull())
        g.drawImage(rect(), m_achtergrond);
    else
        g.fillRect(rect(), achtergrondKleur());
    // The title and the log-off stand on the theme's band: outlined where they do not stand out
    // from it (not the dead log-off while a record is edited).
    const Ondergrond achter{m_achtergrond, size(), achtergrondKleur()};
    auto schrijf = [&](const QRect& vak, Qt::Alignment uitlijning, const QString& tekst,
                       const QColor& kleur, bool levend) {
        const QFontMetrics fm(g.font());
        const QRect inkt = QStyle::alignedRect(
            Qt::LeftToRight, uitlijning, QSize(fm.horizontalAdvance(tekst), fm.height()), vak);
        Contrast::schrijf(g, QPoint(inkt.left(), inkt.top() + fm.ascent()), tekst, kleur,
                          levend && achter.randNodig(kleur, inkt));
    };
    QFont kop(QStringLiteral("Verdana"));
    kop.setPixelSize(26);
    kop.setBold(true);
    g.setFont(kop);
    schrijf(QRect(80, 30, 600, 40), Qt::AlignLeft | Qt::AlignVCenter, m.lblKop, kleur(m.kleurMenu),
            true);
    g.setPen(kleur(m.kleurLijn));
    g.drawLine(290, 100, 290, 640);

    tekenMenu(g, vak, achter);
    const QRect ring = focusVak(m_focusStop);
    if (!ring.isEmpty())
        FocusRing::teken(g, ring, kleur(m.kleurMenu));

    QFont klein(QStringLiteral("Verdana"));
    klein.setPixelSize(12);
    g.setFont(klein);
    g.setPen(kleur(m.kleurHelp));
    g.drawText(QRect(m.plekHelp, QSize(250, 60)), Qt::TextWordWrap | Qt::AlignLeft, m.lblMenuHelp);
    schrijf(m.afmeldenVak(), Qt::AlignRight | Qt::AlignVCenter, m.lblAfmelden,
            kleur(m.BewerkModus ? FrmOnderhoud::LichtGrijs : m.kleurMenu), !m.BewerkModus);
    if (m.picMenuInfoZichtbaar) {
        g.fillRect(m.infoVak(), kleur(m.kleurLijn).lighter(110));
        g.setPen(kleur(m.kleurMenu));
        g.drawText(m.infoVak().adjusted(8, 0, -8, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, m.lblMenuInfo);
    }
    if (!m.lblLaden.isEmpty()) {
        g.setPen(kleur(m.kleurLaden));
        g.drawText(QRect(m.plekLaden.x() - 200, m.plekLaden.y(), 400, 24), Qt::AlignCenter,
                   m.lblLaden);
    }
}

void FrmOnderhoudView::mouseMoveEvent(QMouseEvent* e) {
    m.Form_MouseMove(e->position().toPoint().x(), e->position().toPoint().y());
}

void FrmOnderhoudView::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton)
        return;
    const QPoint p = e->position().toPoint();
    if (m.afmeldenVak().contains(p)) {
        m.lblAfmelden_Click();
        return;
    }
    m.Form_MouseUp(p.x(), p.y());
}

void FrmOnderhoudView::leaveEvent(QEvent*) {
    m.Form_MouseMove(-1, -1);
}

} // namespace tk
