#pragma once

#include "XvfbSession.h"
#include "tests/support/WaitUntil.h"

#include <QRect>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <vector>

namespace tk::test {

// One Xvfb with openbox shared by the tests of a suite; each test removes what it made.
class X11Test : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (XvfbSession::installed())
            s_session = new XvfbSession();
    }
    static void TearDownTestSuite() {
        delete s_session;
        s_session = nullptr;
    }
    void SetUp() override {
        if (!XvfbSession::installed())
            GTEST_SKIP() << "Xvfb or openbox is not installed";
        ASSERT_TRUE(s_session->ok()) << s_session->why().toStdString();
    }

    // Whether the suite's session stands, for a TearDown that undoes what a test changed.
    static bool sessionUp() { return s_session && s_session->ok(); }
    XvfbSession& x() { return *s_session; }
    xcb_connection_t* c() { return s_session->connection(); }

    std::vector<uint32_t> rootCardinals(const char* property) {
        return cardinals(x().root(), property, XCB_GET_PROPERTY_TYPE_ANY);
    }
    std::vector<uint32_t> cardinals(xcb_window_t w, const char* property, xcb_atom_t type) {
        return x().property(w, property, type);
    }
    bool hasAtom(xcb_window_t w, const char* property, const char* value) {
        const std::vector<uint32_t> v = cardinals(w, property, XCB_ATOM_ATOM);
        return std::find(v.begin(), v.end(), x().atom(value)) != v.end();
    }

    static XvfbSession* s_session;
};

// A window of the test's own connection; destroyed with the object.
class TestWindow {
public:
    TestWindow(XvfbSession& x, QRect geometry = QRect(50, 50, 200, 150)) : m_x(x) {
        xcb_connection_t* c = x.connection();
        m_window = xcb_generate_id(c);
        const xcb_screen_t* s = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
        const uint32_t values[] = {s->white_pixel};
        xcb_create_window(c, XCB_COPY_FROM_PARENT, m_window, s->root, int16_t(geometry.x()),
                          int16_t(geometry.y()), uint16_t(geometry.width()),
                          uint16_t(geometry.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          s->root_visual, XCB_CW_BACK_PIXEL, values);
        sync();
    }
    ~TestWindow() {
        xcb_destroy_window(m_x.connection(), m_window);
        xcb_flush(m_x.connection());
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    xcb_window_t id() const { return m_window; }

    // Waits until the server has done what this connection asked: another connection (the one
    // under test) sees it from then on.
    void sync() {
        std::free(xcb_get_input_focus_reply(m_x.connection(), xcb_get_input_focus(m_x.connection()),
                                            nullptr));
    }

    void setText(const char* property, const char* type, const QByteArray& text) {
        xcb_change_property(m_x.connection(), XCB_PROP_MODE_REPLACE, m_window, m_x.atom(property),
                            m_x.atom(type), 8, uint32_t(text.size()), text.constData());
        sync();
    }
    void setValues(const char* property, xcb_atom_t type, const std::vector<uint32_t>& values) {
        xcb_change_property(m_x.connection(), XCB_PROP_MODE_REPLACE, m_window, m_x.atom(property),
                            type, 32, uint32_t(values.size()), values.data());
        sync();
    }
    void setAtoms(const char* property, std::initializer_list<const char*> names) {
        std::vector<uint32_t> atoms;
        for (const char* n : names)
            atoms.push_back(m_x.atom(n));
        setValues(property, XCB_ATOM_ATOM, atoms);
    }
    void map() {
        xcb_map_window(m_x.connection(), m_window);
        xcb_flush(m_x.connection());
    }

private:
    XvfbSession& m_x;
    xcb_window_t m_window;
};

} // namespace tk::test
