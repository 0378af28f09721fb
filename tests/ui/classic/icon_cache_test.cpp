#include "ui/classic/IconCache.h"

#include "tests/support/TestImage.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

// The pixels, and room for the rest of an entry.
constexpr qsizetype bytesOfIcon = qsizetype(50) * 50 * 4 + 600;

kit::Image icon()
{
    return kit::Image::fromData(pngOf(Qt::red, { 50, 50 }), 1);
}

} // namespace

TEST(IconCache, hasWhatWasPutIntoIt)
{
    IconCache cache(10 * bytesOfIcon);
    EXPECT_TRUE(cache.image(QStringLiteral("a")).isNull());
    const kit::Image image = icon();
    cache.insert(QStringLiteral("a"), image);
    EXPECT_EQ(cache.image(QStringLiteral("a")), image);
    EXPECT_TRUE(cache.image(QStringLiteral("A")).isNull());
}

TEST(IconCache, replacesAnEntry)
{
    IconCache cache(10 * bytesOfIcon);
    cache.insert(QStringLiteral("a"), icon());
    const kit::Image later = icon();
    cache.insert(QStringLiteral("a"), later);
    EXPECT_EQ(cache.image(QStringLiteral("a")), later);
}

TEST(IconCache, dropsTheLeastRecentlyUsedWhenItsBytesAreFull)
{
    IconCache cache(2 * bytesOfIcon);
    cache.insert(QStringLiteral("a"), icon());
    cache.insert(QStringLiteral("b"), icon());
    EXPECT_FALSE(cache.image(QStringLiteral("a")).isNull());
    cache.insert(QStringLiteral("c"), icon());
    EXPECT_FALSE(cache.image(QStringLiteral("a")).isNull());
    EXPECT_TRUE(cache.image(QStringLiteral("b")).isNull());
    EXPECT_FALSE(cache.image(QStringLiteral("c")).isNull());
}

TEST(IconCache, countsTheTextsOfItsEntries)
{
    IconCache cache(10 * bytesOfIcon);
    cache.insert(QStringLiteral("a"), icon());
    const QString longText(qsizetype(5) * bytesOfIcon, u'b');
    cache.insert(longText, icon());
    EXPECT_TRUE(cache.image(longText).isNull());
    EXPECT_FALSE(cache.image(QStringLiteral("a")).isNull());
}

TEST(IconCache, countsWhatAnEntryHoldsBesideItsPixelsAndItsText)
{
    IconCache cache(qsizetype(50) * 50 * 4 + 2);
    cache.insert(QStringLiteral("a"), icon());
    EXPECT_TRUE(cache.image(QStringLiteral("a")).isNull());
}

// Half of the threads do nothing but insert: two at once would tear its list of what was used last.
TEST(IconCache, isSafeToFillFromSeveralThreads)
{
    IconCache cache(4 * bytesOfIcon);
    const kit::Image image = icon();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&cache, &image, thread] {
            for (int step = 0; step < 50000; ++step)
                cache.insert(QString::number((step * 7 + thread) % 32), image);
        });
    for (std::thread& thread : threads)
        thread.join();
    cache.insert(QStringLiteral("last"), image);
    EXPECT_EQ(cache.image(QStringLiteral("last")), image);
}

TEST(IconCache, isSafeToUseFromSeveralThreads)
{
    IconCache cache(8 * bytesOfIcon);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&cache] {
            for (int step = 0; step < 200; ++step) {
                const QString name = QString::number(step % 16);
                if (cache.image(name).isNull())
                    cache.insert(name, icon());
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_FALSE(cache.image(QString::number(199 % 16)).isNull());
}
