#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tk {

// All words of a filter list in one trie over Windows-1252 bytes, built once per login, so that a
// page costs one pass however long the list is. It answers what the word-by-word loop (WordLoop)
// answers: the smallest id among the words that hit.
//
// A bounded word hits where neither neighbour is a letter (ByteCase::isLetter with the lowest
// letter given). Such an occurrence starts behind a non-letter, so the trie is walked only from
// those places; the walk stops where no word goes on, and where no word below it can beat the
// best hit so far. A free word (an "url>" item) hits anywhere; with free words every place is a
// start.
//
// The loop searches each word from the place behind an occurrence that failed, so an occurrence
// that overlaps an earlier one is never examined. That matters only for a word that overlaps
// itself with a non-letter just before the overlap ("haha" on a page, where "a" is no letter):
// for such a word a hit is confirmed by following the loop's chain of occurrences locally.
class WordMatcher {
public:
    struct Pattern {
        QByteArray bytes; // Windows-1252, in any case; an empty one is left out
        int id = 0;       // non-negative; the smallest id that hits wins
        bool bounded = true;
    };

    WordMatcher() = default;
    // `shortTexts`: every place of a text is walked in the trie, and nothing is built for long
    // pages (the address check, whose texts are short, and where "A" counts as a letter).
    WordMatcher(const QList<Pattern>& patterns, int lowestLetter, bool shortTexts = false);

    // The smallest id of a pattern that hits in `text`, or -1.
    int firstHit(QByteArrayView text) const;
    // The same for a short text with more letters (a lower `lowestLetter`, not a higher one):
    // every place is walked. So the page words also serve the address check.
    int firstHit(QByteArrayView text, int lowestLetter) const;

    std::size_t memoryBytes() const;
    int nodeCount() const { return int(m_nodes.size()); }
    bool isEmpty() const { return m_nodes.size() <= 1; }

private:
    struct Node {
        std::uint32_t firstEdge = 0;
        std::uint16_t edgeCount = 0;
        std::uint16_t selfOverlap = 0; // outBounded needs the chain test
        std::int32_t outBounded = -1;
        std::int32_t outFree = -1;
        std::int32_t subtreeMin = 0; // smallest id of a word that ends here or below
        std::int32_t single = -1;    // the leaf when only one word ends here or below
    };
    // A word that ends at a node, with its lower-case bytes in m_text.
    struct Leaf {
        std::uint32_t offset;
        std::uint32_t length;
        std::int32_t id;
        bool bounded;
        bool selfOverlap;
    };
    struct SelfOverlap {
        int id;
        std::vector<std::uint8_t> bytes;   // lower case
        std::vector<std::uint32_t> shifts; // every shift at which the word meets itself, rising
    };
    struct Scan;

    int scanEveryPlace(Scan& s) const;
    int scanBehindNonLetters(Scan& s) const;
    void letterBits(const std::uint8_t* t, std::size_t n, std::uint64_t* letters,
                    std::uint64_t* alpha, std::size_t count) const;
    void examine(Scan& s, std::size_t p, std::uint64_t lettersFromP) const;
    std::uint64_t sieve(const std::uint8_t* block, std::uint64_t starts,
                        const std::uint64_t* letters) const;
    // The hash of a word is a sum of its lower-case bytes times a number per place (no chain
    // from byte to byte), mixed at the end with the length.
    static std::uint64_t finishHash(std::uint64_t sum, std::size_t length) {
        std::uint64_t h = (sum ^ length) * 0xFF51AFD7ED558CCDull;
        return h ^ (h >> 33);
    }
    bool wordBloomHas(std::uint64_t h) const {
        const std::uint64_t bits = (std::uint64_t(1) << (h & 63)) |
                                   (std::uint64_t(1) << ((h >> 6) & 63)) |
                                   (std::uint64_t(1) << ((h >> 12) & 63));
        return (m_wordBloom[std::size_t(h >> m_wordBloomShift)] & bits) == bits;
    }
    void walk(Scan& s, std::size_t p, bool leftFree, std::uint32_t node, std::size_t e) const;
    void tryLeaf(Scan& s, const Leaf& leaf, std::size_t p, std::size_t e, bool leftFree) const;
    void tryBounded(Scan& s, int id, bool selfOverlap, std::size_t p, std::size_t end,
                    bool leftFree) const;
    std::uint32_t child(const Node& node, std::uint8_t cls) const;
    std::uint32_t quadNode(std::uint32_t key) const;
    // A word's place in the first bit set: its first four bytes (ORed with 0x20, so that a text
    // needs no case table) and where its first non-letter from the fifth byte on lies (the end
    // of the word when it has none there; 63 at most). Both follow from the text before a word
    // is compared, and together they keep out most beginnings of listed words.
    std::uint64_t bloomPlace(std::uint32_t four, std::size_t reach) const {
        const std::uint64_t key = (std::uint64_t(four | 0x20202020u) << 8) | reach;
        return (key * 0x9E3779B97F4A7C15ull) >> m_bloomShift;
    }
    static std::size_t reachOf(std::uint64_t lettersFromP) {
        return std::size_t(std::countr_zero((~lettersFromP >> 4) | (std::uint64_t(1) << 59))) + 4;
    }
    bool bloomHas(std::uint32_t four, std::uint64_t lettersFromP) const {
        const std::uint64_t h = bloomPlace(four, reachOf(lettersFromP));
        return (m_bloom[h >> 6] >> (h & 63)) & 1;
    }
    bool occursAt(const SelfOverlap& w, const std::uint8_t* t, std::size_t at) const;
    bool chained(const SelfOverlap& w, const std::uint8_t* t, std::size_t p,
                 std::int64_t& lastChained) const;

    int m_lowest = 66;
    std::array<std::uint8_t, 256> m_fold{};
    std::array<std::uint8_t, 256> m_class{}; // 0 for a byte no word holds
    std::array<std::uint8_t, 256> m_letter{};
    std::uint32_t m_classes = 1;
    std::vector<std::uint32_t> m_root; // class -> node at depth 1, 0 for none
    std::vector<std::uint32_t> m_pair; // class * m_classes + class -> node at depth 2
    std::vector<Node> m_nodes;
    std::vector<std::uint8_t> m_labels; // per edge: the class it takes
    std::vector<std::uint32_t> m_targets;
    std::vector<std::uint8_t> m_text; // every word in lower case
    std::vector<Leaf> m_leaves;
    std::vector<SelfOverlap> m_selfOverlap; // by id
    // Words of four bytes or more are entered by their first four: a bit set of those (with the
    // bytes ORed with 0x20, so that a text needs no case table to be tested) and a table from the
    // lower-case four bytes to the node at depth 4.
    std::vector<std::uint64_t> m_bloom;
    std::uint32_t m_bloomShift = 64;
    std::vector<std::uint32_t> m_quadKeys;
    std::vector<std::uint32_t> m_quadNodes; // 0 for an empty place
    std::uint32_t m_quadMask = 0;
    // Words of 4 to 63 bytes by a hash of their lower-case bytes: a page is searched for them by
    // the places behind a non-letter where one could end (m_lengths, bit per length).
    struct Slot {
        std::uint32_t check = 0; // the hash's low half
        std::int32_t leaf = -1;  // -1 for an empty place
    };
    std::vector<Slot> m_hashSlots;
    std::uint32_t m_hashShift = 64;
    // A bit set of the hashes before the table: three bits in one 64-bit word per word.
    std::vector<std::uint64_t> m_wordBloom;
    std::uint32_t m_wordBloomShift = 64;
    std::array<std::uint64_t, 64> m_placeFactor{};
    std::uint64_t m_lengths = 0;
    bool m_hasLong = false;  // a word of 64 bytes or more: those pages go through the trie
    bool m_hasShort = false; // a word of fewer than four bytes
    std::array<std::uint8_t, 256> m_shortStart{}; // the first bytes of those
    unsigned m_alphaLead = 0; // every word begins with this many bytes from a to z (four at most)
    bool m_hasFree = false;
    bool m_everyPlace = false; // walk every place: free words, or short texts
    int m_minId = 0;
};

} // namespace tk
