#pragma once

#include <QImage>

namespace tk {

// The fixed pictures of the desktop that no theme or library gives: the "no icon" picture
// (picGeen), the drive of the "cdrom" item, and picInternet3, the internet icon in three states
// side by side (normal, pressed, the one the desktop shows from column 62).
class FrmBureaubladBeelden {
public:
    static constexpr int Maat = 32;
    static constexpr int InternetMaat = 31;

    static QImage Geen();
    static QImage Schijf();
    // Built around `wereld`, the standard library's internet picture when there is one.
    static QImage Internet3(const QImage& wereld);
};

} // namespace tk
