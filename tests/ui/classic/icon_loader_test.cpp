#include "ui/classic/IconLoader.h"

#include "http/Client.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/TestImage.h"

#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>
#include <stop_token>
#include <vector>

namespace {

constexpr int generousMilliseconds = 20000;

// The real network, with a count of what is asked of it and what tells whether it is still wanted.
class CountingNetwork : public http::Client
{
public:
    int requests = 0;
    std::vector<std::stop_token> stops;

    void start(const http::Request& request, std::shared_ptr<http::Receiver> receiver, Done done,
        std::stop_token stop) override
    {
        ++requests;
        stops.push_back(stop);
        http::Client::start(request, std::move(receiver), std::move(done), std::move(stop));
    }
};

class Loader : public testing::Test
{
protected:
    void restart(const IconLoader::Limits& limits)
    {
        loader = std::make_unique<IconLoader>(network, limits);
        finished = std::make_unique<QSignalSpy>(loader.get(), &IconLoader::finished);
    }
    Loader() { restart({}); }

    static IconLoader::Limits downloadLimits(const http::Limits& download)
    {
        IconLoader::Limits limits;
        limits.download = download;
        return limits;
    }

    void load(const QString& url, kit::ImageView& target, double scale = 1) { loader->load(url, scale, target); }
    void waitFor(int count)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return finished->count() >= count; }, generousMilliseconds));
        EXPECT_EQ(finished->count(), count);
    }
    // Loads from the server's path until the load has ended.
    void loadAndWait(const QString& path)
    {
        const int before = static_cast<int>(finished->count());
        load(server.url(path), view);
        waitFor(before + 1);
    }
    static QColor colorOf(const kit::ImageView& shown) { return shown.image().pixels(1).pixelColor(1, 1); }
    bool isEmpty() const { return view.image().isNull(); }

    LoopbackServer server;
    CountingNetwork network;
    kit::ImageView view;
    std::unique_ptr<IconLoader> loader;
    std::unique_ptr<QSignalSpy> finished;
};

} // namespace

TEST_F(Loader, showsADownloadedIcon)
{
    server.serve("/icon.png", pngOf(Qt::red));
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

TEST_F(Loader, decodesForTheScaleOfTheScreen)
{
    server.serve("/icon.png", pngOf(Qt::red, { 120, 60 }));
    load(server.url(QStringLiteral("/icon.png")), view, 2);
    waitFor(1);
    EXPECT_EQ(view.image().size(), QSizeF(60, 30));
}

TEST_F(Loader, showsACachedIconAtOnceWithoutADownload)
{
    server.serve("/icon.png", pngOf(Qt::red));
    loadAndWait(QStringLiteral("/icon.png"));
    kit::ImageView other;
    load(server.url(QStringLiteral("/icon.png")), other);
    EXPECT_EQ(other.image(), view.image());
    EXPECT_EQ(network.requests, 1);
}

TEST_F(Loader, givesALateIconNoMoreToAViewThatWasAskedForAnotherOrForNone)
{
    server.setReply("/late.png", { .body = pngOf(Qt::blue), .timing = LoopbackServer::Timing::Held });
    server.serve("/icon.png", pngOf(Qt::red));
    const QString late = server.url(QStringLiteral("/late.png"));
    kit::ImageView withoutIcon;
    kit::ImageView askedAgain;
    load(late, view);
    loadAndWait(QStringLiteral("/icon.png"));
    load(late, withoutIcon);
    load(QString(), withoutIcon);
    load(late, askedAgain);
    load(QString(), askedAgain);
    load(late, askedAgain);
    server.release("/late.png");
    waitFor(5);
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
    EXPECT_TRUE(withoutIcon.image().isNull());
    EXPECT_EQ(colorOf(askedAgain), QColor(Qt::blue));
}

TEST_F(Loader, asksTheNetworkForNothingThatIsNotAWebURL)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(pngOf(Qt::red));
    file.flush();
    for (const QString& url : { QString(), QStringLiteral(""), QStringLiteral("not a url"), QStringLiteral("icon.png"),
             QStringLiteral("/icon.png"), QStringLiteral("file://") + file.fileName(),
             QStringLiteral("FILE:///icon.png"), QStringLiteral("qrc:/assets/Homepage.png"),
             QStringLiteral("data:image/png;base64,AAAA"), QStringLiteral("ftp://127.0.0.1/icon.png"),
             QStringLiteral("http://127.0.0.1/a b.png") })
        load(url, view);
    EXPECT_EQ(network.requests, 0);
    EXPECT_TRUE(isEmpty());
}

TEST_F(Loader, asksTheNetworkForWhatIsToComeOverHttps)
{
    load(server.url(QStringLiteral("/icon.png")).replace(QStringLiteral("http:"), QStringLiteral("https:")), view);
    EXPECT_EQ(network.requests, 1);
}

TEST_F(Loader, sendsNoUserAgentAndNothingThatSpeaksOfCachesOrCookies)
{
    server.serve("/icon.png", pngOf(Qt::red));
    loadAndWait(QStringLiteral("/icon.png"));
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests.front().method, "GET");
    for (const char* name : { "User-Agent", "Cache-Control", "Pragma", "Cookie", "Range" })
        EXPECT_TRUE(requests.front().header(name).isNull()) << name;
}

TEST_F(Loader, givesAnIconAMinuteAndFourMebibytesUnlessToldOtherwise)
{
    const http::Limits standard = IconLoader::Limits().download;
    EXPECT_EQ(standard.inactivity, std::chrono::minutes(1));
    EXPECT_EQ(standard.deadline, std::chrono::minutes(1));
    EXPECT_EQ(standard.largestBody, 4'194'304);
}

TEST_F(Loader, givesUpOnAnIconThatTrickles)
{
    http::Limits hasty = IconLoader::standardDownload();
    EXPECT_EQ(hasty.deadline, std::chrono::minutes(1));
    hasty.deadline = std::chrono::milliseconds(50);
    restart(downloadLimits(hasty));
    server.setReply("/icon.png", { .body = "a", .declaredLength = 100, .ending = LoopbackServer::Ending::Stall });
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_TRUE(isEmpty());
}

TEST_F(Loader, asksForNoMoreThanSixteenIconsAtOnceAndForTheOthersAsThoseEnd)
{
    constexpr std::size_t AtOnce = 16;
    constexpr int All = 40;
    std::vector<kit::ImageView> views(All);
    for (int number = 0; number < All; ++number) {
        const QString path = QStringLiteral("/%1.png").arg(number);
        server.setReply(path.toUtf8(), { .body = pngOf(Qt::red), .timing = LoopbackServer::Timing::Held });
        load(server.url(path), views[static_cast<std::size_t>(number)]);
    }
    EXPECT_EQ(network.requests, static_cast<int>(AtOnce));
    for (int number = 0; number < All; ++number)
        server.release(QStringLiteral("/%1.png").arg(number).toUtf8());
    waitFor(All);
    EXPECT_EQ(network.requests, All);
    for (const kit::ImageView& each : views)
        EXPECT_EQ(colorOf(each), QColor(Qt::red));
}

TEST_F(Loader, asksOnceForAViewThatWaitsItsTurnAndNothingForOneThatWentMeanwhile)
{
    IconLoader::Limits oneAtOnce;
    oneAtOnce.mostAtOnce = 1;
    restart(oneAtOnce);
    server.setReply("/first.png", { .body = pngOf(Qt::red), .timing = LoopbackServer::Timing::Held });
    for (const char* path : { "/gone.png", "/second.png", "/last.png" })
        server.serve(path, pngOf(Qt::blue));
    load(server.url(QStringLiteral("/first.png")), view);
    auto passing = std::make_unique<kit::ImageView>();
    load(server.url(QStringLiteral("/gone.png")), *passing);
    passing.reset();
    kit::ImageView patient;
    for (int time = 0; time < 3; ++time)
        load(server.url(QStringLiteral("/second.png")), patient);
    kit::ImageView last;
    load(server.url(QStringLiteral("/last.png")), last);
    server.release("/first.png");
    waitFor(3);
    EXPECT_EQ(network.requests, 3);
    EXPECT_EQ(colorOf(patient), QColor(Qt::blue));
    EXPECT_EQ(colorOf(last), QColor(Qt::blue));
}

TEST_F(Loader, dropsWhatTheViewsOfAPassingListWantNoMore)
{
    // As many views as rows, each asked for one icon after the other, none of which is answered.
    std::vector<kit::ImageView> views(12);
    server.serve("/last.png", pngOf(Qt::red));
    for (int number = 0; number < 1100; ++number) {
        const QString path = QStringLiteral("/%1.png").arg(number);
        server.setReply(path.toUtf8(), { .timing = LoopbackServer::Timing::Held });
        load(server.url(path), views[static_cast<std::size_t>(number) % views.size()]);
    }
    for (kit::ImageView& each : views)
        load(server.url(QStringLiteral("/last.png")), each);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return std::ranges::all_of(views, [](const auto& each) { return !each.image().isNull(); }); },
        generousMilliseconds));
    EXPECT_LT(network.requests, 200);
}

TEST_F(Loader, asksOnceForAViewThatIsToldTheSameIconAgainAndAgain)
{
    server.setReply("/icon.png", { .body = pngOf(Qt::red), .timing = LoopbackServer::Timing::Held });
    for (int time = 0; time < 5; ++time)
        load(server.url(QStringLiteral("/icon.png")), view);
    server.release("/icon.png");
    waitFor(1);
    EXPECT_EQ(network.requests, 1);
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

TEST_F(Loader, followsARedirectToTheWebAndToNothingElse)
{
    server.serve("/icon.png", pngOf(Qt::red));
    server.redirect("/moved.png", server.url(QStringLiteral("/icon.png")).toUtf8());
    loadAndWait(QStringLiteral("/moved.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));

    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write(pngOf(Qt::blue));
    file.flush();
    server.redirect("/file.png", "file://" + file.fileName().toUtf8());
    loadAndWait(QStringLiteral("/file.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

TEST_F(Loader, followsARedirectToAnotherServer)
{
    LoopbackServer other;
    other.serve("/icon.png", pngOf(Qt::red));
    server.redirect("/moved.png", other.url(QStringLiteral("/icon.png")).toUtf8());
    loadAndWait(QStringLiteral("/moved.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

TEST_F(Loader, keepsWhatIsShownWhenTheDownloadFails)
{
    view.setImage(kit::Image::fromData(pngOf(Qt::green), 1));
    server.setReply("/empty.png", { .body = "" });
    server.setReply("/broken.png", { .body = "this is no picture" });
    server.setReply("/half.png",
        { .body = pngOf(Qt::red).left(40), .declaredLength = 5000, .ending = LoopbackServer::Ending::Close });
    server.setReply(
        "/short.png", { .body = pngOf(Qt::red), .declaredLength = 5000, .ending = LoopbackServer::Ending::Close });
    server.setReply("/reset.png", { .garbage = "HTTP/1.1 2", .ending = LoopbackServer::Ending::Reset });
    server.setReply("/garbage.png", { .garbage = "no HTTP at all\r\n\r\n", .ending = LoopbackServer::Ending::Close });
    for (const QString& path : { QStringLiteral("/empty.png"), QStringLiteral("/broken.png"),
             QStringLiteral("/half.png"), QStringLiteral("/short.png"), QStringLiteral("/reset.png"),
             QStringLiteral("/garbage.png"), QStringLiteral("/absent.png") }) {
        loadAndWait(path);
        EXPECT_EQ(colorOf(view), QColor(Qt::green)) << qPrintable(path);
    }
}

TEST_F(Loader, triesAgainAfterAFailure)
{
    server.setReply("/icon.png", { .body = "this is no picture" });
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_TRUE(isEmpty());
    server.serve("/icon.png", pngOf(Qt::red));
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
    EXPECT_EQ(network.requests, 2);
}

TEST_F(Loader, triesAgainAfterAFailureWhileAnotherViewWaitsForItsIcon)
{
    server.setReply("/icon.png", { .body = "this is no picture" });
    loadAndWait(QStringLiteral("/icon.png"));
    server.setReply("/late.png", { .timing = LoopbackServer::Timing::Held });
    kit::ImageView other;
    load(server.url(QStringLiteral("/late.png")), other);
    server.serve("/icon.png", pngOf(Qt::red));
    load(server.url(QStringLiteral("/icon.png")), view);
    ASSERT_EQ(network.requests, 3);
    waitFor(2);
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

// What counts is the body, not the status.
TEST_F(Loader, showsAPictureThatCameWithAnErrorStatus)
{
    server.setReply("/icon.png", { .status = 404, .body = pngOf(Qt::red) });
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

TEST_F(Loader, startsADownloadForEachViewThatWaitsForTheSameIcon)
{
    server.setReply("/icon.png", { .body = pngOf(Qt::red), .timing = LoopbackServer::Timing::Held });
    kit::ImageView other;
    load(server.url(QStringLiteral("/icon.png")), view);
    load(server.url(QStringLiteral("/icon.png")), other);
    server.release("/icon.png");
    waitFor(2);
    EXPECT_EQ(network.requests, 2);
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
    EXPECT_EQ(colorOf(other), QColor(Qt::red));
}

TEST_F(Loader, fillsTheCacheForAViewThatIsGone)
{
    server.setReply("/icon.png", { .body = pngOf(Qt::red), .timing = LoopbackServer::Timing::Held });
    auto gone = std::make_unique<kit::ImageView>();
    load(server.url(QStringLiteral("/icon.png")), *gone);
    gone.reset();
    server.release("/icon.png");
    waitFor(1);
    load(server.url(QStringLiteral("/icon.png")), view);
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
    EXPECT_EQ(network.requests, 1);
}

TEST_F(Loader, refusesABodyOverItsBoundAndStopsReadingIt)
{
    constexpr qint64 bound = 100000;
    restart(downloadLimits({ .largestBody = bound }));
    server.setReply("/icon.png", { .body = pngOf(Qt::red), .fillerSize = qint64(200) * 1024 * 1024 });
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_TRUE(isEmpty());
    EXPECT_LT(server.bytesSent(), LoopbackServer::mostHeldUnread());
}

TEST_F(Loader, takesABodyOfExactlyItsBound)
{
    const QByteArray body = pngOf(Qt::red);
    restart(downloadLimits({ .largestBody = body.size() }));
    server.serve("/icon.png", body);
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));

    restart(downloadLimits({ .largestBody = body.size() - 1 }));
    view.setImage({});
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_TRUE(isEmpty());
}

TEST_F(Loader, takesABodyLargerThanItsReadBuffer)
{
    QByteArray body = pngOf(Qt::red);
    body.append(QByteArray(300000, 'x'));
    server.serve("/icon.png", body);
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_EQ(colorOf(view), QColor(Qt::red));
}

TEST_F(Loader, givesUpOnASilentServer)
{
    restart(downloadLimits({ .inactivity = std::chrono::milliseconds(50) }));
    server.setReply("/icon.png", { .body = "a", .declaredLength = 100, .ending = LoopbackServer::Ending::Stall });
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_TRUE(isEmpty());
}

TEST_F(Loader, downloadsAgainWhatItsCacheHadNoRoomFor)
{
    restart({ .cacheSize = 100 });
    server.serve("/icon.png", pngOf(Qt::red));
    loadAndWait(QStringLiteral("/icon.png"));
    loadAndWait(QStringLiteral("/icon.png"));
    EXPECT_EQ(network.requests, 2);
}

TEST_F(Loader, canGoAwayDuringDownloadsAndDecodings)
{
    server.setReply("/held.png", { .body = pngOf(Qt::red), .timing = LoopbackServer::Timing::Held });
    server.serve("/icon.png", pngOf(Qt::red, { 2000, 2000 }));
    kit::ImageView other;
    load(server.url(QStringLiteral("/icon.png")), view);
    load(server.url(QStringLiteral("/held.png")), other);
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 2; }, generousMilliseconds));
    loader.reset();
    EXPECT_TRUE(network.stops.back().stop_requested());
    server.release("/held.png");
    QCoreApplication::processEvents();
    EXPECT_TRUE(isEmpty());
}
