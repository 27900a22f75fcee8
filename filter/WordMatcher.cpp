#include "WordMatcher.h"

#include "ByteCase.h"

#include <algorithm>
#include <climits>
#include <string_view>

namespace tk {

namespace {

struct Entry {
    std::size_t offset;
    std::size_t length;
    int id;
    bool bounded;
};

// The shifts at which `w` meets itself (its periods), rising: the word's length minus each of
// its borders, found with the failure function of a prefix search.
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

} // namespace

WordMatcher::WordMatcher(const QList<Pattern>& patterns, int lowestLetter) {
    const ByteCase::Tables& cases = ByteCase::tables();
    m_fold = cases.lower;
    for (int b = 0; b < 256; ++b)
        m_letter[b] = ByteCase::isLetter(std::uint8_t(b), lowestLetter) ? 1 : 0;

    // Every word in lower case, in one buffer.
    std::string buffer;
    std::vector<Entry> entries;
    entries.reserve(std::size_t(patterns.size()));
    for (const Pattern& p : patterns) {
        if (p.bytes.isEmpty())
            continue;
        const std::size_t offset = buffer.size();
        for (const char c : p.bytes)
            buffer.push_back(char(m_fold[std::uint8_t(c)]));
        entries.push_back({offset, std::size_t(p.bytes.size()), p.id, p.bounded});
        m_hasFree = m_hasFree || !p.bounded;
    }
    auto text = [&buffer](const Entry& e) {
        return std::string_view(buffer).substr(e.offset, e.length);
    };

    // Classes: a number for each lower-case byte some word holds, in byte order, so that the
    // edges of a node sorted by byte are sorted by class too.
    std::array<std::uint8_t, 256> classOfLower{};
    std::array<bool, 256> used{};
    for (const char c : buffer)
        used[std::uint8_t(c)] = true;
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

    // Children come after their parents, so one backward sweep gives each subtree's minimum.
    m_minId = INT_MAX;
    for (Node& n : m_nodes) {
        n.subtreeMin = INT_MAX;
        if (n.outBounded >= 0)
            n.subtreeMin = n.outBounded;
        if (n.outFree >= 0)
            n.subtreeMin = std::min(n.subtreeMin, n.outFree);
    }
    for (std::size_t v = m_nodes.size(); v-- > 1;)
        m_nodes[parent[v]].subtreeMin =
            std::min(m_nodes[parent[v]].subtreeMin, m_nodes[v].subtreeMin);
    m_minId = m_nodes[0].subtreeMin;

    m_root.assign(m_classes, 0);
    m_pair.assign(std::size_t(m_classes) * m_classes, 0);
    for (std::uint32_t c = 1; c < m_classes; ++c) {
        m_root[c] = child(m_nodes[0], std::uint8_t(c));
        if (m_root[c] != 0)
            for (std::uint32_t c2 = 1; c2 < m_classes; ++c2)
                m_pair[c * m_classes + c2] = child(m_nodes[m_root[c]], std::uint8_t(c2));
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

const WordMatcher::SelfOverlap& WordMatcher::selfOverlap(int id) const {
    return *std::lower_bound(m_selfOverlap.begin(), m_selfOverlap.end(), id,
                             [](const SelfOverlap& w, int i) { return w.id < i; });
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

template <bool Free> int WordMatcher::scan(const std::uint8_t* t, std::size_t n) const {
    int best = INT_MAX;
    std::vector<std::int64_t> lastChained(m_selfOverlap.size(), -1);
    // Decision: a word at the first place of a text has no neighbour before it, and one at the
    // last place none after it; a missing neighbour is no letter. So a word that begins or ends
    // a text (a title that is only the word) is tested like one between blanks.
    bool leftFree = true;
    const Node* nodes = m_nodes.data();
    for (std::size_t p = 0; p < n; ++p) {
        const std::uint8_t b = t[p];
        const bool letter = m_letter[b];
        const std::uint8_t c0 = m_class[b];
        if ((Free || leftFree) && c0 != 0) {
            std::uint32_t node = m_root[c0];
            std::size_t e = p + 1;
            while (node != 0) {
                const Node& nd = nodes[node];
                if (nd.subtreeMin >= best)
                    break;
                if (Free && nd.outFree >= 0 && nd.outFree < best)
                    best = nd.outFree;
                if (nd.outBounded >= 0 && nd.outBounded < best && leftFree &&
                    (e == n || !m_letter[t[e]])) {
                    if (!nd.selfOverlap)
                        best = nd.outBounded;
                    else {
                        const auto i =
                            std::size_t(&selfOverlap(nd.outBounded) - m_selfOverlap.data());
                        if (chained(m_selfOverlap[i], t, p, lastChained[i]))
                            best = nd.outBounded;
                    }
                }
                if (e == n)
                    break;
                const std::uint8_t c = m_class[t[e]];
                if (c == 0)
                    break;
                node = e == p + 1 ? m_pair[c0 * m_classes + c] : child(nd, c);
                ++e;
            }
            if (best == m_minId)
                return best;
        }
        leftFree = !letter;
    }
    return best == INT_MAX ? -1 : best;
}

int WordMatcher::firstHit(QByteArrayView text) const {
    if (isEmpty())
        return -1;
    const auto* t = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto n = std::size_t(text.size());
    return m_hasFree ? scan<true>(t, n) : scan<false>(t, n);
}

std::size_t WordMatcher::memoryBytes() const {
    std::size_t total = sizeof(*this) + m_root.capacity() * sizeof(std::uint32_t) +
                        m_pair.capacity() * sizeof(std::uint32_t) +
                        m_nodes.capacity() * sizeof(Node) + m_labels.capacity() +
                        m_targets.capacity() * sizeof(std::uint32_t);
    for (const SelfOverlap& w : m_selfOverlap)
        total += sizeof(w) + w.bytes.capacity() + w.shifts.capacity() * sizeof(std::uint32_t);
    return total;
}

} // namespace tk
