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
    QStringList f = WireText::split(record, wire::fieldSep);
    // The description is the record's only free text: a fault text may quote a message of the
    // wire, separators and all. The fields beyond the record's count are its own, joined again,
    // and the separator in it is broken up, so that the call loads back in its columns.
    const bool handmatig = f.size() == 8 || (f.size() > 8 && !knownType(f[0]).isEmpty());
    const qsizetype omschrijving = handmatig ? 5 : 6, velden = handmatig ? 8 : 10;
    if (f.size() > velden) {
        const qsizetype extra = f.size() - velden;
        f[omschrijving] = f.mid(omschrijving, extra + 1).join(wire::fieldSep);
        f.remove(omschrijving + 1, extra);
    }
    if (f.size() == velden)
        f[omschrijving].replace(QStringLiteral(";<>"), QStringLiteral("; <>"));
    Store::ProblemCall& c = out.call;
    if (f.size() == 10 && !handmatig) {
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
    // A fault report is sent without a person, its text whatever the fault said; a call a
    // person made says what is wrong.
    if (handmatig && c.omschrijving.trimmed().isEmpty()) {
        out.error = QStringLiteral("a record without a description");
        return out;
    }
    out.ok = true;
    return out;
}

} // namespace tk::server
