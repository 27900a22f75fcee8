// The main() of the test binaries with widgets: Google Test first (listing needs no display),
// then a QApplication for fonts, pictures and views. Views render offscreen unless the caller
// chose a platform; test discovery runs without the tests' environment.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
