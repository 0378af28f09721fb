#pragma once

#include "VeskRepository.h"

#include <QString>

#include <memory>

class VeskPackage;
using VeskPackagePtr = std::shared_ptr<VeskPackage>;

// One package read from a source's index. Identity semantics; shared by the catalog, the screens' copies and the queue.
// It keeps its source record alive. Texts: a null QString is "none", an empty one is an empty text.
class VeskPackage
{
public:
    QString packageID() const { return m_packageID; }
    QString name() const { return m_name; }
    QString version() const { return m_version; }
    QString desc() const { return m_desc; }
    QString author() const { return m_author; }
    QString maintainer() const { return m_maintainer; }
    QString section() const { return m_section; }
    const VeskRepositoryPtr& repository() const { return m_repository; }
    QString iconURLString() const { return m_iconURLString; }
    QString depictionURLString() const { return m_depictionURLString; }
    QString homepageURLString() const { return m_homepageURLString; }
    // The version found installed when the index was parsed; null when there was none.
    QString installedVersion() const { return m_installedVersion; }

    void setPackageID(const QString& packageID) { m_packageID = packageID; }
    void setName(const QString& name) { m_name = name; }
    void setVersion(const QString& version) { m_version = version; }
    void setDesc(const QString& desc) { m_desc = desc; }
    void setAuthor(const QString& author) { m_author = author; }
    void setMaintainer(const QString& maintainer) { m_maintainer = maintainer; }
    void setSection(const QString& section) { m_section = section; }
    void setRepository(const VeskRepositoryPtr& repository) { m_repository = repository; }
    void setIconURLString(const QString& urlString) { m_iconURLString = urlString; }
    void setDepictionURLString(const QString& urlString) { m_depictionURLString = urlString; }
    void setHomepageURLString(const QString& urlString) { m_homepageURLString = urlString; }
    void setInstalledVersion(const QString& version) { m_installedVersion = version; }

    bool installed() const { return !m_installedVersion.isNull(); }
    // Whether the installed version is any other text than the offered one: no version order takes part.
    bool hasUpdate() const { return installed() && m_installedVersion != m_version; }

private:
    QString m_packageID;
    QString m_name;
    QString m_version;
    QString m_desc;
    QString m_author;
    QString m_maintainer;
    QString m_section;
    VeskRepositoryPtr m_repository;
    QString m_iconURLString;
    QString m_depictionURLString;
    QString m_homepageURLString;
    QString m_installedVersion;
};
