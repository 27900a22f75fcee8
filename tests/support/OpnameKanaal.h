#pragma once

#include "core/CommandChannel.h"
#include "core/Programma.h"

#include <QHash>
#include <QList>
#include <QStringList>

namespace tk::test {

// A command channel that records what is sent and answers the requests it was given at once (whole
// in `antwoorden`, by their beginning in `voorvoegsels`), as the dispatcher would fill the reply
// slot. The places of a desktop are empty unless given.
class OpnameKanaal : public CommandChannel {
public:
    explicit OpnameKanaal(Programma& p) : p(p) {}
    bool isConnected() override { return verbonden; }
    void WS_Versturen(const QString& bericht, bool wachten) override {
        verstuurd.append(bericht);
        gewacht.append(wachten);
        const auto it = antwoorden.constFind(bericht);
        if (it != antwoorden.constEnd())
            return antwoord(*it);
        for (auto v = voorvoegsels.cbegin(); v != voorvoegsels.cend(); ++v)
            if (bericht.startsWith(v.key()))
                return antwoord(v.value());
        if (bericht.startsWith(QStringLiteral("LDNAPPPOS")))
            antwoord(QStringLiteral("POS"));
    }
    Programma& p;
    bool verbonden = true;
    QHash<QString, QString> antwoorden;
    QHash<QString, QString> voorvoegsels;
    QStringList verstuurd;
    QList<bool> gewacht;

private:
    void antwoord(const QString& tekst) {
        p.modMain.Antwoord = tekst;
        p.modMain.AntwoordOntvangen = true;
    }
};

} // namespace tk::test
