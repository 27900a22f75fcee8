#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace tk {

class Wacht;

// One GET of a web address while the event loop runs, as every wait of the program does: the
// screens stay alive, and the program's end ends the fetch. The answer is held in memory up to
// a limit; a larger one is broken off as soon as it is known to be larger, so that a wrong
// address that serves a big file costs neither the memory nor the time of the whole file.
class WebFetch {
public:
    struct Resultaat {
        enum class Uitkomst { Gelukt, Mislukt, TeGroot, Gestopt };
        Uitkomst uitkomst = Uitkomst::Mislukt;
        int httpStatus = 0;
        QByteArray inhoud;
        QByteArray contentType;
        QString fout; // what went wrong, for the log book and the message
    };

    // `stilteMs`: the fetch gives up when no byte came for this long.
    static Resultaat haal(Wacht& wacht, const QUrl& adres, qint64 grootste, int stilteMs = 30'000);
};

} // namespace tk
