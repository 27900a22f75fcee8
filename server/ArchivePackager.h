#pragma once

#include "PackageBuilder.h"

namespace tk::server {

// Packages through the client's own archive control (tk::UcArchief), so that server and client
// share one implementation of the format. Entries are written to a temporary folder first and
// packed from there, in the archive's folder-walk order.
class ArchivePackager : public PackageBuilder {
public:
    QByteArray pack(const QList<PackageEntry>& entries) const override;
    QByteArray packFolder(const QString& folder) const override;
};

} // namespace tk::server
