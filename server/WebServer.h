#pragma once

#include "UpdateOffer.h"

#include <QByteArray>
#include <QMultiMap>
#include <QString>
#include <memory>
#include <thread>

namespace httplib {
class Server;
}

namespace tk::server {

// The web side: where the client fetches from a web address (word lists, update information
// and packages, the change log, theme preview pictures, helper files), this serves exactly
// those paths from the folder "Web" of the data folder and from the update folder:
//
//   /applicatie/verbodenwoorden.txt, /applicatie/geblokkeerdesites.txt   Web/<name>
//   /applicatie/extra/<name>                                             Web/extra/<name>
//   /applicatie/themainfo/<id>s.jpg, <id>l.jpg                           Web/themainfo/<name>
//   /applicatie/download_changelog.php4?versie=V                         Web/changelog/V.html,
//                                                                        else Web/changelog.html
//   /applicatie/data.php?standalone                                      the versions on offer
//   /applicatie/update.php?standalone&type=Client|Server                 the package on offer
//
// A path with a "." or ".." segment, a backslash or a name that would leave its folder is
// refused (403); any other path is not found (404). The HTTP side is cpp-httplib, which
// serves in threads of its own; answer() touches only files, so it is safe there.
class WebServer {
public:
    struct Answer {
        int status = 404;
        QByteArray body;
        QByteArray contentType = "text/plain";
    };

    WebServer(const QString& webFolder, const UpdateOffer& updates);
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    // Listens on all addresses; port 0 takes a free one. False with a reason.
    bool start(int port, QString* error);
    void stop();
    int port() const { return m_port; }

    // What a GET of this (decoded) path with these query parameters answers.
    Answer answer(const QString& path, const QMultiMap<QString, QString>& query) const;

private:
    Answer file(const QString& folder, const QString& name) const;
    Answer package(const std::optional<UpdateOffer::Package>& offer) const;

    QString m_folder;
    UpdateOffer m_updates;
    std::unique_ptr<httplib::Server> m_http;
    std::thread m_thread;
    int m_port = 0;
};

} // namespace tk::server
