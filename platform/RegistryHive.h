#pragma once

#include "RegistryValue.h"

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

namespace tk {

// The keys and values under one registry root, in memory. Key paths and value names are
// compared without regard to case and keep the spelling of their first writer. Keys keep the
// order in which they were made, so that an exported file reads in a stable order.
class RegistryHive {
public:
    struct Value {
        QString name; // empty is the key's default value ("@" in a file)
        RegistryValue value;
    };
    struct Key {
        QString path;
        QList<Value> values;
    };

    std::optional<RegistryValue> value(const QString& keyPath, const QString& name) const;
    bool hasKey(const QString& keyPath) const;
    // Makes the key and all its parents; returns false for an empty path.
    bool createKey(const QString& keyPath);
    void setValue(const QString& keyPath, const QString& name, const RegistryValue& value);
    // Returns whether a value was there.
    bool deleteValue(const QString& keyPath, const QString& name);
    // Deletes the key with its values and every key below it.
    void deleteKey(const QString& keyPath);
    const QList<Key>& keys() const { return m_keys; }
    bool isEmpty() const { return m_keys.isEmpty(); }

    // "A\\B\\" and "\\A\\B" name one key: separators at the ends and doubled ones are dropped.
    static QString normalisePath(const QString& keyPath);

private:
    int indexOf(const QString& normalised) const;
    // Makes the key of a normal path with its parents; its place in m_keys, -1 for an empty path.
    int makeKey(const QString& path);
    void reindex();

    QList<Key> m_keys;
    QHash<QString, int> m_index; // lower-cased path -> position in m_keys
};

} // namespace tk
