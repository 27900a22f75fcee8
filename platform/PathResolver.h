#pragma once

#include <QString>

namespace tk {

// Turns the program's "\Data\Instellingen.ini" paths into native paths below the program
// folder. Each part is matched without regard to case against what is on disk, so that
// "\DATA\instellingen.INI" finds "Data/Instellingen.ini"; parts that do not exist yet keep the
// spelling given. A native absolute path ("/tmp/x") is returned as it is.
class PathResolver {
public:
    static QString resolve(const QString& programFolder, const QString& path);
};

} // namespace tk
