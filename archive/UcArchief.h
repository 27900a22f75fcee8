#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace tk {

// The archive control: packs a folder tree into one file and unpacks it again (the container of
// theme and icon packages). No compression, checksum or signature; the byte layout is in
// ArchiveIndex.h. Paths are native paths.
//
// Every method throws ArchiefFout ("ucArchief component failure") on any fault: the caller's
// procedure guard reports it. It needs no Programma, so that the server builds its packages
// with the same code.
//
// Beyond packing and unpacking byte for byte, extraction refuses an archive that is truncated
// or that holds a name that would land outside the target folder, before it writes anything.
class UcArchief {
public:
    // The events, raised in this order while the work goes on.
    std::function<void(const QString& tekst)> Status;                 // numbered steps
    std::function<void(const QString& naam, qint64 grootte)> Bestand; // each file
    std::function<void(int procent)> Voortgang; // whole part of i / aantal * 100
    // Runs between entries, so that the caller's event loop keeps turning during a long pack
    // or unpack (the client sets it to Wacht::Pomp; the server leaves it empty).
    std::function<void()> Pomp;

    // Writes the one entry whose name equals `naam` without regard to case below `doelMap`,
    // and returns at once: when `viaTmp`, the ".tmp" copy of the archive then stays on disk.
    // Not found: nothing written, the copy removed. Returns whether the entry was found.
    bool ExtractFile(const QString& archief, const QString& naam, const QString& doelMap,
                     bool viaTmp);
    // Unpacks every entry below `doelMap`, overwriting existing files and creating missing
    // folders. A missing archive gives 0. Returns the number of entries written.
    int ExtractFilesFromArchiv(const QString& archief, const QString& doelMap, bool viaTmp);
    // Packs every file below `bronMap` into `archief` (replacing it). With `viaTmp` the
    // archive is written as "<archief>.tmp" and then put in its place. Returns the number of
    // entries written.
    int SaveFilesToArchiv(const QString& bronMap, const QString& archief, bool viaTmp);

    // The full paths of the files of `map`: first its own files, then, with `metSubmappen`, each
    // sub-folder's, depth-first; names in the order of a directory listing (by name, without
    // regard to case). Hidden entries and links to folders are not followed.
    static QStringList AllFilesInFolders(const QString& map, bool metSubmappen);
    // The 1-based position of the last occurrence of `zoekWoord` in `tekst`; 0 if none.
    static int InStrR(const QString& tekst, const QString& zoekWoord);

private:
    void status(const QString& tekst);
    void bestand(const QString& naam, qint64 grootte);
    void voortgang(qint64 i, qint64 aantal);
    void pomp();
    int uitpakken(const char* methode, const QString& archief, const QString* naam,
                  const QString& doelMap, bool viaTmp);
};

} // namespace tk
