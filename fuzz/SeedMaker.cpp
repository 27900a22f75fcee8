// Writes the seed corpus of every fuzz target: small, valid examples of each input, made by the
// program's own writers where it has them. Usage: tk_fuzz_seeds OUTPUT [DEFAULT_THEME_INI]
// writes OUTPUT/<target>/<name>.
#include "archive/UcArchief.h"
#include "controls/IconLibraryWriter.h"
#include "platform/RegFile.h"
#include "platform/RegistryHive.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <cstdio>

using namespace tk;

namespace {

QString g_output;
bool g_ok = true;

void seed(const char* target, const QByteArray& name, const QByteArray& bytes) {
    const QString folder = g_output + QLatin1Char('/') + QLatin1String(target);
    QDir().mkpath(folder);
    QFile f(folder + QLatin1Char('/') + QString::fromLatin1(name));
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "tk_fuzz_seeds: cannot write %s\n", qPrintable(f.fileName()));
        g_ok = false;
    }
}

QByteArray crlf(const char* text) {
    return QByteArray(text).replace("\n", "\r\n");
}

QImage picture(int side, QColor colour) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(side / 4, side / 4, side / 2, side / 2, colour);
    return image;
}

QByteArray archive(const QList<QPair<QByteArray, QByteArray>>& entries) {
    // By hand, for names the packer would never write.
    QByteArray out(4, '\0');
    qToLittleEndian<qint32>(qint32(entries.size()), out.data());
    for (const auto& [name, content] : entries) {
        char n[2], c[4];
        qToLittleEndian<qint16>(qint16(name.size()), n);
        qToLittleEndian<qint32>(qint32(content.size()), c);
        out.append(n, 2).append(name).append(c, 4).append(content);
    }
    return out;
}

void codecSeeds() {
    seed("AnsiFuzz", "woorden", "Groep 1|Meester Jan;<>;caf\xe9 \x80 \x9f");
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(char(b));
    seed("AnsiFuzz", "alle-bytes", all);
}

void iniSeeds(const QString& defaultTheme) {
    seed("IniDocumentFuzz", "instellingen",
         crlf("; comment\n[Instellingen]\nServerlocatie=127.0.0.1:34487\nModus = 1 \n"
              "Taal=\"Nederlands\"\n\n[instellingen]\nModus=2\n[Leeg]\n=geen naam\nzonder is\n"));
    QFile theme(defaultTheme);
    if (!defaultTheme.isEmpty() && theme.open(QIODevice::ReadOnly))
        seed("ThemeKeysFuzz", "standaard", theme.readAll());
    seed("ThemeKeysFuzz", "klein",
         crlf("[Kleuren]\nKoptekst=255,0,10\nBureaublad Icoon Schaduw=1,2\n"
              "[Positie]\nAanmelden=362,250\nLaden tekst=-5.5,1e3\n"
              "[Achtergronden]\nWallpaper=Zee.JPG\n[Knoppen]\n1=Rood\n2=Blauw\n"
              "[Onderhoudsmodule]\nDesktop beheren=Knoppen\\1a.jpg\n"
              "[Desktop - Internet Toolbar]\nBack=Knoppen\\2a.jpg\n"));
    seed("DesktopEntryFuzz", "naam",
         "[Desktop Entry]\nType=Application\nName=Rekenen\nIcon=rekenen\nExec=rekenen %f\n");
    seed("DesktopEntryFuzz", "pad",
         "# comment\n[Desktop Action nieuw]\nIcon=niet\n[Desktop Entry]\nIcon[nl]=x\n"
         "Icon = /usr/share/pixmaps/rekenen.png \n");
}

void registrySeeds() {
    RegistryHive hive;
    hive.setValue(QStringLiteral("SOFTWARE\\Tafelkrater"), QStringLiteral("Modus"),
                  RegistryValue::string(QStringLiteral("1")));
    hive.setValue(QStringLiteral("SOFTWARE\\Tafelkrater"), QStringLiteral("Beta"),
                  RegistryValue::number(1));
    hive.setValue(QStringLiteral("SOFTWARE\\Tafelkrater\\Pad"), QString(),
                  RegistryValue::string(QStringLiteral("C:\\\"Program\" Files\\")));
    seed("RegFileFuzz", "geschreven", RegFile::write(RegistryRoot::LocalMachine, hive).toUtf8());
    const QString version5 = QStringLiteral("Windows Registry Editor Version 5.00\r\n\r\n"
                                            "[HKEY_CURRENT_USER\\Software\\A]\r\n"
                                            "\"Bin\"=hex:01,02,\\\r\n  03\r\n"
                                            "\"Weg\"=-\r\n@=\"standaard\"\r\n"
                                            "[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Oud]\r\n");
    seed("RegFileFuzz", "versie5",
         QByteArray("\xff\xfe") +
             QByteArray(reinterpret_cast<const char*>(version5.utf16()), version5.size() * 2));
}

void archiveSeeds() {
    QTemporaryDir dir;
    QDir().mkpath(dir.filePath(QStringLiteral("bron/Knoppen")));
    for (const auto& [name, content] :
         {QPair<const char*, QByteArray>{"bron/Instellingen.ini", "[Kleuren]\r\nA=1,2,3\r\n"},
          {"bron/Knoppen/1a.jpg", QByteArray(40, 'j')}}) {
        QFile f(dir.filePath(QLatin1String(name)));
        if (f.open(QIODevice::WriteOnly))
            f.write(content);
    }
    UcArchief packer;
    const QString packed = dir.filePath(QStringLiteral("pakket"));
    packer.SaveFilesToArchiv(dir.filePath(QStringLiteral("bron")), packed, false);
    QFile f(packed);
    if (f.open(QIODevice::ReadOnly))
        seed("ArchiveFuzz", "thema", f.readAll());
    seed("ArchiveFuzz", "buiten-de-map", archive({{"..\\weg.txt", "x"}, {"a\\b.txt", "y"}}));
    seed("ArchiveFuzz", "leeg", archive({}));
}

void iconSeeds() {
    const QPair<const char*, QByteArray> goede[] = {
        {"ico", IconLibraryWriter::iconFile({picture(16, Qt::red), picture(32, Qt::blue)})},
        {"pe", IconLibraryWriter::peLibrary({{picture(16, Qt::green)}, {picture(32, Qt::yellow)}})},
        {"ne", IconLibraryWriter::neLibrary({picture(16, Qt::cyan)})},
    };
    for (const auto& [naam, goed] : goede) {
        seed("IconLibraryFuzz", naam, goed);
        // Every cut of the file (byte by byte through the headers and directories, then every
        // 97th byte), and damage that is the same every run: eight bytes of the first 1200 changed.
        for (qsizetype n = 0; n < goed.size(); n += (n < 1024 ? 1 : 97))
            seed("IconLibraryFuzz", naam + QByteArray("-kort-") + QByteArray::number(n),
                 goed.left(n));
        QRandomGenerator rnd(42);
        for (int poging = 0; poging < 300; ++poging) {
            QByteArray kapot = goed;
            for (int i = 0; i < 8; ++i)
                kapot[rnd.bounded(int(std::min<qsizetype>(kapot.size(), 1200)))] =
                    char(rnd.bounded(256));
            seed("IconLibraryFuzz", naam + QByteArray("-kapot-") + QByteArray::number(poging),
                 kapot);
        }
    }
}

void wireSeeds() {
    // What the server says to the client.
    const char* toClient[] = {
        "PIN",
        "FIRSCHOOL",
        "INFDMNSCHOOL|34490|34491|34492|34493|JA|NEE",
        "INFONA",
        "INFONC",
        "LDNKLSSNC1|7",
        "LDNKLSDA0|x;<>;Groep 3;<>;1;<>;1a.jpg;<>;Geen;<>;groep3;<>;geheim;<>;3;<>;1|a1;<>;Ja",
        "LDNAPKDAT5><Klok><1><xclock><Een klok><standaard|3><-digital><1024x768x32xNEE",
        "LDNAPPPOS3|12|40",
        "OPSKLS12",
        "OPSAPP4",
        "VWNKLSOK",
        "INFOK",
        "UPDVER1.0.0",
        "LDNFAV1|Ja|Nee|Nee;<>;http://a.nl|A||Ja><http://b.nl|B||Nee",
    };
    int n = 0;
    for (const char* m : toClient)
        seed("DispatcherFuzz", QByteArray::number(++n).constData(), m);
    // What a client says to the server.
    const char* toServer[] = {
        "LOCKLAS|groep3|3",
        "INFDMN",
        "INFOND",
        "LDNKLSSNC",
        "LDNKLSDA0",
        "LDNLRNSNC",
        "LDNCAK",
        "LDNAPKSNC",
        "LDNAPKDAT1",
        "LDNAPPPOSK3",
        "LDNFAVGroep3",
        "LDNIVWINF",
        "LDNIVWPA1",
        "LDNACCINF",
        "OPSKLS0;<>;Groep 9;<>;1;<>;1a.jpg;<>;Geen;<>;groep9;<>;geheim;<>;0;<>;1|a1;<>;Ja;<>;;<>;"
        "Jungle;<>;0,0;<>;1|a1",
        "OPSCAT0;<>;Nieuw|k",
        "OPSFAVGroep3;<>;1|Ja|Nee|Nee;<>;http://a.nl|A||Ja",
        "OPSAPPPOSK3;<>;3|12|40",
        "VWNKLS3",
        "VWNAPP2|k",
        "HLPOPS2-2-2024;<>;10:00;<>;Jan;<>;PC1;<>;Linux;<>;App;<>;mod;<>;proc;<>;1;<>;fout",
        "BCKLST",
        "UPDVER",
        "PING",
    };
    n = 0;
    for (const char* m : toServer)
        seed("CommandHandlerFuzz", QByteArray::number(++n).constData(), m);
}

void loadSeeds() {
    seed(
        "LoadAnswersFuzz", "school",
        crlf(
            "[Groepen]\nInfo=1|7\n"
            "0=x;<>;Groep 3;<>;1;<>;1a.jpg;<>;Geen;<>;groep3;<>;geheim;<>;3;<>;1|a1|cdrom;<>;Ja;<>;"
            "reserve;<>;Jungle;<>;0,0;<>;1|a1;|;x;<>;Groep 5;<>;1;<>;1a.jpg;<>;Geen;<>;groep5;<>;"
            "geheim;<>;5;<>;1|a1;<>;Ja;<>;;<>;Jungle\n"
            "1=x;<>;Groep 7;<>;1;<>;1a.jpg;<>;Geen;<>;groep7;<>;geheim;<>;7;<>;;<>;Ja;<>;;<>;\n"
            "[Leerkrachten]\nInfo=0|4\n"
            "0=Jansen;<>;pic;<>;Geen;<>;leraar2;<>;ww;<>;2;<>;Anna;<>;de;<>;1|2;<>;Ja;<>;a;<>;b;<>;"
            "c;<>;d;<>;1|2;<>;Jungle\n"
            "[Algemeen]\nWachtwoorden=leraar;|;beheer\n"
            "Overige=http://start;<>;a@b.nl;<>;De School;<>;c@d.nl;<>;Jungle;<>;1043\n"
            "Printermodule=JA|NEE\nPrinters=HP|\\\\srv\\hp><Canon|\\\\srv\\canon\n"
            "[Categorien]\n0=3;<>;1|Rekenen;<>;3|Taal\n1=1;<>;1|Alles\n2=2;<>;2|Web\n"
            "[Applicaties: 0]\nInfo=2|9\n"
            "1=5><Klok><1><xclock><Een klok><standaard|3><-digital><1024x768x32xNEE\n"
            "2=9><Ogen><3><xeyes><><eigen><><800x600x16xJA\n"
            "[Applicaties: 1]\nInfo=0|1\n[Applicaties: 2]\nInfo=1|4\n"
            "1=4><Web><2><xdg-open http://a.nl><><standaard|1><><\n"
            "[Internetfilter]\nVerboden woorden=2\nV1=PA1kat|hond\nV2=PA2vis\nT1=goed.nl|ook.nl\n"
            "[Favorieten]\nGroep1=1|Ja|Nee|Nee;<>;http://a.nl|A||Ja><http://b.nl|B||Nee\n"));
    seed("LoadAnswersFuzz", "leeg", crlf("[Groepen]\nInfo=0|\n[Leerkrachten]\nInfo=\n"));
}

} // namespace

// The page filter: a word list, a line end, a title, a line end, a body.
void filterSeeds() {
    seed("PageFilterFuzz", "titel", "kat|hond|url>slecht.nl\nEen kat\nDe tekst van de pagina.");
    seed("PageFilterFuzz", "tekst", "seks|haha||  |caf\xe9\nDieren\nAkatA, Bhahaha haha CAF\xc9.");
    seed("PageFilterFuzz", "leeg", "|url>|\n\n");
    // The lists: a Content-Type, the words, the allowed sites, a downloaded list.
    seed("FilterListsFuzz", "crlf", "text/plain\nkat|url>slecht.nl\nschool.nl\nKAT\r\nhond\r\n");
    seed("FilterListsFuzz", "lf", "\n|kat||Kat|url>|\n||a.nl||\nurl>x.nl\nURL>y.nl|z.nl\n\n");
    seed("FilterListsFuzz", "utf8",
         "text/plain; charset=utf-8\ncaf\xe9\n\n\xef\xbb\xbf"
         "caf\xc3\xa9\r+18\r\x81x");
    seed("FilterListsFuzz", "html", "text/html\nkat\n\n<html>kat</html>");
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: tk_fuzz_seeds OUTPUT [DEFAULT_THEME_INI]\n");
        return 2;
    }
    g_output = QString::fromLocal8Bit(argv[1]);
    codecSeeds();
    iniSeeds(argc > 2 ? QString::fromLocal8Bit(argv[2]) : QString());
    registrySeeds();
    archiveSeeds();
    iconSeeds();
    wireSeeds();
    loadSeeds();
    filterSeeds();
    return g_ok ? 0 : 1;
}
