#include "X11Fixture.h"
#include "platform/linux/LinuxWindows.h"

#include <QColor>
#include <QCoreApplication>

#include <optional>

namespace tk::test {

namespace {

std::string describe(const QList<WindowInfo>& list) {
    std::string text;
    for (const WindowInfo& w : list)
        text += "[" + std::to_string(w.handle) + " \"" + w.title.toStdString() + "\" pid " +
                std::to_string(w.pid) + "] ";
    return text;
}

class X11WindowsTest : public X11Test {
protected:
    std::optional<WindowInfo> find(LinuxWindows& windows, quint64 handle) {
        const QList<WindowInfo> list = windows.topLevelWindows();
        for (const WindowInfo& w : list)
            if (w.handle == handle)
                return w;
        return std::nullopt;
    }
    std::optional<WindowInfo> findByPid(LinuxWindows& windows, qint64 pid) {
        const QList<WindowInfo> list = windows.topLevelWindows();
        for (const WindowInfo& w : list)
            if (w.pid == pid)
                return w;
        return std::nullopt;
    }
    // Maps the window and waits until the manager lists it.
    void show(LinuxWindows& windows, TestWindow& w) {
        w.map();
        ASSERT_TRUE(waitUntil([&] { return find(windows, w.id()).has_value(); }));
    }
};

TEST_F(X11WindowsTest, RealProgramsAreTasksThatCanBeActivatedAndClosed) {
    LinuxWindows windows(x().display());
    ASSERT_TRUE(windows.available());
    QProcess* logo = x().startProgram(QStringLiteral("xlogo"));
    // Both take the input focus (xclock and xeyes ask for none, and so are never the active
    // window), and set neither _NET_WM_PID nor _NET_WM_NAME.
    QProcess* calc = x().startProgram(QStringLiteral("xcalc"));
    std::optional<WindowInfo> a, b;
    ASSERT_TRUE(waitUntil([&] {
        a = findByPid(windows, logo->processId());
        b = findByPid(windows, calc->processId());
        return a && b;
    })) << describe(windows.topLevelWindows())
        << " xlogo " << logo->processId() << " xcalc " << calc->processId();
    EXPECT_EQ(a->title, QStringLiteral("xlogo"));
    EXPECT_EQ(b->title, QStringLiteral("Calculator"));
    for (const WindowInfo& w : {*a, *b}) {
        EXPECT_TRUE(w.visible);
        EXPECT_EQ(w.owner, 0u);
        EXPECT_EQ(w.parent, 0u);
        EXPECT_FALSE(w.toolWindow);
    }

    ASSERT_TRUE(windows.activate(a->handle));
    EXPECT_TRUE(waitUntil([&] { return windows.activeWindow() == a->handle; }));
    ASSERT_TRUE(windows.activate(b->handle));
    EXPECT_TRUE(waitUntil([&] { return windows.activeWindow() == b->handle; }));

    windows.close(a->handle);
    EXPECT_TRUE(waitUntil([&] { return !find(windows, a->handle); }));
    EXPECT_TRUE(waitUntil([&] { return logo->state() == QProcess::NotRunning; }));
    EXPECT_FALSE(windows.activate(a->handle)); // gone: nothing to bring forward
    EXPECT_TRUE(find(windows, b->handle).has_value());
}

TEST_F(X11WindowsTest, TaskFactsFollowTheWindowsProperties) {
    LinuxWindows windows(x().display());
    TestWindow owner(x());
    owner.setText("_NET_WM_NAME", "UTF8_STRING", QByteArray("Eigenaar \xce\xa9"));
    owner.setText("WM_NAME", "STRING", QByteArray("oude naam"));
    owner.setValues("_NET_WM_PID", XCB_ATOM_CARDINAL, {4242});
    show(windows, owner);

    struct Case {
        const char* name;
        bool owned;
        std::initializer_list<const char*> types;
        std::initializer_list<const char*> states;
        bool toolWindow;
        bool appWindow;
    };
    const Case cases[] = {
        {"plain", false, {}, {}, false, false},
        {"declared normal", false, {"_NET_WM_WINDOW_TYPE_NORMAL"}, {}, false, true},
        {"owned dialog", true, {"_NET_WM_WINDOW_TYPE_DIALOG"}, {}, false, false},
        {"owned without type", true, {}, {}, false, false},
        {"owned normal", true, {"_NET_WM_WINDOW_TYPE_NORMAL"}, {}, false, true},
        {"utility", false, {"_NET_WM_WINDOW_TYPE_UTILITY"}, {}, true, false},
        {"toolbar", false, {"_NET_WM_WINDOW_TYPE_TOOLBAR"}, {}, true, false},
        // The first type the window names that is known decides.
        {"unknown then utility",
         false,
         {"_KDE_NET_WM_WINDOW_TYPE_OVERRIDE", "_NET_WM_WINDOW_TYPE_UTILITY",
          "_NET_WM_WINDOW_TYPE_NORMAL"},
         {},
         true,
         false},
        {"skip taskbar",
         false,
         {"_NET_WM_WINDOW_TYPE_NORMAL"},
         {"_NET_WM_STATE_SKIP_TASKBAR"},
         true,
         true},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        TestWindow w(x());
        w.setText("WM_NAME", "STRING", QByteArray(k.name));
        if (k.owned)
            w.setValues("WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, {owner.id()});
        if (k.types.size())
            w.setAtoms("_NET_WM_WINDOW_TYPE", k.types);
        if (k.states.size())
            w.setAtoms("_NET_WM_STATE", k.states);
        show(windows, w);
        const std::optional<WindowInfo> info = find(windows, w.id());
        ASSERT_TRUE(info);
        EXPECT_EQ(info->title, QLatin1String(k.name));
        EXPECT_EQ(info->owner, k.owned ? owner.id() : 0u);
        EXPECT_EQ(info->toolWindow, k.toolWindow);
        EXPECT_EQ(info->appWindow, k.appWindow);
        EXPECT_TRUE(info->visible);
        // Without _NET_WM_PID the process is the one behind the connection: this test.
        EXPECT_EQ(info->pid, QCoreApplication::applicationPid());
    }

    const std::optional<WindowInfo> o = find(windows, owner.id());
    ASSERT_TRUE(o);
    EXPECT_EQ(o->title, QStringLiteral("Eigenaar \u03a9")); // _NET_WM_NAME before WM_NAME
    EXPECT_EQ(o->pid, 4242);                                // what the window says wins
}

TEST_F(X11WindowsTest, TitlesAreReadWhateverTheirLengthAndEncoding) {
    LinuxWindows windows(x().display());
    const QByteArray longTitle(10000, 'x');
    struct Case {
        const char* property;
        const char* type;
        QByteArray bytes;
        QString title;
    };
    const Case cases[] = {
        {"WM_NAME", "STRING", longTitle, QString::fromLatin1(longTitle)},
        {"_NET_WM_NAME", "UTF8_STRING", QByteArray(5000, 'y') + "\xe2\x82\xac",
         QString(5000, QLatin1Char('y')) + QChar(0x20ac)},
        {"WM_NAME", "STRING", QByteArray("caf\xe9"), QStringLiteral("caf\u00e9")}, // Latin-1
        {"WM_NAME", "STRING", QByteArray("voor\0na", 7), QStringLiteral("voor")},
        {"WM_NAME", "STRING", QByteArray(), QString()},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.title.left(20).toStdString());
        TestWindow w(x());
        w.setText(k.property, k.type, k.bytes);
        show(windows, w);
        const std::optional<WindowInfo> info = find(windows, w.id());
        ASSERT_TRUE(info);
        EXPECT_EQ(info->title, k.title);
    }
}

TEST_F(X11WindowsTest, AMinimisedWindowIsStillATaskAndActivatingRestoresIt) {
    LinuxWindows windows(x().display());
    TestWindow w(x());
    w.setText("WM_NAME", "STRING", "klein");
    show(windows, w);
    // Iconify the way a client asks for it (ICCCM WM_CHANGE_STATE, IconicState).
    xcb_client_message_event_t m{};
    m.response_type = XCB_CLIENT_MESSAGE;
    m.format = 32;
    m.window = w.id();
    m.type = x().atom("WM_CHANGE_STATE");
    m.data.data32[0] = 3;
    xcb_send_event(c(), 0, x().root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&m));
    xcb_flush(c());
    ASSERT_TRUE(
        waitUntil([&] { return hasAtom(w.id(), "_NET_WM_STATE", "_NET_WM_STATE_HIDDEN"); }));
    const std::optional<WindowInfo> info = find(windows, w.id());
    ASSERT_TRUE(info);
    EXPECT_TRUE(info->visible);

    ASSERT_TRUE(windows.activate(w.id()));
    EXPECT_TRUE(waitUntil([&] {
        return !hasAtom(w.id(), "_NET_WM_STATE", "_NET_WM_STATE_HIDDEN") &&
               windows.activeWindow() == w.id();
    }));
}

TEST_F(X11WindowsTest, IconIsTheNearestSizeScaledAndBadDataGivesNone) {
    LinuxWindows windows(x().display());
    // The manager puts an icon of its own on a window it manages that has none or a broken
    // one, so the bad data is tried on a window that is not shown.
    TestWindow hidden(x());
    EXPECT_TRUE(windows.icon(hidden.id(), 16).isNull()); // no icon yet
    TestWindow w(x());
    show(windows, w);

    // Three images: 16 red, 32 half-transparent green, 48 blue.
    std::vector<uint32_t> data;
    for (auto [side, argb] :
         {std::pair{16u, 0xffff0000u}, {32u, 0x8000ff00u}, {48u, 0xff0000ffu}}) {
        data.push_back(side);
        data.push_back(side);
        data.insert(data.end(), size_t(side * side), argb);
    }
    w.setValues("_NET_WM_ICON", XCB_ATOM_CARDINAL, data);
    struct Case {
        int size;
        QRgb pixel;
    };
    const Case cases[] = {
        {16, 0xffff0000u},  {32, 0x8000ff00u},
        {48, 0xff0000ffu},  {20, 0xffff0000u}, // 16 is nearer than 32
        {40, 0xff0000ffu},                     // 32 and 48 are as near: the larger is taken
        {128, 0xff0000ffu},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.size);
        const QImage icon = windows.icon(w.id(), k.size);
        ASSERT_FALSE(icon.isNull());
        EXPECT_EQ(icon.size(), QSize(k.size, k.size));
        EXPECT_EQ(icon.format(), QImage::Format_ARGB32);
        EXPECT_EQ(icon.pixel(k.size / 2, k.size / 2), k.pixel);
    }

    // An image that claims more pixels than the property holds, and one of no size.
    hidden.setValues("_NET_WM_ICON", XCB_ATOM_CARDINAL, {100, 100, 1, 2, 3});
    EXPECT_TRUE(windows.icon(hidden.id(), 16).isNull());
    hidden.setValues("_NET_WM_ICON", XCB_ATOM_CARDINAL, {0, 0});
    EXPECT_TRUE(windows.icon(hidden.id(), 16).isNull());
    hidden.setText("_NET_WM_ICON", "CARDINAL", QByteArray("\x02\x00\x00\x00", 4)); // 8 bits
    EXPECT_TRUE(windows.icon(hidden.id(), 16).isNull());
    hidden.setValues("_NET_WM_ICON", XCB_ATOM_CARDINAL, {1, 1, 0xff123456u});
    EXPECT_EQ(windows.icon(hidden.id(), 16).pixel(8, 8), 0xff123456u); // and good data works
    EXPECT_TRUE(windows.icon(0x7fffffff, 16).isNull());                // no such window
}

TEST_F(X11WindowsTest, TheReservedStripIsLeftOutOfTheWorkArea) {
    LinuxWindows windows(x().display());
    TestWindow strip(x(), QRect(0, 1024 - 40, 1280, 40));
    windows.setKind(strip.id(), ShellWindowKind::Dock);
    EXPECT_TRUE(hasAtom(strip.id(), "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"));
    show(windows, strip);

    windows.reserveWorkArea(strip.id(), QRect(0, 0, 1280, 1024 - 40));
    EXPECT_EQ(cardinals(strip.id(), "_NET_WM_STRUT", XCB_ATOM_CARDINAL),
              (std::vector<uint32_t>{0, 0, 0, 40}));
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<uint32_t> area = rootCardinals("_NET_WORKAREA");
        return area.size() >= 4 && area[0] == 0 && area[1] == 0 && area[2] == 1280 &&
               area[3] == 1024 - 40;
    }));
    windows.reserveWorkArea(strip.id(), QRect(0, 0, 1280, 1024));
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<uint32_t> area = rootCardinals("_NET_WORKAREA");
        return area.size() >= 4 && area[3] == 1024;
    }));
}

TEST_F(X11WindowsTest, OnTopSetsTheAboveStateBeforeAndAfterShowing) {
    LinuxWindows windows(x().display());
    TestWindow shown(x());
    show(windows, shown);
    windows.setOnTop(shown.id(), true);
    EXPECT_TRUE(
        waitUntil([&] { return hasAtom(shown.id(), "_NET_WM_STATE", "_NET_WM_STATE_ABOVE"); }));
    windows.setOnTop(shown.id(), false);
    EXPECT_TRUE(
        waitUntil([&] { return !hasAtom(shown.id(), "_NET_WM_STATE", "_NET_WM_STATE_ABOVE"); }));

    // Not yet shown: the wish is written where the manager reads it at mapping, beside the rest.
    TestWindow later(x());
    later.setAtoms("_NET_WM_STATE", {"_NET_WM_STATE_SKIP_TASKBAR"});
    windows.setOnTop(later.id(), true);
    EXPECT_TRUE(hasAtom(later.id(), "_NET_WM_STATE", "_NET_WM_STATE_ABOVE"));
    EXPECT_TRUE(hasAtom(later.id(), "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR"));
    show(windows, later);
    EXPECT_TRUE(hasAtom(later.id(), "_NET_WM_STATE", "_NET_WM_STATE_ABOVE"));
}

TEST_F(X11WindowsTest, ShellKindsAreSetBeforeShowing) {
    LinuxWindows windows(x().display());
    struct Case {
        ShellWindowKind kind;
        const char* type;
    };
    const Case cases[] = {{ShellWindowKind::Dock, "_NET_WM_WINDOW_TYPE_DOCK"},
                          {ShellWindowKind::Desktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
                          {ShellWindowKind::Normal, "_NET_WM_WINDOW_TYPE_NORMAL"}};
    for (const Case& k : cases) {
        SCOPED_TRACE(k.type);
        TestWindow w(x());
        windows.setKind(w.id(), k.kind);
        EXPECT_EQ(cardinals(w.id(), "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM),
                  std::vector<uint32_t>{x().atom(k.type)});
    }
}

// Without a display, without a manager, and after the display went away: nothing to see,
// nothing done, no crash.
void geenVenstersysteem(LinuxWindows& windows, quint64 w) {
    EXPECT_FALSE(windows.available());
    EXPECT_TRUE(windows.topLevelWindows().isEmpty());
    EXPECT_EQ(windows.activeWindow(), 0u);
    EXPECT_FALSE(windows.activate(w));
    windows.close(w);
    EXPECT_TRUE(windows.icon(w, 16).isNull());
    windows.reserveWorkArea(w, QRect(0, 0, 100, 100));
    windows.setOnTop(w, true);
    windows.setKind(w, ShellWindowKind::Dock);
    windows.startMove(w, QPoint(1, 1));
}

TEST(X11AbsentTest, NoDisplayNoManagerOrADisplayThatWentAwayIsNoWindowSystem) {
    const QByteArray saved = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    LinuxWindows none;
    geenVenstersysteem(none, 1);
    if (!saved.isNull())
        qputenv("DISPLAY", saved);

    if (!XvfbSession::installed())
        GTEST_SKIP() << "Xvfb or openbox is not installed";
    XvfbSession bare(QSize(640, 480), false);
    ASSERT_TRUE(bare.ok()) << bare.why().toStdString();
    LinuxWindows windows(bare.display());
    TestWindow w(bare);
    geenVenstersysteem(windows, w.id()); // no manager: a kind is not even written
    EXPECT_TRUE(bare.property(w.id(), "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM).empty());
    bare.killServer();
    geenVenstersysteem(windows, w.id());
}

} // namespace

} // namespace tk::test
