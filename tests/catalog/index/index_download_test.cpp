#include "catalog/sources/SourceRequest.h"
#include "http/Fetch.h"
#include "tests/catalog/CatalogFixture.h"

#include <QElapsedTimer>

// One source's refresh, seen from the requests it makes and from what it leaves behind.
class IndexDownloading : public CatalogFixture
{
protected:
    static constexpr const char* failureText = "Could not fetch repository packages";

    void serveIndex(const QByteArray& name, const QByteArray& body) { m_server.serve("/r/" + name, body); }
    QString errorMessage() { return manager().errorMessage(); }
    bool hasFailed() { return manager().errorMessage() == QLatin1String(failureText) && manager().packages().empty(); }
};

TEST_F(IndexDownloading, takesBodiesOfUpTo256MebibytesThatAreNotSilentForTwentySeconds)
{
    const http::Limits limits = CatalogWorld::standardIndexRequest().limits;
    EXPECT_EQ(limits.largestBody, 256 * 1024 * 1024);
    EXPECT_EQ(limits.inactivity, std::chrono::seconds(20));
}

TEST_F(IndexDownloading, triesTheFiveNamesOneAfterTheOther)
{
    const auto source = addServedSource(QStringLiteral("/r"));
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(m_server.requestedPaths(),
        std::vector<QByteArray>(
            { "/r/Packages.bz2", "/r/Packages.gz", "/r/Packages.xz", "/r/Packages", "/r/Packages.zst" }));
    EXPECT_TRUE(hasFailed());
    EXPECT_FALSE(source->lastRefresh().isValid());
}

TEST_F(IndexDownloading, addsASlashToTheRootOnlyWhenItHasNone)
{
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r/"))));
    EXPECT_EQ(m_server.requestedPaths().front(), "/r/Packages.bz2");
    ASSERT_TRUE(refresh(addSource(m_server.url())));
    EXPECT_EQ(m_server.requestedPaths()[5], "/Packages.bz2");
}

TEST_F(IndexDownloading, sendsHostAndUserAgentAlone)
{
    LoopbackServer::Reply withCookie;
    withCookie.status = 404;
    withCookie.headers = { { "Set-Cookie", "a=b; Path=/" }, { "ETag", "\"x\"" },
        { "Last-Modified", "Mon, 02 Jan 2023 00:00:00 GMT" } };
    m_server.setReply("/r/Packages.bz2", withCookie);
    const auto source = addServedSource(QStringLiteral("/r"));
    serveIndex("Packages.gz", gzipped(stanza("a")));
    ASSERT_TRUE(refresh(source));
    ASSERT_TRUE(refresh(source));
    ASSERT_EQ(m_server.requests().size(), 4U);
    const QByteArray host = "127.0.0.1:" + QByteArray::number(m_server.port());
    for (const LoopbackServer::Request& request : m_server.requests()) {
        EXPECT_EQ(request.method, "GET");
        EXPECT_EQ(request.headers,
            (LoopbackServer::Headers{ { "Host", host }, { "User-Agent", "Telesphoreo APT-HTTP/1.0.592" } }));
    }
}

TEST_F(IndexDownloading, stopsAtTheFirstNameThatBringsPackages)
{
    serveIndex("Packages.gz", gzipped(stanza("a")));
    const auto source = addServedSource(QStringLiteral("/r"));
    ASSERT_TRUE(refresh(source));
    EXPECT_EQ(m_server.requests().size(), 2U);
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    EXPECT_TRUE(errorMessage().isNull());
    EXPECT_TRUE(source->lastRefresh().isValid());
    EXPECT_LE(source->lastRefresh().secsTo(QDateTime::currentDateTime()), 60);
}

TEST_F(IndexDownloading, readsEachNameInItsOwnWay)
{
    const QByteArray text = stanza("a");
    const std::pair<QByteArray, QByteArray> indexes[] = {
        { "Packages.bz2", bzipped(text) },
        { "Packages.gz", gzipped(text) },
        { "Packages.xz", text },
        { "Packages", text },
        { "Packages.zst", text },
    };
    for (const auto& [name, body] : indexes) {
        m_server.serve('/' + name + "/" + name, body);
        manager().packages().clear();
        ASSERT_TRUE(refresh(addServedSource(u'/' + QString::fromLatin1(name))));
        EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a"))) << name.constData();
    }
}

TEST_F(IndexDownloading, readsPlainTextUnderACompressedName)
{
    serveIndex("Packages.bz2", stanza("a"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(m_server.requests().size(), 1U);
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    serveIndex("Packages.bz2", "");
    serveIndex("Packages.gz", stanza("b"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList({ QStringLiteral("a"), QStringLiteral("b") }));
}

TEST_F(IndexDownloading, goesOnToTheNextNameAfterATruncatedGzipBody)
{
    const QByteArray packed = gzipped(stanza("a").repeated(1000));
    serveIndex("Packages.gz", packed.left(packed.size() - 9));
    serveIndex("Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(m_server.requests().size(), 4U);
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
}

TEST_F(IndexDownloading, doesNotReadTrueXzData)
{
    const QByteArray xz = QByteArray::fromHex("fd377a585a000004e6d6b44602002101160000007430e2b7"
                                              "0100085061636b6167653a0000000000");
    serveIndex("Packages.xz", xz);
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(m_server.requests().size(), 5U);
    EXPECT_TRUE(hasFailed());
}

TEST_F(IndexDownloading, takesAnyStatusBut200ForAFailure)
{
    const auto source = addServedSource(QStringLiteral("/r"));
    serveIndex("Packages", stanza("plain"));
    for (const int status : { 201, 203, 204, 206, 304, 400, 401, 403, 404, 407, 410, 500, 503 }) {
        LoopbackServer::Reply reply;
        reply.status = status;
        reply.body = status == 204 || status == 304 ? QByteArray() : stanza("wrong");
        m_server.setReply("/r/Packages.bz2", reply);
        manager().packages().clear();
        ASSERT_TRUE(refresh(source));
        EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain"))) << status;
    }
}

TEST_F(IndexDownloading, takesAnEmptyBodyForAFailure)
{
    serveIndex("Packages.bz2", "");
    serveIndex("Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
}

TEST_F(IndexDownloading, takesAnIndexWithoutPackagesForAFailure)
{
    serveIndex("Packages.bz2", bzipped("no package here\n"));
    serveIndex("Packages.gz", gzipped("Name: nobody\n\n"));
    serveIndex("Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
}

TEST_F(IndexDownloading, survivesEveryWayAServerCanBreak)
{
    LoopbackServer::Reply truncated;
    truncated.body = stanza("wrong");
    truncated.declaredLength = 100000;
    truncated.ending = LoopbackServer::Ending::Close;
    LoopbackServer::Reply reset = truncated;
    reset.ending = LoopbackServer::Ending::Reset;
    LoopbackServer::Reply garbage;
    garbage.garbage = QByteArray("\0\1\2 this is no HTTP\r\n\r\n", 24);
    garbage.ending = LoopbackServer::Ending::Close;
    LoopbackServer::Reply silent;
    silent.garbage = "";
    silent.ending = LoopbackServer::Ending::Close;
    m_server.setReply("/r/Packages.bz2", truncated);
    m_server.setReply("/r/Packages.gz", reset);
    m_server.setReply("/r/Packages.xz", garbage);
    m_server.setReply("/r/Packages", silent);
    serveIndex("Packages.zst", stanza("last"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("last")));
}

TEST_F(IndexDownloading, neverTakesABodyForWholeThatBreaksOff)
{
    LoopbackServer::Reply broken;
    broken.body = stanza("wrong").repeated(500);
    broken.declaredLength = 1 << 20;
    serveIndex("Packages", stanza("plain"));
    const auto source = addServedSource(QStringLiteral("/r"));
    for (int round = 0; round < 40; ++round) {
        broken.ending = round % 4 == 0 ? LoopbackServer::Ending::Close : LoopbackServer::Ending::Reset;
        m_server.setReply("/r/Packages.bz2", broken);
        manager().packages().clear();
        ASSERT_TRUE(refresh(source));
        ASSERT_EQ(packageIDs(), QStringList(QStringLiteral("plain"))) << round;
    }
}

TEST_F(IndexDownloading, readsABodyWhoseEndIsTheEndOfTheConnection)
{
    LoopbackServer::Reply reply;
    reply.body = stanza("a");
    reply.declaredLength = -1;
    reply.ending = LoopbackServer::Ending::Close;
    m_server.setReply("/r/Packages.bz2", reply);
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
}

TEST_F(IndexDownloading, readsAGzipIndexThatTheServerAlsoDeclaresAsEncoded)
{
    LoopbackServer::Reply reply;
    reply.body = gzipped(stanza("a"));
    reply.headers = { { "Content-Encoding", "gzip" } };
    m_server.setReply("/r/Packages.gz", reply);
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
}

TEST_F(IndexDownloading, followsRedirects)
{
    m_server.redirect("/r/Packages.bz2", "/elsewhere/index");
    m_server.redirect("/elsewhere/index", m_server.url(QStringLiteral("/final")).toLatin1(), 301);
    m_server.serve("/final", bzipped(stanza("a")));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
    for (const LoopbackServer::Request& request : m_server.requests())
        EXPECT_EQ(request.header("User-Agent"), "Telesphoreo APT-HTTP/1.0.592");
}

TEST_F(IndexDownloading, followsARedirectWhateverStandsInItsOwnBody)
{
    LoopbackServer::Reply redirect;
    redirect.status = 302;
    redirect.headers = { { "Location", "/final" } };
    redirect.body = stanza("wrong");
    LoopbackServer::Reply final;
    final.body = stanza("a");
    final.declaredLength = -1;
    final.ending = LoopbackServer::Ending::Close;
    m_server.setReply("/r/Packages.bz2", redirect);
    m_server.setReply("/final", final);
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("a")));
}

TEST_F(IndexDownloading, goesOnToTheNextNameAfterABodyOfNoToldLengthThatIsReset)
{
    LoopbackServer::Reply reset;
    reset.body = stanza("half");
    reset.declaredLength = -1;
    reset.ending = LoopbackServer::Ending::Reset;
    m_server.setReply("/r/Packages.bz2", reset);
    serveIndex("Packages.gz", gzipped(stanza("whole")));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("whole")));
}

TEST_F(IndexDownloading, followsRedirectsNeitherInACircleNorOutOfTheWeb)
{
    QFile file(m_directory.filePath(QStringLiteral("local")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(stanza("local"));
    file.close();
    m_server.redirect("/r/Packages.bz2", "/r/Packages.bz2");
    m_server.redirect("/r/Packages.gz", "file://" + QFile::encodeName(file.fileName()));
    m_server.redirect("/r/Packages.xz", "data:text/plain,Package:%20a");
    serveIndex("Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
}

TEST_F(IndexDownloading, asksNoUrlThatIsNotOfTheWeb)
{
    QFile file(m_directory.filePath(QStringLiteral("Packages")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(stanza("local"));
    file.close();
    ASSERT_TRUE(refresh(addSource(QStringLiteral("file://") + m_directory.path())));
    EXPECT_TRUE(hasFailed());
    ASSERT_TRUE(refresh(addSource(QStringLiteral("127.0.0.1"))));
    EXPECT_TRUE(hasFailed());
}

TEST_F(IndexDownloading, failsWhenNobodyListens)
{
    quint16 port = 0;
    {
        LoopbackServer gone;
        port = gone.port();
    }
    ASSERT_TRUE(refresh(addSource(QStringLiteral("http://127.0.0.1:%1").arg(port))));
    EXPECT_TRUE(hasFailed());
}

TEST_F(IndexDownloading, givesUpOnAServerThatFallsSilent)
{
    CatalogWorld impatient = world();
    impatient.indexRequest.limits.inactivity = std::chrono::milliseconds(200);
    m_store->stored = std::vector<StoredSource>();
    m_manager = std::make_unique<RepoManager>(std::move(impatient));
    m_manager->repositories().clear();
    LoopbackServer::Reply stalled;
    stalled.body = stanza("wrong");
    stalled.declaredLength = 1000;
    stalled.ending = LoopbackServer::Ending::Stall;
    LoopbackServer::Reply mute;
    mute.timing = LoopbackServer::Timing::Held;
    m_server.setReply("/r/Packages.bz2", stalled);
    m_server.setReply("/r/Packages.gz", mute);
    serveIndex("Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
}

TEST_F(IndexDownloading, givesUpABodyThatComesTooSlowly)
{
    CatalogWorld impatient = world();
    impatient.indexRequest.limits.patience = std::chrono::milliseconds(200);
    impatient.indexRequest.limits.slowestRate = qint64(1) << 40;
    m_store->stored = std::vector<StoredSource>();
    m_manager = std::make_unique<RepoManager>(std::move(impatient));
    m_manager->repositories().clear();
    LoopbackServer::Reply slow;
    slow.body = stanza("wrong");
    slow.declaredLength = 1000;
    slow.ending = LoopbackServer::Ending::Stall;
    m_server.setReply("/r/Packages.bz2", slow);
    serveIndex("Packages", stanza("plain"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("plain")));
}

TEST_F(IndexDownloading, waitsTwentySecondsForASilentServerUnlessToldOtherwise)
{
    EXPECT_EQ(CatalogWorld().indexRequest.limits.inactivity, std::chrono::seconds(20));
}

TEST_F(IndexDownloading, refusesByItsToldLengthWhatIsLargerThan256Mebibytes)
{
    constexpr qint64 largest = qint64(256) * 1024 * 1024;
    struct : http::Receiver
    {
        bool begin(int /*status*/) override { return true; }
        bool receive(std::string_view /*piece*/) override { return true; }
    } receiver;
    const auto failureAt = [&](qint64 length) {
        LoopbackServer::Reply reply;
        reply.declaredLength = length;
        reply.ending = LoopbackServer::Ending::Close;
        m_server.setReply("/large", reply);
        const QUrl url(m_server.url(QStringLiteral("/large")));
        return http::fetch(aimedAt(CatalogWorld::standardIndexRequest(), url), receiver).failure;
    };
    EXPECT_EQ(failureAt(largest), http::Failure::BrokenBody);
    EXPECT_EQ(failureAt(largest + 1), http::Failure::TooLarge);
}

TEST_F(IndexDownloading, readsBytesThatAreNotUtf8AsLatin1)
{
    serveIndex("Packages.bz2", bzipped("Package: a\nName: caf\xe9\n\nPackage: b\nName: \xc3\xa9\n"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(namesOf(manager().packages()), QStringList({ QStringLiteral("café"), QStringLiteral("Ã©") }));
}

TEST_F(IndexDownloading, readsTheWholeIndexAsLatin1WhenOnlyItsEndIsNotUtf8)
{
    QByteArray text = "Package: first\nName: \xc3\xa9\n\n";
    for (int number = 0; number < 20000; ++number)
        text += stanza("p" + QByteArray::number(number));
    text += "Package: last\nName: \xff\n";
    serveIndex("Packages.gz", gzipped(text));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    ASSERT_EQ(manager().packages().size(), 20002U);
    EXPECT_EQ(manager().packages()[0]->name(), QStringLiteral("Ã©"));
    EXPECT_EQ(manager().packages()[20001]->name(), QStringLiteral("ÿ"));
}

// The name of a field is what stands before its colon, exactly as it is written.
TEST_F(IndexDownloading, takesAByteOrderMarkForPartOfTheFirstFieldsNameAsTheParserDoes)
{
    serveIndex("Packages.bz2", "\xef\xbb\xbfPackage: a\nName: \xc3\xa9\n\nPackage: b\nName: \xc3\xa9\n");
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_EQ(packageIDs(), QStringList(QStringLiteral("b")));
    EXPECT_EQ(namesOf(manager().packages()), QStringList(QStringLiteral("é")));
}

TEST_F(IndexDownloading, takesTheInstalledVersionsOfTheMomentOfItsOwnParse)
{
    writeStatus("Package: a\nVersion: 1\n");
    serveIndex("Packages.bz2", bzipped("Package: a\nVersion: 1\n\nPackage: b\n"));
    ASSERT_TRUE(refresh(addServedSource(QStringLiteral("/r"))));
    EXPECT_TRUE(manager().packages()[0]->installed());
    EXPECT_FALSE(manager().packages()[0]->hasUpdate());
    EXPECT_FALSE(manager().packages()[1]->installed());
}
