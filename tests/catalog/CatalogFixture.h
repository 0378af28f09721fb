#pragma once

#include "catalog/RepoManager.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/MemorySourceStore.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

// A manager in a world of its own: a store in memory, a loopback server, and a dpkg status file that is not there until
// the test writes one.
class CatalogFixture : public testing::Test
{
protected:
    // What stands between a test and waiting for ever.
    static constexpr int patience = 20000;

    CatalogFixture() { EXPECT_TRUE(m_directory.isValid()); }

    QString statusPath() const { return m_directory.filePath(QStringLiteral("status")); }
    void writeStatus(const QByteArray& contents) const;
    CatalogWorld world() const;
    // The manager is made when it is first asked for, with no source at all if none was stored by then.
    RepoManager& manager();
    VeskRepositoryPtr addSource(const QString& urlString);
    VeskRepositoryPtr addServedSource(const QString& path) { return addSource(m_server.url(path)); }

    // Run the event loop until the completion came; false when it did not.
    bool refreshAll();
    bool refresh(const VeskRepositoryPtr& repository);
    QStringList packageIDs();

    QTemporaryDir m_directory;
    LoopbackServer m_server;
    std::shared_ptr<StoreRecord> m_store = std::make_shared<StoreRecord>();
    std::unique_ptr<RepoManager> m_manager;
};

QByteArray gzipped(const QByteArray& text);
QByteArray bzipped(const QByteArray& text);
// A stanza of nothing but an identifier, and its blank line.
QByteArray stanza(const QByteArray& packageID);
QStringList idsOf(const PackageSelection& packages);
QStringList namesOf(const PackageSelection& packages);
VeskPackagePtr makePackage(const QString& packageID, const QString& name = QString());
