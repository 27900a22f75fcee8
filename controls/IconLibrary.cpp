#include "IconLibrary.h"

#include "controls/IconImage.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QtEndian>

namespace tk {

namespace {

constexpr quint16 RtIcon = 3;
constexpr quint16 RtGroupIcon = 14;
// More icons than any real library holds: a count above it is a malformed file.
constexpr quint32 MaxEntries = 65535;

// Reads little-endian numbers at checked offsets.
class Bytes {
public:
    explicit Bytes(QByteArrayView b) : m_b(b) {}
    bool has(qint64 at, qint64 length) const {
        return at >= 0 && length >= 0 && at <= m_b.size() && m_b.size() - at >= length;
    }
    quint16 u16(qint64 at) const { return qFromLittleEndian<quint16>(m_b.data() + at); }
    quint32 u32(qint64 at) const { return qFromLittleEndian<quint32>(m_b.data() + at); }
    quint8 u8(qint64 at) const { return quint8(m_b.at(at)); }
    QByteArray slice(qint64 at, qint64 length) const {
        return m_b.sliced(at, length).toByteArray();
    }
    qint64 size() const { return m_b.size(); }

private:
    QByteArrayView m_b;
};

IconLibrary::Result failed(IconLibrary::Kind kind, const QString& error) {
    IconLibrary::Result r;
    r.kind = kind;
    r.error = error;
    return r;
}

int side(quint8 stored) {
    return stored == 0 ? 256 : stored;
}

// The entries of a group icon resource: per image its size, depth and resource id.
struct GroupEntry {
    QSize size;
    int bitCount;
    quint16 id;
};
QList<GroupEntry> groupEntries(const QByteArray& group) {
    QList<GroupEntry> entries;
    Bytes b(group);
    if (!b.has(0, 6) || b.u16(0) != 0 || (b.u16(2) != 1 && b.u16(2) != 2))
        return entries;
    const quint16 count = b.u16(4);
    for (quint16 i = 0; i < count; ++i) {
        const qint64 at = 6 + qint64(i) * 14;
        if (!b.has(at, 14))
            break;
        entries.append({QSize(side(b.u8(at)), side(b.u8(at + 1))), b.u16(at + 6), b.u16(at + 12)});
    }
    return entries;
}

} // namespace

IconLibrary::Result IconLibrary::parse(QByteArrayView bytes) {
    Bytes b(bytes);
    if (b.has(0, 64) && bytes.at(0) == 'M' && bytes.at(1) == 'Z') {
        const quint32 header = b.u32(0x3c);
        if (b.has(header, 4) && bytes.sliced(header, 4) == QByteArrayView("PE\0\0", 4))
            return parsePe(bytes, header);
        if (b.has(header, 2) && bytes.sliced(header, 2) == "NE")
            return parseNe(bytes, header);
        return failed(Kind::None, QStringLiteral("program file without PE or NE header"));
    }
    if (b.has(0, 6) && b.u16(0) == 0 && b.u16(2) == 1)
        return parseIco(bytes);
    return failed(Kind::None, QStringLiteral("neither an icon file nor a library"));
}

IconLibrary::Result IconLibrary::parseIco(QByteArrayView bytes) {
    Bytes b(bytes);
    const quint16 count = b.u16(4);
    if (count == 0)
        return failed(Kind::IconFile, QStringLiteral("icon file without images"));
    if (!b.has(6, qint64(count) * 16))
        return failed(Kind::IconFile,
                      QStringLiteral("icon directory of %1 entries cut short").arg(count));
    Icon icon;
    for (quint16 i = 0; i < count; ++i) {
        const qint64 at = 6 + qint64(i) * 16;
        const quint32 length = b.u32(at + 8);
        const quint32 offset = b.u32(at + 12);
        if (!b.has(offset, length) || length == 0)
            continue; // an image outside the file is skipped
        icon.images.append({QSize(side(b.u8(at)), side(b.u8(at + 1))), int(b.u16(at + 6)),
                            b.slice(offset, length)});
    }
    if (icon.images.isEmpty())
        return failed(Kind::IconFile, QStringLiteral("no image of the icon file lies in the file"));
    Result r;
    r.kind = Kind::IconFile;
    r.icons.append(icon);
    return r;
}

IconLibrary::Result IconLibrary::parsePe(QByteArrayView bytes, quint32 pe) {
    Bytes b(bytes);
    const Kind kind = Kind::PeLibrary;
    if (!b.has(pe, 24))
        return failed(kind, QStringLiteral("PE header cut short"));
    const quint16 sectionCount = b.u16(pe + 6);
    const quint16 optionalSize = b.u16(pe + 20);
    const qint64 optional = qint64(pe) + 24;
    if (!b.has(optional, optionalSize) || optionalSize < 2)
        return failed(kind, QStringLiteral("PE optional header cut short"));
    const quint16 magic = b.u16(optional);
    qint64 directories;
    if (magic == 0x10b)
        directories = optional + 96;
    else if (magic == 0x20b)
        directories = optional + 112;
    else
        return failed(kind, QStringLiteral("PE optional header of kind %1").arg(magic, 0, 16));
    const qint64 directoryCount =
        (directories + 4 <= optional + optionalSize) ? b.u32(directories - 4) : 0;
    if (directoryCount < 3 || directories + 3 * 8 > optional + optionalSize)
        return failed(kind, QStringLiteral("library without resources"));
    const quint32 resourceRva = b.u32(directories + 2 * 8);
    if (resourceRva == 0)
        return failed(kind, QStringLiteral("library without resources"));

    // Sections map addresses to file offsets.
    struct Section {
        quint32 rva, virtualSize, rawSize, rawOffset;
    };
    QList<Section> sections;
    const qint64 table = optional + optionalSize;
    if (!b.has(table, qint64(sectionCount) * 40))
        return failed(kind, QStringLiteral("section table cut short"));
    for (quint16 i = 0; i < sectionCount; ++i) {
        const qint64 at = table + qint64(i) * 40;
        sections.append({b.u32(at + 12), b.u32(at + 8), b.u32(at + 16), b.u32(at + 20)});
    }
    auto fileOffset = [&](quint32 rva, quint32 length) -> qint64 {
        for (const Section& s : sections) {
            const quint32 size = std::max(s.virtualSize, s.rawSize);
            if (rva >= s.rva && quint64(rva) + length <= quint64(s.rva) + size) {
                const qint64 offset = qint64(s.rawOffset) + (rva - s.rva);
                return b.has(offset, length) ? offset : -1;
            }
        }
        return -1;
    };
    const qint64 root = fileOffset(resourceRva, 16);
    if (root < 0)
        return failed(kind, QStringLiteral("resource directory outside the file"));

    // The entries of one resource directory: (id or -1 for a name, offset of what it points
    // to, whether that is a directory), all offsets relative to the root.
    struct Entry {
        qint64 id;
        quint32 target;
        bool directory;
    };
    auto directory = [&](quint32 relative, QList<Entry>& out) -> bool {
        const qint64 at = root + relative;
        if (!b.has(at, 16))
            return false;
        const quint32 count = quint32(b.u16(at + 12)) + b.u16(at + 14);
        if (!b.has(at + 16, qint64(count) * 8))
            return false;
        for (quint32 i = 0; i < count; ++i) {
            const quint32 name = b.u32(at + 16 + i * 8);
            const quint32 target = b.u32(at + 20 + i * 8);
            out.append({(name & 0x80000000u) ? -1 : qint64(name & 0xffff), target & 0x7fffffffu,
                        (target & 0x80000000u) != 0});
        }
        return true;
    };
    // The data of the first language of a resource (type/name/language).
    auto data = [&](const Entry& named) -> QByteArray {
        quint32 target = named.target;
        if (named.directory) {
            QList<Entry> languages;
            if (!directory(target, languages) || languages.isEmpty() || languages.first().directory)
                return QByteArray();
            target = languages.first().target;
        }
        const qint64 at = root + target;
        if (!b.has(at, 16))
            return QByteArray();
        const quint32 rva = b.u32(at);
        const quint32 length = b.u32(at + 4);
        const qint64 offset = fileOffset(rva, length);
        return offset < 0 ? QByteArray() : b.slice(offset, length);
    };

    QList<Entry> types;
    if (!directory(0, types))
        return failed(kind, QStringLiteral("resource directory cut short"));
    QHash<quint16, Entry> iconEntries;
    QList<Entry> groups;
    for (const Entry& type : types) {
        if (!type.directory || (type.id != RtIcon && type.id != RtGroupIcon))
            continue;
        QList<Entry> names;
        if (!directory(type.target, names) || names.size() > qsizetype(MaxEntries))
            return failed(kind, QStringLiteral("resource directory cut short"));
        for (const Entry& n : names) {
            if (type.id == RtIcon && n.id >= 0)
                iconEntries.insert(quint16(n.id), n);
            else if (type.id == RtGroupIcon)
                groups.append(n);
        }
    }
    Result r;
    r.kind = kind;
    for (const Entry& g : groups) {
        Icon icon;
        for (const GroupEntry& e : groupEntries(data(g))) {
            const auto it = iconEntries.constFind(e.id);
            if (it == iconEntries.constEnd())
                continue;
            const QByteArray image = data(*it);
            if (!image.isEmpty())
                icon.images.append({e.size, e.bitCount, image});
        }
        r.icons.append(icon);
    }
    return r;
}

IconLibrary::Result IconLibrary::parseNe(QByteArrayView bytes, quint32 ne) {
    Bytes b(bytes);
    const Kind kind = Kind::NeLibrary;
    if (!b.has(ne, 0x40))
        return failed(kind, QStringLiteral("NE header cut short"));
    const quint16 tableOffset = b.u16(ne + 0x24);
    const quint16 residentNames = b.u16(ne + 0x26);
    if (tableOffset == residentNames)
        return failed(kind, QStringLiteral("library without resources"));
    qint64 at = qint64(ne) + tableOffset;
    if (!b.has(at, 2))
        return failed(kind, QStringLiteral("resource table outside the file"));
    const quint16 shift = b.u16(at);
    if (shift > 16)
        return failed(kind, QStringLiteral("resource alignment %1").arg(shift));
    at += 2;
    struct Resource {
        quint16 id;
        qint64 offset, length;
    };
    QList<Resource> icons, groups;
    quint32 seen = 0;
    while (true) {
        if (!b.has(at, 2))
            return failed(kind, QStringLiteral("resource table cut short"));
        const quint16 type = b.u16(at);
        if (type == 0)
            break;
        if (!b.has(at, 8))
            return failed(kind, QStringLiteral("resource table cut short"));
        const quint16 count = b.u16(at + 2);
        at += 8;
        if (!b.has(at, qint64(count) * 12) || (seen += count) > MaxEntries)
            return failed(kind, QStringLiteral("resource table cut short"));
        for (quint16 i = 0; i < count; ++i, at += 12) {
            const qint64 offset = qint64(b.u16(at)) << shift;
            const qint64 length = qint64(b.u16(at + 2)) << shift;
            const quint16 id = b.u16(at + 6);
            if (type == (0x8000 | RtIcon) && (id & 0x8000))
                icons.append({quint16(id & 0x7fff), offset, length});
            else if (type == (0x8000 | RtGroupIcon))
                groups.append({quint16(id & 0x7fff), offset, length});
        }
    }
    auto slice = [&](const Resource& res) {
        // The length is rounded up to the alignment: cut it at the end of the file.
        if (res.offset >= b.size())
            return QByteArray();
        return b.slice(res.offset, std::min(res.length, b.size() - res.offset));
    };
    QHash<quint16, Resource> byId;
    for (const Resource& i : icons)
        byId.insert(i.id, i);
    Result r;
    r.kind = kind;
    for (const Resource& g : groups) {
        Icon icon;
        for (const GroupEntry& e : groupEntries(slice(g))) {
            const auto it = byId.constFind(e.id);
            if (it == byId.constEnd())
                continue;
            const QByteArray image = slice(*it);
            if (!image.isEmpty())
                icon.images.append({e.size, e.bitCount, image});
        }
        r.icons.append(icon);
    }
    return r;
}

QImage IconLibrary::render(const Icon& icon, int wanted) {
    // Decode every image once, then take the best: exact size with most colours, else the
    // smallest larger one, else the largest.
    QImage best;
    int bestDepth = -1;
    for (const Image& image : icon.images) {
        const QImage decoded = IconImage::decode(image.data);
        if (decoded.isNull())
            continue;
        const int depth = image.bitCount ? image.bitCount : 32;
        auto score = [&](const QImage& i) {
            const int s = i.width();
            if (s == wanted)
                return 0;
            if (s > wanted)
                return s - wanted;
            return 10000 + (wanted - s);
        };
        if (best.isNull() || score(decoded) < score(best) ||
            (score(decoded) == score(best) && depth > bestDepth)) {
            best = decoded;
            bestDepth = depth;
        }
    }
    if (best.isNull() || best.size() == QSize(wanted, wanted))
        return best;
    return best.scaled(wanted, wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace tk
