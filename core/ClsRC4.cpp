#include "ClsRC4.h"

#include "core/Ansi.h"
#include "core/Fout.h"
#include "platform/TextFile.h"

#include <QFile>
#include <QFileInfo>

namespace tk {

ClsRC4::ClsRC4() {
    for (int i = 0; i < 256; ++i)
        S[i] = quint16(i);
}

void ClsRC4::Key(const QString& sleutel) {
    if (sleutel == SleutelTekst)
        return;
    SleutelTekst = sleutel;
    const QByteArray key = Ansi::naarBytes(sleutel);
    for (int i = 0; i < 256; ++i)
        S[i] = quint16(i);
    if (key.isEmpty())
        return;
    int j = 0;
    for (int i = 0; i < 256; ++i) {
        j = (j + S[i] + static_cast<unsigned char>(key[i % key.size()])) % 256;
        std::swap(S[i], S[j]);
    }
}

void ClsRC4::EncryptByte(QByteArray& gegevens, const QString& sleutel) {
    if (!sleutel.isEmpty())
        Key(sleutel);
    std::array<quint8, 256> s;
    for (int k = 0; k < 256; ++k)
        s[k] = quint8(S[k]);
    const qsizetype n = gegevens.size();
    char* d = gegevens.data();
    int i = 0, j = 0;
    int gemeld = 0;
    for (qsizetype pos = 0; pos < n; ++pos) {
        i = (i + 1) & 0xFF;
        j = (j + s[i]) & 0xFF;
        std::swap(s[i], s[j]);
        d[pos] = char(quint8(d[pos]) ^ s[(s[i] + s[j]) & 0xFF]);
        if (Progress) {
            const int procent = int((pos + 1) * 100 / n);
            if (procent > gemeld) {
                gemeld = procent;
                Progress(procent);
            }
        }
    }
}

void ClsRC4::DecryptByte(QByteArray& gegevens, const QString& sleutel) {
    EncryptByte(gegevens, sleutel);
}

QString ClsRC4::EncryptString(const QString& tekst, const QString& sleutel) {
    QByteArray bytes = Ansi::naarBytes(tekst);
    EncryptByte(bytes, sleutel);
    return Ansi::naarTekst(bytes);
}

QString ClsRC4::DecryptString(const QString& tekst, const QString& sleutel) {
    QByteArray bytes = Ansi::naarBytes(tekst);
    DecryptByte(bytes, sleutel);
    return Ansi::naarTekst(bytes);
}

void ClsRC4::EncryptFile(const QString& bron, const QString& doel, const QString& sleutel) {
    QFile in(bron);
    if (!QFileInfo(bron).isFile() || !in.open(QIODevice::ReadOnly))
        throw Fout(QStringLiteral("Error in EncryptFile procedure (Source file does not exist)."));
    QByteArray gegevens = in.readAll();
    in.close();
    // The whole file is one array; an empty file has no array to size.
    if (gegevens.isEmpty())
        throw Fout(QStringLiteral("Subscript out of range"));
    EncryptByte(gegevens, sleutel);
    if (!TextFile::replaceAtomically(doel, gegevens))
        throw Fout(QStringLiteral("Path/File access error (%1)").arg(doel));
}

void ClsRC4::DecryptFile(const QString& bron, const QString& doel, const QString& sleutel) {
    EncryptFile(bron, doel, sleutel);
}

} // namespace tk
