#include "UcArchief.h"

#include "archive/ArchiefFout.h"
#include "archive/ArchiveIndex.h"
#include "core/Ansi.h"
#include "platform/PathResolver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <limits>

namespace tk {

namespace {

QString metScheiding(const QString& map) {
    if (map.endsWith(QLatin1Char('/')) || map.endsWith(QLatin1Char('\\')))
        return map;
    return map + QLatin1Char('/');
}

// Removes a file when the work that made it ends early.
class HalfFile {
public:
    explicit HalfFile(QString pad) : m_pad(std::move(pad)) {}
    ~HalfFile() {
        if (!m_pad.isEmpty())
            QFile::remove(m_pad);
    }
    void keep() { m_pad.clear(); }
    HalfFile(const HalfFile&) = delete;
    HalfFile& operator=(const HalfFile&) = delete;

private:
    QString m_pad;
};

// The bytes of an archive file: mapped when the system allows it, read otherwise.
class ArchiveBytes {
public:
    explicit ArchiveBytes(const QString& pad) : m_file(pad) {}
    bool open() {
        if (!m_file.open(QIODevice::ReadOnly))
            return false;
        const qint64 size = m_file.size();
        if (size > 0) {
            if (uchar* mapped = m_file.map(0, size)) {
                m_view = QByteArrayView(reinterpret_cast<const char*>(mapped), size);
                return true;
            }
        }
        m_read = m_file.readAll();
        m_view = QByteArrayView(m_read);
        return true;
    }
    QByteArrayView view() const { return m_view; }
    QString errorString() const { return m_file.errorString(); }

private:
    QFile m_file;
    QByteArray m_read;
    QByteArrayView m_view;
};

} // namespace

void UcArchief::status(const QString& tekst) {
    if (Status)
        Status(tekst);
}

void UcArchief::bestand(const QString& naam, qint64 grootte) {
    if (Bestand)
        Bestand(naam, grootte);
}

void UcArchief::voortgang(qint64 i, qint64 aantal) {
    if (Voortgang && aantal > 0)
        Voortgang(int(i * 100 / aantal));
}

void UcArchief::pomp() {
    if (Pomp)
        Pomp();
}

int UcArchief::SaveFilesToArchiv(const QString& bronMap, const QString& archief, bool viaTmp) {
    const QString methode = QStringLiteral("SaveFilesToArchiv");
    status(QStringLiteral("1. Bestanden zoeken"));
    const QStringList paden = AllFilesInFolders(bronMap, true);
    const QString bron = metScheiding(bronMap);

    // The names are the paths with the source folder taken out wherever it occurs.
    QStringList namen;
    namen.reserve(paden.size());
    for (const QString& pad : paden) {
        QString naam = pad;
        naam.replace(bron, QString());
        if (naam == u"." || naam == u"..")
            continue;
        namen.append(naam.replace(QLatin1Char('/'), QLatin1Char('\\')));
    }

    status(QStringLiteral("2. Archief maken"));
    if (QFileInfo::exists(archief) && !QFile::remove(archief))
        throw ArchiefFout(methode, QStringLiteral("cannot delete the old archive %1").arg(archief));
    const QString doel = viaTmp ? archief + QStringLiteral(".tmp") : archief;
    QFile::remove(doel);
    QFile uit(doel);
    if (!uit.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw ArchiefFout(methode,
                          QStringLiteral("cannot write %1: %2").arg(doel, uit.errorString()));
    HalfFile half(doel);

    auto schrijf = [&](const char* data, qint64 lengte) {
        if (uit.write(data, lengte) != lengte)
            throw ArchiefFout(methode,
                              QStringLiteral("cannot write %1: %2").arg(doel, uit.errorString()));
    };
    auto schrijfGetal = [&](auto waarde) {
        char buffer[sizeof(waarde)];
        qToLittleEndian(waarde, buffer);
        schrijf(buffer, sizeof(waarde));
    };

    const qint64 aantal = namen.size();
    if (aantal > std::numeric_limits<qint32>::max())
        throw ArchiefFout(methode, QStringLiteral("too many files (%1)").arg(aantal));
    status(QStringLiteral("3. Bestanden inpakken"));
    schrijfGetal(qint32(aantal));
    for (qint64 i = 0; i < aantal; ++i) {
        const QString& naam = namen.at(i);
        const QByteArray naamBytes = Ansi::naarBytes(naam);
        if (Ansi::naarTekst(naamBytes) != naam)
            throw ArchiefFout(
                methode,
                QStringLiteral("the name %1 has characters outside Windows-1252").arg(naam));
        if (naamBytes.size() > std::numeric_limits<qint16>::max())
            throw ArchiefFout(
                methode,
                QStringLiteral("the name %1 is longer than 32767 bytes").arg(naam.left(80)));
        QFile in(paden.at(i));
        if (!in.open(QIODevice::ReadOnly))
            throw ArchiefFout(
                methode, QStringLiteral("cannot read %1: %2").arg(paden.at(i), in.errorString()));
        if (in.size() > std::numeric_limits<qint32>::max())
            throw ArchiefFout(methode, QStringLiteral("%1 is larger than 2 GB").arg(paden.at(i)));
        const QByteArray inhoud = in.readAll();
        if (inhoud.size() != in.size())
            throw ArchiefFout(
                methode, QStringLiteral("cannot read %1: %2").arg(paden.at(i), in.errorString()));
        schrijfGetal(qint16(naamBytes.size()));
        schrijf(naamBytes.constData(), naamBytes.size());
        schrijfGetal(qint32(inhoud.size()));
        schrijf(inhoud.constData(), inhoud.size());
        pomp();
        bestand(naam, inhoud.size());
        voortgang(i + 1, aantal);
    }
    if (!uit.flush())
        throw ArchiefFout(methode,
                          QStringLiteral("cannot write %1: %2").arg(doel, uit.errorString()));
    uit.close();

    if (viaTmp) {
        if (!QFile::rename(doel, archief)) {
            if (!QFile::copy(doel, archief))
                throw ArchiefFout(methode,
                                  QStringLiteral("cannot copy %1 to %2").arg(doel, archief));
            QFile::remove(doel);
        }
    }
    half.keep();
    status(QStringLiteral("4. Klaar"));
    return int(aantal);
}

bool UcArchief::ExtractFile(const QString& archief, const QString& naam, const QString& doelMap,
                            bool viaTmp) {
    return uitpakken("ExtractFile", archief, &naam, doelMap, viaTmp) > 0;
}

int UcArchief::ExtractFilesFromArchiv(const QString& archief, const QString& doelMap, bool viaTmp) {
    return uitpakken("ExtractFilesFromArchiv", archief, nullptr, doelMap, viaTmp);
}

int UcArchief::uitpakken(const char* methodeNaam, const QString& archief, const QString* gezocht,
                         const QString& doelMap, bool viaTmp) {
    const QString methode = QString::fromLatin1(methodeNaam);
    if (!QFileInfo(archief).isFile())
        return 0;
    status(QStringLiteral("1. Archief openen"));
    QString bron = archief;
    if (viaTmp) {
        bron = archief + QStringLiteral(".tmp");
        QFile::remove(bron);
        if (!QFile::copy(archief, bron))
            throw ArchiefFout(methode, QStringLiteral("cannot copy %1 to %2").arg(archief, bron));
    }
    HalfFile tijdelijk(viaTmp ? bron : QString());

    ArchiveBytes bytes(bron);
    if (!bytes.open())
        throw ArchiefFout(methode,
                          QStringLiteral("cannot read %1: %2").arg(bron, bytes.errorString()));
    const ArchiveIndex::Result inhoud = ArchiveIndex::parse(bytes.view());
    if (!inhoud.ok())
        throw ArchiefFout(methode, archief + QStringLiteral(": ") + inhoud.error);
    // A name that would land outside the target refuses the whole archive, before anything
    // is written.
    for (const ArchiveIndex::Entry& entry : inhoud.entries) {
        const QString reden = ArchiveIndex::unsafeName(entry.name);
        if (!reden.isEmpty())
            throw ArchiefFout(methode, QStringLiteral("%1: entry \"%2\" refused: %3")
                                           .arg(archief, Ansi::naarTekst(entry.name), reden));
    }

    status(QStringLiteral("2. Bestanden uitpakken"));
    const QString doel = QDir::cleanPath(doelMap);
    const QString gezochtGroot = gezocht ? Ansi::hoofdletters(*gezocht) : QString();
    const qint64 aantal = inhoud.entries.size();
    int geschreven = 0;
    for (qint64 i = 0; i < aantal; ++i) {
        const ArchiveIndex::Entry& entry = inhoud.entries.at(i);
        const QString naam = Ansi::naarTekst(entry.name);
        const bool schrijven = !gezocht || Ansi::hoofdletters(naam) == gezochtGroot;
        if (schrijven) {
            // Each part is matched without regard to case against what is already there.
            const QString pad = PathResolver::resolve(doel, naam);
            const QString map = QFileInfo(pad).path();
            if (!QDir().mkpath(map))
                throw ArchiefFout(methode, QStringLiteral("cannot create the folder %1").arg(map));
            bestand(naam, entry.size);
            QFile uit(pad);
            if (!uit.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
                uit.write(bytes.view().data() + entry.offset, entry.size) != entry.size ||
                !uit.flush())
                throw ArchiefFout(
                    methode, QStringLiteral("cannot write %1: %2").arg(pad, uit.errorString()));
            ++geschreven;
        }
        pomp();
        voortgang(i + 1, aantal);
        if (gezocht && schrijven) {
            // Found: stop at once. The clean-up of a full run is skipped on purpose, so the
            // ".tmp" working copy stays on disk, as ExtractFile promises.
            tijdelijk.keep();
            return 1;
        }
    }
    status(QStringLiteral("3. Klaar"));
    return geschreven;
}

QStringList UcArchief::AllFilesInFolders(const QString& map, bool metSubmappen) {
    const QString basis = metScheiding(map);
    QStringList paden;
    const QDir dir(basis);
    const QStringList bestanden =
        dir.entryList(QDir::Files | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString& naam : bestanden)
        paden.append(basis + naam);
    if (metSubmappen) {
        const QStringList mappen = dir.entryList(
            QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name | QDir::IgnoreCase);
        for (const QString& sub : mappen)
            paden += AllFilesInFolders(basis + sub, true);
    }
    return paden;
}

int UcArchief::InStrR(const QString& tekst, const QString& zoekWoord) {
    if (zoekWoord.isEmpty())
        return 0;
    return int(tekst.lastIndexOf(zoekWoord)) + 1;
}

} // namespace tk
