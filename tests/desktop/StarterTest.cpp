#include "tests/desktop/DesktopWerkplek.h"

#include <gtest/gtest.h>

using namespace tk;
using tk::test::DesktopWerkplek;

TEST(StartApplicatieTest, ASecondClickWithinTwoSecondsIsDropped) {
    DesktopWerkplek w;
    auto& started = w.platform.fakeProcesses().started;
    w.s().StartApplicatie("/bin/sh", "-c true", "", "1024x768x32xNEE", "Shell");
    ASSERT_EQ(started.size(), 1);
    EXPECT_EQ(started[0], "/bin/sh -c true (in /bin)");

    w.platform.fakeClock().advance(1999);
    EXPECT_TRUE(w.s().StartGeblokkeerd());
    w.s().StartApplicatie("/bin/sh", "", "", "", "Shell");
    EXPECT_EQ(started.size(), 1);

    w.platform.fakeClock().advance(1);
    EXPECT_FALSE(w.s().StartGeblokkeerd());
    w.s().StartApplicatie("/bin/sh", "", "", "", "Shell");
    EXPECT_EQ(started.size(), 2);
}
