#pragma once

#include "screens/common/LoadingBarWindow.h"

#include <QFont>
#include <QString>

namespace tk {

// The window that stands while a user logs off: string 716 over the bouncing block, in the
// colours of the start screen's bar. FrmAfmeldenView paints it.
class FrmAfmelden : public LoadingBarWindow {
public:
    explicit FrmAfmelden(Programma& p);

    static constexpr int Breedte = 440;
    static constexpr int Hoogte = 110;

    void Openen();
    void LaadVormgeving();

    QString lblAfmelden; // string 716
    QFont tekstFont;
};

} // namespace tk
