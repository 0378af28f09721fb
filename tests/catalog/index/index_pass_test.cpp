// What one reading of a body is said to have come to.
#include "catalog/index/IndexPass.h"

#include "catalog/work/Workers.h"
#include "tests/catalog/CatalogFixture.h"

#include <future>

using Outcome = IndexPass::Outcome;
using Outcomes = std::vector<Outcome>;

class APassOverAnIndex : public testing::Test
{
protected:
    enum class Body { Whole, GoesOn };

    // The outcomes that were told once all that can be read of the body is read.
    Outcomes outcomesOf(const QByteArray& body, Compression compression, Body end = Body::Whole)
    {
        m_source->body->append({ body.constData(), static_cast<std::size_t>(body.size()) });
        if (end == Body::Whole)
            m_source->body->finish();
        Outcomes outcomes;
        const auto done = [&outcomes](IndexPass&, Outcome outcome) { outcomes.push_back(outcome); };
        const auto pass = std::make_shared<IndexPass>(m_source, compression, IndexPass::Encoding::Utf8, done);
        pass->goOn();
        finishAllWork();
        return outcomes;
    }

    void finishAllWork()
    {
        for (int turn = 0; turn < 100; ++turn) {
            std::promise<void> promise;
            m_workers.post([&promise] { promise.set_value(); });
            promise.get_future().wait();
        }
    }

    // Enough text for a batch to go out before the last one.
    static QByteArray longText() { return stanza("a") + stanza("b") + QByteArray(300000, '\n'); }

    // One: what is posted later runs later.
    Workers m_workers{ 1 };
    std::shared_ptr<IndexSource> m_source = std::shared_ptr<IndexSource>(
        new IndexSource{ .job = { .repository = VeskRepository::repositoryWithURLString(
                                      QStringLiteral("https://a.example"), QStringLiteral("A")),
                             .nameOrder = std::make_shared<const NameOrder>(QStringLiteral("en")) },
            .workers = m_workers });
};

TEST_F(APassOverAnIndex, isBrokenWhenItUnpacksToNothing)
{
    EXPECT_EQ(outcomesOf(gzipped(""), Compression::Gzip), Outcomes{ Outcome::Broken });
}

TEST_F(APassOverAnIndex, isSoundWhenItUnpacksToASingleByte)
{
    EXPECT_EQ(outcomesOf(gzipped("\n"), Compression::Gzip), Outcomes{ Outcome::Sound });
}

TEST_F(APassOverAnIndex, isNotUtf8WhenItEndsWithinACharacter)
{
    EXPECT_EQ(outcomesOf("Package: a\nName: caf\xc3", Compression::None), Outcomes{ Outcome::NotUtf8 });
}

TEST_F(APassOverAnIndex, isRefusedAsSoonAsThereAreTooManyPackagesThoughTheBodyGoesOn)
{
    m_source->job.limits.packageCount = 1;
    EXPECT_EQ(outcomesOf(longText(), Compression::None, Body::GoesOn), Outcomes{ Outcome::Refused });
}

TEST_F(APassOverAnIndex, tellsOnceThatItIsRefusedThoughTheRestOfTheTextIsOnItsWay)
{
    m_source->job.limits.packageCount = 1;
    EXPECT_EQ(outcomesOf(gzipped(longText()), Compression::Gzip), Outcomes{ Outcome::Refused });
}

TEST_F(APassOverAnIndex, isBrokenBeyondTheLimitOfItsTextWhateverStandsThere)
{
    const QByteArray text = stanza("a");
    m_source->job.limits.textSize = static_cast<std::size_t>(text.size());
    EXPECT_EQ(outcomesOf(gzipped(text + "Name: caf\xe9\n"), Compression::Gzip), Outcomes{ Outcome::Broken });
}

TEST_F(APassOverAnIndex, isBrokenBeyondTheLimitOfItsTextThoughNoBatchAloneIs)
{
    m_source->job.limits.textSize = 280000;
    EXPECT_EQ(outcomesOf(gzipped(longText()), Compression::Gzip), Outcomes{ Outcome::Broken });
}

TEST_F(APassOverAnIndex, isSoundUpToTheLimitOfItsTextThoughItComesInPieces)
{
    const QByteArray text = stanza("a") + stanza("b");
    m_source->job.limits.textSize = static_cast<std::size_t>(text.size());
    const QByteArray packed = gzipped(text);
    Outcomes outcomes;
    const auto pass = std::make_shared<IndexPass>(m_source, Compression::Gzip, IndexPass::Encoding::Utf8,
        [&outcomes](IndexPass&, Outcome outcome) { outcomes.push_back(outcome); });
    for (const char& byte : packed) {
        m_source->body->append({ &byte, 1 });
        pass->goOn();
        finishAllWork();
    }
    m_source->body->finish();
    pass->goOn();
    finishAllWork();
    EXPECT_EQ(outcomes, Outcomes{ Outcome::Sound });
}
