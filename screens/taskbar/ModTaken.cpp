#include "ModTaken.h"

#include "core/Programma.h"
#include "platform/Windows.h"

namespace tk {

ModTaken::ModTaken(Programma& p) : p(p) {}

QString ModTaken::titelVan(const WindowInfo& venster) {
    return venster.title.left(TitelLengte);
}

Vensteroordeel ModTaken::acceptWindow(const WindowInfo& venster) {
    if (!venster.visible || venster.parent != 0)
        return Vensteroordeel::Overslaan;
    const bool eigenaar = venster.owner != 0;
    const bool taakvorm = eigenaar ? venster.appWindow : !venster.toolWindow;
    if (!taakvorm)
        return Vensteroordeel::Overslaan;
    const QString titel = titelVan(venster);
    if (titel == beveiligingscentrum())
        return Vensteroordeel::Sluiten;
    if (titel.isEmpty())
        return Vensteroordeel::Overslaan;
    return Vensteroordeel::Taak;
}

int ModTaken::WhichWindows(QList<Taak>& lijst) {
    lijst.clear();
    Windows& vensters = p.platform.windows();
    if (!vensters.available())
        return 0;
    const QList<WindowInfo> alle = vensters.topLevelWindows();
    for (const WindowInfo& venster : alle) {
        switch (acceptWindow(venster)) {
        case Vensteroordeel::Taak:
            lijst.append(Taak{titelVan(venster), venster.handle});
            break;
        case Vensteroordeel::Sluiten:
            vensters.close(venster.handle);
            break;
        case Vensteroordeel::Overslaan:
            break;
        }
    }
    return int(lijst.size());
}

bool ModTaken::pSetForegroundWindow(quint64 hwnd) {
    if (hwnd == 0)
        return false;
    // The manager raises the window, restores it when it is minimised and gives it the focus,
    // whichever program holds the foreground now.
    return p.platform.windows().activate(hwnd);
}

QImage ModTaken::GetIcon(quint64 hwnd) {
    if (hwnd == 0)
        return {};
    return p.platform.windows().icon(hwnd, 16);
}

} // namespace tk
