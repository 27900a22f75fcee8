#pragma once

#include <QObject>

namespace tk {

class Programma;

// Hands the keys pressed in any window of the client to the taskbar that stands (the desktop's
// while a desktop is open, else the start screen's), with the taskbars' flag for held keys: Ctrl
// and Shift down together. (Ctrl+Alt with a function key is the X server's own switch of
// consoles and never reaches a program.) Installed on the application by the client.
class TaakbalkToetsen : public QObject {
    Q_OBJECT
public:
    explicit TaakbalkToetsen(Programma& p, QObject* ouder = nullptr);
    static bool vast(Qt::KeyboardModifiers toetsen);
    // The key code of the system for a key of Qt (F8 is 119), or 0 for a key no bar acts on.
    static int toetscode(int qtToets);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    Programma& p;
};

} // namespace tk
