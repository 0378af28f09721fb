#pragma once

#include "catalog/records/VeskPackage.h"
#include "http/request/Request.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <stop_token>

// The name of a package's archive; the index's own file name is not used.
QString archiveName(const VeskPackage& package);

// Where a source may hold the archive, in the order of trial. Some may not be valid URLs.
QStringList archiveURLs(const QString& root, const QString& name);

// Downloads archives from the sources of their packages. Blocks the thread that calls it; any will do.
class PackageDownload
{
public:
    // The directories are those where archives may go, in the order of trial. The request is sent as it is but for its
    // URL.
    PackageDownload(QStringList directories, http::Request request);

    // The path of the file, which stays there; null when no candidate gave one or once told to stop.
    QString download(const VeskPackagePtr& package, const std::stop_token& stop);
    // The SHA-256 of the last file as it was received, in hexadecimal digits. Never read from the file again.
    const QByteArray& digest() const { return m_digest; }

private:
    QStringList m_directories;
    http::Request m_request;
    QByteArray m_digest;
};
