#include "FocusOrder.h"

#include <algorithm>
#include <limits>

namespace tk {

std::optional<FocusOrder::Stap> FocusOrder::stapVoor(int toets, bool shift) {
    switch (toets) {
    case Qt::Key_Tab:
        return shift ? Stap::Vorige : Stap::Volgende;
    case Qt::Key_Backtab:
        return Stap::Vorige;
    case Qt::Key_Left:
        return Stap::Links;
    case Qt::Key_Right:
        return Stap::Rechts;
    case Qt::Key_Up:
        return Stap::Omhoog;
    case Qt::Key_Down:
        return Stap::Omlaag;
    default:
        return std::nullopt;
    }
}

bool FocusOrder::isDrukken(int toets) {
    return toets == Qt::Key_Return || toets == Qt::Key_Enter || toets == Qt::Key_Space;
}

QList<int> FocusOrder::leesvolgorde(const QList<QRect>& plekken) {
    QList<int> volgorde;
    for (int i = 0; i < plekken.size(); ++i)
        if (!plekken[i].isEmpty())
            volgorde.append(i);
    // From the top down; a row is the topmost place left and every place whose vertical middle
    // lies within half the lower height of it, left to right. Rows are taken from a sorted list,
    // not decided pair by pair: three places at slightly different heights would otherwise make
    // an order that contradicts itself.
    std::stable_sort(volgorde.begin(), volgorde.end(), [&](int a, int b) {
        return plekken[a].center().y() < plekken[b].center().y();
    });
    for (qsizetype begin = 0; begin < volgorde.size();) {
        const QRect& eerste = plekken[volgorde[begin]];
        qsizetype eind = begin + 1;
        while (eind < volgorde.size()) {
            const QRect& r = plekken[volgorde[eind]];
            const int band = qMax(1, qMin(eerste.height(), r.height()) / 2);
            if (r.center().y() - eerste.center().y() >= band)
                break;
            ++eind;
        }
        std::stable_sort(volgorde.begin() + begin, volgorde.begin() + eind,
                         [&](int a, int b) { return plekken[a].left() < plekken[b].left(); });
        begin = eind;
    }
    return volgorde;
}

int FocusOrder::volgende(const QList<QRect>& plekken, int huidig, Stap stap) {
    const QList<int> volgorde = leesvolgorde(plekken);
    if (volgorde.isEmpty())
        return -1;
    const qsizetype waar = volgorde.indexOf(huidig);
    if (stap == Stap::Volgende) // from none (-1) this is the first
        return waar + 1 < volgorde.size() ? volgorde[waar + 1] : -1;
    if (stap == Stap::Vorige) {
        if (waar < 0)
            return volgorde.last();
        return waar > 0 ? volgorde[waar - 1] : -1;
    }
    if (waar < 0)
        return volgorde.first();
    // An arrow: the nearest place whose middle lies that way, distance along the arrow counted
    // once and sideways twice, so that the neighbour in the same row or column wins.
    const QPoint van = plekken[huidig].center();
    int beste = huidig;
    long long besteAfstand = std::numeric_limits<long long>::max();
    for (int i : volgorde) {
        if (i == huidig)
            continue;
        const QPoint d = plekken[i].center() - van;
        long long langs = 0, dwars = 0;
        switch (stap) {
        case Stap::Links:
            langs = -d.x(), dwars = d.y();
            break;
        case Stap::Rechts:
            langs = d.x(), dwars = d.y();
            break;
        case Stap::Omhoog:
            langs = -d.y(), dwars = d.x();
            break;
        default:
            langs = d.y(), dwars = d.x();
            break;
        }
        if (langs <= 0)
            continue;
        const long long afstand = langs + 2 * qAbs(dwars);
        if (afstand < besteAfstand) {
            besteAfstand = afstand;
            beste = i;
        }
    }
    return beste;
}

int FocusOrder::volgendeStop(const QList<PaintedControl>& lijst, int huidig, Stap stap) {
    QList<QRect> plekken;
    int van = -1;
    for (const PaintedControl& c : lijst) {
        const bool neemt = c.drukbaar && !c.uitgeschakeld;
        if (neemt && c.stop == huidig && huidig >= 0)
            van = int(plekken.size());
        plekken.append(neemt ? c.plek : QRect());
    }
    const int naar = volgende(plekken, van, stap);
    return naar < 0 ? -1 : lijst[naar].stop;
}

} // namespace tk
