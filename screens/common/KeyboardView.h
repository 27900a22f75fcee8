#pragma once

#include <QWidget>

class QKeyEvent;

namespace tk {

// A view whose model moves the keyboard's focus itself among the controls it paints (the start
// screen, the desktop, the maintenance module): every key goes to toets() first, Tab and
// Shift+Tab too, which Qt would otherwise take to move between its widgets. A key toets() does
// not use goes on as usual (to the parent, or to Qt's own focus chain for Tab).
class KeyboardView : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

protected:
    // A key (Qt key code, Shift held) for the model; true when it was used.
    virtual bool toets(int toets, bool shift) = 0;
    void keyPressEvent(QKeyEvent*) override;
    bool event(QEvent*) override;
};

} // namespace tk
