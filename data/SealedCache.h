#pragma once

#include "core/CacheSleutel.h"
#include "core/IniDocument.h"

#include <QString>

namespace tk {

// The offline cache of the server's answers: an INI document of raw answers by section and key,
// kept on disk only enciphered (the fixed key, plain RC4, no header). The clear text lives in
// memory for the length of a load, so that no plain copy is ever left on disk; sealing writes a
// new file and renames it over the old one, so that a crash keeps the old cache whole.
//
// During a load with a link the answers go to a fresh document; the cache that was on disk stays
// behind it for reads, so that a link lost halfway reads the rest from what was sealed before.
class SealedCache {
public:
    static constexpr const char* Sleutel = CacheSleutel;

    // Deciphers the sealed file (a native path) into memory. A missing file gives an empty cache.
    // An empty, unreadable or foreign file raises tk::Fout; the cache is then empty and the file
    // on disk is left as it was.
    void open(const QString& pad);
    // The same for the bytes of a sealed file; `naam` names it in a fault.
    void openSealed(const QByteArray& versleuteld, const QString& naam);
    // With a link: new answers go to a fresh document, the opened one is read behind it.
    void beginFresh();
    // Enciphers the document to `pad` through a new file and a rename. Raises tk::Fout on failure.
    // New files that a killed seal left beside the cache, ten minutes old or more, are removed.
    void seal(const QString& pad) const;
    void close();
    bool isOpen() const { return m_open; }

    // The answer under section and key: the fresh document's, else the one opened from disk,
    // else empty.
    QString read(const QString& sectie, const QString& sleutel) const;
    void write(const QString& sectie, const QString& sleutel, const QString& waarde);
    // Whether anything was written since the cache was opened.
    bool changed() const { return m_changed; }

    // The clear text of a sealed file's bytes and back; pure, for tests and tools.
    static QByteArray decipher(QByteArray bytes);
    static QByteArray encipher(QByteArray bytes) { return decipher(std::move(bytes)); }
    // Whether a deciphered text is a cache of this program: an INI text that begins with a
    // section and holds no NUL character.
    static bool isCacheText(const QString& tekst);

private:
    static void removeStaleCopies(const QString& pad);
    IniDocument m_document;
    IniDocument m_vorige;
    bool m_open = false;
    bool m_changed = false;
};

} // namespace tk
