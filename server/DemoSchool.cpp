#include "DemoSchool.h"

#include "OwnerRecord.h"
#include "PackageBuilder.h"
#include "Store.h"

#include <QFileInfo>
#include <QSettings>

namespace tk::server {

namespace {

QString s(const char* text) {
    return QString::fromUtf8(text);
}

struct DemoApplication {
    const char* naam;
    int category; // index into the kind's categories
    const char* opdracht;
    const char* omschrijving;
    int icon; // picture number in the standard library
    const char* parameter;
};

} // namespace

bool DemoSchool::seed(Store& store, const QString& themeFolder, const PackageBuilder& packer,
                      QString* error) {
    if (!store.setSettings(
            {{s("language"), s("1043")},
             {s("password_teachers"), s("leraar")},
             {s("password_maintenance"), s("beheer")},
             {s("start_page"), s("https://nl.wikipedia.org")},
             {s("mail_to"), s("ict@school.example")},
             {s("mail_school"), s("Basisschool De Tafelberg")},
             {s("mail_sender"), s("tafelkrater@school.example")},
             {s("theme"), s("1")},
             {s("domain"), s("TAFELBERG")},
             {s("flag_a"), s("NEE")},
             {s("flag_b"), s("NEE")},
             {s("module_printer"), s("JA")},
             {s("module_active_directory"), s("NEE")},
             {s("printers"),
              s("Kopieerapparaat|\\\\server\\kopie><Kleurenprinter|\\\\server\\kleur")},
             {s("login_scripts"),
              s("\\\\server\\netlogon\\leerling.bat|\\\\server\\netlogon\\leraar.bat")},
             {s("forbidden_words"),
              s("casino|gokken|poker|porno|sex|xxx|drugs|wapens|geweld|haat|racisme|"
                "vloeken|dating|roulette|wiet|cocaine|gamble|gambling|weapons|violence")},
             {s("allowed_sites"),
              s("nl.wikipedia.org|schooltv.nl|rekenen.nl|taalzee.nl|debian.org")}},
            error))
        return false;

    // Categories of the three kinds.
    const QStringList categoryNames[3] = {
        {s("Rekenen"), s("Taal"), s("Spelletjes")},
        {s("Hulpmiddelen"), s("Internet")},
        {s("Algemeen"), s("Internet")},
    };
    QList<qint64> categoryIds[3];
    for (int kind = 0; kind < 3; ++kind)
        for (const QString& naam : categoryNames[kind]) {
            qint64 id = 0;
            if (!store.addCategory(kind, naam, &id, error))
                return false;
            categoryIds[kind] << id;
        }

    const QList<DemoApplication> demo[3] = {
        {{"Klok", 0, "/usr/bin/xclock", "Een klok om te leren klokkijken", 10, ""},
         {"Rekenmachine", 0, "/usr/bin/xcalc", "Rekenen met de rekenmachine", 17, ""},
         {"Ogen", 2, "/usr/bin/xeyes", "Ogen die de muis volgen", 3, ""},
         {"Logo", 2, "/usr/bin/xlogo", "Het logo van X", 15, ""},
         {"Woordenboek", 1, "/usr/bin/xdg-open", "Wikipedia in het Nederlands", 1,
          "https://nl.wikipedia.org"}},
        {{"Rekenmachine", 0, "/usr/bin/xcalc", "De rekenmachine", 17, ""},
         {"Digitale klok", 0, "/usr/bin/xclock", "Een digitale klok", 10, "-digital"},
         {"Schooltv", 1, "/usr/bin/xdg-open", "Lesmateriaal van Schooltv", 16,
          "https://schooltv.nl"}},
        // Every class desktop shows the pupils' programs and these: none of them twice.
        {{"Kladblok", 0, "/usr/bin/xedit", "Een eenvoudig schrijfblok", 6, ""},
         {"Wikipedia", 1, "/usr/bin/xdg-open", "De vrije encyclopedie", 8,
          "https://nl.wikipedia.org"}},
    };
    QList<qint64> applicationIds[3];
    for (int kind = 0; kind < 3; ++kind)
        for (const DemoApplication& a : demo[kind]) {
            qint64 id = 0;
            if (!store.reserveApplicationId(kind, &id, error))
                return false;
            const Store::Application fields{QString::number(id),
                                            s(a.naam),
                                            QString::number(categoryIds[kind][a.category]),
                                            s(a.opdracht),
                                            s(a.omschrijving),
                                            QStringLiteral("standaard|%1").arg(a.icon),
                                            s(a.parameter),
                                            s("1024x768x32xNEE")};
            if (!store.saveApplication(kind, fields, error))
                return false;
            applicationIds[kind] << id;
        }

    auto desktop = [&](int kind) {
        QStringList items;
        for (qint64 id : applicationIds[kind])
            items << QString::number(id);
        for (qint64 id : applicationIds[2])
            items << QStringLiteral("a%1").arg(id);
        items << s("cdrom");
        return items.join(QLatin1Char('|'));
    };
    const QString header = s("1|Ja|Ja|Nee");
    const QString favourites =
        s("https://nl.wikipedia.org|Wikipedia||Ja><https://schooltv.nl|Schooltv||Ja><"
          "https://www.debian.org|Debian||Nee");

    QList<qint64> classIds;
    for (int n = 1; n <= 8; ++n) {
        const QString account = QStringLiteral("groep%1").arg(n);
        const QStringList columns{
            QStringLiteral("Groep %1").arg(n),
            QString::number(n),
            QStringLiteral("%1a.jpg").arg(n),
            // The younger groups see the hills, the older ones the space picture of the theme.
            n <= 4 ? s("Heuvels.jpg") : s("Ruimte.jpg"),
            account,
            s("Sleutelwrk42"),
            s("0"),
            desktop(0),
            n >= 5 ? s("Ja") : s("Nee"),
            QString(),
            QString(),
            s("0,0"),
            QStringLiteral("%1|a%2").arg(categoryIds[0][0]).arg(categoryIds[2][0]),
        };
        qint64 id = 0;
        if (!store.saveRow(classRecord, columns, &id, error) ||
            !store.saveFavourites(classRecord.favouritesOwner + QString::number(id), header,
                                  favourites, error))
            return false;
        Store::Account a;
        a.name = account;
        a.present = true;
        a.password = s("Sleutelwrk42");
        a.type = s("1");
        a.fullName = columns[0];
        a.groups = s("g:Leerlingen|l:Gebruikers");
        if (!store.saveAccount(a, error))
            return false;
        classIds << id;
    }

    struct DemoTeacher {
        const char *achternaam, *voornaam, *tussenvoegsel, *account, *wachtwoord, *beheer;
    };
    const DemoTeacher teachers[] = {
        {"Vries", "Jan", "de", "jvries", "appel", "Ja|Ja"},
        {"Jansen", "Petra", "", "pjansen", "peer", "Nee|Nee"},
        {"Bakker", "Sanne", "", "sbakker", "banaan", "Nee|Ja"},
        {"Dijk", "Ahmed", "van", "adijk", "kiwi", "Ja|Nee"},
    };
    int t = 0;
    for (const DemoTeacher& d : teachers) {
        const QString rechten =
            QStringLiteral("%1|%2").arg(classIds[t * 2]).arg(classIds[t * 2 + 1]);
        ++t;
        QStringList columns(teacherRecord.columns());
        columns[0] = s(d.achternaam);
        columns[1] = s("leraar.ico");
        columns[2] = s("Geen");
        columns[3] = s(d.account);
        columns[4] = s(d.wachtwoord);
        columns[5] = s("0");
        columns[6] = s(d.voornaam);
        columns[7] = s(d.tussenvoegsel);
        columns[8] = desktop(1);
        columns[9] = s("Ja");
        columns[10] = rechten;
        columns[11] = s(d.beheer).section(QLatin1Char('|'), 0, 0);
        columns[12] = s(d.beheer);
        columns[14] = QString();
        columns[15] = QStringLiteral("%1|a%2").arg(categoryIds[1][0]).arg(categoryIds[2][1]);
        qint64 id = 0;
        if (!store.saveRow(teacherRecord, columns, &id, error) ||
            !store.saveFavourites(teacherRecord.favouritesOwner + QString::number(id),
                                  s("0|Ja|Nee|Nee"), favourites, error))
            return false;
        Store::Account a;
        a.name = s(d.account);
        a.present = true;
        a.password = s(d.wachtwoord);
        a.type = s("2");
        a.fullName = s(d.achternaam) + s(", ") + s(d.voornaam);
        a.groups = s("g:Leraren|l:Gebruikers");
        a.script = s("\\\\server\\netlogon\\leraar.bat");
        if (!store.saveAccount(a, error))
            return false;
    }

    for (const auto& [scope, naam, omschrijving] :
         {std::tuple{"g", "Leerlingen", "Alle leerlingen"},
          std::tuple{"g", "Leraren", "Alle leraren"},
          std::tuple{"l", "Gebruikers", "Gebruikers van deze computer"},
          std::tuple{"l", "Printergebruikers", "Mag printen"}})
        if (!store.saveGroup(s(scope), s(naam), s(omschrijving), error))
            return false;

    if (!themeFolder.isEmpty() && QFileInfo(themeFolder).isDir()) {
        QSettings ini(themeFolder + s("/Instellingen.ini"), QSettings::IniFormat);
        const QString version = ini.value(s("Algemeen/Versie"), s("1.0.0")).toString();
        const QByteArray package = packer.packFolder(themeFolder);
        if (package.isEmpty()) {
            *error = QStringLiteral("the theme folder %1 could not be packed").arg(themeFolder);
            return false;
        }
        if (!store.saveTheme({s("1"), version, true}, package, error))
            return false;
    }
    return true;
}

} // namespace tk::server
