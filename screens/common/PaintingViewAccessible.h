#pragma once

#include <QAccessibleWidget>
#include <QList>

namespace tk {

class PaintedControls;

// A view that paints its own controls, as accessibility sees it: its widget children first
// (the skinned buttons, the password box), then a child per painted control
// (PaintedControlAccessible). The children are made when first asked for and registered with
// Qt's accessibility cache, and let go with the view.
class PaintingViewAccessible : public QAccessibleWidget {
public:
    PaintingViewAccessible(QWidget* view, PaintedControls* bron,
                           QAccessible::Role rol = QAccessible::Client);
    ~PaintingViewAccessible() override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* kind) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QString text(QAccessible::Text t) const override;

    // Tells a screen reader where the keyboard's focus went after a view painted its model
    // anew: `gemeld` is the painted control last reported (kept by the view), -1 for none.
    static void meldFocus(QWidget* view, PaintedControls& bron, int& gemeld);

private:
    PaintedControls* m_bron;
    mutable QList<QAccessible::Id> m_kinderen;
};

} // namespace tk
