// The main() of the desktop's X session tests: an X server of their own (Xvfb with openbox) is
// started before the QApplication, so that the desktop's window really stands on it. Listing the
// tests needs neither.
#include "tests/platform/XvfbSession.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace tk::test {
XvfbSession* bureaubladSessie = nullptr;
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<tk::test::XvfbSession> sessie;
    if (!::testing::GTEST_FLAG(list_tests) && tk::test::XvfbSession::installed()) {
        sessie = std::make_unique<tk::test::XvfbSession>(QSize(1280, 1024));
        if (sessie->ok()) {
            qputenv("DISPLAY", sessie->display());
            qputenv("QT_QPA_PLATFORM", "xcb");
            tk::test::bureaubladSessie = sessie.get();
        }
    }
    if (!tk::test::bureaubladSessie)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int resultaat = 0;
    {
        QApplication app(argc, argv);
        resultaat = RUN_ALL_TESTS();
    }
    tk::test::bureaubladSessie = nullptr;
    return resultaat;
}
