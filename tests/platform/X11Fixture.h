#pragma once

#include "X11TestSessie.h"
#include "tests/support/WaitUntil.h"

#include <QRect>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <vector>

namespace tk::test {

// The X server of the binary's tests (X11TestMain.cpp); each test removes what it made.
class X11Test : public ::testing::Test {
protected:
    void SetUp() override {
        if (!X11TestSessie::sessie)
            GTEST_SKIP() << "Xvfb or openbox is not installed";
    }
    XvfbSession& x() { return *X11TestSessie::sessie; }
    xcb_connection_t* c() { return x().connection(); }

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
