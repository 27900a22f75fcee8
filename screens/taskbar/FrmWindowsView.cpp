#include "FrmWindowsView.h"

#include "FrmWindows.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

namespace tk {

FrmWindowsView::FrmWindowsView(FrmWindows& model, QWidget* ouder)
    : QWidget(ouder, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m(model) {
    setFixedSize(FrmWindows::Breedte, FrmWindows::Hoogte);
    for (int i = 0; i < 2; ++i) {
        m_knop[i] = new QPushButton(this);
        m_knop[i]->setGeometry(10, 28 + i * 27, FrmWindows::Breedte - 20, 24);
        connect(m_knop[i], &QPushButton::clicked, this, [this, i] { m.cmdKnop_Click(i); });
    }
    if (const QScreen* scherm = QGuiApplication::primaryScreen())
        m.scherm = scherm->availableGeometry();
    m.onChanged = [this] { bijwerken(); };
    bijwerken();
}

FrmWindowsView::~FrmWindowsView() {
    m.onChanged = nullptr;
}

void FrmWindowsView::bijwerken() {
    setWindowTitle(m.Caption);
    setAccessibleName(m.Caption);
    for (int i = 0; i < 2; ++i)
        m_knop[i]->setText(m.cmdKnop[i]);
    move(m.positie);
    if (isWindow() && m.Zichtbaar != isVisible())
        setVisible(m.Zichtbaar);
    update();
}

void FrmWindowsView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), QColor(244, 247, 251));
    p.fillRect(QRect(0, 0, width(), 22), QColor(30, 58, 95));
    p.setPen(Qt::white);
    QFont vet = font();
    vet.setBold(true);
    p.setFont(vet);
    p.drawText(QRect(8, 0, width() - 16, 22), Qt::AlignLeft | Qt::AlignVCenter, m.Caption);
    p.setPen(QColor(30, 58, 95));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace tk
