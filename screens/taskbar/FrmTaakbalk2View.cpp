#include "FrmTaakbalk2View.h"

#include "FrmTaakbalk2.h"
#include "TaakbalkKnopView.h"
#include "controls/Contrast.h"
#include "controls/FocusRing.h"
#include "controls/Ondergrond.h"
#include "screens/common/PaintingViewAccessible.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace tk {

FrmTaakbalk2View::FrmTaakbalk2View(FrmTaakbalk2& model, QWidget* ouder)
    : QWidget(ouder, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                         Qt::WindowDoesNotAcceptFocus),
      m(model) {
    setWindowTitle(QStringLiteral("Tafelkrater taakbalk"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    m.VensterHandle = [this] { return quint64(winId()); };
    m.onChanged = [this] {
        gewijzigd();
        update();
        PaintingViewAccessible::meldFocus(this, *this, m_focusGemeld);
    };
    m.Plaatsen = [this](const QRect& plek) { setGeometry(plek); };
    m.MuisPositie = [this] { return mapFromGlobal(QCursor::pos()); };
    m.VensterTonen = [this] { openen(); };
    m.VensterVerbergen = [this] { sluiten(); };
    m.VensterZichtbaar = [this](bool zichtbaar) { setVisible(zichtbaar); };
    m.SchermGrootte = [this] { return screen() ? screen()->geometry().size() : QSize(); };
    setGeometry(m.Plek);
    // A display change moves the strip with the screen's new bottom.
    if (QScreen* scherm = screen())
        connect(scherm, &QScreen::geometryChanged, this, [this](const QRect& nieuw) {
            if (m.Geladen)
                m.VensterPositie(nieuw.height(), nieuw.width());
        });
}

FrmTaakbalk2View::~FrmTaakbalk2View() {
    m.VensterHandle = nullptr;
    m.onChanged = nullptr;
    m.Plaatsen = nullptr;
    m.MuisPositie = nullptr;
    m.VensterTonen = nullptr;
    m.VensterVerbergen = nullptr;
    m.VensterZichtbaar = nullptr;
    m.SchermGrootte = nullptr;
}

void FrmTaakbalk2View::openen() {
    if (m.Geladen) {
        show();
        return;
    }
    // The manager must know the window as a bar before it first maps it.
    m.modTaakbalk.MarkeerAlsBalk(quint64(winId()));
    if (QScreen* scherm = screen()) {
        m.BalkBreedte = scherm->geometry().width();
        m.SchermHoogte = scherm->geometry().height();
    }
    m.Form_Load();
    show();
}

void FrmTaakbalk2View::sluiten() {
    m.Form_Unload();
    hide();
}

void FrmTaakbalk2View::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m.achtergrondKleur);
    if (!m.achtergrond.isNull())
        painter.drawImage(QRect(0, 0, width(), m.Hoogte), m.achtergrond);
    const Ondergrond balk{m.achtergrond, QSize(width(), m.Hoogte), m.achtergrondKleur};
    for (const TaakbalkKnop& k : m.vasteKnoppen)
        TaakbalkKnopView::teken(painter, k, m.knopFont, FrmTaakbalk2::BeeldMaat, balk);
    tekenTaken(painter, balk);
}

void FrmTaakbalk2View::tekenTaken(QPainter& painter, const Ondergrond& balk) {
    painter.save();
    // Buttons that would run into the fixed buttons on the right are cut off there.
    painter.setClipRect(QRect(0, 0, m.takenGrens(), height()));
    painter.setFont(m.takenFont);
    const QFontMetrics fm(m.takenFont);
    const int kaderTop = 4;
    const int kaderHoogte = m.Hoogte - 2 * kaderTop;
    for (int i = 0; i < m.AantalKnoppen; ++i) {
        using K = FrmTaakbalk2::Kolom;
        const int links = m.Knoppen(i, K::Links).toInt();
        const int rechts = m.Knoppen(i, K::Rechts).toInt();
        const int kaderLinks = m.Knoppen(i, K::KaderLinks).toInt();
        const int kaderRechts = m.Knoppen(i, K::KaderRechts).toInt();
        const bool internet = m.Knoppen(i, K::Actie) == u"internet";
        const bool ingedrukt = i == m.ActieveKnop || i == m.IngedruktKnop;
        const bool hover = !ingedrukt && i == m.HoverKnop;

        const QRect kader(kaderLinks, kaderTop, kaderRechts - kaderLinks - 2, kaderHoogte);
        if (ingedrukt)
            painter.fillRect(kader, m.takenGeselecteerd);
        else if (hover)
            painter.fillRect(kader, m.takenHover);
        painter.setPen(m.takenRand);
        painter.drawRect(kader.adjusted(0, 0, -1, -1));

        const int icoonTop = kaderTop + (kaderHoogte - FrmTaakbalk2::IcoonMaat) / 2 + 1;
        const int icoonLinks = internet ? FrmTaakbalk2::InternetIcoonLinks : links + 2;
        const QImage icoon = internet ? m.internetIcoon : m.taken.icoon(m.handleVan(i));
        if (!icoon.isNull()) {
            painter.drawImage(icoonLinks, icoonTop, icoon);
        } else {
            // A window without an icon of its own: a small window.
            painter.setPen(ingedrukt ? m.takenTekstGeselecteerd : m.takenTekst);
            painter.drawRect(icoonLinks + 1, icoonTop + 2, 13, 11);
            painter.drawLine(icoonLinks + 1, icoonTop + 5, icoonLinks + 14, icoonTop + 5);
        }

        const int tekstLinks = internet ? links + 2 : links + FrmTaakbalk2::TitelInspringing;
        const int tekstBreedte = internet ? rechts - links : rechts - links - 4;
        const QString tekst = FrmTaakbalk2::Tekentekst(m.Knoppen(i, K::Titel), fm, tekstBreedte);
        const QColor kleur =
            ingedrukt ? m.takenTekstGeselecteerd : (hover ? m.takenTekstHover : m.takenTekst);
        // A pressed title sits one pixel lower, as on a pressed button.
        const int basis =
            kaderTop + (kaderHoogte - fm.height()) / 2 + fm.ascent() + (ingedrukt ? 1 : 0);
        // Under the title lies the button's fill when pressed or under the mouse, else the bar.
        const Ondergrond onder = ingedrukt ? Ondergrond{{}, {}, m.takenGeselecteerd}
                                 : hover   ? Ondergrond{{}, {}, m.takenHover}
                                           : balk;
        const QRect vak(tekstLinks, basis - fm.ascent(), fm.horizontalAdvance(tekst), fm.height());
        Contrast::schrijf(painter, QPoint(tekstLinks, basis), tekst, kleur,
                          onder.randNodig(kleur, vak));
        if (i == m.focusPlek)
            FocusRing::teken(painter, kader.adjusted(-1, -2, 1, 2), m.takenGeselecteerd);
    }
    painter.restore();
}

void FrmTaakbalk2View::mouseMoveEvent(QMouseEvent* e) {
    const QPoint punt = e->position().toPoint();
    m.Form_MouseMove(punt);
    // The whole title of a task, which its button may show cut, and what a picture does.
    QString hint;
    const int rij = m.knopOp(punt);
    if (rij >= 0)
        hint = m.Knoppen(rij, FrmTaakbalk2::Titel);
    for (const TaakbalkKnop& k : m.vasteKnoppen)
        if (!k.plek.isNull() && k.plek.contains(punt))
            hint = k.hint;
    if (hint != toolTip())
        setToolTip(hint);
}

void FrmTaakbalk2View::mousePressEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton)
        m.Form_MouseDown(e->position().toPoint());
}

void FrmTaakbalk2View::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton)
        m.Form_MouseUp(e->position().toPoint());
}

QList<PaintedControl> FrmTaakbalk2View::maakGeschilderd() const {
    return m.bedieningen();
}

void FrmTaakbalk2View::druk(const PaintedControl& control) {
    m.drukFocus(control.stop);
}

void FrmTaakbalk2View::leaveEvent(QEvent*) {
    m.Form_MouseMove(QPoint(-1, -1));
}

} // namespace tk
