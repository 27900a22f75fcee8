#include "TaakbalkToetsen.h"

#include "core/Programma.h"
#include "screens/taskbar/FrmTaakbalk1.h"
#include "screens/taskbar/FrmTaakbalk2.h"

#include <QKeyEvent>

namespace tk {

TaakbalkToetsen::TaakbalkToetsen(Programma& p, QObject* ouder) : QObject(ouder), p(p) {}

bool TaakbalkToetsen::vast(Qt::KeyboardModifiers toetsen) {
    const auto beide = Qt::ControlModifier | Qt::ShiftModifier;
    return (toetsen & (beide | Qt::AltModifier)) == beide;
}

int TaakbalkToetsen::toetscode(int qtToets) {
    switch (qtToets) {
    case Qt::Key_F8:
        return 119;
    case Qt::Key_F9:
        return 120;
    case Qt::Key_F10:
        return 121;
    case Qt::Key_F11:
        return 122;
    case Qt::Key_S:
        return 83;
    case Qt::Key_O:
        return 79;
    default:
        return 0;
    }
}

bool TaakbalkToetsen::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(object, event);
    const auto* toets = static_cast<QKeyEvent*>(event);
    const int code = toetscode(toets->key());
    if (!code || toets->isAutoRepeat() || !vast(toets->modifiers()))
        return QObject::eventFilter(object, event);
    if (p.BureaubladOpen && p.frmTaakbalk2)
        return p.frmTaakbalk2->Form_KeyDown(code, true);
    if (p.frmTaakbalk1)
        return p.frmTaakbalk1->Form_KeyDown(code, true);
    return false;
}

} // namespace tk
