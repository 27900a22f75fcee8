// The main() of the window tests on X: an X server of their own (Xvfb with openbox) is started
// before the QApplication, so that the windows really stand on it. Without Xvfb and openbox the
// views render offscreen and the X tests skip themselves (scripts/test.sh fails on that); when they
// are installed but do not come up, every test of the binary fails with the reason. Listing the
// tests needs neither. A binary picks its
// screen with TK_X11_SCHERM_BREEDTE and TK_X11_SCHERM_HOOGTE.
#include "tests/platform/X11TestSessie.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#ifndef TK_X11_SCHERM_BREEDTE
#define TK_X11_SCHERM_BREEDTE 1280
#endif
#ifndef TK_X11_SCHERM_HOOGTE
#define TK_X11_SCHERM_HOOGTE 1024
#endif

namespace tk::test {
XvfbSession* X11TestSessie::sessie = nullptr;
}

int main(int argc, char** argv) {
    using tk::test::X11TestSessie;
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<tk::test::XvfbSession> sessie;
    if (!::testing::GTEST_FLAG(list_tests) && tk::test::XvfbSession::installed()) {
        sessie = std::make_unique<tk::test::XvfbSession>(
            QSize(TK_X11_SCHERM_BREEDTE, TK_X11_SCHERM_HOOGTE));
        if (!sessie->ok()) {
            std::fprintf(stderr, "the X server of the tests did not come up: %s\n",
                         qPrintable(sessie->why()));
            return 1;
        }
        qputenv("DISPLAY", sessie->display());
        qputenv("QT_QPA_PLATFORM", "xcb");
        X11TestSessie::sessie = sessie.get();
    }
    if (!X11TestSessie::sessie)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int resultaat = 0;
    {
        QApplication app(argc, argv);
        resultaat = RUN_ALL_TESTS();
    }
    X11TestSessie::sessie = nullptr;
    return resultaat;
}
