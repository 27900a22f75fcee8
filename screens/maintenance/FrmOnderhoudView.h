#pragma once

#include "screens/common/PaintedControls.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QWidget>
#include <map>

namespace tk {

class FrmOnderhoud;

// The window of the maintenance module: the theme's background, the title, the menu painted
// from MenuTabel with a box around the row under the pointer, the help text, the info strip,
// and on the right the view of the panel the model shows. A hover repaints only the rows that
// Tekenmenu hands back; a fold repaints the whole menu.
class FrmOnderhoudView : public QWidget, public PaintedControls {
    Q_OBJECT
public:
    explicit FrmOnderhoudView(FrmOnderhoud& model, QWidget* ouder = nullptr);
    ~FrmOnderhoudView() override;

    // The view of panel `nummer`, shown when the model shows that panel.
    void plaatsPaneelView(int nummer, QWidget* view);
    void bijwerken();
    void openen();

    // The areas asked to repaint by the last bijwerken (for the hover measure and tests).
    QList<QRect> laatsteHertekening;
    static QRect menuVak() { return {0, 90, 300, 520}; }

    void druk(const PaintedControl& control) override;

protected:
    QList<PaintedControl> maakGeschilderd() const override;
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;

private:
    void tekenMenu(class QPainter& g, const QRect& vak);
    FrmOnderhoud& m;
    QImage m_achtergrond;
    QString m_achtergrondPad;
    std::map<int, QWidget*> m_panelen;
    int m_focusGemeld = -1;
};

} // namespace tk
