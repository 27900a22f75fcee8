#include "FrmMainView.h"

#include "FrmMain.h"
#include "controls/SkinnedButtonView.h"
#include "screens/common/LoadingBarPainter.h"
#include "screens/common/LogonFields.h"
#include "screens/common/PaintingViewAccessible.h"
#include "screens/taskbar/FrmTaakbalk1View.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>

namespace tk {

FrmMainView::FrmMainView(FrmMain& model, QWidget* ouder) : QWidget(ouder), m(model) {
    setWindowTitle(QStringLiteral("Tafelkrater"));
    setFocusPolicy(Qt::StrongFocus);
    m_canvas = new FrmMainCanvas(model, this);
    resize(1024, 768);
    m.onChanged = [this] { m_canvas->bijwerken(); };
    m_canvas->bijwerken();
}

FrmMainView::~FrmMainView() {
    m.onChanged = nullptr;
}

void FrmMainView::resizeEvent(QResizeEvent*) {
    // Unscaled and centred on a screen of another size.
    m_canvas->move((width() - m_canvas->width()) / 2, (height() - m_canvas->height()) / 2);
}

void FrmMainView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), Qt::black);
}

void FrmMainView::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Shift)
        m.link.ShiftIngedrukt = true;
    if (m.Toets(e->key(), e->modifiers() & Qt::ShiftModifier))
        return;
    QWidget::keyPressEvent(e);
}

bool FrmMainView::event(QEvent* e) {
    if (e->type() == QEvent::KeyPress) {
        auto* toets = static_cast<QKeyEvent*>(e);
        if ((toets->key() == Qt::Key_Tab || toets->key() == Qt::Key_Backtab) &&
            m.Toets(toets->key(), toets->modifiers() & Qt::ShiftModifier))
            return true;
    }
    return QWidget::event(e);
}

} // namespace tk
