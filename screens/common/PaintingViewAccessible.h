#pragma once

#include <QAccessibleWidget>
#include <QList>
#include <QObject>

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
    // The view's widget children as accessibility counts them, kept while the view's children
    // stay the same: a screen reader asks for the count and each child in turn, and counting them
    // anew for every question made reading a view of many buttons quadratic.
    const QList<QWidget*>& widgets() const;
    PaintedControls* m_bron;
    mutable QList<QAccessible::Id> m_kinderen;
    mutable QObjectList m_stand;
    mutable QList<QWidget*> m_widgets;
    mutable bool m_widgetsGelezen = false;
};

} // namespace tk
