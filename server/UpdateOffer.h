#pragma once

#include <QString>
#include <optional>

namespace tk::server {

// The client updates the administrator puts in the update folder: one package per version,
// named by the version ("2.5.0.zip", "2.5.0.exe"). The client package on offer is the one of
// the highest version at the top of the folder; packages of the local server stand in its
// subfolder "server". Nothing is offered when there is no folder or no package in it. The
// folder is read at each question, so a package dropped in is offered at once. Read-only and
// without state: safe from any thread.
class UpdateOffer {
public:
    struct Package {
        QString version;  // "2.5.0"
        QString fileName; // "2.5.0.zip"
        QString path;
        qint64 size = 0;
    };

    explicit UpdateOffer(const QString& folder = QString()) : m_folder(folder) {}
    QString folder() const { return m_folder; }
    std::optional<Package> client() const;
    std::optional<Package> server() const;

    // The version a package file name stands for ("2.5.0" of "2.5.0.zip"), or empty.
    static QString versionOf(const QString& fileName);
    // Numeric comparison of two "a.b.c" versions: negative, 0 or positive.
    static int compare(const QString& a, const QString& b);

private:
    std::optional<Package> highest(const QString& folder) const;
    QString m_folder;
};

} // namespace tk::server
