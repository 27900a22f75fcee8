// The INI document: any text parses; a value set is read back; what it writes reads the same;
// after writes into every section (new keys and replaced ones), and again after removals of keys
// and of a section, the document reads exactly as its own text read afresh, so that the index a
// change keeps up to date never drifts from the lines.
#include "FuzzSupport.h"
#include "core/IniDocument.h"

using namespace tk;

namespace {

void requireReadsLikeItsText(const IniDocument& doc) {
    const IniDocument afresh = IniDocument::parse(doc.text());
    fuzz::require(afresh.sections() == doc.sections());
    for (const QString& section : afresh.sections()) {
        const QStringList keys = afresh.keys(section);
        fuzz::require(keys == doc.keys(section));
        for (const QString& key : keys)
            fuzz::require(doc.value(section, key) == afresh.value(section, key));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(fuzz::bytes(data, size));
    IniDocument doc = IniDocument::parse(text);
    const QStringList sections = doc.sections();
    for (const QString& section : sections)
        for (const QString& key : doc.keys(section))
            fuzz::require(doc.value(section, key).has_value());
    requireReadsLikeItsText(doc);
    // Names taken from the text itself, so that a write can land on any line the text makes.
    int n = 0;
    for (const QString& section : sections) {
        const QStringList keys = doc.keys(section);
        doc.setValue(section, QStringLiteral("Nieuw%1").arg(n), QString::number(n));
        if (!keys.isEmpty())
            doc.setValue(section, keys.last(), keys.first());
        if (++n == 8)
            break;
    }
    doc.setValue(QStringLiteral("Fuzz"), QStringLiteral("Sleutel"), QStringLiteral("waarde"));
    fuzz::require(doc.value(QStringLiteral("Fuzz"), QStringLiteral("Sleutel")) ==
                  QStringLiteral("waarde"));
    requireReadsLikeItsText(doc);
    // Removals keep the index as true as writes do: a key of the text's own in each of the first
    // sections (first, second, ... so that the keys below it move up), the key written above, and
    // a whole section.
    n = 0;
    for (const QString& section : sections) {
        const QStringList keys = doc.keys(section);
        if (!keys.isEmpty())
            doc.removeKey(section, keys[n % keys.size()]);
        if (++n == 8)
            break;
    }
    doc.removeKey(QStringLiteral("Fuzz"), QStringLiteral("Sleutel"));
    fuzz::require(!doc.value(QStringLiteral("Fuzz"), QStringLiteral("Sleutel")));
    // One look after all removals: a section's removal builds no index afresh, so a drift that
    // a key's removal left is still there to see.
    if (!sections.isEmpty())
        doc.removeSection(sections.first());
    requireReadsLikeItsText(doc);
    return 0;
}
