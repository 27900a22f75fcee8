#pragma once

#include <QString>
#include <QtGlobal>

namespace tk {

// One typed registry value. Strings and DWORDs are what the program reads and writes; any other
// type found in a store file is kept as its raw text so that a rewrite loses nothing.
struct RegistryValue {
    enum class Type { String, Dword, Other };
    Type type = Type::String;
    QString text; // the string, or the raw right-hand side for Type::Other
    quint32 dword = 0;

    static RegistryValue string(const QString& s) { return {Type::String, s, 0}; }
    static RegistryValue number(quint32 v) { return {Type::Dword, QString(), v}; }
    static RegistryValue other(const QString& raw) { return {Type::Other, raw, 0}; }

    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

} // namespace tk
