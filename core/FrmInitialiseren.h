#pragma once

#include "core/Form.h"

#include <QList>
#include <QString>
#include <functional>

namespace tk {

class Programma;

// The progress window of the first checks: an info line and rows with a mark each.
class FrmInitialiseren : public Form {
public:
    struct Rij {
        QString tekst;
        bool zichtbaar = false;
        QString lblCheck; // "a" passed, "r" failed, in a symbol font
    };

    explicit FrmInitialiseren(Programma& p) : p(p) {}
    QString formNaam() const override { return QStringLiteral("frmInitialiseren"); }
    void LaadTaal() override;
    // Makes a row (or a sub-row) visible and sets its mark.
    void Instelling(int rij, bool geslaagd, bool subrij = false);
    // Shows the window without waiting for it, and hides it again.
    void Tonen();
    void Verbergen();

    QString Caption, lblInfo;
    QList<Rij> lblItem;    // rows 102-107, 110 in the place of 104 when that applies
    QList<Rij> lblSubItem; // 108 "Server", 109 "Client"
    bool Zichtbaar = false;
    // Set by a view: the window's state changed.
    std::function<void()> onChanged;

private:
    Programma& p;
};

} // namespace tk
