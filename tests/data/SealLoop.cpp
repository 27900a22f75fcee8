// A stand-in for a client that seals its cache over and over: the same document shape each
// time, every value carrying the round it was sealed in. Prints "sealed N" after each seal, so
// that a test can kill it at a moment of its choosing. Usage: tk_seal_loop PATH
#include "data/SealedCache.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2)
        return 2;
    const QString path = QString::fromLocal8Bit(argv[1]);
    for (int round = 1;; ++round) {
        tk::SealedCache cache;
        const QString value = QStringLiteral("ronde %1 ").arg(round).repeated(800);
        for (int key = 0; key < 200; ++key)
            cache.write(QStringLiteral("Sectie%1").arg(key / 10), QStringLiteral("K%1").arg(key),
                        value);
        cache.seal(path);
        std::printf("sealed %d\n", round);
        std::fflush(stdout);
    }
}
