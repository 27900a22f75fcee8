#include "RegistryHive.h"

#include <QStringList>

namespace tk {

QString RegistryHive::normalisePath(const QString& keyPath) {
    // Nearly every path asked for is normal already (and every one that a read or a write passes
    // on): it is given back as it is, without splitting it into its parts.
    const QChar slash = QLatin1Char('\\');
    if (!keyPath.startsWith(slash) && !keyPath.endsWith(slash) &&
        !keyPath.contains(QLatin1String("\\\\")))
        return keyPath;
    const QStringList parts = keyPath.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    return parts.join(QLatin1Char('\\'));
}

int RegistryHive::indexOf(const QString& normalised) const {
    return m_index.value(normalised.toLower(), -1);
}

void RegistryHive::reindex() {
    m_index.clear();
    for (int i = 0; i < m_keys.size(); ++i)
        m_index.insert(m_keys[i].path.toLower(), i);
}

bool RegistryHive::hasKey(const QString& keyPath) const {
    return indexOf(normalisePath(keyPath)) >= 0;
}

bool RegistryHive::createKey(const QString& keyPath) {
    return makeKey(normalisePath(keyPath)) >= 0;
}

int RegistryHive::makeKey(const QString& path) {
    if (path.isEmpty())
        return -1;
    const QString lower = path.toLower();
    if (const int k = m_index.value(lower, -1); k >= 0)
        return k;
    // Every key's parents are there (a key is made with them and removed with what is below it),
    // so the keys to make are those below the deepest one that exists. It is looked for from the
    // bottom: a file names a key's parent before the key, and one look-up finds it. (Walking down
    // from the top made every key of a file of deep paths cost its depth in look-ups.)
    const QStringList parts = path.split(QLatin1Char('\\'));
    qsizetype made = parts.size(); // parts covered by the deepest key that exists
    QString parentLower = lower;
    int parent = -1;
    while (parent < 0 && --made > 0) {
        // Lower-casing is done per character and never makes a backslash, so the lower-cased
        // path has its backslashes where the path has them.
        parentLower.truncate(parentLower.lastIndexOf(QLatin1Char('\\')));
        parent = m_index.value(parentLower, -1);
    }
    // A new key keeps the spelling its parents already have.
    QString spelled = parent >= 0 ? m_keys[parent].path : QString();
    QString keyLower = parent >= 0 ? parentLower : QString();
    for (qsizetype i = made; i < parts.size(); ++i) {
        spelled = spelled.isEmpty() ? parts[i] : spelled + QLatin1Char('\\') + parts[i];
        keyLower = keyLower.isEmpty() ? parts[i].toLower()
                                      : keyLower + QLatin1Char('\\') + parts[i].toLower();
        m_keys.append(Key{spelled, {}});
        m_index.insert(keyLower, int(m_keys.size()) - 1);
    }
    return int(m_keys.size()) - 1;
}

std::optional<RegistryValue> RegistryHive::value(const QString& keyPath,
                                                 const QString& name) const {
    const int k = indexOf(normalisePath(keyPath));
    if (k < 0)
        return std::nullopt;
    for (const Value& v : m_keys[k].values)
        if (v.name.compare(name, Qt::CaseInsensitive) == 0)
            return v.value;
    return std::nullopt;
}

void RegistryHive::setValue(const QString& keyPath, const QString& name,
                            const RegistryValue& value) {
    // The path is made normal and looked up once: the key's place comes back from its making.
    const int k = makeKey(normalisePath(keyPath));
    if (k < 0)
        return;
    Key& key = m_keys[k];
    for (Value& v : key.values) {
        if (v.name.compare(name, Qt::CaseInsensitive) == 0) {
            v.value = value;
            return;
        }
    }
    key.values.append(Value{name, value});
}

bool RegistryHive::deleteValue(const QString& keyPath, const QString& name) {
    const int k = indexOf(normalisePath(keyPath));
    if (k < 0)
        return false;
    QList<Value>& values = m_keys[k].values;
    for (int i = 0; i < values.size(); ++i) {
        if (values[i].name.compare(name, Qt::CaseInsensitive) == 0) {
            values.removeAt(i);
            return true;
        }
    }
    return false;
}

void RegistryHive::deleteKey(const QString& keyPath) {
    const QString lower = normalisePath(keyPath).toLower();
    if (lower.isEmpty())
        return;
    const QString below = lower + QLatin1Char('\\');
    m_keys.removeIf([&](const Key& k) {
        const QString p = k.path.toLower();
        return p == lower || p.startsWith(below);
    });
    reindex();
}

} // namespace tk
