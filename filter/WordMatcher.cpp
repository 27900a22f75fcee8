#include "WordMatcher.h"

#include "ByteCase.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tk {

namespace {

struct Entry {
    std::size_t offset;
    std::size_t length;
    int id;
    bool bounded;
};

constexpr std::size_t quadLength = 4;

// The shifts at which `w` meets itself (its periods), rising: the word's length minus each of
// its borders, longest border first, from the failure function of a prefix search.
std::vector<std::uint32_t> shiftsOf(std::string_view w) {
    std::vector<std::uint32_t> fail(w.size(), 0);
    for (std::size_t i = 1, k = 0; i < w.size(); ++i) {
        while (k > 0 && w[i] != w[k])
            k = fail[k - 1];
        if (w[i] == w[k])
            ++k;
        fail[i] = std::uint32_t(k);
    }
    std::vector<std::uint32_t> shifts;
    for (std::uint32_t border = w.empty() ? 0 : fail.back(); border > 0; border = fail[border - 1])
        shifts.push_back(std::uint32_t(w.size()) - border);
    return shifts;
}

std::uint32_t load32(const std::uint8_t* p) {
    std::uint32_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

} // namespace

struct WordMatcher::Scan {
    const std::uint8_t* letter; // the neighbours that stop a hit
    const std::uint8_t* t;
    std::size_t n;
    int best = INT_MAX;
    std::vector<std::int64_t> lastChained;
};

WordMatcher::WordMatcher(const QList<Pattern>& patterns, int lowestLetter, bool shortTexts)
    : m_lowest(lowestLetter) {
    const ByteCase::Tables& cases = ByteCase::tables();
    m_fold = cases.lower;
    for (int b = 0; b < 256; ++b)
        m_letter[b] = ByteCase::isLetter(std::uint8_t(b), lowestLetter) ? 1 : 0;

    // Every word in lower case, in one buffer.
    std::vector<Entry> entries;
    entries.reserve(std::size_t(patterns.size()));
    for (const Pattern& p : patterns) {
        if (p.bytes.isEmpty())
            continue;
        const std::size_t offset = m_text.size();
        for (const char c : p.bytes)
            m_text.push_back(m_fold[std::uint8_t(c)]);
        entries.push_back({offset, std::size_t(p.bytes.size()), p.id, p.bounded});
        m_hasFree = m_hasFree || !p.bounded;
    }
    auto text = [this](const Entry& e) {
        return std::string_view(reinterpret_cast<const char*>(m_text.data()) + e.offset, e.length);
    };

    // Classes: a number for each lower-case byte some word holds, in byte order, so that the
    // edges of a node sorted by byte are sorted by class too.
    std::array<std::uint8_t, 256> classOfLower{};
    std::array<bool, 256> used{};
    for (const std::uint8_t c : m_text)
        used[c] = true;
    for (int b = 0; b < 256; ++b)
        if (used[b])
            classOfLower[b] = std::uint8_t(m_classes++);
    for (int b = 0; b < 256; ++b)
        m_class[b] = classOfLower[m_fold[b]];

    // The trie in depth-first order from the sorted words: each word shares the path of its
    // longest common prefix with the word before it.
    std::sort(entries.begin(), entries.end(), [&text](const Entry& a, const Entry& b) {
        const int c = text(a).compare(text(b));
        return c != 0 ? c < 0 : a.id < b.id;
    });
    struct Edge {
        std::uint32_t parent;
        std::uint8_t label;
        std::uint32_t target;
    };
    std::vector<Edge> edges;
    std::vector<std::uint32_t> parent{0};
    std::vector<std::uint32_t> ends(entries.size());
    std::vector<std::uint32_t> quads(entries.size(), 0);
    m_nodes.assign(1, Node{});
    std::vector<std::uint32_t> path{0};
    std::string_view previous;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string_view w = text(entries[i]);
        std::size_t common = 0;
        while (common < w.size() && common < previous.size() && w[common] == previous[common])
            ++common;
        path.resize(common + 1);
        for (std::size_t d = common; d < w.size(); ++d) {
            const auto node = std::uint32_t(m_nodes.size());
            m_nodes.push_back(Node{});
            edges.push_back({path.back(), classOfLower[std::uint8_t(w[d])], node});
            parent.push_back(path.back());
            path.push_back(node);
        }
        Node& end = m_nodes[path.back()];
        std::int32_t& out = entries[i].bounded ? end.outBounded : end.outFree;
        if (out < 0 || entries[i].id < out)
            out = entries[i].id;
        ends[i] = path.back();
        if (w.size() >= quadLength)
            quads[i] = path[quadLength];
        previous = w;
    }

    // The edges of each node side by side, in class order.
    for (const Edge& e : edges)
        ++m_nodes[e.parent].edgeCount;
    std::uint32_t next = 0;
    for (Node& n : m_nodes) {
        n.firstEdge = next;
        next += n.edgeCount;
    }
    m_labels.resize(edges.size());
    m_targets.resize(edges.size());
    std::vector<std::uint32_t> fill(m_nodes.size(), 0);
    for (const Edge& e : edges) {
        const std::uint32_t at = m_nodes[e.parent].firstEdge + fill[e.parent]++;
        m_labels[at] = e.label;
        m_targets[at] = e.target;
    }

    // Words whose occurrences can overlap with a non-letter before the later one: the later
    // occurrence could pass the boundary test, yet the loop skips it when the earlier one came
    // first in its chain.
    for (std::size_t i = 0; i < entries.size(); ++i) {
        Node& end = m_nodes[ends[i]];
        if (!entries[i].bounded || end.outBounded != entries[i].id || end.selfOverlap)
            continue;
        const std::string_view w = text(entries[i]);
        std::vector<std::uint32_t> shifts = shiftsOf(w);
        const bool matters = std::any_of(shifts.begin(), shifts.end(), [&](std::uint32_t d) {
            return !m_letter[std::uint8_t(w[d - 1])];
        });
        if (!matters)
            continue;
        end.selfOverlap = 1;
        m_selfOverlap.push_back(
            {entries[i].id, std::vector<std::uint8_t>(w.begin(), w.end()), std::move(shifts)});
    }
    std::sort(m_selfOverlap.begin(), m_selfOverlap.end(),
              [](const SelfOverlap& a, const SelfOverlap& b) { return a.id < b.id; });

    // Leaves: a node below which only one word ends is finished by comparing that word's bytes.
    std::vector<std::int32_t> leafOf(m_nodes.size() * 2, -1);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Node& end = m_nodes[ends[i]];
        const int out = entries[i].bounded ? end.outBounded : end.outFree;
        std::int32_t& leaf = leafOf[ends[i] * 2 + (entries[i].bounded ? 0 : 1)];
        if (out != entries[i].id || leaf >= 0)
            continue;
        leaf = std::int32_t(m_leaves.size());
        m_leaves.push_back({std::uint32_t(entries[i].offset), std::uint32_t(entries[i].length),
                            entries[i].id, entries[i].bounded,
                            entries[i].bounded && end.selfOverlap});
    }
    std::vector<std::uint32_t> below(m_nodes.size(), 0);
    std::vector<std::int32_t> anyLeaf(m_nodes.size(), -1);
    m_minId = INT_MAX;
    for (std::size_t v = 0; v < m_nodes.size(); ++v) {
        Node& n = m_nodes[v];
        n.subtreeMin = INT_MAX;
        for (int k = 0; k < 2; ++k)
            if (leafOf[v * 2 + k] >= 0) {
                ++below[v];
                anyLeaf[v] = leafOf[v * 2 + k];
                n.subtreeMin = std::min(n.subtreeMin, m_leaves[leafOf[v * 2 + k]].id);
            }
    }
    // Children come after their parents, so one backward sweep sums each subtree.
    for (std::size_t v = m_nodes.size(); v-- > 0;) {
        Node& n = m_nodes[v];
        if (below[v] == 1)
            n.single = anyLeaf[v];
        if (v == 0)
            break;
        Node& up = m_nodes[parent[v]];
        up.subtreeMin = std::min(up.subtreeMin, n.subtreeMin);
        below[parent[v]] += below[v];
        if (below[v] > 0)
            anyLeaf[parent[v]] = anyLeaf[v];
    }
    m_nodes[0].single = -1;
    m_minId = m_nodes[0].subtreeMin;

    m_root.assign(m_classes, 0);
    m_pair.assign(std::size_t(m_classes) * m_classes, 0);
    for (std::uint32_t c = 1; c < m_classes; ++c) {
        m_root[c] = child(m_nodes[0], std::uint8_t(c));
        if (m_root[c] != 0)
            for (std::uint32_t c2 = 1; c2 < m_classes; ++c2)
                m_pair[c * m_classes + c2] = child(m_nodes[m_root[c]], std::uint8_t(c2));
    }

    m_everyPlace = shortTexts || m_hasFree;
    if (m_everyPlace)
        return;

    // The entry by the first four bytes: the bit set, and for words of 64 bytes or more (which
    // have no place in the hash table) the table to the node at depth 4.
    for (const Entry& e : entries)
        m_hasLong = m_hasLong || e.length >= 64;
    std::array<std::vector<std::uint8_t>, 256> spellings; // lower case -> bytes ORed with 0x20
    for (int b = 0; b < 256; ++b) {
        auto& v = spellings[m_fold[b]];
        if (std::find(v.begin(), v.end(), std::uint8_t(b | 0x20)) == v.end())
            v.push_back(std::uint8_t(b | 0x20));
    }
    std::size_t quadCount = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].length < quadLength) {
            m_hasShort = true;
            for (int b = 0; b < 256; ++b)
                if (m_fold[b] == std::uint8_t(text(entries[i])[0]))
                    m_shortStart[b] = 1;
        } else {
            ++quadCount;
        }
    }
    int bloomBits = 10;
    while ((std::size_t(1) << bloomBits) < quadCount * 32 && bloomBits < 21)
        ++bloomBits;
    m_bloom.assign((std::size_t(1) << bloomBits) / 64, 0);
    m_bloomShift = std::uint32_t(64 - bloomBits);
    std::size_t slots = 16;
    while (m_hasLong && slots < quadCount * 2)
        slots *= 2;
    m_quadKeys.assign(slots, 0);
    m_quadNodes.assign(slots, 0);
    m_quadMask = std::uint32_t(slots - 1);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].length < quadLength)
            continue;
        const auto* w = m_text.data() + entries[i].offset;
        const std::uint32_t key = load32(w);
        for (std::uint32_t slot = (key * 0x9E3779B1u) & m_quadMask; m_hasLong;
             slot = (slot + 1) & m_quadMask) {
            if (m_quadNodes[slot] == 0) {
                m_quadKeys[slot] = key;
                m_quadNodes[slot] = quads[i];
                break;
            }
            if (m_quadKeys[slot] == key)
                break;
        }
        // Where the first non-letter from the fifth byte on lies (or the end).
        std::size_t reach = quadLength;
        while (reach < entries[i].length && m_letter[w[reach]])
            ++reach;
        for (const std::uint8_t a : spellings[w[0]])
            for (const std::uint8_t b : spellings[w[1]])
                for (const std::uint8_t c : spellings[w[2]])
                    for (const std::uint8_t d : spellings[w[3]]) {
                        const std::uint8_t bytes[4] = {a, b, c, d};
                        const std::uint64_t h =
                            bloomPlace(load32(bytes), std::min<std::size_t>(reach, 63));
                        m_bloom[h >> 6] |= std::uint64_t(1) << (h & 63);
                    }
    }
    // The hash table of the words of 4 to 63 bytes, one place per leaf.
    std::size_t hashed = 0;
    for (const Leaf& leaf : m_leaves) {
        if (!leaf.bounded || leaf.length < quadLength)
            continue;
        if (leaf.length < 64)
            ++hashed;
    }
    std::uint64_t seed = 0x9E3779B97F4A7C15ull; // splitmix64: odd factors, one per place
    for (std::uint64_t& f : m_placeFactor) {
        std::uint64_t z = (seed += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        f = (z ^ (z >> 31)) | 1;
    }
    std::size_t places = 16;
    int bits = 4;
    while (places < hashed * 2) {
        places *= 2;
        ++bits;
    }
    m_hashSlots.assign(places, Slot{});
    m_hashShift = std::uint32_t(64 - bits);
    int bloomWordBits = 4; // 64-bit words: about 16 bits per word of the list
    while ((std::size_t(64) << bloomWordBits) < hashed * 16)
        ++bloomWordBits;
    m_wordBloom.assign(std::size_t(1) << bloomWordBits, 0);
    m_wordBloomShift = std::uint32_t(64 - bloomWordBits);
    for (std::size_t i = 0; i < m_leaves.size(); ++i) {
        const Leaf& leaf = m_leaves[i];
        if (!leaf.bounded || leaf.length < quadLength || leaf.length >= 64)
            continue;
        m_lengths |= std::uint64_t(1) << leaf.length;
        std::uint64_t sum = 0;
        for (std::uint32_t k = 0; k < leaf.length; ++k)
            sum += m_placeFactor[k] * m_text[leaf.offset + k];
        const std::uint64_t h = finishHash(sum, leaf.length);
        m_wordBloom[std::size_t(h >> m_wordBloomShift)] |= (std::uint64_t(1) << (h & 63)) |
                                                           (std::uint64_t(1) << ((h >> 6) & 63)) |
                                                           (std::uint64_t(1) << ((h >> 12) & 63));
        std::size_t place = std::size_t((h * 0x9E3779B97F4A7C15ull) >> m_hashShift);
        while (m_hashSlots[place].leaf >= 0)
            place = (place + 1) & (places - 1);
        m_hashSlots[place] = {std::uint32_t(h), std::int32_t(i)};
    }

    // How many bytes from a to z (in either case) every word begins with, up to four: a place
    // without that many is no start. Everyday text loses its short words here.
    m_alphaLead = m_lowest >= 65 && m_lowest <= 90 ? 4 : 0;
    for (const Entry& e : entries) {
        unsigned lead = 0;
        while (lead < m_alphaLead && lead < e.length && m_text[e.offset + lead] >= 'a' &&
               m_text[e.offset + lead] <= 'z')
            ++lead;
        m_alphaLead = lead;
    }
}

std::uint32_t WordMatcher::child(const Node& node, std::uint8_t cls) const {
    const std::uint8_t* begin = m_labels.data() + node.firstEdge;
    const std::uint8_t* end = begin + node.edgeCount;
    if (node.edgeCount <= 8) {
        for (const std::uint8_t* e = begin; e != end; ++e)
            if (*e == cls)
                return m_targets[std::size_t(e - m_labels.data())];
        return 0;
    }
    const std::uint8_t* e = std::lower_bound(begin, end, cls);
    return e != end && *e == cls ? m_targets[std::size_t(e - m_labels.data())] : 0;
}

std::uint32_t WordMatcher::quadNode(std::uint32_t key) const {
    for (std::uint32_t slot = (key * 0x9E3779B1u) & m_quadMask;; slot = (slot + 1) & m_quadMask) {
        if (m_quadNodes[slot] == 0)
            return 0;
        if (m_quadKeys[slot] == key)
            return m_quadNodes[slot];
    }
}

bool WordMatcher::occursAt(const SelfOverlap& w, const std::uint8_t* t, std::size_t at) const {
    for (std::size_t i = 0; i < w.bytes.size(); ++i)
        if (m_fold[t[at + i]] != w.bytes[i])
            return false;
    return true;
}

// Whether the loop's chain of occurrences of `w` (each search starting behind the occurrence
// before) reaches the occurrence at `p`. Back through the run of occurrences that overlap each
// other to its first one (which the chain always reaches) or to the last one known to be in the
// chain, then forward as the loop goes.
bool WordMatcher::chained(const SelfOverlap& w, const std::uint8_t* t, std::size_t p,
                          std::int64_t& lastChained) const {
    std::size_t q = p;
    while (lastChained < 0 || std::size_t(lastChained) != q) {
        bool earlier = false;
        for (const std::uint32_t d : w.shifts) {
            if (d > q)
                break;
            if (occursAt(w, t, q - d)) {
                q -= d;
                earlier = true;
                break;
            }
        }
        if (!earlier)
            break;
    }
    for (std::size_t x = q; x != p;) {
        std::size_t y = x + w.bytes.size();
        if (y > p) {
            lastChained = std::int64_t(x);
            return false;
        }
        while (!occursAt(w, t, y)) // ends at p at the latest
            ++y;
        x = y;
    }
    lastChained = std::int64_t(p);
    return true;
}

// A bounded word found from p to end: a hit when neither neighbour is a letter and, for a word
// that overlaps itself, the loop's chain reaches it.
void WordMatcher::tryBounded(Scan& s, int id, bool selfOverlap, std::size_t p, std::size_t end,
                             bool leftFree) const {
    if (!leftFree || (end < s.n && s.letter[s.t[end]]))
        return;
    if (selfOverlap) {
        const auto it = std::lower_bound(m_selfOverlap.begin(), m_selfOverlap.end(), id,
                                         [](const SelfOverlap& w, int i) { return w.id < i; });
        if (!chained(*it, s.t, p, s.lastChained[std::size_t(it - m_selfOverlap.begin())]))
            return;
    }
    s.best = id;
}

void WordMatcher::tryLeaf(Scan& s, const Leaf& leaf, std::size_t p, std::size_t e,
                          bool leftFree) const {
    const std::size_t end = p + leaf.length;
    if (end > s.n)
        return;
    const std::uint8_t* w = m_text.data() + leaf.offset - p;
    for (std::size_t i = e; i < end; ++i)
        if (m_fold[s.t[i]] != w[i])
            return;
    if (!leaf.bounded)
        s.best = leaf.id;
    else
        tryBounded(s, leaf.id, leaf.selfOverlap, p, end, leftFree);
}

// On from `node`, reached by the bytes from p to e.
void WordMatcher::walk(Scan& s, std::size_t p, bool leftFree, std::uint32_t node,
                       std::size_t e) const {
    const std::uint8_t* t = s.t;
    while (node != 0) {
        const Node& nd = m_nodes[node];
        if (nd.subtreeMin >= s.best)
            return;
        if (nd.single >= 0) {
            tryLeaf(s, m_leaves[std::size_t(nd.single)], p, e, leftFree);
            return;
        }
        if (nd.outFree >= 0 && nd.outFree < s.best)
            s.best = nd.outFree;
        if (nd.outBounded >= 0 && nd.outBounded < s.best)
            tryBounded(s, nd.outBounded, nd.selfOverlap, p, e, leftFree);
        if (e == s.n)
            return;
        const std::uint8_t c = m_class[t[e]];
        if (c == 0)
            return;
        node = e == p + 1 ? m_pair[m_class[t[p]] * m_classes + c] : child(nd, c);
        ++e;
    }
}

// A place behind a non-letter (or the start of the text); `lettersFromP` has a bit for each of
// the 64 places from p on that holds a letter.
void WordMatcher::examine(Scan& s, std::size_t p, std::uint64_t lettersFromP) const {
    const std::uint8_t* t = s.t;
    if (p + quadLength > s.n || (m_hasShort && m_shortStart[t[p]])) {
        walk(s, p, true, m_root[m_class[t[p]]], p + 1);
        return;
    }
    if (!bloomHas(load32(t + p), lettersFromP))
        return;
    if (m_hasLong) {
        const std::uint8_t lower[4] = {m_fold[t[p]], m_fold[t[p + 1]], m_fold[t[p + 2]],
                                       m_fold[t[p + 3]]};
        if (const std::uint32_t node = quadNode(load32(lower)))
            walk(s, p, true, node, p + quadLength);
        return;
    }
    // A word can end only before a non-letter (or at the end of the text).
    std::uint64_t ends = ~lettersFromP & m_lengths;
    if (s.n - p < 63)
        ends &= (std::uint64_t(2) << (s.n - p)) - 1;
    std::uint64_t sum = 0;
    std::size_t i = p;
    while (ends != 0) {
        const std::size_t end = p + std::size_t(std::countr_zero(ends));
        ends &= ends - 1;
        for (; i < end; ++i)
            sum += m_placeFactor[i - p] * m_fold[t[i]];
        const std::uint64_t h = finishHash(sum, end - p);
        if (!wordBloomHas(h))
            continue;
        const std::size_t mask = m_hashSlots.size() - 1;
        for (std::size_t place = std::size_t((h * 0x9E3779B97F4A7C15ull) >> m_hashShift);
             m_hashSlots[place].leaf >= 0; place = (place + 1) & mask) {
            if (m_hashSlots[place].check != std::uint32_t(h))
                continue;
            const Leaf& leaf = m_leaves[std::size_t(m_hashSlots[place].leaf)];
            if (leaf.length != end - p || leaf.id >= s.best ||
                !std::equal(t + p, t + end, m_text.data() + leaf.offset,
                            [this](std::uint8_t a, std::uint8_t b) { return m_fold[a] == b; }))
                continue;
            tryBounded(s, leaf.id, leaf.selfOverlap, p, end, true);
            break;
        }
    }
}

// With free words every place is a start: addresses, which are short.
int WordMatcher::scanEveryPlace(Scan& s) const {
    bool leftFree = true;
    for (std::size_t p = 0; p < s.n; ++p) {
        walk(s, p, leftFree, m_root[m_class[s.t[p]]], p + 1);
        if (s.best == m_minId)
            break;
        leftFree = !s.letter[s.t[p]];
    }
    return s.best;
}

namespace {

constexpr std::size_t chunkBytes = 8192;
constexpr std::size_t chunkWords = chunkBytes / 64;

} // namespace

// Of the places in `starts` (bits from `block`, each with four bytes behind it) those where a
// word could begin: its first four bytes in the bit set, or a short word's first byte. Without
// a branch per place, since most are dropped here and which ones cannot be foreseen.
std::uint64_t WordMatcher::sieve(const std::uint8_t* block, std::uint64_t starts,
                                 const std::uint64_t* letters) const {
    std::uint64_t keep = 0;
    for (; starts != 0; starts &= starts - 1) {
        const auto i = unsigned(std::countr_zero(starts));
        const std::uint64_t ahead =
            i == 0 ? letters[0] : (letters[0] >> i) | (letters[1] << (64 - i));
        const std::uint64_t h = bloomPlace(load32(block + i), reachOf(ahead));
        const std::uint64_t bit = ((m_bloom[h >> 6] >> (h & 63)) | m_shortStart[block[i]]) & 1;
        keep |= bit << i;
    }
    return keep;
}

// Bounded words only: the places behind a non-letter, found 64 at a time. The text goes in
// chunks; for each a bit per byte says whether it is a letter, with two words more for the
// words that end behind the chunk.
int WordMatcher::scanBehindNonLetters(Scan& s) const {
    const std::uint8_t* t = s.t;
    std::uint64_t letters[chunkWords + 2];
    std::uint64_t alpha[chunkWords + 2];
    std::uint64_t letterBefore = 0; // nothing before the text is a letter
    for (std::size_t base = 0; base < s.n; base += chunkBytes) {
        const std::size_t length = std::min(chunkBytes, s.n - base);
        const std::size_t words = (length + 63) / 64;
        letterBits(t + base, std::min(s.n - base, chunkBytes + 128), letters, alpha,
                   chunkWords + 2);
        for (std::size_t k = 0; k < words; ++k) {
            std::uint64_t starts = ~((letters[k] << 1) | letterBefore);
            letterBefore = letters[k] >> 63;
            for (unsigned j = 0; j < m_alphaLead; ++j)
                starts &= j == 0 ? alpha[k] : (alpha[k] >> j) | (alpha[k + 1] << (64 - j));
            const std::size_t block = base + 64 * k;
            if (block + 64 > s.n)
                starts &= (std::uint64_t(1) << (s.n - block)) - 1;
            else if (block + 64 + quadLength <= s.n)
                starts = sieve(t + block, starts, letters + k);
            while (starts != 0) {
                const auto i = unsigned(std::countr_zero(starts));
                starts &= starts - 1;
                const std::uint64_t ahead =
                    i == 0 ? letters[k] : (letters[k] >> i) | (letters[k + 1] << (64 - i));
                examine(s, base + 64 * k + i, ahead);
                if (s.best == m_minId)
                    return s.best;
            }
        }
    }
    return s.best;
}

// For `count` 64-byte words from t (at most `n` bytes; none past them): bits for the letters and
// for the bytes a to z in either case.
void WordMatcher::letterBits(const std::uint8_t* t, std::size_t n, std::uint64_t* letters,
                             std::uint64_t* alpha, std::size_t count) const {
    std::size_t p = 0;
    std::fill(letters, letters + count, 0);
    std::fill(alpha, alpha + count, 0);
#if defined(__SSE2__)
    if (m_lowest >= 65 && m_lowest <= 90) {
        const __m128i caseBit = _mm_set1_epi8(0x20);
        // x | 0x20 in [lowest + 32, 'z'] is a letter: shifted so that the range starts at -128.
        const __m128i shift = _mm_set1_epi8(char(128 - (m_lowest + 32)));
        const __m128i letterLimit = _mm_set1_epi8(char(-128 + ('z' - (m_lowest + 32)) + 1));
        const __m128i alphaShift = _mm_set1_epi8(char(128 - 'a'));
        const __m128i alphaLimit = _mm_set1_epi8(char(-128 + 26));
        for (; p + 16 <= n && p < 64 * count; p += 16) {
            const __m128i x =
                _mm_or_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t + p)), caseBit);
            const auto l = std::uint64_t(std::uint16_t(
                _mm_movemask_epi8(_mm_cmplt_epi8(_mm_add_epi8(x, shift), letterLimit))));
            const auto a = std::uint64_t(std::uint16_t(
                _mm_movemask_epi8(_mm_cmplt_epi8(_mm_add_epi8(x, alphaShift), alphaLimit))));
            letters[p / 64] |= l << (p % 64);
            alpha[p / 64] |= a << (p % 64);
        }
    }
#endif
    for (; p < n && p < 64 * count; ++p) {
        letters[p / 64] |= std::uint64_t(m_letter[t[p]]) << (p % 64);
        const std::uint8_t x = t[p] | 0x20;
        alpha[p / 64] |= std::uint64_t(x >= 'a' && x <= 'z') << (p % 64);
    }
}

int WordMatcher::firstHit(QByteArrayView text) const {
    if (isEmpty())
        return -1;
    Scan s;
    s.letter = m_letter.data();
    s.t = reinterpret_cast<const std::uint8_t*>(text.data());
    s.n = std::size_t(text.size());
    s.lastChained.assign(m_selfOverlap.size(), -1);
    // Decision: a word at the first place of a text has no neighbour before it, and one at the
    // last place none after it; a missing neighbour is no letter. So a word that begins or ends
    // a text (a title that is only the word) is tested like one between blanks.
    const int best = m_everyPlace ? scanEveryPlace(s) : scanBehindNonLetters(s);
    return best == INT_MAX ? -1 : best;
}

int WordMatcher::firstHit(QByteArrayView text, int lowestLetter) const {
    if (isEmpty())
        return -1;
    // More letters than the matcher was built for: every word that needs the chain test with
    // these letters needs it with the matcher's own, so the words marked for it suffice.
    Q_ASSERT(lowestLetter <= m_lowest);
    std::array<std::uint8_t, 256> letter{};
    for (int b = 0; b < 256; ++b)
        letter[b] = ByteCase::isLetter(std::uint8_t(b), std::min(lowestLetter, m_lowest)) ? 1 : 0;
    Scan s;
    s.letter = letter.data();
    s.t = reinterpret_cast<const std::uint8_t*>(text.data());
    s.n = std::size_t(text.size());
    s.lastChained.assign(m_selfOverlap.size(), -1);
    const int best = scanEveryPlace(s);
    return best == INT_MAX ? -1 : best;
}

std::size_t WordMatcher::memoryBytes() const {
    std::size_t total =
        sizeof(*this) + m_root.capacity() * sizeof(std::uint32_t) +
        m_pair.capacity() * sizeof(std::uint32_t) + m_nodes.capacity() * sizeof(Node) +
        m_labels.capacity() + m_targets.capacity() * sizeof(std::uint32_t) + m_text.capacity() +
        m_leaves.capacity() * sizeof(Leaf) + m_bloom.capacity() * sizeof(std::uint64_t) +
        (m_quadKeys.capacity() + m_quadNodes.capacity()) * sizeof(std::uint32_t) +
        m_hashSlots.capacity() * sizeof(Slot) + m_wordBloom.capacity() * sizeof(std::uint64_t);
    for (const SelfOverlap& w : m_selfOverlap)
        total += sizeof(w) + w.bytes.capacity() + w.shifts.capacity() * sizeof(std::uint32_t);
    return total;
}

} // namespace tk
