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
    // One row: places whose vertical middles lie within half the lower one's height.
    std::stable_sort(volgorde.begin(), volgorde.end(), [&](int a, int b) {
        const QRect& ra = plekken[a];
        const QRect& rb = plekken[b];
        const int band = qMax(1, qMin(ra.height(), rb.height()) / 2);
        if (qAbs(ra.center().y() - rb.center().y()) >= band)
            return ra.center().y() < rb.center().y();
        return ra.left() < rb.left();
    });
    return volgorde;
}

int FocusOrder::volgende(const QList<QRect>& plekken, int huidig, Stap stap) {
    const QList<int> volgorde = leesvolgorde(plekken);
    if (volgorde.isEmpty())
        return -1;
    const qsizetype waar = volgorde.indexOf(huidig);
    if (stap == Stap::Volgende) {
        if (waar < 0)
            return volgorde.first();
        return waar + 1 < volgorde.size() ? volgorde[waar + 1] : -1;
    }
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
