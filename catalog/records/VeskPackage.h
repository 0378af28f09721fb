#pragma once

#include "catalog/records/PackageOrigin.h"
#include "catalog/records/PackageTexts.h"

#include <QString>

#include <memory>
#include <string_view>

class VeskPackage;
using VeskPackagePtr = std::shared_ptr<VeskPackage>;

// One package read from a source's index. Identity semantics; shared by the catalog, the screens' copies and the queue.
// It keeps its source record alive. Texts: a null QString is "none", an empty one is an empty text.
// The texts are kept as UTF-8 in a pool that some neighbours of its index share, and that lives as long as any of them.
class VeskPackage
{
public:
    using Text = PackageText;
    using TextHandles = PackageTexts<TextPool::Handle>;

    VeskPackage() = default;
    // A record whose texts already stand in the pool of the given origin.
    VeskPackage(std::shared_ptr<const PackageOrigin> origin, const TextHandles& texts);

    QString packageID() const { return text(Text::PackageID); }
    QString name() const { return text(Text::Name); }
    QString version() const { return text(Text::Version); }
    QString desc() const { return text(Text::Desc); }
    QString author() const { return text(Text::Author); }
    QString maintainer() const { return text(Text::Maintainer); }
    QString section() const { return text(Text::Section); }
    VeskRepositoryPtr repository() const { return m_origin ? m_origin->repository : nullptr; }
    QString iconURLString() const { return text(Text::IconURLString); }
    QString depictionURLString() const { return text(Text::DepictionURLString); }
    QString homepageURLString() const { return text(Text::HomepageURLString); }
    // The version found installed when the index was parsed; null when there was none.
    QString installedVersion() const { return text(Text::InstalledVersion); }

    void setPackageID(const QString& packageID) { setText(Text::PackageID, packageID); }
    void setName(const QString& name) { setText(Text::Name, name); }
    void setVersion(const QString& version) { setText(Text::Version, version); }
    void setDesc(const QString& desc) { setText(Text::Desc, desc); }
    void setAuthor(const QString& author) { setText(Text::Author, author); }
    void setMaintainer(const QString& maintainer) { setText(Text::Maintainer, maintainer); }
    void setSection(const QString& section) { setText(Text::Section, section); }
    void setRepository(const VeskRepositoryPtr& repository);
    void setIconURLString(const QString& urlString) { setText(Text::IconURLString, urlString); }
    void setDepictionURLString(const QString& urlString) { setText(Text::DepictionURLString, urlString); }
    void setHomepageURLString(const QString& urlString) { setText(Text::HomepageURLString, urlString); }
    void setInstalledVersion(const QString& version) { setText(Text::InstalledVersion, version); }

    bool installed() const { return utf8(Text::InstalledVersion).data() != nullptr; }
    // Whether the installed version is any other text than the offered one: no version order takes part.
    bool hasUpdate() const { return installed() && utf8(Text::InstalledVersion) != utf8(Text::Version); }

    // The text as it is kept; without data for none. Good until this record is changed or gone.
    std::string_view utf8(Text which) const;
    // How often any record's text has been set in this process: what was worked out from records holds while it stands
    // still.
    static quint64 editCount();

private:
    QString text(Text which) const;
    void setText(Text which, const QString& value);
    std::shared_ptr<PackageOrigin> moveToOwnOrigin();

    std::shared_ptr<const PackageOrigin> m_origin;
    TextHandles m_texts;
};
