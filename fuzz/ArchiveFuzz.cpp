// The archive reader: the table of contents stays inside the bytes, and unpacking writes only
// below its target folder (or refuses the archive) whatever the names say.
#include "FuzzSupport.h"
#include "archive/ArchiveIndex.h"
#include "archive/UcArchief.h"
#include "core/Fout.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

using namespace tk;

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray archive = fuzz::bytes(data, size);
    const ArchiveIndex::Result index = ArchiveIndex::parse(archive);
    qint64 total = 0;
    for (const ArchiveIndex::Entry& e : index.entries) {
        fuzz::require(e.offset >= 0 && e.size >= 0 && e.offset + e.size <= archive.size());
        (void)ArchiveIndex::unsafeName(e.name);
        total += e.size;
    }
    if (!index.ok() || index.entries.size() > 64)
        return 0;

    // A room of its own: the archive beside the target, nothing else.
    const QString room = fuzz::scratch().filePath(QStringLiteral("archief"));
    QDir(room).removeRecursively();
    QDir().mkpath(room + QStringLiteral("/doel"));
    const QString file = room + QStringLiteral("/pakket.ucarch");
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(archive) != archive.size())
        return 0;
    out.close();
    UcArchief ucArchief;
    try {
        ucArchief.ExtractFilesFromArchiv(file, room + QStringLiteral("/doel"), false);
    } catch (const Fout&) {
    }
    QDirIterator it(room, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString found = it.next();
        fuzz::require(found == file || found.startsWith(room + QStringLiteral("/doel")));
    }
    (void)total;
    return 0;
}
