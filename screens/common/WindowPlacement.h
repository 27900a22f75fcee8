#pragma once

class QWidget;

namespace tk {

// Where the program's own windows stand on the screen.
struct WindowPlacement {
    // Centres a top-level window on the screen it is on (or the primary screen).
    static void centreer(QWidget& venster);
};

} // namespace tk
