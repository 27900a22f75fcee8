#include "X11Fixture.h"
#include "platform/linux/LinuxDisplay.h"

#include <xcb/randr.h>

#include <cstring>

namespace tk::test {

namespace {

// Adds a mode of the given size to the output of the test's X server, through the session's own
// connection, which stays open for the test: Xvfb forgets modes whose adding client has left.
bool addMode(XvfbSession& x, uint16_t width, uint16_t height) {
    xcb_connection_t* c = x.connection();
    xcb_randr_get_screen_resources_reply_t* resources = xcb_randr_get_screen_resources_reply(
        c, xcb_randr_get_screen_resources(c, x.root()), nullptr);
    if (!resources || xcb_randr_get_screen_resources_outputs_length(resources) < 1) {
        std::free(resources);
        return false;
    }
    const xcb_randr_output_t output = xcb_randr_get_screen_resources_outputs(resources)[0];
    std::free(resources);

    const QByteArray name = QByteArray::number(width) + 'x' + QByteArray::number(height) + "_test";
    xcb_randr_mode_info_t info{};
    info.width = width;
    info.height = height;
    info.dot_clock = uint32_t(width + 100) * (height + 30) * 60;
    info.hsync_start = width + 20;
    info.hsync_end = width + 60;
    info.htotal = width + 100;
    info.vsync_start = height + 5;
    info.vsync_end = height + 10;
    info.vtotal = height + 30;
    info.name_len = uint16_t(name.size());
    xcb_randr_create_mode_reply_t* mode = xcb_randr_create_mode_reply(
        c, xcb_randr_create_mode(c, x.root(), info, uint32_t(name.size()), name.constData()),
        nullptr);
    if (!mode)
        return false;
    xcb_generic_error_t* error =
        xcb_request_check(c, xcb_randr_add_output_mode_checked(c, output, mode->mode));
    std::free(mode);
    std::free(error);
    return error == nullptr;
}

QSize rootSize(XvfbSession& x) {
    xcb_get_geometry_reply_t* g =
        xcb_get_geometry_reply(x.connection(), xcb_get_geometry(x.connection(), x.root()), nullptr);
    const QSize size = g ? QSize(g->width, g->height) : QSize();
    std::free(g);
    return size;
}

class X11DisplayTest : public X11Test {};

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
