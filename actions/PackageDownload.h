#pragma once

#include "catalog/index/DownloadLimits.h"
#include "catalog/records/VeskPackage.h"

#include <QNetworkAccessManager>
#include <QString>
#include <QStringList>

#include <stop_token>

// The name of a package's archive; the index's own file name is not used.
QString archiveName(const VeskPackage& package);

// Where a source may hold the archive, in the order of trial. Some may not be valid URLs.
QStringList archiveURLs(const QString& root, const QString& name);

// Downloads archives from the sources of their packages. Made and used on one thread, which it blocks.
class PackageDownload
{
public:
    // The directories are those where archives may go, in the order of trial.
    PackageDownload(QStringList directories, const DownloadLimits& limits);

    // The path of the file, which stays there; null when no candidate gave one or once told to stop.
    QString download(const VeskPackagePtr& package, const std::stop_token& stop);

private:
    QNetworkAccessManager m_manager;
    QStringList m_directories;
    DownloadLimits m_limits;
};
