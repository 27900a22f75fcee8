#include "RegistryHive.h"

#include <QStringList>

namespace tk {

QString RegistryHive::normalisePath(const QString& keyPath) {
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
    const QString path = normalisePath(keyPath);
    if (path.isEmpty())
        return false;
    const QStringList parts = path.split(QLatin1Char('\\'));
    QString sofar;
    for (const QString& part : parts) {
        sofar = sofar.isEmpty() ? part : sofar + QLatin1Char('\\') + part;
        if (indexOf(sofar) < 0) {
            // A new child keeps the spelling its parents already have.
            const int slash = sofar.lastIndexOf(QLatin1Char('\\'));
            QString spelled = sofar;
            if (slash > 0) {
                const int parent = indexOf(sofar.left(slash));
                if (parent >= 0)
                    spelled = m_keys[parent].path + QLatin1Char('\\') + part;
            }
            m_keys.append(Key{spelled, {}});
            m_index.insert(spelled.toLower(), int(m_keys.size()) - 1);
        }
    }
    return true;
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
    const QString path = normalisePath(keyPath);
    if (!createKey(path))
        return;
    Key& key = m_keys[indexOf(path)];
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
