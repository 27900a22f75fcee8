#include "ThemePicture.h"

#include "core/Fout.h"

namespace tk {

QImage laadBeeld(const QString& pad) {
    QImage beeld(pad);
    if (beeld.isNull())
        throw Fout(QStringLiteral("Invalid picture (%1)").arg(pad));
    return beeld;
}

} // namespace tk
