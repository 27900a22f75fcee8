#include "FrmOnderhoudView.h"

#include "FrmOnderhoud.h"
#include "OnderhoudPaneel.h"
#include "screens/common/PaintingViewAccessible.h"

#include <QMouseEvent>
#include <QPainter>

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

FrmOnderhoudView::FrmOnderhoudView(FrmOnderhoud& model, QWidget* ouder) : QWidget(ouder), m(model) {
    setFixedSize(FrmOnderhoud::Breedte, FrmOnderhoud::Hoogte);
    setMouseTracking(true);
    setWindowTitle(m.Caption);
    // The hit boxes are measured with the font the rows are painted in.
    m.tekstBreedte = [](const QString& tekst, int grootte) {
        return QFontMetrics(menuFont(grootte, false)).horizontalAdvance(tekst);
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
    for (const QRect& vak : laatsteHertekening)
        update(vak);
    gewijzigd();
    PaintingViewAccessible::meldFocus(this, *this, m_focusGemeld);
}

QList<PaintedControl> FrmOnderhoudView::maakGeschilderd() const {
    return m.bedieningen();
}

void FrmOnderhoudView::druk(const PaintedControl& control) {
    m.Kies(control.stop);
}

void FrmOnderhoudView::tekenMenu(QPainter& g, const QRect& vak) {
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
            if (hover) {
                g.setPen(kleur(m.kleurLijn));
                g.setBrush(kleur(m.kleurLijn).lighter(115));
                g.drawRoundedRect(rij.adjusted(-5, -2, 5, 2), 3, 3);
                g.setBrush(Qt::NoBrush);
            }
            if (kop && soort >= 0) {
                const QImage beeld(m.groepBeeld[size_t(soort)]);
                const QRect plek(rij.left() - 40, rij.center().y() - 14, 28, 28);
                if (!beeld.isNull())
                    g.drawImage(plek, beeld);
            }
            g.setFont(menuFont(m.cel(gr, r, FrmOnderhoud::Grootte).toInt(), kop));
            g.setPen(tekst);
            g.drawText(rij.adjusted(0, 0, 40, 0), Qt::AlignLeft | Qt::AlignVCenter,
                       m.cel(gr, r, FrmOnderhoud::Tekst));
        }
    }
}

void FrmOnderhoudView::paintEvent(QPaintEvent* e) {
    QPainter g(this);
    const QRect vak = e->rect();
    if (!m_achtergrond.isNull())
        g.drawImage(rect(), m_achtergrond);
    else
        g.fillRect(rect(), QColor(236, 241, 247));
    g.setPen(kleur(m.kleurMenu));
    QFont kop(QStringLiteral("Verdana"));
    kop.setPixelSize(26);
    kop.setBold(true);
    g.setFont(kop);
    g.drawText(QRect(80, 30, 600, 40), Qt::AlignLeft | Qt::AlignVCenter, m.lblKop);
    g.setPen(kleur(m.kleurLijn));
    g.drawLine(290, 100, 290, 640);

    tekenMenu(g, vak);

    QFont klein(QStringLiteral("Verdana"));
    klein.setPixelSize(12);
    g.setFont(klein);
    g.setPen(kleur(m.kleurHelp));
    g.drawText(QRect(m.plekHelp, QSize(250, 60)), Qt::TextWordWrap | Qt::AlignLeft, m.lblMenuHelp);
    g.setPen(kleur(m.BewerkModus ? FrmOnderhoud::LichtGrijs : m.kleurMenu));
    g.drawText(m.afmeldenVak(), Qt::AlignRight | Qt::AlignVCenter, m.lblAfmelden);
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
