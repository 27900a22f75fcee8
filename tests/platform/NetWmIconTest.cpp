#include "platform/linux/NetWmIcon.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using tk::NetWmIcon;

std::vector<quint32> image(quint32 w, quint32 h, quint32 argb) {
    std::vector<quint32> v{w, h};
    v.insert(v.end(), size_t(w) * h, argb);
    return v;
}

std::vector<quint32> operator+(std::vector<quint32> a, const std::vector<quint32>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(NetWmIconTest, TakesTheWholeImagesBeforeTheFirstBrokenOne) {
    const std::vector<quint32> red = image(16, 16, 0xffff0000u);
    struct Case {
        const char* name;
        std::vector<quint32> data;
        bool found;
    };
    const Case cases[] = {
        {"empty", {}, false},
        {"only a width", {16}, false},
        {"no pixels", {16, 16}, false},
        {"one pixel short", {2, 2, 1, 2, 3}, false},
        {"sizes that overflow", {0xffffffffu, 0xffffffffu, 1, 2}, false},
        {"zero width", {0, 5}, false},
        {"whole image, then a cut one", red + std::vector<quint32>{64, 64, 1, 2, 3}, true},
        {"whole image, then a stray value", red + std::vector<quint32>{7}, true},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        const QImage icon = NetWmIcon::choose(k.data.data(), qsizetype(k.data.size()), 16);
        EXPECT_EQ(!icon.isNull(), k.found);
        if (k.found) {
            EXPECT_EQ(icon.pixel(8, 8), 0xffff0000u);
        }
    }
    EXPECT_TRUE(NetWmIcon::choose(nullptr, 10, 16).isNull());
    EXPECT_TRUE(NetWmIcon::choose(red.data(), qsizetype(red.size()), 0).isNull());
}

TEST(NetWmIconTest, AnOblongImageKeepsItsProportionsOnATransparentSquare) {
    const std::vector<quint32> wide = image(32, 16, 0xff00ff00u);
    const QImage icon = NetWmIcon::choose(wide.data(), qsizetype(wide.size()), 16);
    ASSERT_EQ(icon.size(), QSize(16, 16));
    EXPECT_EQ(qAlpha(icon.pixel(8, 0)), 0);   // above the image: empty
    EXPECT_EQ(icon.pixel(8, 8), 0xff00ff00u); // the image, 16 by 8, in the middle
    EXPECT_EQ(qAlpha(icon.pixel(8, 15)), 0);  // below it: empty
}

} // namespace
