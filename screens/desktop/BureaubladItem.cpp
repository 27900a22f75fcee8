#include "BureaubladItem.h"

#include <QFile>

namespace tk {

bool BureaubladItem::isItem(const QString& bestand) {
    if (bestand.endsWith(QLatin1String(".desktop"), Qt::CaseInsensitive))
        return true;
    QFile f(bestand);
    if (!f.open(QIODevice::ReadOnly))
        return false;
    const QByteArray begin = f.read(4096);
    for (const QByteArray& regel : begin.split('\n')) {
        const QByteArray r = regel.trimmed();
        if (r.isEmpty() || r.startsWith('#'))
            continue;
        return r == "[Desktop Entry]";
    }
    return false;
}

BureaubladItem BureaubladItem::lees(const QByteArray& tekst) {
    BureaubladItem item;
    bool inGroep = false;
    for (const QByteArray& ruw : tekst.split('\n')) {
        const QString regel = QString::fromUtf8(ruw).trimmed();
        if (regel.isEmpty() || regel.startsWith(QLatin1Char('#')))
            continue;
        if (regel.startsWith(QLatin1Char('['))) {
            inGroep = regel == u"[Desktop Entry]";
            item.geldig = item.geldig || inGroep;
            continue;
        }
        if (!inGroep)
            continue;
        const qsizetype is = regel.indexOf(QLatin1Char('='));
        if (is <= 0)
            continue;
        const QString sleutel = regel.left(is).trimmed();
        const QString waarde = regel.mid(is + 1).trimmed();
        // Localised keys ("Name[nl]") are left alone: the plain key is the one every entry has.
        if (sleutel == u"Type")
            item.type = waarde;
        else if (sleutel == u"Name")
            item.naam = waarde;
        else if (sleutel == u"Exec")
            item.exec = waarde;
        else if (sleutel == u"Path")
            item.pad = waarde;
        else if (sleutel == u"Icon")
            item.icoon = waarde;
        else if (sleutel == u"URL")
            item.url = waarde;
    }
    return item;
}

QStringList BureaubladItem::opdracht(const QStringList& bestanden,
                                     const QString& itemBestand) const {
    const BureaubladItem& item = *this;
    // The value's own escapes first (a string value of the entry: \s \n \t \r \\), then the
    // quoting of the command line, then the field codes, each in one argument.
    QString waarde;
    for (qsizetype i = 0; i < item.exec.size(); ++i) {
        const QChar c = item.exec[i];
        if (c == u'\\' && i + 1 < item.exec.size()) {
            const QChar n = item.exec[++i];
            if (n == u's')
                waarde += QLatin1Char(' ');
            else if (n == u'n')
                waarde += QLatin1Char('\n');
            else if (n == u't')
                waarde += QLatin1Char('\t');
            else if (n == u'r')
                waarde += QLatin1Char('\r');
            else if (n == u'\\')
                waarde += QLatin1Char('\\');
            else // not an escape of the value: the quoting below reads it
                waarde += QString(QLatin1Char('\\')) + n;
            continue;
        }
        waarde += c;
    }
    // Quoting: words split on blanks, "..." keeps blanks, \" \` \$ \\ inside quotes.
    QStringList woorden;
    QString woord;
    bool inAanhaling = false, heeftWoord = false;
    for (qsizetype i = 0; i < waarde.size(); ++i) {
        const QChar c = waarde[i];
        if (inAanhaling) {
            if (c == u'\\' && i + 1 < waarde.size()) {
                woord += waarde[++i];
            } else if (c == u'"') {
                inAanhaling = false;
            } else {
                woord += c;
            }
        } else if (c == u'"') {
            inAanhaling = true;
            heeftWoord = true;
        } else if (c == u' ' || c == u'\t') {
            if (heeftWoord)
                woorden << woord;
            woord.clear();
            heeftWoord = false;
        } else {
            if (c == u'\\' && i + 1 < waarde.size())
                woord += waarde[++i];
            else
                woord += c;
            heeftWoord = true;
        }
    }
    if (inAanhaling)
        return {};
    if (heeftWoord)
        woorden << woord;

    QStringList uit;
    for (const QString& w : std::as_const(woorden)) {
        if (w == u"%f" || w == u"%u") {
            if (!bestanden.isEmpty())
                uit << bestanden.constFirst();
            continue;
        }
        if (w == u"%F" || w == u"%U") {
            uit << bestanden;
            continue;
        }
        if (w == u"%i") {
            if (!item.icoon.isEmpty())
                uit << QStringLiteral("--icon") << item.icoon;
            continue;
        }
        QString deel;
        for (qsizetype i = 0; i < w.size(); ++i) {
            if (w[i] != u'%' || i + 1 >= w.size()) {
                deel += w[i];
                continue;
            }
            const QChar code = w[++i];
            if (code == u'%')
                deel += QLatin1Char('%');
            else if (code == u'c')
                deel += item.naam;
            else if (code == u'k')
                deel += itemBestand;
            else if ((code == u'f' || code == u'u') && !bestanden.isEmpty())
                deel += bestanden.constFirst();
            // every other code (%d %D %n %N %v %m, and %F %U %i inside a word) goes
        }
        if (!deel.isEmpty() || w.isEmpty())
            uit << deel;
    }
    return uit;
}

} // namespace tk
