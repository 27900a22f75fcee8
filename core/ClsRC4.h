#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>

namespace tk {

// The stream cipher of the offline cache: plain RC4 over bytes, no header, no check value; the
// output has the length of the input and ciphering is its own inverse. Each call starts at the
// beginning of the key stream.
class ClsRC4 {
public:
    ClsRC4();

    void Key(const QString& sleutel);
    // An empty `sleutel` keeps the key set before.
    void EncryptByte(QByteArray& gegevens, const QString& sleutel = QString());
    void DecryptByte(QByteArray& gegevens, const QString& sleutel = QString());
    QString EncryptString(const QString& tekst, const QString& sleutel = QString());
    QString DecryptString(const QString& tekst, const QString& sleutel = QString());
    // Faults (a missing or empty source) are raised as tk::Fout for the caller's guard.
    void EncryptFile(const QString& bron, const QString& doel, const QString& sleutel = QString());
    void DecryptFile(const QString& bron, const QString& doel, const QString& sleutel = QString());

    // Raised at every whole percent of the bytes done.
    std::function<void(int procent)> Progress;

private:
    QString SleutelTekst;
    std::array<quint16, 256> S{};
};

} // namespace tk
