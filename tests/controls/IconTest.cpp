#include "controls/DesktopEntryIcon.h"
#include "controls/IconImage.h"
#include "controls/IconLibrary.h"
#include "controls/IconLibraryWriter.h"
#include "controls/ModPictogrammen.h"
#include "tests/support/Werkplek.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QtEndian>
#include <gtest/gtest.h>

using tk::IconImage;
using tk::IconLibrary;
using tk::IconLibraryWriter;

namespace {

// A picture that tells sizes and icons apart: a clear corner, a coloured body.
QImage picture(int side, QColor colour) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(colour);
    for (int y = 0; y < side / 4; ++y)
        for (int x = 0; x < side / 4; ++x)
            image.setPixel(x, y, qRgba(0, 0, 0, 0));
    return image;
}

QByteArray png(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

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

// An icon file of images given as their stored bytes, with the directory written by hand.
QByteArray icoFile(const QList<QPair<int, QByteArray>>& images) {
    QByteArray out;
    put16(out, 0);
    put16(out, 1);
    put16(out, quint16(images.size()));
    quint32 offset = 6 + 16 * quint32(images.size());
    for (const auto& [side, data] : images) {
        out.append(char(side == 256 ? 0 : side));
        out.append(char(side == 256 ? 0 : side));
        out.append(QByteArray(2, '\0'));
        put16(out, 1);
        put16(out, 32);
        put32(out, quint32(data.size()));
        put32(out, offset);
        offset += quint32(data.size());
    }
    for (const auto& image : images)
        out += image.second;
    return out;
}

// A NE library from the format: the header at 0x40, its resource table after it with the
// alignment `shift` and blocks of (type, count) entries, each entry id 1 and pointing at `data`,
// which follows the table.
QByteArray neFile(quint16 shift, std::initializer_list<std::pair<quint16, int>> blokken,
                  const QByteArray& data = QByteArray(8, 'x')) {
    QByteArray f(0x80, '\0');
    f.replace(0, 2, "MZ");
    qToLittleEndian<quint32>(0x40, f.data() + 0x3c);
    f.replace(0x40, 2, "NE");
    qToLittleEndian<quint16>(0x40, f.data() + 0x40 + 0x24); // resources at ne + 0x40
    qToLittleEndian<quint16>(0x42, f.data() + 0x40 + 0x26); // resident names elsewhere
    qsizetype tabel = 2 + 2;
    for (const auto& blok : blokken)
        tabel += 8 + 12 * blok.second;
    const qsizetype begin = ((0x80 + tabel - 1) >> shift << shift) + (qsizetype(1) << shift);
    put16(f, shift);
    for (const auto& [type, count] : blokken) {
        put16(f, type);
        put16(f, quint16(count));
        put32(f, 0);
        for (int i = 0; i < count; ++i) {
            put16(f, quint16(begin >> shift));
            put16(f, quint16(data.size() >> shift) + 1);
            put16(f, 0);
            put16(f, 0x8001);
            put32(f, 0);
        }
    }
    put16(f, 0);
    return f + QByteArray(begin - f.size(), '\0') + data;
}

// A group icon resource: its header and one entry of 32 by 32 for icon 1.
QByteArray group(quint16 reserved, quint16 type) {
    QByteArray g;
    put16(g, reserved);
    put16(g, type);
    put16(g, 1);
    g += QByteArray("\x20\x20\0\0", 4);
    put16(g, 1);
    put16(g, 32);
    put32(g, 8);
    put16(g, 1);
    return g;
}

QColor colourAt(const QImage& image, int x, int y) {
    return QColor::fromRgba(image.pixel(x, y));
}

TEST(IconLibraryTest, IcoFileWithSeveralSizesGivesOneIconAtEachSize) {
    // 48 as Qt's own icon writer stores it (a bitmap), 32 and 16 as PNG streams.
    QByteArray qtIco;
    {
        QBuffer buffer(&qtIco);
        buffer.open(QIODevice::WriteOnly);
        QImageWriter writer(&buffer, "ico");
        ASSERT_TRUE(writer.write(picture(48, QColor(200, 30, 30))));
    }
    const quint32 length = qFromLittleEndian<quint32>(qtIco.constData() + 14);
    const quint32 offset = qFromLittleEndian<quint32>(qtIco.constData() + 18);
    const QByteArray bitmap48 = qtIco.mid(offset, length);

    const QByteArray bytes = icoFile({{48, bitmap48},
                                      {32, png(picture(32, QColor(30, 200, 30)))},
                                      {16, png(picture(16, QColor(30, 30, 200)))}});
    const IconLibrary::Result r = IconLibrary::parse(bytes);
    ASSERT_TRUE(r.error.isEmpty()) << r.error.toStdString();
    EXPECT_EQ(IconLibrary::Kind::IconFile, r.kind);
    ASSERT_EQ(1, r.icons.size());
    ASSERT_EQ(3, r.icons.first().images.size());

    struct Case {
        int side;
        QColor body;
    };
    const Case cases[] = {
        {48, QColor(200, 30, 30)}, {32, QColor(30, 200, 30)}, {16, QColor(30, 30, 200)}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.side);
        const QImage image = IconLibrary::render(r.icons.first(), c.side);
        ASSERT_EQ(QSize(c.side, c.side), image.size());
        EXPECT_EQ(c.body, colourAt(image, c.side - 1, c.side - 1));
        EXPECT_EQ(0, qAlpha(image.pixel(0, 0)));
    }
    for (const IconLibrary::Image& i : r.icons.first().images)
        EXPECT_EQ(32, i.bitCount);
    EXPECT_EQ(QSize(16, 16), r.icons.first().images[2].size);
    // A size the file lacks is made from the nearest larger one, or else from the largest.
    EXPECT_EQ(QColor(30, 200, 30), colourAt(IconLibrary::render(r.icons.first(), 24), 20, 20));
    EXPECT_EQ(QColor(200, 30, 30), colourAt(IconLibrary::render(r.icons.first(), 64), 60, 60));
    // At the size asked, the most colours; a larger depth never makes up for a worse size.
    IconLibrary::Icon twee;
    twee.images = {{QSize(32, 32), 8, png(picture(32, Qt::green))},
                   {QSize(16, 16), 32, png(picture(16, Qt::blue))},
                   {QSize(32, 32), 24, png(picture(32, Qt::red))}};
    EXPECT_EQ(QColor(Qt::red), colourAt(IconLibrary::render(twee, 32), 31, 31));
    twee.images.removeLast();
    EXPECT_EQ(QColor(Qt::green), colourAt(IconLibrary::render(twee, 32), 31, 31));
}

TEST(IconLibraryTest, APeFileBuiltFromTheFormatGivesItsGroupsImagesInTheGroupsOrder) {
    // One .rsrc section at file offset 0x200 and address 0x2000: the resource tree (type, name,
    // language, data entry) holds icons 1 and 2 and a group that lists icon 2 first.
    QByteArray f(0x200 + 0x120, '\0');
    auto u16 = [&](int at, quint16 v) { qToLittleEndian(v, f.data() + at); };
    auto u32 = [&](int at, quint32 v) { qToLittleEndian(v, f.data() + at); };
    f.replace(0, 2, "MZ");
    u32(0x3c, 0x80);
    f.replace(0x80, 4, QByteArray("PE\0\0", 4));
    u16(0x84, 0x14c);               // i386
    u16(0x86, 1);                   // sections
    u16(0x94, 0xe0);                // optional header size
    u16(0x98, 0x10b);               // PE32
    u32(0x98 + 92, 16);             // data directories
    u32(0x98 + 96 + 2 * 8, 0x2000); // resources
    u32(0x98 + 96 + 2 * 8 + 4, 0x120);
    const int sectie = 0x98 + 0xe0;
    f.replace(sectie, 5, ".rsrc");
    u32(sectie + 8, 0x120);   // virtual size
    u32(sectie + 12, 0x2000); // address
    u32(sectie + 16, 0x120);  // raw size
    u32(sectie + 20, 0x200);  // file offset
    const int rsrc = 0x200;
    const quint32 map = 0x80000000u;
    auto directory = [&](int at, std::initializer_list<std::pair<quint32, quint32>> entries) {
        u16(rsrc + at + 14, quint16(entries.size()));
        int i = 0;
        for (const auto& [id, target] : entries) {
            u32(rsrc + at + 16 + 8 * i, id);
            u32(rsrc + at + 20 + 8 * i++, target);
        }
    };
    directory(0x00, {{3, map | 0x20}, {14, map | 0x40}});
    directory(0x20, {{1, map | 0x58}, {2, map | 0x70}});
    directory(0x40, {{1, map | 0x88}});
    directory(0x58, {{0x413, 0xa0}});
    directory(0x70, {{0x413, 0xb0}});
    directory(0x88, {{0x413, 0xc0}});
    const QByteArray een("\x89PNG-een", 9), twee("BM-twee-beeld", 13);
    auto data = [&](int entry, int at, const QByteArray& bytes) {
        u32(rsrc + entry, 0x2000 + quint32(at));
        u32(rsrc + entry + 4, quint32(bytes.size()));
        f.replace(rsrc + at, bytes.size(), bytes);
    };
    data(0xa0, 0xd0, een);
    data(0xb0, 0xe0, twee);
    QByteArray groep(6 + 2 * 14, '\0');
    qToLittleEndian(quint16(1), groep.data() + 2);
    qToLittleEndian(quint16(2), groep.data() + 4);
    const struct {
        quint8 breedte, hoogte;
        quint16 bits, id;
    } rijen[] = {{48, 48, 8, 2}, {0, 0, 32, 1}};
    for (int i = 0; i < 2; ++i) {
        char* e = groep.data() + 6 + 14 * i;
        e[0] = char(rijen[i].breedte);
        e[1] = char(rijen[i].hoogte);
        qToLittleEndian(quint16(1), e + 4);
        qToLittleEndian(rijen[i].bits, e + 6);
        qToLittleEndian(rijen[i].id, e + 12);
    }
    data(0xc0, 0xf0, groep);

    const IconLibrary::Result r = IconLibrary::parse(f);
    ASSERT_TRUE(r.error.isEmpty()) << r.error.toStdString();
    EXPECT_EQ(r.kind, IconLibrary::Kind::PeLibrary);
    ASSERT_EQ(r.icons.size(), 1);
    const QList<IconLibrary::Image>& beelden = r.icons[0].images;
    ASSERT_EQ(beelden.size(), 2);
    EXPECT_EQ(beelden[0].size, QSize(48, 48));
    EXPECT_EQ(beelden[0].bitCount, 8);
    EXPECT_EQ(beelden[0].data, twee);
    EXPECT_EQ(beelden[1].size, QSize(256, 256));
    EXPECT_EQ(beelden[1].bitCount, 32);
    EXPECT_EQ(beelden[1].data, een);
}

TEST(IconLibraryTest, PeLibraryKeepsTheOrderOfItsGroups) {
    const QList<QColor> colours = {Qt::red, Qt::green, Qt::blue};
    QList<QList<QImage>> icons;
    for (const QColor& c : colours)
        icons.append({picture(32, c), picture(16, c.darker())});
    const IconLibrary::Result r = IconLibrary::parse(IconLibraryWriter::peLibrary(icons));
    ASSERT_TRUE(r.error.isEmpty()) << r.error.toStdString();
    EXPECT_EQ(IconLibrary::Kind::PeLibrary, r.kind);
    ASSERT_EQ(3, r.icons.size());
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(2, r.icons.at(i).images.size());
        EXPECT_EQ(colours.at(i), colourAt(IconLibrary::render(r.icons.at(i), 32), 31, 31));
        EXPECT_EQ(colours.at(i).darker().rgb(),
                  IconLibrary::render(r.icons.at(i), 16).pixel(15, 15));
    }
}

TEST(IconLibraryTest, NeFilesBuiltFromTheFormatAndTheirGroupHeaders) {
    struct Case {
        const char* what;
        QByteArray file;
        bool error;
        int images; // of the one icon
    };
    const Case cases[] = {
        {"a group of one icon", neFile(0, {{0x8003, 1}, {0x800e, 1}}, group(0, 1)), false, 1},
        {"aligned to 16 bytes", neFile(4, {{0x8003, 1}, {0x800e, 1}}, group(0, 1)), false, 1},
        {"a cursor group", neFile(0, {{0x8003, 1}, {0x800e, 1}}, group(0, 2)), false, 1},
        {"reserved word set", neFile(0, {{0x8003, 1}, {0x800e, 1}}, group(1, 1)), false, 0},
        {"group of type 3", neFile(0, {{0x8003, 1}, {0x800e, 1}}, group(0, 3)), false, 0},
        {"group cut short", neFile(0, {{0x8003, 1}, {0x800e, 1}}, group(0, 1).left(5)), false, 0},
        {"alignment of 17", neFile(17, {{0x800e, 1}}), true, 0},
        {"more than 65535 resources", neFile(0, {{0x8003, 65535}, {0x800e, 1}}), true, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const IconLibrary::Result r = IconLibrary::parse(c.file);
        EXPECT_EQ(c.error, !r.error.isEmpty()) << r.error.toStdString();
        if (!c.error) {
            ASSERT_EQ(1, r.icons.size());
            EXPECT_EQ(c.images, r.icons[0].images.size());
        }
    }
    // Too short for a program's header: not read as one.
    EXPECT_EQ("neither an icon file nor a library",
              IconLibrary::parse(QByteArray("MZ") + QByteArray(61, '\0')).error);
}

TEST(IconLibraryTest, BitmapDepthsAndTheirMasks) {
    // A 4-bit image of 8 by 8 with a palette, bottom row first, and a mask that clears the
    // top-left pixel.
    QByteArray bmp(40, '\0');
    qToLittleEndian<quint32>(40, bmp.data());
    qToLittleEndian<qint32>(8, bmp.data() + 4);
    qToLittleEndian<qint32>(16, bmp.data() + 8);
    qToLittleEndian<quint16>(1, bmp.data() + 12);
    qToLittleEndian<quint16>(4, bmp.data() + 14);
    for (int i = 0; i < 16; ++i) {
        const char entry[4] = {char(i * 16), char(255 - i * 16), char(i), 0};
        bmp.append(entry, 4);
    }
    for (int y = 0; y < 8; ++y) // row y (from the bottom) uses colour y in both halves
        bmp += QByteArray(4, char(y << 4 | y));
    for (int y = 0; y < 8; ++y)
        bmp += QByteArray(y == 7 ? QByteArray("\x80\0\0\0", 4) : QByteArray(4, '\0'));
    QString error;
    const QImage image = IconImage::decode(bmp, &error);
    ASSERT_FALSE(image.isNull()) << error.toStdString();
    EXPECT_EQ(QSize(8, 8), image.size());
    EXPECT_EQ(0, qAlpha(image.pixel(0, 0)));
    EXPECT_EQ(qRgb(7, 255 - 7 * 16, 7 * 16), image.pixel(1, 0)); // top row is colour 7
    EXPECT_EQ(qRgb(0, 255, 0), image.pixel(5, 7));               // bottom row colour 0

    struct Bad {
        const char* what;
        int offset;
        quint32 value;
    };
    const Bad bad[] = {
        {"width 0", 4, 0},
        {"huge width", 4, 100000},
        {"negative height", 8, quint32(-16)},
        {"depth 7", 14, 7},
        {"compression", 16, 1},
        {"palette of 1000", 32, 1000},
        {"header past end", 0, 100000},
    };
    for (const Bad& b : bad) {
        SCOPED_TRACE(b.what);
        QByteArray broken = bmp;
        if (b.offset == 14)
            qToLittleEndian<quint16>(quint16(b.value), broken.data() + 14);
        else
            qToLittleEndian<quint32>(b.value, broken.data() + b.offset);
        QString reason;
        EXPECT_TRUE(IconImage::decode(broken, &reason).isNull());
        EXPECT_FALSE(reason.isEmpty());
    }
    EXPECT_TRUE(IconImage::decode(bmp.left(bmp.size() - 40 - 32)).isNull()); // rows cut short
    // A PNG header announcing a giant picture is refused before it is unpacked.
    QByteArray giant = png(picture(16, Qt::red));
    qToBigEndian<quint32>(60000, giant.data() + 16);
    EXPECT_TRUE(IconImage::decode(giant).isNull());
}

// Cut and damaged files (that nothing crashes on them) are the icon library fuzz target's seeds.
TEST(IconLibraryTest, MalformedFilesNeverCrashAndGiveNoIcons) {
    for (const QByteArray& onzin : {QByteArray(), QByteArray("MZ"), QByteArray(64, 'M'),
                                    QByteArray("\0\0\1\0\0\0", 6), QByteArray("hello world")}) {
        const IconLibrary::Result r = IconLibrary::parse(onzin);
        EXPECT_TRUE(r.icons.isEmpty());
        EXPECT_FALSE(r.error.isEmpty());
    }
}

class PictogrammenTest : public ::testing::Test {
protected:
    tk::test::Werkplek w;
    tk::ModPictogrammen m{w.p};
    tk::ImageList beelden;
    QList<tk::IconListItem> lijst;
};

TEST_F(PictogrammenTest, ReadLibraryGivesAnItemPerIconReplacesWhatTheListsHeldAndSkipsBadFiles) {
    w.schrijf("Afbeeldingen/Pictogrammen/een.icl",
              IconLibraryWriter::peLibrary({{picture(48, Qt::magenta), picture(16, Qt::black)}}));
    w.schrijf("drie.dll",
              IconLibraryWriter::peLibrary(
                  {{picture(32, Qt::red)}, {picture(32, Qt::green)}, {picture(32, Qt::blue)}}));
    w.schrijf("kapot.icl", QByteArray("MZ") + QByteArray(200, '\xff'));
    w.schrijf("Map.ico", IconLibraryWriter::iconFile({picture(32, Qt::gray)}));

    m.ReadLibrary(beelden, lijst, "\\Afbeeldingen\\Pictogrammen\\een.icl", true);
    ASSERT_EQ(1, lijst.size());
    EXPECT_EQ((tk::IconListItem{"0pictogram ", "Pictogram 1"}), lijst.first());
    EXPECT_EQ(QStringList{"0pictogram "}, beelden.keys);
    const QImage beeld = beelden.image("0pictogram ");
    EXPECT_EQ(QSize(32, 32), beeld.size());
    EXPECT_EQ(QColor(Qt::magenta), colourAt(beeld, 31, 31)); // scaled down from 48

    m.ReadLibrary(beelden, lijst, "\\drie.dll", true);
    EXPECT_EQ(QStringList({"0pictogram ", "1pictogram ", "2pictogram "}), beelden.keys);
    EXPECT_EQ("Pictogram 3", lijst.at(2).tekst);
    m.ReadLibrary(beelden, lijst, "\\Map.ico", true);
    ASSERT_EQ(1, lijst.size());
    EXPECT_EQ("Map.ico", lijst.first().tekst);
    // Without filling the list, the list stays as it was.
    m.ReadLibrary(beelden, lijst, "\\drie.dll", false);
    EXPECT_EQ(3, beelden.keys.size());
    EXPECT_EQ(1, lijst.size());
    // A damaged or missing file: empty, and nothing reported.
    for (const char* bestand : {"\\kapot.icl", "\\weg.icl"}) {
        m.ReadLibrary(beelden, lijst, bestand, true);
        EXPECT_TRUE(beelden.keys.isEmpty());
        EXPECT_TRUE(lijst.isEmpty());
    }
    EXPECT_TRUE(w.p.frmFoutrapportage.Procedure.isEmpty());
}

TEST_F(PictogrammenTest, IconNamesTestTheLowerCaseIco) {
    struct Case {
        const char* bestand;
        int aantal;
        QStringList namen;
    };
    const Case cases[] = {
        {"C:\\Pictogrammen\\vlag.ico", 1, {"vlag.ico"}},
        {"/opt/tafelkrater/Afbeeldingen/zon.ico", 1, {"zon.ico"}},
        {"MAP.ICO", 2, {"Pictogram 1", "Pictogram 2"}}, // upper case is not taken for .ico
        {"\\Afbeeldingen\\Pictogrammen\\standaard.icl",
         3,
         {"Pictogram 1", "Pictogram 2", "Pictogram 3"}},
        {"leeg.dll", 0, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.bestand);
        EXPECT_EQ(c.namen, m.GetIconNames(c.bestand, c.aantal));
    }
}

TEST_F(PictogrammenTest, DrawIconPaintsTheFilesIconAtItsPlace) {
    w.schrijf("zon.ico",
              IconLibraryWriter::iconFile({picture(32, Qt::yellow), picture(16, Qt::red)}));
    w.schrijf("tekst.txt", "hallo");
    QDir().mkpath(w.pad("Map"));
    QImage doel(64, 64, QImage::Format_ARGB32);
    doel.fill(Qt::white);

    m.DrawIconPic("\\zon.ico", doel, false, false, 10, 20);
    EXPECT_EQ(QColor(Qt::yellow), colourAt(doel, 41, 51));
    EXPECT_EQ(QColor(Qt::white), colourAt(doel, 10, 20)); // clear corner lets the white through
    EXPECT_EQ(QColor(Qt::white), colourAt(doel, 42, 52));

    m.DrawIconExtra("\\zon.ico", doel, true, true, 0, 0);
    EXPECT_EQ(QColor(Qt::red), colourAt(doel, 15, 15));
    EXPECT_EQ(0, qAlpha(doel.pixel(41, 51))); // cleared first

    // A file without icons of its own gets the picture of a document; a folder that of a folder;
    // a missing file nothing.
    QImage leeg(32, 32, QImage::Format_ARGB32);
    for (const char* bestand : {"\\tekst.txt", "\\Map"}) {
        leeg.fill(Qt::transparent);
        m.DrawIconPic(bestand, leeg, false, true, 0, 0);
        EXPECT_GT(qAlpha(leeg.pixel(16, 16)), 0) << bestand;
    }
    leeg.fill(Qt::transparent);
    m.DrawIconPic("\\weg.exe", leeg, false, true, 0, 0);
    EXPECT_EQ(0, qAlpha(leeg.pixel(16, 16)));
    EXPECT_TRUE(w.p.frmFoutrapportage.Procedure.isEmpty());

    QImage geen;
    m.DrawIconPic("\\zon.ico", geen, false, true, 0, 0);
    EXPECT_EQ("modPictogrammen.DrawIconPic", w.p.frmFoutrapportage.Procedure);
}

TEST_F(PictogrammenTest, DesktopEntryIconByNameOrPath) {
    const QString data = w.pad("share");
    QDir().mkpath(data + "/icons/hicolor/48x48/apps");
    QDir().mkpath(data + "/pixmaps");
    picture(48, Qt::darkGreen).save(data + "/icons/hicolor/48x48/apps/rekenspel.png");
    picture(32, Qt::darkBlue).save(data + "/pixmaps/tekenprogramma.png");
    picture(32, Qt::darkRed).save(w.pad("eigen.png"));

    EXPECT_EQ("rekenspel",
              tk::DesktopEntryIcon::iconValue("[Desktop Entry]\nName=Reken\nIcon=rekenspel\n"));
    EXPECT_EQ("", tk::DesktopEntryIcon::iconValue(
                      "[Desktop Action x]\nIcon=nee\n[Desktop Entry]\nName=a\n"));
    EXPECT_EQ("ja", tk::DesktopEntryIcon::iconValue("[Desktop Entry]\nIcon[nl]=nee\nIcon = ja\n"));

    struct Case {
        QString icon;
        QColor kleur; // invalid: no icon
    };
    const Case cases[] = {
        {"rekenspel", Qt::darkGreen},      {"tekenprogramma", Qt::darkBlue},
        {w.pad("eigen.png"), Qt::darkRed}, {"bestaat-niet", QColor()},
        {"../../eigen", QColor()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.icon.toStdString());
        w.schrijf("app.desktop",
                  "[Desktop Entry]\nType=Application\nIcon=" + c.icon.toUtf8() + "\n");
        const QImage icoon = tk::DesktopEntryIcon::load(w.pad("app.desktop"), 32, {data});
        if (c.kleur.isValid()) {
            ASSERT_EQ(QSize(32, 32), icoon.size());
            EXPECT_EQ(c.kleur, colourAt(icoon, 31, 31));
        } else {
            EXPECT_TRUE(icoon.isNull());
        }
    }
}

TEST(StandaardBibliotheekTest, TheBuiltLibraryHoldsFriendlyIconsAtEverySize) {
    QFile f(TK_STANDARD_ICL);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const IconLibrary::Result r = IconLibrary::parse(f.readAll());
    ASSERT_TRUE(r.error.isEmpty());
    EXPECT_GE(r.icons.size(), 20);
    for (qsizetype i = 0; i < r.icons.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(3, r.icons.at(i).images.size());
        for (int side : {16, 32, 48}) {
            const QImage image = IconLibrary::render(r.icons.at(i), side);
            ASSERT_EQ(QSize(side, side), image.size());
            int dekkend = 0;
            for (int y = 0; y < side; ++y)
                for (int x = 0; x < side; ++x)
                    dekkend += qAlpha(image.pixel(x, y)) > 200;
            EXPECT_GT(dekkend, side * side / 3); // a real picture, not an empty square
        }
    }
}

} // namespace
