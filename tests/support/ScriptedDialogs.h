#pragma once

#include "core/DialogService.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace tk::test {

// Modal windows answered from a script: each question takes the next answer (or "" when the
// script is used up) and is recorded; a modal form is handed to `opModaal`.
class ScriptedDialogs : public DialogService {
public:
    struct Vraag {
        QString titel, tekst, stijl;
    };
    QString vraag(const QString& titel, const QString& tekst, const QString& stijl) override;
    void toonModaal(Form& form) override;
    // The texts of the questions and messages asked so far.
    QStringList teksten() const;

    QStringList antwoorden;
    QList<Vraag> gesteld;
    QStringList getoond; // names of the forms shown modally
    std::function<void(Form&)> opModaal;
};

} // namespace tk::test
