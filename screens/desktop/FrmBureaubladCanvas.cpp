#include "FrmBureaubladCanvas.h"

#include "FrmBureaublad.h"
#include "StarterOverlayView.h"
#include "controls/Contrast.h"
#include "controls/FocusRing.h"
#include "controls/Knop2.h"
#include "screens/common/LogonFields.h"
#include "screens/common/PaintingViewAccessible.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

namespace tk {

namespace {

QString regels(QString tekst) {
    return tekst.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

// Magenta stands for "no colour".
bool doorzichtig(const QColor& c) {
    return c == QColor(255, 0, 255);
}

} // namespace

FrmBureaubladCanvas::FrmBureaubladCanvas(FrmBureaublad& model, QWidget* ouder)
    : QWidget(ouder), m(model) {
    setFixedSize(FrmBureaublad::SchermBreedte, FrmBureaublad::SchermHoogte);
    setMouseTracking(true);
    m_leraren = new QComboBox(this);
    m_leraren->setFont(QFont(QStringLiteral("Verdana"), 9));
    m_leraren->hide();
    connect(m_leraren, &QComboBox::activated, this, [this](int i) { m.cmbAanmelden_Click(i); });
    const LogonFields velden(this, m);
    m_wachtwoord = velden.wachtwoord;
    m_aanmelden = velden.knop;
    m_overlay = new StarterOverlayView(m, this);
}

void FrmBureaubladCanvas::bijwerken() {
    gewijzigd();
    const QRect paneel = m.picAanmelden;
    const bool paneelZichtbaar = m.picAanmeldenZichtbaar;
    if (m_leraren->count() != m.cmbAanmelden.size() ||
        (m_leraren->count() > 0 && m_leraren->itemText(0) != m.cmbAanmelden.value(0))) {
        m_leraren->clear();
        m_leraren->addItems(m.cmbAanmelden);
    }
    if (m.cmbAanmeldenIndex >= 0 && m_leraren->currentIndex() != m.cmbAanmeldenIndex)
        m_leraren->setCurrentIndex(m.cmbAanmeldenIndex);
    m_leraren->setGeometry(paneel.left() + 60, paneel.top() + 40, paneel.width() - 80, 26);
    m_leraren->setVisible(paneelZichtbaar);
    m_wachtwoord->setGeometry(paneel.left() + 60, paneel.top() + 76, paneel.width() - 80, 26);
    m_wachtwoord->setVisible(paneelZichtbaar);
    if (m_wachtwoord->text() != m.txtWachtwoord)
        m_wachtwoord->setText(m.txtWachtwoord);
    // Also while the window is not yet shown: the box takes the keys when it comes.
    if (m.focusOpWachtwoord && !m_wachtwoord->isHidden()) {
        m_wachtwoord->setFocus();
        m.focusOpWachtwoord = false;
    }
    m_aanmelden->setText(m.knopAanmeldenTekst);
    m_aanmelden->setGeometry(paneel.right() - 120, paneel.bottom() - 40, 100, 26);
    m_aanmelden->setVisible(paneelZichtbaar);
    m_overlay->bijwerken();
    update();
    PaintingViewAccessible::meldFocus(this, *this, m_focusGemeld);
}

QList<PaintedControl> FrmBureaubladCanvas::maakGeschilderd() const {
    return m.bedieningen();
}

void FrmBureaubladCanvas::druk(const PaintedControl& control) {
    m.KlikIcoon(control.stop);
}

void FrmBureaubladCanvas::paintEvent(QPaintEvent*) {
    QPainter g(this);
    g.fillRect(rect(), QColor(92, 180, 238));
    if (!m.achtergrond.isNull())
        g.drawImage(0, 0, m.achtergrond);
    else if (!m.startschermBeeld.isNull())
        g.drawImage(rect(), m.startschermBeeld);

    // The header and the sub-header under it, each with its shadow.
    g.setFont(m.kopFont);
    const QFontMetrics kopMaat(m.kopFont);
    const QRect kop(m.kopPlek,
                    QSize(FrmBureaublad::SchermBreedte - m.kopPlek.x() - 20, kopMaat.height()));
    auto schrijf = [&](const QRect& vak, const QString& tekst, const QColor& kleur) {
        if (!doorzichtig(m.KleurIcoonSchaduw)) {
            g.setPen(m.KleurIcoonSchaduw);
            g.drawText(vak.translated(1, 1), Qt::AlignLeft | Qt::AlignTop, tekst);
        }
        g.setPen(kleur);
        g.drawText(vak, Qt::AlignLeft | Qt::AlignTop, tekst);
    };
    schrijf(kop, m.kop, m.KleurKop);
    if (!m.subKop.isEmpty()) {
        g.setFont(m.subKopFont);
        const QFontMetrics subMaat(m.subKopFont);
        schrijf(QRect(kop.left(), kop.bottom() + 6, kop.width(), subMaat.height() * 2),
                regels(m.subKop), m.KleurKop);
    }

    tekenIconen(g);
    if (m.picAanmeldenZichtbaar)
        tekenAanmelden(g);
    if (!m.ballonTekst.isEmpty() && m.ballonWeergeven)
        tekenWolk(g);
    if (m.picTooltipZichtbaar)
        tekenTooltip(g);
}

void FrmBureaubladCanvas::tekenIconen(QPainter& g) {
    g.save();
    g.setRenderHint(QPainter::Antialiasing);
    g.setFont(m.icoonFont);
    for (const FrmBureaublad::Icoon& i : m.zichtbareIconen) {
        const bool hover = m.Iconen(i.rij, FrmBureaublad::KolomHover) == u"ja";
        if (m.icoonAchtergrond) {
            // A soft box behind the icon, lighter under the mouse.
            QColor vak = hover ? m.KleurIcoonHover : m.KleurIcoonNormaal;
            vak.setAlpha(hover ? 220 : 150);
            g.setPen(Qt::NoPen);
            g.setBrush(vak);
            g.drawRoundedRect(QRectF(i.beeld.adjusted(-6, -6, 6, 6)), 8, 8);
        }
        g.drawImage(i.beeld, i.plaatje);
        if (i.regels.isEmpty())
            continue;
        if (hover) {
            // The highlighted name stands on a box one pixel above the text.
            g.setPen(Qt::NoPen);
            g.setBrush(m.KleurIcoonHover);
            g.drawRect(i.tekst.adjusted(-3, -1, 3, 1));
        }
        const QFontMetrics fm(m.icoonFont);
        // A name that would not stand out from the background under it gets an outline (a
        // shadow of one pixel is not enough).
        const bool rand = !hover && Contrast::randNodig(m.KleurIcoonTekst, m.achtergrond, i.tekst);
        int y = i.tekst.top();
        for (const QString& regel : i.regels) {
            const int x = i.beeld.left() + 16 - fm.horizontalAdvance(regel) / 2;
            if (!hover && !doorzichtig(m.KleurIcoonSchaduw)) {
                g.setPen(m.KleurIcoonSchaduw);
                g.drawText(x + 1, y + fm.ascent() + 1, regel);
            }
            Contrast::schrijf(g, QPoint(x, y + fm.ascent()), regel, m.KleurIcoonTekst, rand);
            y += fm.height();
        }
    }
    for (const FrmBureaublad::Icoon& i : m.zichtbareIconen)
        if (i.rij == m.focusRij && !m.focusOpBalk)
            FocusRing::teken(g, i.beeld.united(i.tekst).adjusted(-8, -8, 8, 8), m.KleurKop);
    g.restore();
}

void FrmBureaubladCanvas::tekenAanmelden(QPainter& g) {
    const QRect r = m.picAanmelden;
    g.save();
    g.setRenderHint(QPainter::Antialiasing);
    g.setPen(QPen(m.KleurKop, 2));
    g.setBrush(QColor(255, 255, 255, 235));
    g.drawRoundedRect(QRectF(r).adjusted(1, 1, -1, -1), 12, 12);
    g.setPen(m.KleurAanmeldentekst);
    g.setFont(QFont(QStringLiteral("Verdana"), 8));
    g.drawText(QRect(r.left() + 16, r.top() + 12, r.width() - 32, 20), Qt::AlignLeft,
               m.lblAanmeldenTekst);
    if (!m.imgAanmelden.isNull())
        g.drawImage(QRect(r.left() + 16, r.top() + 44, 32, 32), m.imgAanmelden);
    g.restore();
}

void FrmBureaubladCanvas::tekenWolk(QPainter& g) {
    if (m.wolk.isNull())
        return;
    const QRect plek(m.ballonPlek, m.wolk.size());
    QImage achter(plek.size(), QImage::Format_RGB32);
    achter.fill(QColor(92, 180, 238));
    if (!m.achtergrond.isNull())
        achter = m.achtergrond.copy(plek);
    else if (!m.startschermBeeld.isNull())
        achter = m.startschermBeeld.scaled(size()).copy(plek);
    QImage wolk = Knop2::samenstellen(achter, m.wolkMask, m.wolk);
    QImage binnen(wolk.width() - 60, wolk.height() * 3 / 4 - 20, QImage::Format_ARGB32);
    binnen.fill(Qt::transparent);
    Knop2::tekenTekst(binnen, m.ballonTekst, QFont(QStringLiteral("Verdana"), 13, QFont::Bold),
                      m.KleurKop);
    {
        QPainter w(&wolk);
        w.drawImage(30, 20, binnen);
    }
    g.drawImage(plek.topLeft(), wolk);
}

void FrmBureaubladCanvas::tekenTooltip(QPainter& g) {
    g.save();
    g.setFont(m.tooltipFont);
    const QFontMetrics fm(m.tooltipFont);
    const QRect vak(m.picTooltipPlek, m.TooltipMaat());
    g.setPen(QColor(0, 0, 0));
    g.setBrush(QColor(255, 255, 225));
    g.drawRect(vak.adjusted(0, 0, -1, -1));
    int y = vak.top() + 4 + fm.ascent();
    for (int i = 0; i < m.tooltipRegels.size(); ++i) {
        QFont f = m.tooltipFont;
        f.setBold(i == 0);
        g.setFont(f);
        g.drawText(vak.left() + 6, y, m.tooltipRegels[i]);
        y += fm.height();
    }
    g.restore();
}

void FrmBureaubladCanvas::mouseMoveEvent(QMouseEvent* e) {
    m.Form_MouseMove(e->position().toPoint().x(), e->position().toPoint().y());
}

void FrmBureaubladCanvas::mouseReleaseEvent(QMouseEvent* e) {
    const int knop = e->button() == Qt::LeftButton ? 1 : e->button() == Qt::RightButton ? 2 : 4;
    m.Form_MouseUp(knop, e->position().toPoint().x(), e->position().toPoint().y());
}

void FrmBureaubladCanvas::leaveEvent(QEvent*) {
    m.Form_MouseMove(-1, -1);
}

} // namespace tk
