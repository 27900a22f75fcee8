// tafelkrater-pagefilter: checks one page against a word list as the browser's filter does, for
// an administrator or a script.
//
//   tafelkrater-pagefilter [--times N] WORDS TITLE BODY
//
// WORDS holds a VerbodenWoorden string ("|"-joined items; line ends at its end are dropped),
// TITLE and BODY the page's title and body text, all as Windows-1252 bytes. Prints "approved",
// or "blocked", a tab, "title" or "body", a tab and the list item that blocked the page. With
// --times N the page is checked N times after the lists were read once, and the time of that
// reading and the best time of one check go to standard error, in microseconds.
#include "PageFilter.h"

#include "core/Ansi.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <optional>

using tk::PageFilter;

namespace {

constexpr const char* gebruik = "usage: tafelkrater-pagefilter [--times N] WORDS TITLE BODY\n";

std::optional<QByteArray> leesBestand(const char* pad) {
    QFile f(QString::fromLocal8Bit(pad));
    if (!f.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "tafelkrater-pagefilter: cannot read %s: %s\n", pad,
                     f.errorString().toLocal8Bit().constData());
        return std::nullopt;
    }
    QByteArray inhoud = f.readAll();
    if (f.error() != QFileDevice::NoError) {
        std::fprintf(stderr, "tafelkrater-pagefilter: cannot read %s: %s\n", pad,
                     f.errorString().toLocal8Bit().constData());
        return std::nullopt;
    }
    return inhoud;
}

double microseconden(std::chrono::steady_clock::duration d) {
    return std::chrono::duration<double, std::micro>(d).count();
}

} // namespace

int main(int argc, char** argv) {
    long keren = 0;
    int eerste = 1;
    if (argc > 1 && std::strcmp(argv[1], "--times") == 0) {
        char* einde = nullptr;
        keren = argc > 2 ? std::strtol(argv[2], &einde, 10) : 0;
        if (keren < 1 || einde == nullptr || *einde != '\0') {
            std::fprintf(stderr, "tafelkrater-pagefilter: --times needs a positive number\n%s",
                         gebruik);
            return 2;
        }
        eerste = 3;
    }
    if (argc - eerste != 3) {
        std::fputs(gebruik, stderr);
        return 2;
    }
    const auto woorden = leesBestand(argv[eerste]);
    const auto titel = leesBestand(argv[eerste + 1]);
    const auto tekst = leesBestand(argv[eerste + 2]);
    if (!woorden || !titel || !tekst)
        return 2;
    QByteArray lijst = *woorden;
    while (lijst.endsWith('\n') || lijst.endsWith('\r'))
        lijst.chop(1);

    tk::FilterSettings settings;
    settings.Filteren = true;
    const auto begin = std::chrono::steady_clock::now();
    const PageFilter filter(tk::Ansi::naarTekst(lijst), QString());
    const auto gebouwd = std::chrono::steady_clock::now();
    tk::PageVerdict oordeel = filter.checkPageBytes(QString(), *titel, QString(), *tekst, settings);
    if (keren > 0) {
        auto beste = std::chrono::steady_clock::duration::max();
        for (long i = 0; i < keren; ++i) {
            const auto start = std::chrono::steady_clock::now();
            oordeel = filter.checkPageBytes(QString(), *titel, QString(), *tekst, settings);
            beste = std::min(beste, std::chrono::steady_clock::now() - start);
        }
        std::fprintf(stderr, "build: %.1f us\ncheck: %.1f us (best of %ld)\n",
                     microseconden(gebouwd - begin), microseconden(beste), keren);
    }

    if (!oordeel.blocked()) {
        std::fputs("approved\n", stdout);
        return 0;
    }
    const QByteArray woord = tk::Ansi::naarBytes(oordeel.word);
    std::fputs(oordeel.pass == tk::PageVerdict::Pass::Title ? "blocked\ttitle\t"
                                                            : "blocked\tbody\t",
               stdout);
    std::fwrite(woord.constData(), 1, std::size_t(woord.size()), stdout);
    std::fputc('\n', stdout);
    return 0;
}
