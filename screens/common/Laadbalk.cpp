#include "Laadbalk.h"

#include <QtGlobal>

namespace tk {

QList<QRect> Laadbalk::blokken(int breedte, int totaal, int huidig) {
    QList<QRect> uit;
    int einde = 0;
    if (huidig >= totaal)
        einde = breedte - 2;
    else if (totaal > 0)
        einde = int(qint64(breedte - 2) * qMax(0, huidig) / totaal);
    for (int x = 0; x <= einde; x += Pitch) {
        if (x + Pitch <= breedte - Blok) {
            uit << QRect(x, BalkBoven, Blok, BalkHoogte);
        } else {
            if (breedte - 3 > x)
                uit << QRect(x, BalkBoven, breedte - 3 - x, BalkHoogte);
            break;
        }
    }
    return uit;
}

QRect Laadbalk::springBlok(int breedte, int totaal, int huidig, bool omlaag) {
    int x = 2;
    if (huidig >= 1 && totaal > 0) {
        const int plek = int(qint64(breedte - 2) * qMin(huidig, totaal) / totaal) / Pitch * Pitch;
        // Up: the block stands right of its place; down: it is drawn from the right edge, a
        // pitch of -10, so that it stands left of its place.
        x = omlaag ? plek - Pitch : plek;
    }
    x = qBound(2, x, qMax(2, breedte - 3 - Blok));
    return QRect(x, BalkBoven, Blok, BalkHoogte);
}

QPoint Laadbalk::tekstPlek(const QSize& maat) {
    return QPoint(maat.width() / 2, (maat.height() - 14 - 8) / 2 + 19);
}

void Laadbalk::stap(int& teller, bool& omlaag) {
    if (omlaag) {
        if (--teller < TellerMin)
            omlaag = false;
    } else if (++teller >= TellerMax) {
        omlaag = true;
    }
}

void Laadbalk::TijdLadenEx(int totaal, int huidig, const QString& t) {
    blokkenNu = blokken(plek.width(), totaal, huidig);
    tekst = t;
    tekstMidden = tekstPlek(plek.size());
}

void Laadbalk::TijdLadenEx2(int totaal, int huidig, const QString& t) {
    blokkenNu = {springBlok(plek.width(), totaal, huidig, omlaag)};
    tekst = t;
    tekstMidden = tekstPlek(plek.size());
}

void Laadbalk::tik(const QString& t) {
    stap(teller, omlaag);
    TijdLadenEx2(100, teller, t);
}

} // namespace tk
