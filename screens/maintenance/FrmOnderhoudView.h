#pragma once

#include "screens/common/KeyboardView.h"
#include "screens/common/PaintedControls.h"

#include <QColor>
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
// Tekenmenu hands back; a fold repaints the whole menu. The keyboard goes through the menu rows
// and the log-off in reading order (Tab, Shift+Tab, the arrows) with a focus ring, Enter or Space
// presses, Escape logs off; past the last row Tab goes on into the shown panel's fields.
class FrmOnderhoudView : public KeyboardView, public PaintedControls {
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
    // The ground of the window where the theme has no picture for it.
    static QColor achtergrondKleur() { return {236, 241, 247}; }

    void druk(const PaintedControl& control) override;
    // The focus stop of the menu row (group * 100 + row) or the log-off (999) the keyboard is
    // on, -1 for none.
    int focusStop() const { return m_focusStop; }

protected:
    QList<PaintedControl> maakGeschilderd() const override;
    void paintEvent(QPaintEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;
    bool toets(int toets, bool shift) override;
    // Tab into the window from a panel's fields: the first row, or the last for Shift+Tab.
    void focusInEvent(QFocusEvent*) override;

private:
    void zetFocus(int stop);
    // Where the ring of a focus stop stands; empty when the stop is not shown.
    QRect focusVak(int stop) const;
    void tekenMenu(class QPainter& g, const QRect& vak, const struct Ondergrond& achter);
    FrmOnderhoud& m;
    QImage m_achtergrond;
    QString m_achtergrondPad;
    std::map<int, QWidget*> m_panelen;
    int m_focusGemeld = -1;
    // The keyboard's place in the menu. The model says which rows there are; where the keyboard
    // stands among them is this window's, as a widget's focus is.
    int m_focusStop = -1;
};

} // namespace tk
