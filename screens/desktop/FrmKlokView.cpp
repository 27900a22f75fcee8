#include "FrmKlokView.h"

#include "FrmKlok.h"

#include <QBitmap>
#include <QMouseEvent>
#include <QPainter>

namespace tk {

FrmKlokView::FrmKlokView(FrmKlok& model, QWidget* ouder)
    : QWidget(ouder, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::Tool), m(model) {
    setWindowTitle(QStringLiteral("Klok"));
    setFixedSize(FrmKlok::Zijde, FrmKlok::Zijde);
    m.onChanged = [this] { update(); };
}

FrmKlokView::~FrmKlokView() {
    m.onChanged = nullptr;
}

void FrmKlokView::openen() {
    m.hWnd = quint64(winId());
    m.Form_Load();
    const QImage masker = m.Masker();
    if (!masker.isNull())
        setMask(QBitmap::fromImage(masker));
    show();
}

void FrmKlokView::paintEvent(QPaintEvent*) {
    QPainter g(this);
    if (!m.picKlok.isNull())
        g.drawImage(0, 0, m.picKlok);
    const QPointF midden = FrmKlok::naarVenster(QPointF(FrmKlok::Midden, FrmKlok::Midden));
    // lblTijd: the time over the centre, the date under it.
    g.setPen(m.KleurWijzers);
    QFont tijd(QStringLiteral("Verdana"));
    tijd.setPixelSize(11);
    tijd.setBold(true);
    g.setFont(tijd);
    g.drawText(QRectF(midden.x() - 40, midden.y() - 30, 80, 14), Qt::AlignCenter, m.lblTijd);
    QFont datum(QStringLiteral("Verdana"));
    datum.setPixelSize(9);
    g.setFont(datum);
    g.drawText(QRectF(midden.x() - 40, midden.y() + 16, 80, 12), Qt::AlignCenter, m.lblDatum);
    g.setRenderHint(QPainter::Antialiasing);
    auto wijzer = [&](const QLineF& l, const QColor& kleur, double dikte) {
        g.setPen(QPen(kleur, dikte, Qt::SolidLine, Qt::RoundCap));
        g.drawLine(QLineF(FrmKlok::naarVenster(l.p1()), FrmKlok::naarVenster(l.p2())));
    };
    wijzer(m.uurwijzer, m.KleurWijzers, 4);
    wijzer(m.minuutwijzer, m.KleurWijzers, 2.5);
    wijzer(m.secondewijzer, m.KleurSeconde, 1);
    g.setPen(Qt::NoPen);
    g.setBrush(m.KleurSeconde);
    g.drawEllipse(midden, 2.5, 2.5);
}

void FrmKlokView::mousePressEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton)
        m.imgVerslepen_MouseDown(1, e->globalPosition().toPoint());
}

} // namespace tk
