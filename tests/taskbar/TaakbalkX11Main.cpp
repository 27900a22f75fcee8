// The main() of the taskbar's X session tests: an X server of their own (Xvfb with openbox) is
// started before the QApplication, so that the bar's window really stands on it. Listing the
// tests needs neither.
#include "TaakbalkX11Sessie.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace tk::test {
XvfbSession* TaakbalkX11Sessie::sessie = nullptr;
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    std::unique_ptr<tk::test::XvfbSession> sessie;
    if (!::testing::GTEST_FLAG(list_tests) && tk::test::XvfbSession::installed()) {
        sessie = std::make_unique<tk::test::XvfbSession>(QSize(1024, 768));
        if (sessie->ok()) {
            qputenv("DISPLAY", sessie->display());
            qputenv("QT_QPA_PLATFORM", "xcb");
            tk::test::TaakbalkX11Sessie::sessie = sessie.get();
        }
    }
    if (!tk::test::TaakbalkX11Sessie::sessie)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int resultaat = 0;
    {
        QApplication app(argc, argv);
        resultaat = RUN_ALL_TESTS();
    }
    tk::test::TaakbalkX11Sessie::sessie = nullptr;
    return resultaat;
}
