#include "tests/actions/PackageDownloadTest.h"

#include "actions/ArchiveReceiver.h"

#include <thread>

TEST(ArchiveName, joinsIdentifierAndVersionUnescaped)
{
    EXPECT_EQ(archiveName(*packageOf({}, QStringLiteral("org.example.one"), QStringLiteral("1:2.0~b+c"))),
        QStringLiteral("org.example.one_1:2.0~b+c_iphoneos-arm.deb"));
}

TEST(ArchiveURLs, areTriedInDebsInPoolAndAtTheRoot)
{
    const QString root = QStringLiteral("https://example.org/repo/");
    EXPECT_EQ(archiveURLs(root, QStringLiteral("a.deb")),
        (QStringList{ root + QStringLiteral("debs/a.deb"), root + QStringLiteral("pool/a.deb"),
            root + QStringLiteral("a.deb") }));
}

TEST(ArchiveURLs, getTheSlashThatTheRootLacks)
{
    for (const QString& root : { QStringLiteral("https://example.org"), QStringLiteral("https://example.org/repo") })
        EXPECT_EQ(archiveURLs(root, QStringLiteral("a.deb")), archiveURLs(root + u'/', QStringLiteral("a.deb")));
}

TEST(ArchiveAnswer, isAcceptedWithoutErrorFromAThousandBytesOnWithStatus200)
{
    EXPECT_TRUE(isAcceptable({ .hasTransportError = false, .length = 1000, .status = 200 }));
    EXPECT_FALSE(isAcceptable({ .hasTransportError = true, .length = 1000, .status = 200 }));
    EXPECT_FALSE(isAcceptable({ .hasTransportError = false, .length = 999, .status = 200 }));
    for (const int status : { 0, 199, 201, 204, 206, 301, 304, 404, 500 })
        EXPECT_FALSE(isAcceptable({ .hasTransportError = false, .length = 1000, .status = status })) << status;
}

TEST_F(PackageDownloadTest, keepsTheBodyInThePrivateDirectoryUnderTheArchivesName)
{
    m_server.serve(m_debs, m_body);
    const QString path = download();
    EXPECT_EQ(path, directory() + QStringLiteral("/one_1.0_iphoneos-arm.deb"));
    EXPECT_EQ(contents(path), m_body);
    EXPECT_EQ(entries().size(), 1);
    EXPECT_EQ(QFile::permissions(directory()) & ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser),
        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(PackageDownloadTest, sendsHostAndUserAgentAloneAndNoConditionOnACache)
{
    LoopbackServer::Reply cacheable;
    cacheable.body = m_body;
    cacheable.headers = { { "Cache-Control", "max-age=3600" }, { "ETag", "\"1\"" } };
    reply(cacheable);
    EXPECT_FALSE(download().isNull());
    EXPECT_FALSE(download().isNull());
    ASSERT_EQ(m_server.requests().size(), 2U);
    const QByteArray host = "127.0.0.1:" + QByteArray::number(m_server.port());
    for (const LoopbackServer::Request& request : m_server.requests()) {
        EXPECT_EQ(request.method, "GET");
        EXPECT_EQ(request.headers,
            (LoopbackServer::Headers{ { "Host", host }, { "User-Agent", "Telesphoreo APT-HTTP/1.0.592" } }));
    }
}

TEST_F(PackageDownloadTest, triesTheThreeCandidatesInTheirOrder)
{
    EXPECT_TRUE(download().isNull());
    EXPECT_EQ(m_server.requestedPaths(), (std::vector<QByteArray>{ m_debs, m_pool, m_root }));
}

TEST_F(PackageDownloadTest, asksNoFurtherOnceACandidateIsAccepted)
{
    m_server.serve(m_pool, m_body);
    m_server.serve(m_root, bodyOf(6000));
    EXPECT_EQ(contents(download()), m_body);
    EXPECT_EQ(m_server.requestedPaths(), (std::vector<QByteArray>{ m_debs, m_pool }));
}

TEST_F(PackageDownloadTest, addsTheSlashThatASourceLacks)
{
    m_server.serve(m_root, m_body);
    const auto wanted = packageOf(m_server.url(QStringLiteral("/repo")), QStringLiteral("one"), QStringLiteral("1.0"));
    EXPECT_EQ(contents(download(wanted)), m_body);
    EXPECT_EQ(m_server.requestedPaths(), (std::vector<QByteArray>{ m_debs, m_pool, m_root }));
    EXPECT_TRUE(download(packageOf(m_server.url(), QStringLiteral("a"), QStringLiteral("1"))).isNull());
    EXPECT_EQ(m_server.requestedPaths()[3], "/debs/a_1_iphoneos-arm.deb");
}

TEST_F(PackageDownloadTest, keepsTheColonOfAnEpoch)
{
    m_server.serve("/repo/debs/one_1:2.0~b+c_iphoneos-arm.deb", m_body);
    const QString path = download(package(QStringLiteral("one"), QStringLiteral("1:2.0~b+c")));
    EXPECT_EQ(m_server.requestedPaths(), std::vector<QByteArray>{ "/repo/debs/one_1:2.0~b+c_iphoneos-arm.deb" });
    EXPECT_EQ(path, directory() + QStringLiteral("/one_1:2.0~b+c_iphoneos-arm.deb"));
    EXPECT_EQ(contents(path), m_body);
}

TEST_F(PackageDownloadTest, refuses999BytesAndAccepts1000)
{
    m_server.serve(m_debs, bodyOf(999));
    m_server.serve(m_pool, bodyOf(1000));
    EXPECT_EQ(contents(download()), bodyOf(1000));
    EXPECT_EQ(m_server.requestedPaths(), (std::vector<QByteArray>{ m_debs, m_pool }));
}

TEST_F(PackageDownloadTest, refusesAnEmptyBody)
{
    expectRefused({});
}

TEST_F(PackageDownloadTest, refusesAnyOtherStatusHoweverLongItsBody)
{
    for (const int status : { 201, 203, 206, 300, 404, 410, 500, 503 }) {
        LoopbackServer server;
        LoopbackServer::Reply answer;
        answer.status = status;
        answer.body = m_body;
        server.setReply(m_debs, answer);
        server.serve(m_pool, m_body);
        const auto wanted
            = packageOf(server.url(QStringLiteral("/repo/")), QStringLiteral("one"), QStringLiteral("1.0"));
        EXPECT_EQ(contents(download(wanted)), m_body) << status;
        EXPECT_EQ(server.requestedPaths(), (std::vector<QByteArray>{ m_debs, m_pool })) << status;
    }
}

TEST_F(PackageDownloadTest, doesNotReceiveTheWholeBodyOfAWrongStatus)
{
    LoopbackServer::Reply answer;
    answer.status = 404;
    answer.fillerSize = qint64(1) << 40;
    expectRefused(answer);
    EXPECT_LT(m_server.bytesSent(), LoopbackServer::mostHeldUnread());
}

TEST_F(PackageDownloadTest, refusesATruncatedBodyAndLeavesNothingOfIt)
{
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = 6000;
    answer.ending = Ending::Close;
    expectRefused(answer);
}

TEST_F(PackageDownloadTest, refusesABodyWhoseConnectionIsReset)
{
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = 1 << 20;
    answer.ending = Ending::Reset;
    expectRefused(answer);
}

TEST_F(PackageDownloadTest, neverTakesABodyForWholeWhoseConnectionIsResetInItsMiddle)
{
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = 1 << 20;
    answer.ending = Ending::Reset;
    reply(answer);
    for (int round = 0; round < 40; ++round)
        ASSERT_TRUE(download().isNull()) << round;
    EXPECT_TRUE(entries().isEmpty());
}

TEST_F(PackageDownloadTest, acceptsABodyThatEndsWithItsConnection)
{
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = -1;
    answer.ending = Ending::Close;
    reply(answer);
    EXPECT_EQ(contents(download()), m_body);
}

TEST_F(PackageDownloadTest, givesUpAServerThatFallsSilentInTheBody)
{
    m_limits.inactivity = std::chrono::milliseconds(200);
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = 6000;
    answer.ending = Ending::Stall;
    expectRefused(answer);
}

TEST_F(PackageDownloadTest, givesUpAServerThatNeverAnswers)
{
    m_limits.inactivity = std::chrono::milliseconds(200);
    LoopbackServer::Reply answer;
    answer.timing = LoopbackServer::Timing::Held;
    expectRefused(answer);
}

TEST_F(PackageDownloadTest, givesUpABodyThatComesTooSlowlyThoughNeverSilent)
{
    m_limits.patience = std::chrono::milliseconds(200);
    m_limits.slowestRate = qint64(1) << 40;
    LoopbackServer::Reply answer;
    answer.fillerSize = qint64(1) << 40;
    expectRefused(answer);
}

TEST_F(PackageDownloadTest, givesABodyTheMoreTimeTheMoreOfItHasCome)
{
    m_limits.patience = std::chrono::milliseconds(100);
    m_limits.slowestRate = 25000;
    EXPECT_EQ(m_limits.timeAllowed(0), std::chrono::milliseconds(100));
    EXPECT_EQ(m_limits.timeAllowed(5000), std::chrono::milliseconds(200));
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = 6000;
    answer.ending = Ending::Stall;
    reply(answer);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(download().isNull());
    EXPECT_GE(std::chrono::steady_clock::now() - start, m_limits.timeAllowed(5000));
}

TEST_F(PackageDownloadTest, refusesABodyLongerThanTheLimit)
{
    m_limits.largestBody = 4999;
    m_server.serve(m_debs, m_body);
    LoopbackServer::Reply undeclared;
    undeclared.declaredLength = -1;
    undeclared.fillerSize = qint64(1) << 40;
    undeclared.ending = Ending::Close;
    m_server.setReply(m_pool, undeclared);
    EXPECT_TRUE(download().isNull());
    EXPECT_TRUE(entries().isEmpty());
    EXPECT_LT(m_server.bytesSent(), LoopbackServer::mostHeldUnread());
    m_limits.largestBody = 5000;
    EXPECT_EQ(contents(download()), m_body);
}

TEST_F(PackageDownloadTest, refusesWhatIsNoHTTPAtAll)
{
    LoopbackServer::Reply answer;
    answer.garbage = QByteArray(3000, '\xff');
    answer.ending = Ending::Close;
    expectRefused(answer);
}

TEST_F(PackageDownloadTest, refusesAServerThatIsNotThere)
{
    quint16 port = 0;
    {
        const LoopbackServer gone;
        port = gone.port();
    }
    const QString source = QStringLiteral("http://127.0.0.1:%1/").arg(port);
    EXPECT_TRUE(download(packageOf(source, QStringLiteral("one"), QStringLiteral("1.0"))).isNull());
}

TEST_F(PackageDownloadTest, followsARedirectWhateverStandsInItsOwnBody)
{
    for (const int status : { 301, 302, 303, 307, 308 }) {
        LoopbackServer::Reply answer;
        answer.status = status;
        answer.body = bodyOf(200000);
        answer.headers = { { "Location", "/elsewhere" } };
        reply(answer);
        m_server.serve("/elsewhere", m_body);
        const QString path = download();
        EXPECT_EQ(path, directory() + QStringLiteral("/one_1.0_iphoneos-arm.deb")) << status;
        EXPECT_EQ(contents(path), m_body) << status;
    }
    EXPECT_EQ(m_server.requests().back().header("User-Agent"), "Telesphoreo APT-HTTP/1.0.592");
}

TEST_F(PackageDownloadTest, followsARedirectToAnotherServer)
{
    LoopbackServer other;
    other.serve("/there", m_body);
    m_server.redirect(m_debs, other.url(QStringLiteral("/there")).toUtf8());
    EXPECT_EQ(contents(download()), m_body);
}

TEST_F(PackageDownloadTest, endsARedirectThatLeadsInACircle)
{
    m_server.redirect(m_debs, m_debs);
    m_server.serve(m_pool, m_body);
    EXPECT_EQ(contents(download()), m_body);
    // Its own request, each redirect, and the next candidate's.
    EXPECT_EQ(m_server.requests().size(), 1U + 20U + 1U);
}

TEST_F(PackageDownloadTest, followsNoRedirectOutOfTheNetwork)
{
    QFile local(m_parent.filePath(QStringLiteral("local")));
    ASSERT_TRUE(local.open(QIODevice::WriteOnly));
    local.write(m_body);
    local.close();
    for (const QByteArray& target :
        { QByteArray("file://") + local.fileName().toUtf8(), QByteArray("ftp://127.0.0.1/a"),
            QByteArray("data:text/plain,") + QByteArray(2000, 'x'), QByteArray("qrc:/a"), QByteArray() }) {
        m_server.redirect(m_debs, target);
        EXPECT_TRUE(download().isNull()) << target.left(20).toStdString();
        EXPECT_TRUE(entries().isEmpty());
    }
}

TEST_F(PackageDownloadTest, fetchesFromNoSourceOutsideTheNetwork)
{
    const QString root = QStringLiteral("file://") + m_parent.path();
    QFile local(m_parent.filePath(QStringLiteral("one_1.0_iphoneos-arm.deb")));
    ASSERT_TRUE(local.open(QIODevice::WriteOnly));
    local.write(m_body);
    local.close();
    for (const QString& source :
        { root, m_parent.path(), QStringLiteral("ftp://127.0.0.1"), QString(), QStringLiteral("") })
        EXPECT_TRUE(download(packageOf(source, QStringLiteral("one"), QStringLiteral("1.0"))).isNull())
            << source.toStdString();
    EXPECT_TRUE(entries().isEmpty());
}

TEST_F(PackageDownloadTest, undoesACompressionOfTheTransferWithoutStalling)
{
    const QByteArray deflated = qCompress(QByteArray(2 << 20, 'x')).mid(4);
    LoopbackServer::Reply answer;
    answer.body = deflated;
    answer.headers = { { "Content-Encoding", "deflate" } };
    reply(answer);
    EXPECT_EQ(contents(download()), QByteArray(2 << 20, 'x'));
}

TEST_F(PackageDownloadTest, takesACandidateThatIsNoURLForAFailure)
{
    EXPECT_TRUE(download(package(QStringLiteral("one"), QStringLiteral("1.0 beta"))).isNull());
    EXPECT_TRUE(download(package(QStringLiteral("one"), QStringLiteral("1.0\n"))).isNull());
    EXPECT_TRUE(download(package(QStringLiteral("one"), QStringLiteral("1.0") + QChar(u'\0'))).isNull());
    EXPECT_TRUE(m_server.requests().empty());
}

TEST_F(PackageDownloadTest, givesNothingWithoutAPackageOrItsSource)
{
    EXPECT_TRUE(download(VeskPackagePtr()).isNull());
    EXPECT_TRUE(download(std::make_shared<VeskPackage>()).isNull());
}

TEST_F(PackageDownloadTest, endsAtOnceWhenToldToStopAndTriesNoFurtherCandidate)
{
    LoopbackServer::Reply answer;
    answer.body = m_body;
    answer.declaredLength = 6000;
    answer.ending = Ending::Stall;
    reply(answer);
    m_limits.inactivity = std::chrono::minutes(10);
    std::stop_source stop;
    QString path = QStringLiteral("not ended");
    std::thread worker([&] { path = download(package(), stop.get_token()); });
    while (m_server.bytesSent() < m_body.size())
        std::this_thread::yield();
    stop.request_stop();
    worker.join();
    EXPECT_TRUE(path.isNull());
    EXPECT_TRUE(entries().isEmpty());
    EXPECT_EQ(m_server.requests().size(), 1U);
}

TEST_F(PackageDownloadTest, sendsNothingWhenToldToStopBefore)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(download(package(), stop.get_token()).isNull());
    EXPECT_TRUE(m_server.requests().empty());
}
