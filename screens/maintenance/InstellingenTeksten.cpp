#include "InstellingenTeksten.h"

#include "core/Ansi.h"
#include "core/Wire.h"

namespace tk {

namespace {

const QString backupExtensie = QStringLiteral(".backup");

bool isGetal(const QString& tekst) {
    bool getal = false;
    tekst.trimmed().toLong(&getal);
    return getal;
}

} // namespace

QList<InstellingenTeksten::Keuze> InstellingenTeksten::taalLijst(const QStringList& rijen) {
    QList<Keuze> lijst;
    for (const QString& rij : rijen) {
        if (rij.trimmed().isEmpty())
            break;
        const qsizetype streep = rij.indexOf(wire::valueSep);
        if (streep < 0) {
            lijst.append({rij, QString()});
            continue;
        }
        const QString links = rij.left(streep), rechts = rij.mid(streep + 1);
        // The list text first and its data second; the table writes the locale id first.
        if (isGetal(links) && !isGetal(rechts))
            lijst.append({rechts, links.trimmed()});
        else
            lijst.append({links, rechts.trimmed()});
    }
    return lijst;
}

InstellingenTeksten::ServerInstellingen
InstellingenTeksten::serverInstellingen(const QString& antwoord) {
    const QStringList velden = antwoord.split(wire::fieldSep);
    ServerInstellingen s;
    s.versie = velden.value(0);
    s.automatisch = Ansi::hoofdletters(velden.value(1)) == wire::ja;
    s.beta = Ansi::hoofdletters(velden.value(2)) == wire::ja;
    if (velden.size() >= 4)
        s.module = velden.last().toLower();
    return s;
}

QString InstellingenTeksten::opslaanServer(bool automatisch, bool beta) {
    auto janee = [](bool ja) { return ja ? QStringLiteral("Ja") : QStringLiteral("Nee"); };
    return QStringList{QStringLiteral("6"), janee(automatisch), janee(beta), janee(false)}.join(
        wire::fieldSep);
}

QStringList InstellingenTeksten::backups(const QString& antwoord) {
    QStringList lijst;
    // A name that is blank, or nothing but the extension, names no backup to show.
    for (const QString& naam : antwoord.split(wire::valueSep))
        if (const QString l = leesbaar(naam); !l.trimmed().isEmpty())
            lijst << l;
    return lijst;
}

QString InstellingenTeksten::leesbaar(const QString& bestand) {
    QString naam = bestand;
    if (naam.endsWith(backupExtensie, Qt::CaseInsensitive))
        naam.chop(backupExtensie.size());
    return naam.replace(QLatin1Char('.'), QLatin1Char(':'));
}

QString InstellingenTeksten::bestandsnaam(const QString& leesbaar) {
    QString naam = leesbaar;
    return naam.replace(QLatin1Char(':'), QLatin1Char('.')) + backupExtensie;
}

} // namespace tk
