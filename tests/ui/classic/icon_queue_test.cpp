#include "ui/classic/IconQueue.h"

#include <QTest>
#include <gtest/gtest.h>

#include <map>

namespace {

constexpr int generousMilliseconds = 20000;

// Downloads nothing: it writes down what it was asked to start and what was cancelled, and ends what it is told to.
class FakeTransport : public IconTransport
{
public:
    std::unique_ptr<IconTransfer> start(const QUrl& url, Completion completion) override
    {
        started.append(url.path());
        m_running[url.path()] = std::move(completion);
        return std::make_unique<Transfer>(*this, url.path());
    }
    void end(const QString& path, const QByteArray& body)
    {
        const Completion completion = std::exchange(m_running[path], nullptr);
        completion(body);
    }
    qsizetype runningCount() const { return static_cast<qsizetype>(m_running.size()); }

    QStringList started;
    QStringList cancelled;

private:
    class Transfer : public IconTransfer
    {
    public:
        Transfer(FakeTransport& transport, QString path)
            : m_transport(transport)
            , m_path(std::move(path))
        {
        }
        ~Transfer() override { m_transport.letGo(m_path); }

    private:
        FakeTransport& m_transport;
        QString m_path;
    };

    void letGo(const QString& path)
    {
        if (m_running[path])
            cancelled.append(path);
        m_running.erase(path);
    }

    std::map<QString, Completion> m_running;
};

class Queue : public testing::Test
{
protected:
    void restart(const IconQueue::Limits& limits) { queue = std::make_unique<IconQueue>(transport, limits); }
    Queue() { restart({ .mostAtOnce = 2 }); }

    void add(const QString& path, const void* requester = nullptr)
    {
        queue->add({ .url = QUrl(QStringLiteral("http://127.0.0.1") + path),
            .requester = requester,
            .isWanted = [this, path] { return !unwanted.contains(path); },
            .completion
            = [this, path](const QByteArray& body) { ended.append(path + u' ' + QString::fromUtf8(body)); } });
    }

    const QString a = QStringLiteral("/a");
    const QString b = QStringLiteral("/b");
    const QString c = QStringLiteral("/c");
    const QString d = QStringLiteral("/d");
    FakeTransport transport;
    QStringList unwanted;
    // The paths with their bodies.
    QStringList ended;
    std::unique_ptr<IconQueue> queue;
};

} // namespace

TEST_F(Queue, runsSixteenDownloadsAtOnceUnlessToldOtherwise)
{
    restart({});
    for (int number = 0; number < 40; ++number)
        add(QStringLiteral("/%1").arg(number));
    EXPECT_EQ(transport.started.size(), 16);
    transport.end(QStringLiteral("/3"), "body");
    EXPECT_EQ(transport.started.size(), 17);
    EXPECT_EQ(transport.runningCount(), 16);
}

TEST_F(Queue, startsTheNextOneWhenOneEndsInTheOrderOfTheRequests)
{
    for (const QString& path : { a, b, c, d })
        add(path);
    EXPECT_EQ(transport.started, (QStringList{ a, b }));
    transport.end(b, "body of b");
    EXPECT_EQ(transport.started, (QStringList{ a, b, c }));
    transport.end(c, {});
    EXPECT_EQ(transport.started, (QStringList{ a, b, c, d }));
    EXPECT_EQ(ended, (QStringList{ QStringLiteral("/b body of b"), QStringLiteral("/c ") }));
    EXPECT_TRUE(transport.cancelled.isEmpty());
}

TEST_F(Queue, neverStartsWhatNobodyWantsAnyMoreWhenItsTurnComes)
{
    for (const QString& path : { a, b, c, d })
        add(path);
    unwanted = { c };
    transport.end(a, "body");
    EXPECT_EQ(transport.started, (QStringList{ a, b, d }));
    EXPECT_EQ(ended, (QStringList{ QStringLiteral("/a body"), QStringLiteral("/c ") }));
}

// Every reload of a table asks for the icons of its rows again.
TEST_F(Queue, letsNoTwoRequestsWaitForTheSameOfTheSameRequester)
{
    restart({ .mostAtOnce = 1 });
    add(a, this);
    add(b, this);
    add(b, this);
    add(b, &transport);
    EXPECT_EQ(ended, QStringList{ QStringLiteral("/b ") });
    transport.end(a, "body");
    transport.end(b, "body");
    EXPECT_EQ(transport.started, (QStringList{ a, b, b }));
}

TEST_F(Queue, cancelsWhatNobodyWantsAnyMoreWhenAnotherWaitsForItsPlace)
{
    add(a);
    add(b);
    unwanted = { a };
    add(c);
    EXPECT_EQ(transport.cancelled, QStringList{ a });
    EXPECT_EQ(transport.started, (QStringList{ a, b, c }));
    EXPECT_EQ(ended, QStringList{ QStringLiteral("/a ") });
}

// It fills the cache for the next time.
TEST_F(Queue, letsAnUnwantedDownloadEndAsLongAsThereIsRoom)
{
    add(a);
    unwanted = { a };
    add(b);
    EXPECT_TRUE(transport.cancelled.isEmpty());
    transport.end(a, "body");
    EXPECT_EQ(ended, QStringList{ QStringLiteral("/a body") });
}

TEST_F(Queue, givesUpOnADownloadAtItsDeadlineAndStartsTheNext)
{
    restart({ .mostAtOnce = 1, .deadline = std::chrono::milliseconds(20) });
    add(a);
    add(b);
    ASSERT_TRUE(QTest::qWaitFor([this] { return ended.size() == 2; }, generousMilliseconds));
    EXPECT_EQ(transport.started, (QStringList{ a, b }));
    EXPECT_EQ(transport.cancelled, (QStringList{ a, b }));
    EXPECT_EQ(ended, (QStringList{ QStringLiteral("/a "), QStringLiteral("/b ") }));
}

TEST_F(Queue, cancelsWhatRunsAndTellsNothingMoreWhenItGoes)
{
    for (const QString& path : { a, b, c })
        add(path);
    queue.reset();
    EXPECT_EQ(transport.cancelled, (QStringList{ a, b }));
    EXPECT_TRUE(ended.isEmpty());
}
