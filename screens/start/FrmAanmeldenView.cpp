#include "FrmAanmeldenView.h"

#include "FrmAanmelden.h"
#include "screens/common/LoadingBarPainter.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace tk {

FrmAanmeldenView::FrmAanmeldenView(FrmAanmelden& model, QWidget* ouder)
    : QWidget(ouder, ouder ? Qt::Widget : Qt::Window | Qt::FramelessWindowHint), m(model) {
    resize(FrmAanmelden::Breedte, FrmAanmelden::Hoogte);
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmAanmeldenView::~FrmAanmeldenView() {
    m.onChanged = nullptr;
}

void FrmAanmeldenView::bijwerken() {
    setWindowTitle(m.Caption);
    if (isWindow()) {
        if (m.Zichtbaar && !isVisible()) {
            if (QScreen* scherm = QGuiApplication::primaryScreen())
                setGeometry(scherm->geometry());
            showFullScreen();
        } else if (!m.Zichtbaar && isVisible()) {
            hide();
        }
    }
    update();
}

QPoint FrmAanmeldenView::canvasPlek() const {
    return QPoint((width() - FrmAanmelden::Breedte) / 2, (height() - FrmAanmelden::Hoogte) / 2);
}

void FrmAanmeldenView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Qt::black);
    p.translate(canvasPlek());
    p.fillRect(QRect(0, 0, FrmAanmelden::Breedte, FrmAanmelden::SchermHoogte), m.KleurAchtergrond);
    if (!m.achtergrond.isNull())
        p.drawImage(0, 0, m.achtergrond);
    const QRect balk(0, FrmAanmelden::SchermHoogte, FrmAanmelden::Breedte,
                     FrmAanmelden::Hoogte - FrmAanmelden::SchermHoogte);
    p.fillRect(balk, m.KleurTaakbalk);
    if (!m.taakbalk.isNull())
        p.drawImage(balk.topLeft(), m.taakbalk);
    LoadingBarPainter::van(m, m.KleurRand, m.ladenFont).teken(p, m.picLaden);
}

} // namespace tk
