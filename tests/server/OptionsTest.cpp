#include "server/ServerOptions.h"

#include <gtest/gtest.h>

using tk::server::ServerOptions;

TEST(ServerOptionsTest, CommandLinesGiveDataFolderPortsAndLimits) {
    struct Case {
        const char* args;
        const char* folder; // nullptr: refused with a message
        QList<int> ports;   // the command port, the client's data and info, the uploads'
    };
    const Case cases[] = {
        {"", "/opt/tk/Server", {34487, 34488, 34489, 34490, 34491}},
        {"FIREWALL", "/opt/tk/Server", {34487, 34488, 34489, 34490, 34491}},
        {"--data /srv/d --port 5000", "/srv/d", {5000, 5001, 5002, 5003, 5004}},
        {"--port 5000 --client-info-port 6000", "/opt/tk/Server", {5000, 5001, 6000, 6001, 6002}},
        {"--port 70000", nullptr, {}},
        {"--port", nullptr, {}},
        {"--unknown", nullptr, {}},
        {"--keep-alive 0", nullptr, {}},
        {"--max-message 100", nullptr, {}},
        {"--first-message 0", nullptr, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args);
        ServerOptions o;
        QString error;
        ASSERT_EQ(c.folder != nullptr,
                  o.parse(QString::fromLatin1(c.args).split(QLatin1Char(' '), Qt::SkipEmptyParts),
                          "/opt/tk", &error))
            << error.toStdString();
        if (!c.folder) {
            EXPECT_FALSE(error.isEmpty());
            continue;
        }
        EXPECT_EQ(QString::fromLatin1(c.folder), o.dataFolder);
        EXPECT_EQ(c.ports, (QList<int>{o.port, o.clientDataPort, o.clientInfoPort, o.uploadDataPort,
                                       o.uploadInfoPort}));
    }
    ServerOptions o;
    QString error;
    ASSERT_TRUE(o.parse({"--max-message", "4096", "--first-message", "5"}, "/opt/tk", &error));
    EXPECT_EQ(4096, o.maxMessage);
    EXPECT_EQ(5000, o.firstMessageMs);
}
