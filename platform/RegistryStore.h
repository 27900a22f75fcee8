#pragma once

#include "RegFile.h"
#include "RegistryRoot.h"
#include "RegistryValue.h"

#include <QString>
#include <optional>

namespace tk {

// The registry as the program sees it: typed values under keys of a few roots. Key paths and
// value names are compared without regard to case. A write that cannot be stored returns false;
// whether the store can be written is this platform's answer to "does this account have
// administrator rights".
class RegistryStore {
public:
    virtual ~RegistryStore() = default;
    virtual std::optional<RegistryValue> read(RegistryRoot root, const QString& key,
                                              const QString& name) = 0;
    virtual bool write(RegistryRoot root, const QString& key, const QString& name,
                       const RegistryValue& value) = 0;
    virtual bool deleteValue(RegistryRoot root, const QString& key, const QString& name) = 0;
    virtual bool createKey(RegistryRoot root, const QString& key) = 0;
    virtual bool keyExists(RegistryRoot root, const QString& key) = 0;
    // Applies a whole REGEDIT4 text, the counterpart of a silent registry import.
    virtual bool import(const RegFile::Parsed& parsed) = 0;

    // A batch of writes that reach the disk together when it ends: a take-over writes some forty
    // values, and each file is then rewritten once instead of once per value. Reads inside the
    // batch see its writes. Batches nest; the outermost end writes. False when a file of the
    // batch could not be written (that file is then as it was before the batch).
    virtual void beginBatch() {}
    virtual bool endBatch() { return true; }
};

// Holds a batch of the store for the length of a scope.
class RegistryBatch {
public:
    explicit RegistryBatch(RegistryStore& store) : m_store(store) { m_store.beginBatch(); }
    ~RegistryBatch() { m_store.endBatch(); }
    RegistryBatch(const RegistryBatch&) = delete;
    RegistryBatch& operator=(const RegistryBatch&) = delete;

private:
    RegistryStore& m_store;
};

} // namespace tk
