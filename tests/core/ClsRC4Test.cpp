#include "core/ClsRC4.h"
#include "core/Ansi.h"
#include "core/Fout.h"
#include "tests/support/QtPrinters.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tk;

namespace {

QString sleutelVan(const QByteArray& bytes) {
    return Ansi::naarTekst(bytes);
}

QByteArray keystroom(ClsRC4& rc4, int lengte) {
    QByteArray nullen(lengte, '\0');
    rc4.EncryptByte(nullen);
    return nullen;
}

} // namespace

TEST(ClsRC4Test, MatchesThePublishedVectors) {
    ClsRC4 rc4;
    QByteArray tekst("Plaintext");
    rc4.EncryptByte(tekst, "Key");
    EXPECT_EQ(tekst.toHex(), QByteArray("bbf316e8d940af0ad3"));

    struct Case {
        const char* sleutel;
        int offset;
        const char* verwacht;
    };
    // Key streams for 40- and 128-bit keys at offsets 0, 16, 240 and 4096.
    const Case cases[] = {
        {"0102030405", 0, "b2396305f03dc027ccc3524a0a1118a8"},
        {"0102030405", 16, "6982944f18fc82d589c403a47a0d0919"},
        {"0102030405", 240, "28cb1132c96ce286421dcaadb8b69eae"},
        {"0102030405", 4096, "ff25b58995996707e51fbdf08b34d875"},
        {"833222772a", 0, "80ad97bdc973df8a2e879e92a497efda"},
        {"833222772a", 4096, "bf42c3018c2f7c66bfde524975768115"},
        {"0102030405060708090a0b0c0d0e0f10", 0, "9ac7cc9a609d1ef7b2932899cde41b97"},
        {"0102030405060708090a0b0c0d0e0f10", 16, "5248c4959014126a6e8a84f11d1a9e1c"},
        {"0102030405060708090a0b0c0d0e0f10", 4096, "a36a4c301ae8ac13610ccbc12256cacc"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.sleutel) + " @" + std::to_string(c.offset));
        rc4.Key(sleutelVan(QByteArray::fromHex(c.sleutel)));
        EXPECT_EQ(keystroom(rc4, c.offset + 16).mid(c.offset).toHex(), QByteArray(c.verwacht));
    }
}

TEST(ClsRC4Test, EveryCallStartsAtTheBeginningOfTheKeyStream) {
    ClsRC4 rc4;
    rc4.Key("Tafelkrater_VQXZ");
    QByteArray a("zelfde tekst"), b("zelfde tekst");
    rc4.EncryptByte(a);
    rc4.EncryptByte(b);
    EXPECT_EQ(a, b);
    EXPECT_NE(a, QByteArray("zelfde tekst"));
    rc4.DecryptByte(a, "Tafelkrater_VQXZ"); // the same key again changes nothing
    EXPECT_EQ(a, QByteArray("zelfde tekst"));
    // A text with every byte of the code page survives a round trip through text.
    QByteArray alle;
    for (int i = 0; i < 256; ++i)
        alle.append(char(i));
    const QString tekst = Ansi::naarTekst(alle);
    EXPECT_EQ(rc4.DecryptString(rc4.EncryptString(tekst)), tekst);
    EXPECT_EQ(Ansi::naarBytes(tekst), alle);
}

TEST(ClsRC4Test, AFileCipheredTwiceComesBackAndFaultsCarryTheirText) {
    QTemporaryDir dir;
    const QString bron = dir.filePath("Tijdelijk.ini");
    const QString versleuteld = dir.filePath("data.tijdelijk");
    const QString terug = dir.filePath("terug.ini");
    QByteArray inhoud("[Algemeen]\r\nWachtwoorden=geheim;|;beheer\r\n");
    inhoud.append(QByteArray(100000, '\x9d'));
    {
        QFile f(bron);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(inhoud);
    }
    ClsRC4 rc4;
    QList<int> voortgang;
    rc4.Progress = [&](int procent) { voortgang.append(procent); };
    rc4.Key("Tafelkrater_VQXZ");
    rc4.EncryptFile(bron, versleuteld);
    rc4.DecryptFile(versleuteld, terug);
    QFile f(terug), g(versleuteld);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    ASSERT_TRUE(g.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), inhoud);
    EXPECT_EQ(g.size(), inhoud.size());
    ASSERT_EQ(voortgang.size(), 200);
    EXPECT_EQ(voortgang.front(), 1);
    EXPECT_EQ(voortgang[99], 100);

    try {
        rc4.DecryptFile(dir.filePath("weg"), terug);
        FAIL() << "no fault for a missing source";
    } catch (const Fout& fout) {
        EXPECT_EQ(fout.omschrijving(),
                  "Error in EncryptFile procedure (Source file does not exist).");
    }
    QFile leeg(dir.filePath("leeg"));
    ASSERT_TRUE(leeg.open(QIODevice::WriteOnly));
    leeg.close();
    EXPECT_THROW(rc4.EncryptFile(leeg.fileName(), terug), Fout);
    EXPECT_TRUE(QFile::exists(terug)); // the old target is left whole
}
