#pragma once

#include "core/DialogService.h"

#include <QTextStream>

namespace tk {

// The modal windows of a run from a script: every message is printed as one line and every
// question is answered "nee", so that nothing waits for a person.
class PrintedDialogs : public DialogService {
public:
    explicit PrintedDialogs(QTextStream& uit) : m_uit(uit) {}
    QString vraag(const QString& titel, const QString& tekst, const QString& stijl) override;
    void toonModaal(Form& form) override;

private:
    QTextStream& m_uit;
};

} // namespace tk
