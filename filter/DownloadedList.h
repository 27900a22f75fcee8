#pragma once

#include <QByteArray>
#include <QStringList>

namespace tk {

// The text of a word or site list as the web server sends it: one item a line, lines ending in
// CR LF, LF or CR. What the lists may hold is FilterLists' rule; this only takes the answer apart.
class DownloadedList {
public:
    enum class Uitkomst {
        Lijst,     // items (possibly none)
        GeenTekst, // the answer is not a plain text list
        TeGroot    // larger than GrootsteLijst
    };
    // A list of 30,000 words of ten letters is about 350 KB; an answer far above that is not a
    // word list, and is not held in memory whole.
    static constexpr qint64 GrootsteLijst = 4 * 1024 * 1024;

    struct Resultaat {
        Uitkomst uitkomst = Uitkomst::GeenTekst;
        QStringList items; // trimmed, "url>" removed, none empty, in the order of the text
    };

    // `contentType` is the answer's Content-Type header (empty when it had none).
    static Resultaat lees(const QByteArray& inhoud, const QByteArray& contentType = {});
    // Whether an answer of this Content-Type may be a list: none given, text/plain, or the
    // application/octet-stream that a plain server gives an unknown file. An HTML page (a
    // proxy's login or error page) is not a list, whatever its text.
    static bool isTekstSoort(const QByteArray& contentType);
};

} // namespace tk
