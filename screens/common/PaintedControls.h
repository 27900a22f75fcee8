#pragma once

#include "screens/common/PaintedControl.h"

#include <QList>

namespace tk {

// A view that paints controls by hand offers them to accessibility through this: the list its
// model gives, and the press of one of them. PaintingViewAccessible turns each into a child.
class PaintedControls {
public:
    virtual ~PaintedControls() = default;
    virtual QList<PaintedControl> geschilderd() const = 0;
    virtual void druk(const PaintedControl& control) = 0;
};

} // namespace tk
