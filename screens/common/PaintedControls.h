#pragma once

#include "screens/common/PaintedControl.h"

#include <QList>

namespace tk {

// A view that paints controls by hand offers them to accessibility through this: the list its
// model gives, and the press of one of them. PaintingViewAccessible turns each into a child. The
// list is asked of the model once after every change (the view calls gewijzigd() when its model
// says it changed), so that a screen reader walking the tree costs one list, not one per question.
class PaintedControls {
public:
    virtual ~PaintedControls() = default;
    const QList<PaintedControl>& geschilderd() const {
        if (!m_geldig) {
            m_lijst = maakGeschilderd();
            m_geldig = true;
        }
        return m_lijst;
    }
    void gewijzigd() { m_geldig = false; }
    virtual void druk(const PaintedControl& control) = 0;

protected:
    virtual QList<PaintedControl> maakGeschilderd() const = 0;

private:
    mutable QList<PaintedControl> m_lijst;
    mutable bool m_geldig = false;
};

} // namespace tk
