#include "ProblemCallRecord.h"

#include "WireText.h"
#include "core/Wire.h"

namespace tk::server {

QString ProblemCallRecord::knownType(const QString& text) {
    for (const char* type : {"Automatic", "Error report", "Manual"})
        if (text.trimmed().compare(QLatin1String(type), Qt::CaseInsensitive) == 0)
            return QString::fromLatin1(type);
    return QString();
}

ProblemCallRecord::Parsed ProblemCallRecord::parse(const QString& record) {
    Parsed out;
    const QStringList f = WireText::split(record, wire::fieldSep);
    Store::ProblemCall& c = out.call;
    if (f.size() == 10) {
        c.datum = f[0];
        c.tijd = f[1];
        c.computernaam = f[2];
        c.rapporteur = f[3];
        c.module = f[4];
        c.applicatie = f[5];
        c.omschrijving = f[6];
        out.screenshotFollows = WireText::yes(f[7]);
        c.type = knownType(f[9]);
        if (c.type.isEmpty())
            c.type = QStringLiteral("Error report");
        if (c.datum.isEmpty()) {
            c.datum = f[8].section(QLatin1Char(' '), 0, 0);
            c.tijd = f[8].section(QLatin1Char(' '), 1);
        }
    } else if (f.size() == 8) {
        c.type = knownType(f[0]);
        if (c.type.isEmpty())
            c.type = QStringLiteral("Manual");
        c.computernaam = f[1];
        c.rapporteur = f[2];
        c.module = f[3];
        c.applicatie = f[4];
        c.omschrijving = f[5];
        out.screenshotFollows = WireText::yes(f[6]);
        c.datum = f[7].trimmed().section(QLatin1Char(' '), 0, 0);
        c.tijd = f[7].trimmed().section(QLatin1Char(' '), 1);
    } else {
        out.error = QStringLiteral("a record of %1 fields, neither a fault report (10) nor a "
                                   "problem call (8)")
                        .arg(f.size());
        return out;
    }
    if (c.omschrijving.trimmed().isEmpty()) {
        out.error = QStringLiteral("a record without a description");
        return out;
    }
    out.ok = true;
    return out;
}

} // namespace tk::server
