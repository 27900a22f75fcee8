// The main() of every test binary: Google Test first (so that listing tests needs no event
// loop), then one QCoreApplication for the waits that pump events.
#include <QCoreApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
