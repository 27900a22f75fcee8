#pragma once

#include <QtGlobal>

namespace tk {

class Programma;

// modTaakbalk: the standing of a bar on the screen. The work area that maximised windows fill,
// and staying above all other windows.
class ModTaakbalk {
public:
    explicit ModTaakbalk(Programma& p) : p(p) {}

    // Maximised windows fill left..right by top..bottom (right and bottom not included); the
    // rest of the screen is kept free for the bar `venster`, which reserves it.
    void SetSysWorkArea(quint64 venster, int left, int top, int right, int bottom);
    // Keeps `venster` above all other windows, or lets it fall back.
    void FormOnTop(quint64 venster, bool boven);
    // Marks `venster` as a bar of the shell before it is shown: no frame, no task of its own,
    // on every desktop.
    void MarkeerAlsBalk(quint64 venster);

private:
    Programma& p;
};

} // namespace tk
