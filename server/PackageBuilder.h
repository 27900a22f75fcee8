#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace tk::server {

// One file of a package: its path inside the package, with backslashes
// ("Applicaties\Groepen\12.pic"), and its bytes.
struct PackageEntry {
    QString name;
    QByteArray content;
};

// Builds the packages the server sends, an icon package or a theme package, in the archive
// format the client unpacks. Empty on a fault (which the builder logs).
class PackageBuilder {
public:
    virtual ~PackageBuilder() = default;
    virtual QByteArray pack(const QList<PackageEntry>& entries) const = 0;
    virtual QByteArray packFolder(const QString& folder) const = 0;
};

} // namespace tk::server
