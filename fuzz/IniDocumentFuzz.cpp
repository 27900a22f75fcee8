// The INI document: any text parses; a value set is read back; what it writes reads the same.
#include "FuzzSupport.h"
#include "core/IniDocument.h"

using namespace tk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(fuzz::bytes(data, size));
    IniDocument doc = IniDocument::parse(text);
    for (const QString& section : doc.sections())
        for (const QString& key : doc.keys(section))
            fuzz::require(doc.value(section, key).has_value());
    const IniDocument again = IniDocument::parse(doc.text());
    fuzz::require(again.sections() == doc.sections());
    doc.setValue(QStringLiteral("Fuzz"), QStringLiteral("Sleutel"), QStringLiteral("waarde"));
    fuzz::require(doc.value(QStringLiteral("Fuzz"), QStringLiteral("Sleutel")) ==
                  QStringLiteral("waarde"));
    doc.removeKey(QStringLiteral("Fuzz"), QStringLiteral("Sleutel"));
    fuzz::require(!doc.value(QStringLiteral("Fuzz"), QStringLiteral("Sleutel")));
    const QStringList sections = doc.sections();
    if (!sections.isEmpty())
        doc.removeSection(sections.first());
    return 0;
}
