#include "ui/classic/IconCache.h"

#include "tests/ui/classic/TestImage.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

constexpr qsizetype bytesOfIcon = qsizetype(10) * 10 * 4;

kit::Image icon()
{
    return kit::Image::fromData(pngOf(Qt::red, { 10, 10 }), 1);
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
