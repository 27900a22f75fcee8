#include "WebServer.h"

#include "ServerLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <httplib.h>

namespace tk::server {

namespace {

QByteArray typeOf(const QString& name) {
    const QString lower = name.toLower();
    if (lower.endsWith(QStringLiteral(".txt")) || lower.endsWith(QStringLiteral(".ini")))
        return "text/plain; charset=windows-1252";
    if (lower.endsWith(QStringLiteral(".html")) || lower.endsWith(QStringLiteral(".htm")))
        return "text/html";
    if (lower.endsWith(QStringLiteral(".jpg")) || lower.endsWith(QStringLiteral(".jpeg")))
        return "image/jpeg";
    return "application/octet-stream";
}

WebServer::Answer refused() {
    return {403, QByteArrayLiteral("refused: a path outside the served folder\n")};
}

WebServer::Answer notFound() {
    return {404, QByteArrayLiteral("not found\n")};
}

// A file name that stays in its folder.
bool plainName(const QString& name) {
    static const QRegularExpression form(QStringLiteral("^[A-Za-z0-9_][A-Za-z0-9_. -]{0,127}$"));
    return form.match(name).hasMatch();
}

} // namespace

WebServer::WebServer(const QString& webFolder, const UpdateOffer& updates)
    : m_folder(webFolder), m_updates(updates) {}

WebServer::~WebServer() {
    stop();
}

WebServer::Answer WebServer::file(const QString& folder, const QString& name) const {
    if (!plainName(name))
        return refused();
    const QString base = QFileInfo(folder).canonicalFilePath();
    const QFileInfo info(QDir(folder).filePath(name));
    const QString real = info.canonicalFilePath();
    if (base.isEmpty() || real.isEmpty() || !info.isFile())
        return notFound();
    // A link that points out of the folder is refused as well.
    if (!real.startsWith(base + QLatin1Char('/')))
        return refused();
    QFile f(real);
    if (!f.open(QIODevice::ReadOnly))
        return notFound();
    return {200, f.readAll(), typeOf(name)};
}

WebServer::Answer WebServer::package(const std::optional<UpdateOffer::Package>& offer) const {
    if (!offer)
        return notFound();
    QFile f(offer->path);
    if (!f.open(QIODevice::ReadOnly))
        return notFound();
    return {200, f.readAll(), "application/octet-stream"};
}

WebServer::Answer WebServer::answer(const QString& path,
                                    const QMultiMap<QString, QString>& query) const {
    if (path.contains(QLatin1Char('\\')) || path.contains(QChar(0)) ||
        !path.startsWith(QLatin1Char('/')))
        return refused();
    const QStringList parts = path.mid(1).split(QLatin1Char('/'));
    for (const QString& part : parts)
        if (part == QStringLiteral("..") || part == QStringLiteral("."))
            return refused();
    if (parts.size() < 2 || parts[0] != QStringLiteral("applicatie"))
        return notFound();
    const QString web = m_folder;
    if (parts.size() == 2) {
        const QString& name = parts[1];
        if (name == QStringLiteral("verbodenwoorden.txt") ||
            name == QStringLiteral("geblokkeerdesites.txt"))
            return file(web, name);
        if (name == QStringLiteral("download_changelog.php4")) {
            const QString version = query.value(QStringLiteral("versie"));
            static const QRegularExpression versionForm(
                QStringLiteral("^[0-9]{1,5}(\\.[0-9]{1,5}){0,3}$"));
            const QString changelog = QDir(web).filePath(QStringLiteral("changelog"));
            if (versionForm.match(version).hasMatch()) {
                const Answer own = file(changelog, version + QStringLiteral(".html"));
                if (own.status == 200)
                    return own;
            }
            return file(web, QStringLiteral("changelog.html"));
        }
        if (name == QStringLiteral("data.php")) {
            const auto client = m_updates.client();
            const auto server = m_updates.server();
            QString ini = QStringLiteral("[Informatie]\r\nClient_versie=%1\r\nClient_locatie=%2\r\n"
                                         "Server_versie=%3\r\nServer_locatie=%4\r\n")
                              .arg(client ? client->version : QString(),
                                   client ? client->fileName : QString(),
                                   server ? server->version : QString(),
                                   server ? server->fileName : QString());
            return {200, ini.toLatin1(), "text/plain; charset=windows-1252"};
        }
        if (name == QStringLiteral("update.php")) {
            const QString type = query.value(QStringLiteral("type"));
            if (type.compare(QStringLiteral("Client"), Qt::CaseInsensitive) == 0)
                return package(m_updates.client());
            if (type.compare(QStringLiteral("Server"), Qt::CaseInsensitive) == 0)
                return package(m_updates.server());
            return notFound();
        }
        return notFound();
    }
    if (parts.size() == 3 &&
        (parts[1] == QStringLiteral("extra") || parts[1] == QStringLiteral("themainfo")))
        return file(QDir(web).filePath(parts[1]), parts[2]);
    return notFound();
}

bool WebServer::start(int port, QString* error) {
    m_http = std::make_unique<httplib::Server>();
    m_http->set_read_timeout(10);
    m_http->set_write_timeout(30);
    auto handler = [this](const httplib::Request& request, httplib::Response& response) {
        QMultiMap<QString, QString> query;
        for (const auto& [key, value] : request.params)
            query.insert(QString::fromStdString(key), QString::fromStdString(value));
        const Answer a = answer(QString::fromStdString(request.path), query);
        response.status = a.status;
        response.set_content(a.body.toStdString(), a.contentType.constData());
        if (a.status == 403)
            ServerLog::fault(QStringLiteral("web"),
                             QStringLiteral("refused \"%1\" from %2")
                                 .arg(QString::fromStdString(request.path).left(120),
                                      QString::fromStdString(request.remote_addr)));
    };
    m_http->Get(".*", handler);
    // A path the router cannot even read ("GET ../x") ends as 400 from the library itself.
    if (port == 0) {
        m_port = m_http->bind_to_any_port("0.0.0.0");
        if (m_port <= 0) {
            *error = QStringLiteral("web side: no free port");
            return false;
        }
    } else {
        if (!m_http->bind_to_port("0.0.0.0", port)) {
            *error = QStringLiteral("web port %1 is taken").arg(port);
            return false;
        }
        m_port = port;
    }
    m_thread = std::thread([http = m_http.get()] { http->listen_after_bind(); });
    // Until the library runs its loop a stop would be lost: wait for it.
    for (int i = 0; i < 2000 && !m_http->is_running(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return true;
}

void WebServer::stop() {
    if (!m_http)
        return;
    m_http->stop();
    if (m_thread.joinable())
        m_thread.join();
    m_http.reset();
}

} // namespace tk::server
