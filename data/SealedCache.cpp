#include "SealedCache.h"

#include "core/Ansi.h"
#include "core/ClsRC4.h"
#include "core/Fout.h"
#include "platform/TextFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tk {

QByteArray SealedCache::decipher(QByteArray bytes) {
    ClsRC4 rc4;
    rc4.Key(QString::fromLatin1(Sleutel));
    rc4.DecryptByte(bytes);
    return bytes;
}

bool SealedCache::isCacheText(const QString& tekst) {
    if (tekst.contains(QChar(0)))
        return false;
    for (const QChar c : tekst) {
        if (c.isSpace())
            continue;
        return c == u'[';
    }
    return false;
}

void SealedCache::open(const QString& pad) {
    close();
    m_open = true;
    if (!QFileInfo(pad).isFile())
        return;
    QFile bestand(pad);
    if (!bestand.open(QIODevice::ReadOnly))
        throw Fout(QStringLiteral("Path/File access error (%1)").arg(pad));
    openSealed(bestand.readAll(), pad);
}

void SealedCache::openSealed(const QByteArray& versleuteld, const QString& naam) {
    close();
    m_open = true;
    // The whole file is one array; an empty file has no array to size.
    if (versleuteld.isEmpty())
        throw Fout(QStringLiteral("Subscript out of range (the cache file is empty)"));
    const QString tekst = Ansi::naarTekst(decipher(versleuteld));
    if (!isCacheText(tekst))
        throw Fout(QStringLiteral("The cache file is not a cache of this program (%1)").arg(naam));
    m_document = IniDocument::parse(tekst);
}

void SealedCache::beginFresh() {
    m_vorige = m_document;
    m_document = IniDocument();
    m_open = true;
}

void SealedCache::removeStaleCopies(const QString& pad) {
    // A client that died while sealing left its new file beside the cache ("<name>.<8>.tmp").
    // One that is younger than ten minutes may belong to a seal that runs now: it stays.
    const QFileInfo cache(pad);
    const QDateTime old = QDateTime::currentDateTimeUtc().addSecs(-600);
    for (const QFileInfo& copy : cache.dir().entryInfoList(
             {cache.fileName() + QStringLiteral(".????????.tmp")}, QDir::Files | QDir::Hidden))
        if (copy.lastModified().toUTC() < old)
            QFile::remove(copy.filePath());
}

void SealedCache::seal(const QString& pad) const {
    removeStaleCopies(pad);
    const QByteArray bytes = encipher(Ansi::naarBytes(m_document.text()));
    if (bytes.isEmpty())
        throw Fout(QStringLiteral("Subscript out of range (nothing to seal)"));
    if (!TextFile::replaceAtomically(pad, bytes))
        throw Fout(QStringLiteral("Path/File access error (%1)").arg(pad));
}

void SealedCache::close() {
    m_document = IniDocument();
    m_vorige = IniDocument();
    m_open = false;
    m_changed = false;
}

QString SealedCache::read(const QString& sectie, const QString& sleutel) const {
    if (const auto waarde = m_document.value(sectie, sleutel))
        return *waarde;
    return m_vorige.value(sectie, sleutel).value_or(QString());
}

void SealedCache::write(const QString& sectie, const QString& sleutel, const QString& waarde) {
    m_document.setValue(sectie, sleutel, waarde);
    m_changed = true;
}

} // namespace tk
