#include "WordLoop.h"

#include "ByteCase.h"

#include <string>
#include <string_view>

namespace tk {

namespace {

std::string lowerCase(QByteArrayView bytes) {
    std::string uit(std::size_t(bytes.size()), '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        uit[std::size_t(i)] = char(ByteCase::lower(std::uint8_t(bytes[i])));
    return uit;
}

} // namespace

int WordLoop::firstHit(const QList<WordMatcher::Pattern>& patterns, QByteArrayView text,
                       int lowestLetter) {
    const std::string lower = lowerCase(text);
    const std::string_view t(lower);
    // A neighbour outside the text is no letter (see WordMatcher).
    auto letterAt = [&](std::size_t i) {
        return i < t.size() && ByteCase::isLetter(std::uint8_t(t[i]), lowestLetter);
    };
    int best = -1;
    for (const WordMatcher::Pattern& p : patterns) {
        if (p.bytes.isEmpty() || (best >= 0 && p.id >= best))
            continue;
        const std::string w = lowerCase(p.bytes);
        for (std::size_t at = t.find(w); at != std::string_view::npos;
             at = t.find(w, at + w.size())) {
            if (!p.bounded || ((at == 0 || !letterAt(at - 1)) && !letterAt(at + w.size()))) {
                best = p.id;
                break;
            }
        }
    }
    return best;
}

} // namespace tk
