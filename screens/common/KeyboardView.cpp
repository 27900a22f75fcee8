#include "KeyboardView.h"

#include <QKeyEvent>

namespace tk {

void KeyboardView::keyPressEvent(QKeyEvent* e) {
    if (!toets(e->key(), e->modifiers() & Qt::ShiftModifier))
        QWidget::keyPressEvent(e);
}

bool KeyboardView::event(QEvent* e) {
    // Qt takes Tab for its focus chain before keyPressEvent is asked.
    if (e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        if ((k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab) &&
            toets(k->key(), k->modifiers() & Qt::ShiftModifier))
            return true;
    }
    return QWidget::event(e);
}

} // namespace tk
