#pragma once

#include "actions/PackageDownload.h"
#include "catalog/sources/SourceRequest.h"
#include "tests/support/LoopbackServer.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <stop_token>

inline VeskPackagePtr packageOf(const QString& source, const QString& identifier, const QString& version)
{
    auto package = std::make_shared<VeskPackage>();
    package->setRepository(VeskRepository::repositoryWithURLString(source, {}));
    package->setPackageID(identifier);
    package->setVersion(version);
    return package;
}

// A body that is no repetition, so that a piece written twice or left out shows.
inline QByteArray bodyOf(qsizetype size)
{
    QByteArray body(size, '\0');
    quint32 state = 1;
    for (char& byte : body) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return body;
}

// A source of the test's own on the loopback device, and a directory for what is downloaded from it.
class PackageDownloadTest : public testing::Test
{
protected:
    using Ending = LoopbackServer::Ending;

    PackageDownloadTest() { m_limits.inactivity = std::chrono::seconds(10); }

    QString directory() const { return m_parent.filePath(QStringLiteral("archives")); }

    VeskPackagePtr package(
        const QString& identifier = QStringLiteral("one"), const QString& version = QStringLiteral("1.0"))
    {
        return packageOf(m_server.url(QStringLiteral("/repo/")), identifier, version);
    }

    QString download(const VeskPackagePtr& wanted, const std::stop_token& stop = {})
    {
        return PackageDownload({ directory() }, sourceRequest(m_limits)).download(wanted, stop);
    }

    QString download() { return download(package()); }

    void reply(const LoopbackServer::Reply& reply) { m_server.setReply(m_debs, reply); }

    static QByteArray contents(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
    }

    QStringList entries() const
    {
        return QDir(directory()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    // The answer is refused, nothing of it stays, and the other candidates are tried.
    void expectRefused(const LoopbackServer::Reply& answer)
    {
        reply(answer);
        EXPECT_TRUE(download().isNull());
        EXPECT_TRUE(entries().isEmpty());
        EXPECT_EQ(m_server.requestedPaths(), (std::vector<QByteArray>{ m_debs, m_pool, m_root }));
    }

    const QByteArray m_debs = "/repo/debs/one_1.0_iphoneos-arm.deb";
    const QByteArray m_pool = "/repo/pool/one_1.0_iphoneos-arm.deb";
    const QByteArray m_root = "/repo/one_1.0_iphoneos-arm.deb";
    const QByteArray m_body = bodyOf(5000);
    QTemporaryDir m_parent;
    http::Limits m_limits;
    LoopbackServer m_server;
};
