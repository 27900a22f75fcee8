#include "FrmBureaubladView.h"

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

FrmBureaubladView::FrmBureaubladView(FrmBureaublad& model, QWidget* ouder)
    : KeyboardView(ouder), m(model) {
    setWindowTitle(QStringLiteral("Tafelkrater"));
    setFocusPolicy(Qt::StrongFocus);
    m_canvas = new FrmBureaubladCanvas(model, this);
    resize(FrmBureaublad::SchermBreedte, FrmBureaublad::SchermHoogte);
    m.onChanged = [this] { m_canvas->bijwerken(); };
    m.VensterHandle = [this] { return quint64(winId()); };
    m.Tonen = [this] {
        show();
        raise();
        activateWindow();
    };
    m_canvas->bijwerken();
}

void FrmBureaubladView::openen() {
    if (!isVisible()) {
        setWindowFlag(Qt::FramelessWindowHint);
        // The manager must know the kind before it first maps the window.
        m.MarkeerAlsBureaublad(quint64(winId()));
        if (QScreen* scherm = screen())
            setGeometry(scherm->geometry());
        show();
    }
    raise();
    activateWindow();
    m.Activeer(quint64(winId()));
}

FrmBureaubladView::~FrmBureaubladView() {
    m.onChanged = nullptr;
    m.VensterHandle = nullptr;
    m.Tonen = nullptr;
}

void FrmBureaubladView::resizeEvent(QResizeEvent*) {
    // Unscaled and centred on a screen of another size.
    m_canvas->move((width() - m_canvas->width()) / 2, (height() - m_canvas->height()) / 2);
}

void FrmBureaubladView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

bool FrmBureaubladView::toets(int toets, bool shift) {
    return m.Toets(toets, shift);
}

} // namespace tk
