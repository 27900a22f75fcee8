#include "ScriptedDialogs.h"

#include "core/Form.h"

namespace tk::test {

QString ScriptedDialogs::vraag(const QString& titel, const QString& tekst, const QString& stijl) {
    gesteld.append(Vraag{titel, tekst, stijl});
    if (tijdensVraag)
        tijdensVraag();
    return antwoorden.isEmpty() ? QString() : antwoorden.takeFirst();
}

void ScriptedDialogs::toonModaal(Form& form) {
    getoond.append(form.formNaam());
    if (opModaal)
        opModaal(form);
}

QStringList ScriptedDialogs::teksten() const {
    QStringList uit;
    for (const Vraag& v : gesteld)
        uit << v.tekst;
    return uit;
}

} // namespace tk::test
