#include "IconLibraryWriter.h"

#include "controls/IconImage.h"

#include <QtEndian>

namespace tk {

namespace {

void put16(QByteArray& b, quint16 v) {
    char d[2];
    qToLittleEndian(v, d);
    b.append(d, 2);
}
void put32(QByteArray& b, quint32 v) {
    char d[4];
    qToLittleEndian(v, d);
    b.append(d, 4);
}
void set32(QByteArray& b, qsizetype at, quint32 v) {
    qToLittleEndian(v, b.data() + at);
}
void set16(QByteArray& b, qsizetype at, quint16 v) {
    qToLittleEndian(v, b.data() + at);
}
void align(QByteArray& b, int to) {
    while (b.size() % to)
        b.append('\0');
}
quint8 stored(int side) {
    return side >= 256 ? 0 : quint8(side);
}

} // namespace

QByteArray IconLibraryWriter::iconFile(const QList<QImage>& sizes) {
    QByteArray out;
    put16(out, 0);
    put16(out, 1);
    put16(out, quint16(sizes.size()));
    QList<QByteArray> images;
    for (const QImage& image : sizes)
        images.append(IconImage::encodeBitmap(image));
    quint32 offset = 6 + 16 * quint32(sizes.size());
    for (qsizetype i = 0; i < sizes.size(); ++i) {
        out.append(char(stored(sizes.at(i).width())));
        out.append(char(stored(sizes.at(i).height())));
        out.append('\0');
        out.append('\0');
        put16(out, 1);
        put16(out, 32);
        put32(out, quint32(images.at(i).size()));
        put32(out, offset);
        offset += quint32(images.at(i).size());
    }
    for (const QByteArray& image : images)
        out += image;
    return out;
}

QByteArray IconLibraryWriter::peLibrary(const QList<QList<QImage>>& icons) {
    constexpr quint32 sectionRva = 0x1000;
    constexpr quint32 fileAlign = 0x200;

    // The resource section: the root with two types, then per type a directory of ids, each
    // id a directory of one language, each language a data entry; then the data.
    struct Item {
        quint16 id;
        QByteArray data;
    };
    QList<Item> iconItems, groupItems;
    quint16 nextIcon = 1;
    for (qsizetype g = 0; g < icons.size(); ++g) {
        QByteArray group;
        put16(group, 0);
        put16(group, 1);
        put16(group, quint16(icons.at(g).size()));
        for (const QImage& image : icons.at(g)) {
            const QByteArray bitmap = IconImage::encodeBitmap(image);
            group.append(char(stored(image.width())));
            group.append(char(stored(image.height())));
            group.append('\0');
            group.append('\0');
            put16(group, 1);
            put16(group, 32);
            put32(group, quint32(bitmap.size()));
            put16(group, nextIcon);
            iconItems.append({nextIcon++, bitmap});
        }
        groupItems.append({quint16(g + 1), group});
    }

    QByteArray rsrc;
    auto directoryHeader = [&](quint16 ids) {
        rsrc.append(QByteArray(12, '\0'));
        put16(rsrc, 0);
        put16(rsrc, ids);
    };
    // Root
    directoryHeader(2);
    const qsizetype rootEntries = rsrc.size();
    rsrc.append(QByteArray(16, '\0'));
    const QList<Item>* lists[2] = {&iconItems, &groupItems};
    const quint16 typeIds[2] = {3, 14};
    QList<qsizetype> dataEntryPlaces[2];
    QList<qsizetype> nameDirs[2];
    for (int t = 0; t < 2; ++t) {
        set32(rsrc, rootEntries + t * 8, typeIds[t]);
        set32(rsrc, rootEntries + t * 8 + 4, 0x80000000u | quint32(rsrc.size()));
        directoryHeader(quint16(lists[t]->size()));
        const qsizetype entries = rsrc.size();
        rsrc.append(QByteArray(8 * lists[t]->size(), '\0'));
        for (qsizetype i = 0; i < lists[t]->size(); ++i) {
            set32(rsrc, entries + i * 8, lists[t]->at(i).id);
            nameDirs[t].append(entries + i * 8 + 4);
        }
    }
    for (int t = 0; t < 2; ++t) {
        for (qsizetype i = 0; i < lists[t]->size(); ++i) {
            set32(rsrc, nameDirs[t].at(i), 0x80000000u | quint32(rsrc.size()));
            directoryHeader(1);
            put32(rsrc, 0x409);
            dataEntryPlaces[t].append(rsrc.size());
            put32(rsrc, 0); // points at the data entry, filled below
        }
    }
    for (int t = 0; t < 2; ++t) {
        for (qsizetype i = 0; i < lists[t]->size(); ++i) {
            set32(rsrc, dataEntryPlaces[t].at(i), quint32(rsrc.size()));
            dataEntryPlaces[t][i] = rsrc.size();
            rsrc.append(QByteArray(16, '\0'));
        }
    }
    for (int t = 0; t < 2; ++t) {
        for (qsizetype i = 0; i < lists[t]->size(); ++i) {
            align(rsrc, 8);
            set32(rsrc, dataEntryPlaces[t].at(i), sectionRva + quint32(rsrc.size()));
            set32(rsrc, dataEntryPlaces[t].at(i) + 4, quint32(lists[t]->at(i).data.size()));
            rsrc += lists[t]->at(i).data;
        }
    }
    const quint32 virtualSize = quint32(rsrc.size());
    align(rsrc, fileAlign);

    QByteArray out(0x40, '\0');
    out[0] = 'M';
    out[1] = 'Z';
    set32(out, 0x3c, 0x40);
    out.append("PE\0\0", 4);
    // File header: i386, one section, a 224-byte optional header, a DLL.
    put16(out, 0x14c);
    put16(out, 1);
    put32(out, 0);
    put32(out, 0);
    put32(out, 0);
    put16(out, 224);
    put16(out, 0x2102);
    const qsizetype optional = out.size();
    out.append(QByteArray(224, '\0'));
    set16(out, optional, 0x10b);
    set32(out, optional + 28, 0x10000000); // image base
    set32(out, optional + 32, 0x1000);     // section alignment
    set32(out, optional + 36, fileAlign);  // file alignment
    set16(out, optional + 40, 4);          // operating system version
    set16(out, optional + 48, 4);          // subsystem version
    set32(out, optional + 56, sectionRva + ((virtualSize + 0xfff) & ~0xfffu)); // image size
    set32(out, optional + 60, fileAlign);                                      // header size
    set16(out, optional + 68, 2);                                              // subsystem: windows
    set32(out, optional + 92, 16);                 // number of data directories
    set32(out, optional + 96 + 2 * 8, sectionRva); // resources
    set32(out, optional + 96 + 2 * 8 + 4, virtualSize);
    // The one section.
    QByteArray section(40, '\0');
    memcpy(section.data(), ".rsrc", 5);
    set32(section, 8, virtualSize);
    set32(section, 12, sectionRva);
    set32(section, 16, quint32(rsrc.size()));
    set32(section, 20, fileAlign);
    set32(section, 36, 0x40000040u); // initialised data, readable
    out += section;
    align(out, fileAlign);
    out += rsrc;
    return out;
}

QByteArray IconLibraryWriter::neLibrary(const QList<QImage>& icons) {
    constexpr int shift = 4;
    QList<QByteArray> images, groups;
    for (qsizetype i = 0; i < icons.size(); ++i) {
        images.append(IconImage::encodeBitmap(icons.at(i)));
        QByteArray g;
        put16(g, 0);
        put16(g, 1);
        put16(g, 1);
        g.append(char(icons.at(i).width()));
        g.append(char(icons.at(i).height()));
        g.append(QByteArray(2, '\0'));
        put16(g, 1);
        put16(g, 32);
        put32(g, quint32(images.last().size()));
        put16(g, quint16(i + 1));
        groups.append(g);
    }
    QByteArray out(0x40, '\0');
    out[0] = 'M';
    out[1] = 'Z';
    qToLittleEndian<quint32>(0x40, out.data() + 0x3c);
    QByteArray ne(0x40, '\0');
    ne[0] = 'N';
    ne[1] = 'E';
    const qsizetype tableSize = 2 + 2 * 8 + 12 * (images.size() + groups.size()) + 2;
    qToLittleEndian<quint16>(0x40, ne.data() + 0x24);
    qToLittleEndian<quint16>(quint16(0x40 + tableSize), ne.data() + 0x26);
    out += ne;
    // Data after the table and the resident names, each piece on a 16-byte boundary.
    qint64 dataAt = ((out.size() + tableSize + 1 + 15) / 16) * 16;
    QByteArray table, data;
    put16(table, shift);
    auto type = [&](quint16 id, const QList<QByteArray>& pieces) {
        put16(table, id);
        put16(table, quint16(pieces.size()));
        put32(table, 0);
        for (qsizetype i = 0; i < pieces.size(); ++i) {
            const qint64 length = ((pieces.at(i).size() + 15) / 16) * 16;
            put16(table, quint16(dataAt >> shift));
            put16(table, quint16(length >> shift));
            put16(table, 0x30);
            put16(table, quint16(0x8000 | (i + 1)));
            put32(table, 0);
            data += pieces.at(i);
            data.append(QByteArray(length - pieces.at(i).size(), '\0'));
            dataAt += length;
        }
    };
    type(0x8003, images);
    type(0x800e, groups);
    put16(table, 0);
    out += table;
    out.append('\0'); // resident names: none
    while (out.size() % 16)
        out.append('\0');
    return out + data;
}

} // namespace tk
