#include "StarterOverlayView.h"

#include "FrmBureaubladStarter.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

namespace tk {

StarterOverlayView::StarterOverlayView(FrmBureaubladStarter& model, QWidget* ouder)
    : QWidget(ouder), m(model), m_cmdShellWait(new QPushButton(this)) {
    m_cmdShellWait->setObjectName(QStringLiteral("cmdShellWait"));
    connect(m_cmdShellWait, &QPushButton::clicked, this, [this] { m.cmdShellWait_Click(); });
    connect(&m, &FrmBureaubladStarter::gewijzigd, this, &StarterOverlayView::bijwerken);
    // clsCapture: the whole screen as it is, unless the desktop gives a picture of its own.
    if (!m.Schermopname) {
        QPointer<StarterOverlayView> zelf(this);
        m.Schermopname = [zelf]() -> QImage {
            QScreen* scherm = zelf ? zelf->screen() : QGuiApplication::primaryScreen();
            return scherm ? scherm->grabWindow(0).toImage() : QImage();
        };
    }
    bijwerken();
}

void StarterOverlayView::bijwerken() {
    setGeometry(m.picDisable);
    m_cmdShellWait->setText(m.cmdShellWaitTekst);
    m_cmdShellWait->setGeometry(m.cmdShellWait);
    m_cmdShellWait->setVisible(m.cmdShellWaitZichtbaar);
    setVisible(m.picDisableZichtbaar);
    if (m.picDisableZichtbaar)
        raise();
    update();
}

void StarterOverlayView::paintEvent(QPaintEvent*) {
    QPainter g(this);
    const QRect vlak = rect();
    g.fillRect(vlak, QColor::fromRgb(Grijs));
    if (!m.picDisableBeeld.isNull()) {
        // The part of the captured screen that lies under the overlay, where it lay: the
        // desktop may stand anywhere on a larger screen.
        const QPoint scherm = screen() ? screen()->geometry().topLeft() : QPoint();
        g.drawImage(scherm - mapToGlobal(QPoint(0, 0)), m.picDisableBeeld);
        QColor sluier = QColor::fromRgb(Grijs);
        sluier.setAlpha(Dekking);
        g.fillRect(vlak, sluier);
    }
    if (m.lblDisableZichtbaar) {
        QFont font(QStringLiteral("Verdana"));
        font.setPixelSize(16);
        font.setBold(true);
        g.setFont(font);
        g.setPen(Qt::white);
        QString tekst = m.lblDisableTekst;
        tekst.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        g.drawText(m.lblDisable.translated(-m.picDisable.topLeft()),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, tekst);
    }
}

} // namespace tk
