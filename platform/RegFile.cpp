#include "RegFile.h"

#include "RegistryHive.h"

#include <QStringList>

namespace tk {

namespace {

// Reads a quoted string starting at text[pos] == '"'. Returns the position after the closing
// quote, or -1 when the string is not closed.
int readQuoted(const QString& text, int pos, QString& out) {
    out.clear();
    for (int i = pos + 1; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == QLatin1Char('\\') && i + 1 < text.size()) {
            out += text[++i];
        } else if (c == QLatin1Char('"')) {
            return i + 1;
        } else {
            out += c;
        }
    }
    return -1;
}

QString quoted(const QString& s) {
    QString out = s;
    out.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    out.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    // The reader takes CR LF as a line end; a CR that is part of the text before a line feed
    // keeps its line feed escaped so that both come back.
    out.replace(QStringLiteral("\r\n"), QStringLiteral("\r\\\n"));
    return QLatin1Char('"') + out + QLatin1Char('"');
}

// Splits the text into logical lines: a hex value continued with a trailing backslash and a
// string with a line end inside its quotes each form one line; a key line is always one line.
QStringList logicalLines(const QString& text) {
    QStringList lines;
    QString current;
    bool inString = false;
    const QStringList raw = QString(text)
                                .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                                .split(QLatin1Char('\n'));
    for (const QString& line : raw) {
        // A key line is whole in itself: a quote in a key's name opens no string.
        if (current.isEmpty() && line.trimmed().startsWith(QLatin1Char('['))) {
            lines.append(line);
            continue;
        }
        if (inString)
            current += QLatin1Char('\n');
        current += line;
        // Work out whether a quoted string is still open at the end of this physical line.
        inString = false;
        for (int i = 0; i < current.size(); ++i) {
            const QChar c = current[i];
            if (inString && c == QLatin1Char('\\')) {
                ++i;
            } else if (c == QLatin1Char('"')) {
                inString = !inString;
            }
        }
        if (inString)
            continue;
        const QString trimmed = current.trimmed();
        if (trimmed.endsWith(QLatin1Char('\\')) && trimmed.contains(QLatin1String("hex"))) {
            current = current.trimmed();
            current.chop(1);
            continue;
        }
        lines.append(current);
        current.clear();
    }
    if (!current.isEmpty())
        lines.append(current);
    return lines;
}

} // namespace

RegFile::Parsed RegFile::parse(const QString& text) {
    Parsed parsed;
    bool first = true;
    bool haveKey = false;
    RegistryRoot root = RegistryRoot::LocalMachine;
    QString key;
    for (const QString& rawLine : logicalLines(text)) {
        const QString line = rawLine.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
            continue;
        if (first) {
            first = false;
            if (line == u"REGEDIT4" || line.startsWith(u"Windows Registry Editor")) {
                parsed.hasHeader = true;
                continue;
            }
        }
        if (line.startsWith(QLatin1Char('['))) {
            haveKey = false;
            if (!line.endsWith(QLatin1Char(']'))) {
                ++parsed.skippedLines;
                continue;
            }
            // A key's name may begin or end with a space: only the root's name is trimmed.
            QString path = line.mid(1, line.size() - 2);
            const bool remove = path.trimmed().startsWith(QLatin1Char('-'));
            if (remove)
                path = path.trimmed().mid(1);
            const int slash = path.indexOf(QLatin1Char('\\'));
            const auto r = registryRootFromName((slash < 0 ? path : path.left(slash)).trimmed());
            if (!r) {
                ++parsed.skippedLines;
                continue;
            }
            root = *r;
            key = slash < 0 ? QString() : RegistryHive::normalisePath(path.mid(slash + 1));
            if (key.isEmpty()) {
                ++parsed.skippedLines;
                continue;
            }
            Operation op;
            op.kind = remove ? Operation::Kind::DeleteKey : Operation::Kind::CreateKey;
            op.root = root;
            op.key = key;
            parsed.operations.append(op);
            haveKey = !remove;
            continue;
        }
        if (!haveKey) {
            ++parsed.skippedLines;
            continue;
        }
        // A value line: "name"=... or @=...
        QString name;
        int pos = 0;
        if (line.startsWith(QLatin1Char('@'))) {
            pos = 1;
        } else if (line.startsWith(QLatin1Char('"'))) {
            pos = readQuoted(line, 0, name);
        } else {
            pos = -1;
        }
        if (pos < 0) {
            ++parsed.skippedLines;
            continue;
        }
        const int eq = line.indexOf(QLatin1Char('='), pos);
        if (eq < 0 || !line.mid(pos, eq - pos).trimmed().isEmpty()) {
            ++parsed.skippedLines;
            continue;
        }
        const QString rhs = line.mid(eq + 1).trimmed();
        Operation op;
        op.root = root;
        op.key = key;
        op.name = name;
        if (rhs == u"-") {
            op.kind = Operation::Kind::DeleteValue;
        } else if (rhs.startsWith(QLatin1Char('"'))) {
            QString s;
            const int end = readQuoted(rhs, 0, s);
            if (end < 0 || !rhs.mid(end).trimmed().isEmpty()) {
                ++parsed.skippedLines;
                continue;
            }
            op.kind = Operation::Kind::SetValue;
            op.value = RegistryValue::string(s);
        } else if (rhs.startsWith(QLatin1String("dword:"), Qt::CaseInsensitive)) {
            bool ok = false;
            const QString digits = rhs.mid(6).trimmed();
            const quint32 v = digits.toUInt(&ok, 16);
            if (!ok || digits.size() > 8) {
                ++parsed.skippedLines;
                continue;
            }
            op.kind = Operation::Kind::SetValue;
            op.value = RegistryValue::number(v);
        } else if (rhs.startsWith(QLatin1String("hex"), Qt::CaseInsensitive)) {
            // Hex digits continue over lines only with a backslash; a line end inside the value
            // comes from a stray quote, and a quote (one left open at the end of the file) would
            // open a string that swallows the lines written after it. A backslash left at the
            // end continues a line that never came and would swallow the next line written.
            if (rhs.contains(QLatin1Char('\n')) || rhs.contains(QLatin1Char('\r')) ||
                rhs.contains(QLatin1Char('"')) || rhs.endsWith(QLatin1Char('\\'))) {
                ++parsed.skippedLines;
                continue;
            }
            op.kind = Operation::Kind::SetValue;
            op.value = RegistryValue::other(rhs);
        } else {
            ++parsed.skippedLines;
            continue;
        }
        parsed.operations.append(op);
    }
    return parsed;
}

void RegFile::apply(const Parsed& parsed, RegistryRoot root, RegistryHive& hive) {
    for (const Operation& op : parsed.operations) {
        if (op.root != root)
            continue;
        switch (op.kind) {
        case Operation::Kind::CreateKey:
            hive.createKey(op.key);
            break;
        case Operation::Kind::DeleteKey:
            hive.deleteKey(op.key);
            break;
        case Operation::Kind::SetValue:
            hive.setValue(op.key, op.name, op.value);
            break;
        case Operation::Kind::DeleteValue:
            hive.deleteValue(op.key, op.name);
            break;
        }
    }
}

QString RegFile::write(RegistryRoot root, const RegistryHive& hive) {
    QString out = QStringLiteral("REGEDIT4\n");
    const QString rootName = registryRootName(root);
    for (const RegistryHive::Key& key : hive.keys()) {
        out += QLatin1Char('\n');
        out += QLatin1Char('[') + rootName + QLatin1Char('\\') + key.path + QStringLiteral("]\n");
        for (const RegistryHive::Value& v : key.values) {
            out += v.name.isEmpty() ? QStringLiteral("@") : quoted(v.name);
            out += QLatin1Char('=');
            switch (v.value.type) {
            case RegistryValue::Type::String:
                out += quoted(v.value.text);
                break;
            case RegistryValue::Type::Dword:
                out += QStringLiteral("dword:") +
                       QStringLiteral("%1").arg(v.value.dword, 8, 16, QLatin1Char('0'));
                break;
            case RegistryValue::Type::Other:
                out += v.value.text;
                break;
            }
            out += QLatin1Char('\n');
        }
    }
    return out;
}

} // namespace tk
