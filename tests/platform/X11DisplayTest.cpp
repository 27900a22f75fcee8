#include "X11Fixture.h"
#include "XrandrTestModes.h"
#include "platform/linux/LinuxDisplay.h"

#include <QImage>
#include <QTemporaryDir>

#include <xcb/randr.h>

#include <cstring>

namespace tk::test {

namespace {

class X11DisplayTest : public X11Test {
protected:
    // The screen's own mode again, also after a test that ended early.
    void TearDown() override {
        if (X11TestSessie::sessie)
            LinuxDisplay(x().display()).setMode(1280, 1024, 32);
    }
};

TEST_F(X11DisplayTest, AWallpaperFillsTheScreenBehindTheWindowsAndGoesAgain) {
    // The colour of one pixel of the root window as the server shows it.
    auto kleur = [&](int px, int py) -> QRgb {
        xcb_get_image_reply_t* r =
            xcb_get_image_reply(c(),
                                xcb_get_image(c(), XCB_IMAGE_FORMAT_Z_PIXMAP, x().root(),
                                              int16_t(px), int16_t(py), 1, 1, ~0u),
                                nullptr);
        if (!r)
            return 0;
        uint32_t waarde = 0;
        std::memcpy(&waarde, xcb_get_image_data(r), 4);
        std::free(r);
        return waarde & 0xffffff;
    };
    QTemporaryDir map;
    QImage beeld(4, 2, QImage::Format_RGB32); // left half red, right half blue
    beeld.fill(qRgb(200, 0, 0));
    for (int y = 0; y < 2; ++y)
        for (int px = 2; px < 4; ++px)
            beeld.setPixel(px, y, qRgb(0, 0, 200));
    const QString bestand = map.filePath(QStringLiteral("achtergrond.png"));
    ASSERT_TRUE(beeld.save(bestand));
    LinuxDisplay display(x().display());
    ASSERT_TRUE(display.setWallpaper(bestand));
    EXPECT_EQ(kleur(5, 5), qRgb(200, 0, 0) & 0xffffff); // stretched over the whole screen
    EXPECT_EQ(kleur(1275, 1019), qRgb(0, 0, 200) & 0xffffff);
    EXPECT_FALSE(display.setWallpaper(map.filePath(QStringLiteral("geen.png"))));
    ASSERT_TRUE(display.setWallpaper(QString()));
    EXPECT_EQ(kleur(5, 5), 0u);
}

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
