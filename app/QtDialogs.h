#pragma once

#include "core/DialogService.h"

namespace tk {

class Programma;

// Modal windows drawn with Qt's standard dialogs, for the forms that have no view of their own
// yet. The question window follows its style letters.
class QtDialogs : public DialogService {
public:
    explicit QtDialogs(Programma& p) : p(p) {}
    QString vraag(const QString& titel, const QString& tekst, const QString& stijl) override;
    void toonModaal(Form& form) override;

private:
    Programma& p;
};

} // namespace tk
