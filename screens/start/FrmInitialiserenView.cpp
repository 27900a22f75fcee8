#include "FrmInitialiserenView.h"

#include "core/FrmInitialiseren.h"

#include <QPainter>
#include <QPainterPath>

namespace tk {

namespace {
struct ZichtbareRij {
    const FrmInitialiseren::Rij* rij;
    bool sub;
};
QList<ZichtbareRij> zichtbareRijen(const FrmInitialiseren& m) {
    QList<ZichtbareRij> uit;
    for (const auto& r : m.lblItem)
        if (r.zichtbaar)
            uit << ZichtbareRij{&r, false};
    for (const auto& r : m.lblSubItem)
        if (r.zichtbaar)
            uit << ZichtbareRij{&r, true};
    return uit;
}
void tekenMark(QPainter& p, const QRect& vak, const QString& mark) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const bool goed = mark == u"a";
    p.setPen(Qt::NoPen);
    p.setBrush(goed ? QColor(56, 142, 60) : QColor(198, 40, 40));
    p.drawEllipse(vak);
    QPainterPath pad;
    const QRectF r = QRectF(vak).adjusted(4.5, 4.5, -4.5, -4.5);
    if (goed) {
        pad.moveTo(r.left(), r.center().y());
        pad.lineTo(r.left() + r.width() * 0.4, r.bottom());
        pad.lineTo(r.right(), r.top());
    } else {
        pad.moveTo(r.topLeft());
        pad.lineTo(r.bottomRight());
        pad.moveTo(r.topRight());
        pad.lineTo(r.bottomLeft());
    }
    p.setPen(QPen(Qt::white, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(pad);
    p.restore();
}
} // namespace

FrmInitialiserenView::FrmInitialiserenView(FrmInitialiseren& model, QWidget* ouder)
    : VoortgangVenster(ouder), m(model) {
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmInitialiserenView::~FrmInitialiserenView() {
    m.onChanged = nullptr;
}

void FrmInitialiserenView::bijwerken() {
    const int rijen = int(zichtbareRijen(m).size());
    const QSize maat(Breedte, Kop + RijenBoven + qMax(1, rijen) * RijHoogte + 14);
    if (size() != maat)
        zetLijf(maat.width(), maat.height() - Kop);
    volg(m.Caption, m.Zichtbaar);
}

void FrmInitialiserenView::tekenInhoud(QPainter& p) {
    tekenKop(p, QRect(18, 12, Breedte - 36, 22), m.lblInfo);
    const QList<ZichtbareRij> rijen = zichtbareRijen(m);
    for (int n = 0; n < rijen.size(); ++n) {
        QRect vak = rijVak(n);
        p.setPen(QColor(220, 226, 235));
        p.drawLine(vak.bottomLeft(), vak.bottomRight());
        if (rijen[n].sub)
            vak.setLeft(vak.left() + 20);
        p.setPen(tekstKleur());
        p.drawText(vak.adjusted(0, 0, -26, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   rijen[n].rij->tekst);
        if (!rijen[n].rij->lblCheck.isEmpty())
            tekenMark(p, markVak(rijVak(n)), rijen[n].rij->lblCheck);
    }
}

} // namespace tk
