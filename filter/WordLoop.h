#pragma once

#include "WordMatcher.h"

namespace tk {

// The page filter's search as a loop over the words, one search of the text per word: the
// reference the one-pass WordMatcher must agree with, and the baseline of its benchmark.
//
// For each word in the order given (bounded words with the boundary test, free words anywhere):
// find the next occurrence in the lower-cased text; when neither neighbour is a letter it is a
// hit and the word's id the answer; otherwise search on from the place behind the occurrence.
class WordLoop {
public:
    static int firstHit(const QList<WordMatcher::Pattern>& patterns, QByteArrayView text,
                        int lowestLetter);
};

} // namespace tk
