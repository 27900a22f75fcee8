// The main() of the desktop's window tests on X: an X server of their own (Xvfb with openbox)
// is started before the QApplication, so that the windows really stand on it. Listing the tests
// needs neither.
#include "DesktopX11Sessie.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <memory>

namespace tk::test {
XvfbSession* DesktopX11Sessie::sessie = nullptr;
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<tk::test::XvfbSession> sessie;
    if (!::testing::GTEST_FLAG(list_tests) && tk::test::XvfbSession::installed()) {
        sessie = std::make_unique<tk::test::XvfbSession>(QSize(1024, 768));
        if (sessie->ok()) {
            qputenv("DISPLAY", sessie->display());
            qputenv("QT_QPA_PLATFORM", "xcb");
            tk::test::DesktopX11Sessie::sessie = sessie.get();
        }
    }
    if (!tk::test::DesktopX11Sessie::sessie)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int resultaat = 0;
    {
        QApplication app(argc, argv);
        resultaat = RUN_ALL_TESTS();
    }
    tk::test::DesktopX11Sessie::sessie = nullptr;
    return resultaat;
}
