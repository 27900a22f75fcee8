// The INI document: any text parses, and what it writes back reads the same.
#include "core/IniDocument.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    tk::IniDocument doc = tk::IniDocument::parse(text);
    for (const QString& section : doc.sections())
        for (const QString& key : doc.keys(section))
            (void)doc.value(section, key);
    doc.setValue(QStringLiteral("Fuzz"), QStringLiteral("Sleutel"), QStringLiteral("waarde"));
    if (doc.value(QStringLiteral("Fuzz"), QStringLiteral("Sleutel")) != QStringLiteral("waarde"))
        __builtin_trap();
    doc.removeKey(QStringLiteral("Fuzz"), QStringLiteral("Sleutel"));
    (void)tk::IniDocument::parse(doc.text());
    return 0;
}
