#pragma once

#include "RegistryRoot.h"
#include "RegistryValue.h"

#include <QList>
#include <QString>

namespace tk {

class RegistryHive;

// The registry's own export format (REGEDIT4), read and written. Reading is forgiving: lines it
// cannot understand are counted and skipped, everything else is kept.
class RegFile {
public:
    struct Operation {
        enum class Kind { CreateKey, DeleteKey, SetValue, DeleteValue };
        Kind kind = Kind::CreateKey;
        RegistryRoot root = RegistryRoot::LocalMachine;
        QString key;  // below the root
        QString name; // value name; empty is the default value
        RegistryValue value;
    };
    struct Parsed {
        bool hasHeader = false; // "REGEDIT4" or the version 5 header came first
        QList<Operation> operations;
        int skippedLines = 0;
    };

    static Parsed parse(const QString& text);
    // Applies the operations of one root to a hive; the others are left out.
    static void apply(const Parsed& parsed, RegistryRoot root, RegistryHive& hive);
    static QString write(RegistryRoot root, const RegistryHive& hive);
};

} // namespace tk
