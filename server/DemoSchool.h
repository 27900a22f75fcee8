#pragma once

#include <QString>

namespace tk::server {

class PackageBuilder;
class Store;

// The demo school: eight classes, four teachers, categories and applications of the three
// kinds that start programs a Debian machine has after the set-up (xclock, xeyes, xcalc, xlogo,
// and web pages through xdg-open), favourites, a forbidden-word list, allowed sites, passwords,
// Windows accounts and groups, Dutch as the language, and the theme folder given as the default
// theme when there is one.
class DemoSchool {
public:
    static bool seed(Store& store, const QString& themeFolder, const PackageBuilder& packer,
                     QString* error);
};

} // namespace tk::server
