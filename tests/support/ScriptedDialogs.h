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
    void sluitVragen() override { ++gesloten; }
    // The texts of the questions and messages asked so far.
    QStringList teksten() const;

    QStringList antwoorden;
    QList<Vraag> gesteld;
    QStringList getoond; // names of the forms shown modally
    std::function<void(Form&)> opModaal;
    std::function<void()> tijdensVraag; // runs while a question is open, before its answer
    int gesloten = 0;                   // how often the open questions were closed
};

} // namespace tk::test
