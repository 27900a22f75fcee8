// How the reader of the command channel cuts what the network gives into messages: a short read
// is a message at once, a long one waits for its pieces until the quiet time runs out (the tick
// is called here, not waited for), within a bound, and below a limit.
#include "core/MessageAssembler.h"

#include <QByteArray>
#include <QList>
#include <gtest/gtest.h>

using tk::MessageAssembler;

namespace {

struct Step {
    int bytes;    // a read of this many bytes; 0: the quiet time runs out
    int handed;   // messages handed on so far
    int lastSize; // size of the last one handed on
};

} // namespace

TEST(MessageAssemblerTest, ShortReadsAreMessagesAtOnceLongOnesWaitForTheirPieces) {
    const qint64 l = MessageAssembler::longRead;
    struct Case {
        const char* what;
        QList<Step> steps;
    };
    const QList<Case> cases = {
        {"short", {{5, 1, 5}, {7, 2, 7}}},
        {"just below long", {{int(l - 1), 1, int(l - 1)}}},
        {"long, whole", {{int(l), 0, 0}, {0, 1, int(l)}}},
        {"long in three pieces", {{1400, 0, 0}, {1400, 0, 0}, {300, 0, 0}, {0, 1, 3100}}},
        {"a short one after a long one", {{1400, 0, 0}, {0, 1, 1400}, {4, 2, 4}}},
        {"a tick with nothing waiting", {{0, 0, 0}, {3, 1, 3}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        MessageAssembler a(nullptr);
        QList<QByteArray> handed;
        a.onMessage = [&](const QByteArray& m) { handed << m; };
        for (const Step& step : c.steps) {
            if (step.bytes == 0)
                a.quietTick();
            else
                a.feed(QByteArray(step.bytes, 'a'));
            ASSERT_EQ(step.handed, handed.size());
            if (step.handed > 0) {
                EXPECT_EQ(step.lastSize, handed.last().size());
            }
        }
    }
}

TEST(MessageAssemblerTest, AMessageEndsAtTheBoundAndIsDroppedAboveTheLimit) {
    MessageAssembler a(nullptr);
    QList<QByteArray> handed;
    QList<qint64> over;
    a.onMessage = [&](const QByteArray& m) { handed << m; };
    a.onOverLimit = [&](qint64 bytes) { over << bytes; };
    // No time to wait at all: a long read is a message at once, as a short one is.
    a.setMaxWaitMs(0);
    a.feed(QByteArray(1500, 'a'));
    ASSERT_EQ(1, handed.size());
    EXPECT_EQ(1500, handed[0].size());

    a.setMaxWaitMs(MessageAssembler::defaultMaxWaitMs);
    a.setLimit(4000);
    a.feed(QByteArray(3000, 'c'));
    a.feed(QByteArray(1001, 'd'));
    EXPECT_EQ(QList<qint64>{4001}, over);
    EXPECT_FALSE(a.waiting());
    a.quietTick();
    EXPECT_EQ(1, handed.size()); // nothing of the dropped one is handed on
    a.feed("TST");
    EXPECT_EQ(QByteArray("TST"), handed.last());
}

TEST(MessageAssemblerTest, AMessageThatCompletesWhileOneIsHandledComesAfterIt) {
    MessageAssembler a(nullptr);
    QList<QByteArray> handed;
    int depth = 0;
    int deepest = 0;
    a.onMessage = [&](const QByteArray& m) {
        ++depth;
        deepest = std::max(deepest, depth);
        handed << m;
        if (m == "EERSTE")
            a.feed("TWEEDE"); // arrives while the first is being handled
        --depth;
    };
    a.feed("EERSTE");
    EXPECT_EQ((QList<QByteArray>{"EERSTE", "TWEEDE"}), handed);
    EXPECT_EQ(1, deepest);
}
