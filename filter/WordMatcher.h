#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <array>
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
    WordMatcher(const QList<Pattern>& patterns, int lowestLetter);

    // The smallest id of a pattern that hits in `text`, or -1.
    int firstHit(QByteArrayView text) const;

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
    };
    struct SelfOverlap {
        int id;
        std::vector<std::uint8_t> bytes;   // lower case
        std::vector<std::uint32_t> shifts; // every shift at which the word meets itself, rising
    };

    template <bool Free> int scan(const std::uint8_t* t, std::size_t n) const;
    std::uint32_t child(const Node& node, std::uint8_t cls) const;
    bool occursAt(const SelfOverlap& w, const std::uint8_t* t, std::size_t at) const;
    bool chained(const SelfOverlap& w, const std::uint8_t* t, std::size_t p,
                 std::int64_t& lastChained) const;
    const SelfOverlap& selfOverlap(int id) const;

    std::array<std::uint8_t, 256> m_fold{};
    std::array<std::uint8_t, 256> m_class{}; // 0 for a byte no word holds
    std::array<std::uint8_t, 256> m_letter{};
    std::uint32_t m_classes = 1;
    std::vector<std::uint32_t> m_root; // class -> node at depth 1, 0 for none
    std::vector<std::uint32_t> m_pair; // class * m_classes + class -> node at depth 2
    std::vector<Node> m_nodes;
    std::vector<std::uint8_t> m_labels; // per edge: the class it takes
    std::vector<std::uint32_t> m_targets;
    std::vector<SelfOverlap> m_selfOverlap; // by id
    bool m_hasFree = false;
    int m_minId = 0;
};

} // namespace tk
