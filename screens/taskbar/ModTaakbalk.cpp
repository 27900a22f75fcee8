#include "ModTaakbalk.h"

#include "core/Programma.h"
#include "platform/Windows.h"

#include <QRect>

namespace tk {

void ModTaakbalk::SetSysWorkArea(quint64 venster, int left, int top, int right, int bottom) {
    if (venster == 0 || right <= left || bottom <= top)
        return;
    p.platform.windows().reserveWorkArea(venster, QRect(left, top, right - left, bottom - top));
}

void ModTaakbalk::FormOnTop(quint64 venster, bool boven) {
    if (venster != 0)
        p.platform.windows().setOnTop(venster, boven);
}

void ModTaakbalk::MarkeerAlsBalk(quint64 venster) {
    if (venster != 0)
        p.platform.windows().setKind(venster, ShellWindowKind::Dock);
}

} // namespace tk
