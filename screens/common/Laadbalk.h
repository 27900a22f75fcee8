#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

namespace tk {

// The loading bar picLaden that the start screen and the wait windows share: a rim of 2 pixels
// round a bar of 9 rows (y 2 to 11), filled with blocks 8 wide at a pitch of 10, and a text. The
// blocks are places inside the bar's own rectangle; a view paints them with its own colours.
class Laadbalk {
public:
    static constexpr int Pitch = 10;
    static constexpr int Blok = 8;
    static constexpr int BalkBoven = 2;
    static constexpr int BalkHoogte = 9;
    // The counter of the bouncing block runs from -9 up to 110 and back.
    static constexpr int TellerMin = -9;
    static constexpr int TellerMax = 110;

    // The blocks of a bar `breedte` wide that shows `huidig` of `totaal`: up to the end, a block
    // per pitch while it fits, then one last partial block to width - 3.
    static QList<QRect> blokken(int breedte, int totaal, int huidig);
    // The one moving block at the counter's place; moving down it stands a pitch to the left.
    static QRect springBlok(int breedte, int totaal, int huidig, bool omlaag);
    // Where the text of TijdLadenEx is centred: x the middle, y its vertical centre.
    static QPoint tekstPlek(const QSize& maat);
    // One tick of the counter: up by one to 110, then down to below -9, and back.
    static void stap(int& teller, bool& omlaag);

    // --- a bar with its own state, for the windows that hold one
    void TijdLadenEx(int totaal, int huidig, const QString& tekst);
    void TijdLadenEx2(int totaal, int huidig, const QString& tekst);
    // One tick of tmrLaden: the counter moves and the block is drawn at its place.
    void tik(const QString& tekst);

    QRect plek{0, 0, 400, 40}; // picLaden on its window
    QList<QRect> blokkenNu;
    QString tekst;
    QPoint tekstMidden;
    int teller = 0;
    bool omlaag = false;
};

} // namespace tk
