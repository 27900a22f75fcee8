#pragma once

#include "screens/common/PaintedControl.h"

#include <QAccessibleActionInterface>
#include <QAccessibleInterface>
#include <QPointer>
#include <QWidget>

namespace tk {

class PaintedControls;

// One painted control as an accessible object: a child of its view's PaintingViewAccessible,
// with no QObject of its own. It asks the view's list each time, so that what a screen reader
// hears is the model's state now; a control that went away is no longer valid.
class PaintedControlAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    PaintedControlAccessible(QWidget* view, PaintedControls* bron, int index);

    bool isValid() const override;
    QObject* object() const override { return nullptr; }
    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString& actie) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    QWidget* view() const { return m_view; }
    int index() const { return m_index; }

private:
    // The control now; false when the view or the control is gone.
    bool control(PaintedControl& uit) const;
    QPointer<QWidget> m_view;
    PaintedControls* m_bron;
    int m_index;
};

} // namespace tk
