#include "X11Fixture.h"
#include "XrandrTestModes.h"
#include "platform/linux/LinuxDisplay.h"

#include <xcb/randr.h>

#include <cstring>

namespace tk::test {

namespace {

class X11DisplayTest : public X11Test {
protected:
    // The screen's own mode again, also after a test that ended early.
    void TearDown() override {
        if (sessionUp())
            LinuxDisplay(x().display()).setMode(1280, 1024, 32);
    }
};

TEST_F(X11DisplayTest, ModesOfferedByTheOutputCanBeSetAndRestored) {
    ASSERT_TRUE(addMode(x(), 800, 600));
    ASSERT_TRUE(addMode(x(), 1024, 768));
    LinuxDisplay display(x().display());
    // Depth 24 is kept in 32 bits a pixel: what a demand of 32 bits means.
    const DisplayMode original{1280, 1024, 32};
    ASSERT_EQ(display.current(), original);

    struct Step {
        int width, height, depth;
        bool done;
        QSize after;
    };
    const Step steps[] = {
        {800, 600, 16, true, {800, 600}}, // the depth cannot change and is taken as met
        {1024, 768, 32, true, {1024, 768}},
        {640, 480, 32, false, {1024, 768}}, // not offered: nothing changes
        {1024, 768, 32, true, {1024, 768}}, // already so
        {1280, 1024, 32, true, {1280, 1024}},
    };
    for (const Step& s : steps) {
        SCOPED_TRACE(testing::Message() << s.width << "x" << s.height);
        EXPECT_EQ(display.setMode(s.width, s.height, s.depth), s.done);
        EXPECT_EQ(display.current(), (DisplayMode{s.after.width(), s.after.height(), 32}));
        EXPECT_EQ(rootSize(x()), s.after); // the screen follows the mode
    }
    EXPECT_FALSE(display.setMode(2048, 1536, 32)); // larger than the server allows
    EXPECT_FALSE(display.setMode(0, 0, 32));
    EXPECT_EQ(display.current(), original);
}

TEST(X11DisplayAbsentTest, NoDisplayKeepsTheLayoutSizeAndRefusesChanges) {
    const QByteArray saved = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    LinuxDisplay display;
    EXPECT_EQ(display.current(), (DisplayMode{1024, 768, 32}));
    EXPECT_FALSE(display.setMode(800, 600, 32));
    if (!saved.isNull())
        qputenv("DISPLAY", saved);
}

} // namespace

} // namespace tk::test
