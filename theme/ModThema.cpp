#include "ModThema.h"

#include "core/Procedure.h"
#include "core/Programma.h"

#include <QFileInfo>

namespace tk {

ModThema::ModThema(Programma& p) : p(p) {}

QString ModThema::folderOf(const QString& id) {
    return QString::fromLatin1(Skins) + id + QLatin1Char('\\');
}

bool ModThema::isFolderName(const QString& id) {
    return !id.trimmed().isEmpty() && id != u"." && id != u".." &&
           !id.contains(QLatin1Char('\\')) && !id.contains(QLatin1Char('/'));
}

void ModThema::LaadThema() {
    Procedure(p, "modMain.LaadThema", [&] {
        const QString instellingen = QStringLiteral("Instellingen.ini");
        huidigThema = p.modMain.LeesIni(QStringLiteral("Instellingen"), QStringLiteral("Thema"),
                                        QString::fromLatin1(ModMain::Instellingen));
        if (!isFolderName(huidigThema) ||
            !p.modMain.BestandBestaat(folderOf(huidigThema) + instellingen))
            huidigThema = QStringLiteral("1");
        themaMap = folderOf(huidigThema);
        if (!p.modMain.BestandBestaat(themaMap + instellingen)) {
            huidigThema = QStringLiteral("Standaard");
            themaMap = folderOf(huidigThema);
        }
        themaNaam = p.modMain.LeesIni(QStringLiteral("Algemeen"), QStringLiteral("Naam"),
                                      themaMap + instellingen);
    });
}

void ModThema::chooseUserTheme(const QString& themaVeld) {
    huidigThema = themaVeld.isEmpty() ? QStringLiteral("Standaard") : themaVeld;
    if (!isFolderName(huidigThema) ||
        !QFileInfo(p.modMain.Pad(QString::fromLatin1(Skins) + huidigThema)).isDir())
        huidigThema = QStringLiteral("1");
    themaMap = folderOf(huidigThema);
}

RgbColour ModThema::waitBarColour(const QString& key) const {
    const RgbColour standaard =
        huidigThema == u"8" ? RgbColour::fromPacked(15832176) : RgbColour{10, 112, 0};
    return keys().colourOr(QStringLiteral("Kleuren"), key, standaard);
}

} // namespace tk
