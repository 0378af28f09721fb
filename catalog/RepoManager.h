#pragma once

#include "catalog/CatalogWorld.h"
#include "catalog/query/CatalogIndex.h"
#include "catalog/records/PackageList.h"
#include "catalog/records/RepositoryError.h"
#include "catalog/records/VeskCategory.h"
#include "catalog/records/VeskRepository.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

// The catalog: the user's ordered list of sources and the packages merged from their indexes.
// Everything here is called, and every completion runs, on the thread the manager lives on (the main thread),
// parsePackages() and installedVersionForPackage() alone being safe on any. Failures of a refresh are left as text in
// errorMessage().
class RepoManager : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void()>;
    using AddCompletion = std::function<void(bool success, const std::optional<RepositoryError>& error)>;

    // The one manager of the process, on the user's own sources; made by the first call and never destroyed.
    static RepoManager* sharedManager();

    // Restores the stored sources at once; nothing is fetched until a refresh is asked for.
    explicit RepoManager(CatalogWorld world, QObject* parent = nullptr);
    // A refresh under way is dropped; its completion is not called.
    ~RepoManager() override;

    // What indexes come over; it serves other requests, too.
    http::Network& network() { return *m_world.network; }

    bool isLoading() const { return m_isLoading; }
    void setIsLoading(bool isLoading) { m_isLoading = isLoading; }
    // Null until a refresh fails.
    const QString& errorMessage() const { return m_errorMessage; }
    void setErrorMessage(const QString& message) { m_errorMessage = message; }
    // The live lists: copy what is to be kept.
    std::vector<VeskRepositoryPtr>& repositories() { return m_repositories; }
    void setRepositories(std::vector<VeskRepositoryPtr> repositories) { m_repositories = std::move(repositories); }
    PackageList& packages() { return m_packages; }
    const PackageList& packages() const { return m_packages; }
    void setPackages(PackageVector packages) { m_packages.assign(std::move(packages)); }

    static std::vector<VeskRepositoryPtr> defaultRepositories();
    void loadDefaults();
    void loadSavedState();
    void persistState();
    void removeRepository(const VeskRepositoryPtr& repository);
    void toggleRepository(const VeskRepositoryPtr& repository, bool enabled);
    void addRepositoryWithURLString(const QString& urlString, const AddCompletion& completion);

    // Empties the catalog and fetches every enabled source. The completion runs in a later turn of the event loop, or
    // at once when no source is enabled.
    void refreshAllWithCompletion(const Completion& completion);
    // Fetches one source and appends what is new. The completion runs once, at once when the source has no usable URL.
    void refreshRepository(const VeskRepositoryPtr& repository, const Completion& completion);

    PackageVector parsePackages(const QString& text, const VeskRepositoryPtr& repository) const;
    // Null when the package is not installed.
    QString installedVersionForPackage(const QString& packageID) const;

    // In catalog order; an empty or null query gives all packages.
    PackageSelection filteredPackagesWithQuery(const QString& query);
    PackageSelection packagesForCategory(const QString& name) const;
    // New records each time, by name.
    std::vector<VeskCategoryPtr> categories();
    // The same, for who shows a few of many: counted once per state of the catalog, and a record made for one row
    // alone. None behind the last row.
    std::size_t categoryCount();
    VeskCategoryPtr categoryAt(std::size_t row);
    // All packages by name, in the order of the user's language, case ignored, equal names in catalog order. Worked out
    // once per state of the catalog.
    PackageSelection packagesSortedByName();
    // The first of them alone, at most so many, for who shows no more: of several large sources it takes longer than a
    // frame to put all in order.
    PackageSelection firstPackagesByName(std::size_t count);
    // Of these the ones that were installed when their index was parsed; worked out once, too. Packages installed on
    // this machine but in no source's index are not among them.
    PackageSelection installedPackagesSortedByName();
    // Puts any packages into that order, those of equal names staying as they stood.
    void sortByName(PackageSelection& packages);

private:
    void emptyCatalog();
    void dropRefreshes();

    CatalogWorld m_world;
    bool m_isLoading = false;
    std::vector<VeskRepositoryPtr> m_repositories;
    PackageList m_packages;
    QString m_errorMessage;
    std::shared_ptr<const NameOrder> m_nameOrder;
    CatalogIndex m_index;
};
