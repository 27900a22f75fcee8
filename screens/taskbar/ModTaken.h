#pragma once

#include "platform/Windows.h"

#include <QImage>
#include <QList>
#include <QString>

namespace tk {

class Programma;

// One entry of a task list: the window's title (the entry's text) and its handle (the entry's
// data).
struct Taak {
    QString titel;
    quint64 handle = 0;
    bool operator==(const Taak&) const = default;
};

// What the task list makes of one top-level window.
enum class Vensteroordeel {
    Taak,      // a task: it gets a button
    Overslaan, // not a task
    Sluiten,   // a window that may not stay open under the shell: closed at once
};

// modTaken: which top-level windows are tasks, bringing one forward, and their icons.
class ModTaken {
public:
    explicit ModTaken(Programma& p);

    // A title is read as into a buffer of 256 characters: longer ones are cut.
    static constexpr int TitelLengte = 255;
    // The one window that is closed on sight.
    static QString beveiligingscentrum() { return QStringLiteral("Windows Beveiligingscentrum"); }

    // The acceptance rule of the task list (WhichWindowsCallBack): a visible window without a
    // parent that is either unowned and not a tool window, or owned and marked as an application
    // window; with a title. One rule, so that every list and every test applies the same.
    static Vensteroordeel acceptWindow(const WindowInfo& venster);
    // The title as the task list keeps it.
    static QString titelVan(const WindowInfo& venster);

    // Fills `lijst` anew with the tasks in the window manager's order and returns their count;
    // closes the windows that may not stay open.
    int WhichWindows(QList<Taak>& lijst);
    // Brings a window forward, restoring it when minimised; false when it is gone.
    bool pSetForegroundWindow(quint64 hwnd);
    // The window's icon at 16 by 16 pixels, null when it has none (GetIcon).
    QImage GetIcon(quint64 hwnd);

private:
    Programma& p;
};

} // namespace tk
