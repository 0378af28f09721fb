#include "catalog/index/IndexParser.h"
#include "catalog/records/RecordWriter.h"
#include "catalog/text/TextDecoding.h"
#include "tests/catalog/CatalogFixture.h"
#include "tests/catalog/HeapInUse.h"

#include <optional>

namespace {

constexpr std::size_t mostHeld = std::size_t(64) * 1024;

PackageTexts<std::string_view> textsOf(std::string_view packageID, std::string_view desc)
{
    PackageTexts<std::string_view> texts;
    texts[PackageText::PackageID] = packageID;
    texts[PackageText::Desc] = desc;
    return texts;
}

// What the heap gives back when the last record that is held goes.
std::size_t heldBy(VeskPackagePtr& record)
{
    const std::size_t before = heapInUse();
    record.reset();
    return before - heapInUse();
}

PackageVector largeIndex(int count)
{
    const DpkgStatus status;
    IndexParser parser(nullptr, status);
    for (int number = 0; number < count; ++number) {
        const QByteArray stanza = "Package: org.example.package-" + QByteArray::number(number) + "\nMaintainer: Team "
            + QByteArray::number(number % 97) + "\nDescription: " + QByteArray::number(number).repeated(12) + "\n\n";
        parser.feed({ stanza.constData(), static_cast<std::size_t>(stanza.size()) });
    }
    return parser.finish();
}

} // namespace

TEST(RecordWriter, doesNotKeepAWholeIndexAliveForOneOfItsRecords)
{
    for (const std::size_t place : { std::size_t(0), std::size_t(10007), std::size_t(19999) }) {
        PackageVector packages = largeIndex(20000);
        VeskPackagePtr held = packages[place];
        const std::size_t all = heapInUse();
        packages = PackageVector();
        EXPECT_GT(all - heapInUse(), std::size_t(2) << 20) << "the rest goes at once";
        EXPECT_EQ(held->packageID(), QStringLiteral("org.example.package-%1").arg(place));
        const std::size_t size = heldBy(held);
        EXPECT_LE(size, mostHeld) << place;
        EXPECT_GE(size, sizeof(VeskPackage)) << place;
    }
}

TEST(RecordWriter, keepsAHugePackageApartFromItsNeighbours)
{
    std::optional<RecordWriter> writer(std::in_place, nullptr);
    const std::string huge(std::size_t(3) << 20, 'x');
    VeskPackagePtr before = writer->add(textsOf("before", "small"));
    VeskPackagePtr between = writer->add(textsOf("between", huge));
    VeskPackagePtr after = writer->add(textsOf("after", "small"));
    writer->finish();
    writer.reset();
    EXPECT_EQ(between->desc().size(), qsizetype(3) << 20);
    EXPECT_LE(heldBy(before), mostHeld);
    EXPECT_LE(heldBy(after), mostHeld);
    EXPECT_GT(heldBy(between), huge.size());
}

TEST(RecordWriter, keepsTextsOfEveryRecordApartInAndAcrossBlocks)
{
    RecordWriter writer(nullptr);
    PackageVector packages;
    for (int number = 0; number < 5000; ++number) {
        const std::string text = std::to_string(number);
        const std::string desc = "text of " + text;
        PackageTexts<std::string_view> texts = textsOf(text, desc);
        texts[PackageText::Section] = "Games";
        packages.push_back(writer.add(texts));
    }
    writer.finish();
    for (int number = 0; number < 5000; ++number) {
        const VeskPackage& package = *packages[static_cast<std::size_t>(number)];
        ASSERT_EQ(package.packageID(), QString::number(number));
        ASSERT_EQ(package.desc(), QStringLiteral("text of %1").arg(number));
        ASSERT_EQ(package.section(), QStringLiteral("Games"));
        ASSERT_TRUE(package.author().isNull());
    }
}

TEST(RecordWriter, keepsOnceWhatFollowingRecordsShare)
{
    RecordWriter writer(nullptr);
    const std::string shared(1000, 'x');
    PackageVector packages;
    for (int number = 0; number < 40; ++number)
        packages.push_back(writer.add(textsOf(std::to_string(number), shared)));
    EXPECT_LT(writer.byteSize(), 40 * sizeof(VeskPackage) + 2000);
    EXPECT_GT(writer.byteSize(), 40 * sizeof(VeskPackage) + 1000);
    EXPECT_EQ(packages.back()->desc(), textOf(shared));
}

TEST(RecordWriter, keepsOnceWhatOneRecordHasUnderTwoNames)
{
    RecordWriter writer(nullptr);
    const std::string name(1000, 'n');
    const std::string person(1000, 'p');
    PackageTexts<std::string_view> texts;
    texts[PackageText::PackageID] = texts[PackageText::Name] = name;
    texts[PackageText::Author] = texts[PackageText::Maintainer] = person;
    const VeskPackagePtr package = writer.add(texts);
    EXPECT_LT(writer.byteSize(), sizeof(VeskPackage) + 2100);
    EXPECT_EQ(package->packageID(), textOf(name));
    EXPECT_EQ(package->name(), textOf(name));
    EXPECT_EQ(package->author(), textOf(person));
    EXPECT_EQ(package->maintainer(), textOf(person));
}

TEST(RecordWriter, countsWhatStandsInEveryBlock)
{
    RecordWriter writer(nullptr);
    PackageVector packages;
    for (int number = 0; number < 1000; ++number)
        packages.push_back(
            writer.add(textsOf(std::to_string(number), std::string(1000, 'x') + std::to_string(number))));
    const std::size_t size = writer.byteSize();
    EXPECT_GT(size, std::size_t(1000) * (1000 + sizeof(VeskPackage)));
    EXPECT_LT(size, std::size_t(1000) * (1020 + sizeof(VeskPackage)));
    writer.finish();
    EXPECT_EQ(writer.byteSize(), size);
}

TEST(RecordWriter, givesEveryRecordItsSourceAndKeepsThatAlive)
{
    auto source = VeskRepository::repositoryWithURLString(QStringLiteral("https://a.example"), QStringLiteral("A"));
    const std::weak_ptr<VeskRepository> weak = source;
    VeskPackagePtr record;
    {
        RecordWriter writer(std::move(source));
        writer.add(textsOf("a", "b"));
        record = writer.add(textsOf("c", "d"));
    }
    EXPECT_EQ(record->repository(), weak.lock());
    EXPECT_NE(record->repository(), nullptr);
    record.reset();
    EXPECT_TRUE(weak.expired());
}
