#include "server/ServerOptions.h"

#include <gtest/gtest.h>

using tk::server::ServerOptions;

TEST(ServerOptionsTest, CommandLinesGiveDataFolderAndPorts) {
    struct Case {
        QStringList args;
        bool ok;
        const char* folder;
        quint16 port, clientData, clientInfo, uploadData, uploadInfo;
    };
    const QString here = QStringLiteral("/opt/tk");
    const Case cases[] = {
        {{}, true, "/opt/tk/Server", 34487, 34488, 34489, 34490, 34491},
        {{QStringLiteral("FIREWALL")}, true, "/opt/tk/Server", 34487, 34488, 34489, 34490, 34491},
        {{QStringLiteral("--data"), QStringLiteral("/srv/d"), QStringLiteral("--port"),
          QStringLiteral("5000")},
         true,
         "/srv/d",
         5000,
         5001,
         5002,
         5003,
         5004},
        {{QStringLiteral("--port"), QStringLiteral("5000"), QStringLiteral("--client-info-port"),
          QStringLiteral("6000")},
         true,
         "/opt/tk/Server",
         5000,
         5001,
         6000,
         6001,
         6002},
        {{QStringLiteral("--port"), QStringLiteral("70000")}, false, "", 0, 0, 0, 0, 0},
        {{QStringLiteral("--port")}, false, "", 0, 0, 0, 0, 0},
        {{QStringLiteral("--unknown")}, false, "", 0, 0, 0, 0, 0},
        {{QStringLiteral("--keep-alive"), QStringLiteral("0")}, false, "", 0, 0, 0, 0, 0},
        {{QStringLiteral("--max-message"), QStringLiteral("100")}, false, "", 0, 0, 0, 0, 0},
        {{QStringLiteral("--first-message"), QStringLiteral("0")}, false, "", 0, 0, 0, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args.join(QLatin1Char(' ')).toStdString());
        ServerOptions o;
        QString error;
        ASSERT_EQ(c.ok, o.parse(c.args, here, &error)) << error.toStdString();
        if (!c.ok) {
            EXPECT_FALSE(error.isEmpty());
            continue;
        }
        EXPECT_EQ(QString::fromLatin1(c.folder), o.dataFolder);
        EXPECT_EQ(c.port, o.port);
        EXPECT_EQ(c.clientData, o.clientDataPort);
        EXPECT_EQ(c.clientInfo, o.clientInfoPort);
        EXPECT_EQ(c.uploadData, o.uploadDataPort);
        EXPECT_EQ(c.uploadInfo, o.uploadInfoPort);
    }
}

TEST(ServerOptionsTest, TheInputLimitAndTheTimeForAFirstMessageAreTaken) {
    ServerOptions o;
    QString error;
    ASSERT_TRUE(o.parse({QStringLiteral("--max-message"), QStringLiteral("4096"),
                         QStringLiteral("--first-message"), QStringLiteral("5")},
                        QStringLiteral("/opt/tk"), &error));
    EXPECT_EQ(4096, o.maxMessage);
    EXPECT_EQ(5000, o.firstMessageMs);
}
