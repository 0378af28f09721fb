#include "ui/classic/ClassicPackageCell.h"

#include "tests/support/LoopbackServer.h"
#include "tests/support/TestImage.h"
#include "tests/ui/classic/IconNetwork.h"
#include "tests/ui/classic/TestPackage.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/text/TextScale.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class PackageCell : public testing::Test
{
protected:
    PackageCell() { cell.setFrame({ 0, 0, 390, 60 }); }
    ~PackageCell() override { kit::TextScale::set(1); }

    QString detail() const { return cell.detailTextLabel()->text(); }
    void configure(int variant = 0) { cell.configureWithPackage(*package, variant); }
    const kit::ImageView* badge() const { return qobject_cast<kit::ImageView*>(cell.accessoryView()); }
    void expectBadge(const QString& symbol, const kit::Color& color) const
    {
        ASSERT_NE(badge(), nullptr);
        EXPECT_EQ(badge()->image(), kit::Image::systemNamed(symbol));
        EXPECT_FALSE(badge()->image().isNull());
        EXPECT_EQ(badge()->tintColor(), color);
        EXPECT_EQ(cell.accessoryType(), kit::TableViewCell::AccessoryType::None);
    }
    bool showsPlaceholder() const { return cell.imageView()->image() == placeholder; }

    const kit::Image placeholder = kit::Image::named(QStringLiteral("Homepage"));
    VeskPackagePtr package = makePackage(QStringLiteral("Alpha"));
    ClassicPackageCell cell{ kit::TableViewCell::Style::Value1, QStringLiteral("PackageCell") };
};

} // namespace

TEST_F(PackageCell, isInTheSubtitleStyleWhateverStyleIsAskedFor)
{
    EXPECT_EQ(cell.style(), kit::TableViewCell::Style::Subtitle);
    EXPECT_EQ(cell.reuseIdentifier(), QStringLiteral("PackageCell"));
    EXPECT_TRUE(showsPlaceholder());
}

TEST_F(PackageCell, showsTheNameAndTheAuthorBesideTheVersion)
{
    configure();
    EXPECT_EQ(cell.textLabel()->text(), QStringLiteral("Alpha"));
    EXPECT_EQ(detail(), QStringLiteral("Ada  \u2022  1.0"));
}

TEST_F(PackageCell, showsTheIdentifierOfAPackageWithoutAName)
{
    package->setName(QString());
    configure();
    EXPECT_EQ(cell.textLabel()->text(), QStringLiteral("org.example.package"));
    package->setName(QStringLiteral(""));
    configure();
    EXPECT_EQ(cell.textLabel()->text(), QStringLiteral("org.example.package"));
}

TEST_F(PackageCell, showsTheSourceOfAPackageWithoutAnAuthor)
{
    package->setAuthor(QString());
    configure();
    EXPECT_EQ(detail(), QStringLiteral("Source  \u2022  1.0"));
    package->setAuthor(QStringLiteral(""));
    configure();
    EXPECT_EQ(detail(), QStringLiteral("Source  \u2022  1.0"));
}

TEST_F(PackageCell, endsInABulletWhenThereIsNoVersion)
{
    package->setVersion(QString());
    configure();
    EXPECT_EQ(detail(), QStringLiteral("Ada  \u2022  "));
}

TEST_F(PackageCell, showsTheVersionAloneWhenNeitherAuthorNorSourceHaveAName)
{
    package->setAuthor(QString());
    package->repository()->setName(QString());
    configure();
    EXPECT_EQ(detail(), QStringLiteral("1.0"));
}

TEST_F(PackageCell, showsAnEmptyDetailTextWhenNothingIsKnown)
{
    package->setAuthor(QString());
    package->setVersion(QString());
    package->setRepository(nullptr);
    configure();
    EXPECT_EQ(detail(), QStringLiteral(""));
    EXPECT_FALSE(detail().isNull());
}

TEST_F(PackageCell, leadsOnWhenThePackageIsNotInstalled)
{
    configure();
    EXPECT_EQ(cell.accessoryView(), nullptr);
    EXPECT_EQ(cell.accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(PackageCell, hasABlueBadgeWhenThePackageIsInstalled)
{
    package->setInstalledVersion(QStringLiteral("1.0"));
    configure();
    expectBadge(QStringLiteral("checkmark.circle.fill"), ClassicUI::veskBlueColor());
}

TEST_F(PackageCell, hasOnlyTheOrangeBadgeWhenAnInstalledPackageHasAnUpdate)
{
    package->setInstalledVersion(QStringLiteral("0.9"));
    configure();
    expectBadge(QStringLiteral("arrow.up.circle.fill"), ClassicUI::veskOrangeColor());
}

TEST_F(PackageCell, hasABadgeThatIsToldWithTheRowAndNotByItself)
{
    const auto told = [this](const QString& installedVersion) {
        package->setInstalledVersion(installedVersion);
        configure();
        EXPECT_FALSE(cell.accessoryView()->isAccessibilityElement());
        return cell.accessoryView()->accessibilityLabel();
    };
    EXPECT_EQ(told(QStringLiteral("1.0")), QStringLiteral("installed"));
    EXPECT_EQ(told(QStringLiteral("0.9")), QStringLiteral("update available"));
}

TEST_F(PackageCell, losesItsBadgeWhenItIsPreparedForReuse)
{
    package->setInstalledVersion(QStringLiteral("0.9"));
    configure();
    cell.prepareForReuse();
    EXPECT_EQ(cell.accessoryView(), nullptr);
    EXPECT_EQ(cell.accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(PackageCell, isNotSelectedAnyMoreWhenItIsPreparedForReuse)
{
    cell.setSelected(true, kit::TableViewCell::Fade::Immediately);
    cell.setPressed(true);
    ASSERT_TRUE(cell.isHighlighted());
    cell.prepareForReuse();
    EXPECT_FALSE(cell.isHighlighted());
}

TEST_F(PackageCell, losesItsBadgeWhenItIsConfiguredForAnotherPackage)
{
    package->setInstalledVersion(QStringLiteral("0.9"));
    configure();
    cell.configureWithPackage(*makePackage(QStringLiteral("Beta")), 1);
    EXPECT_EQ(cell.accessoryView(), nullptr);
    EXPECT_EQ(cell.accessoryType(), kit::TableViewCell::AccessoryType::DisclosureIndicator);
}

TEST_F(PackageCell, remembersTheIconItRepresentsUntilItIsReused)
{
    EXPECT_TRUE(cell.representedIconURL().isNull());
    package->setIconURLString(QStringLiteral("no icon here"));
    configure();
    EXPECT_EQ(cell.representedIconURL(), QStringLiteral("no icon here"));
    cell.prepareForReuse();
    EXPECT_TRUE(cell.representedIconURL().isNull());
}

TEST_F(PackageCell, canBeToldAnotherIconItRepresents)
{
    cell.setRepresentedIconURL(QStringLiteral("http://127.0.0.1/icon.png"));
    EXPECT_EQ(cell.representedIconURL(), QStringLiteral("http://127.0.0.1/icon.png"));
}

TEST_F(PackageCell, showsThePlaceholderAgainWhenItIsPreparedForReuse)
{
    configure();
    cell.imageView()->setImage(kit::Image::fromData(pngOf(Qt::red), 1));
    ASSERT_FALSE(showsPlaceholder());
    cell.prepareForReuse();
    EXPECT_TRUE(showsPlaceholder());
}

TEST_F(PackageCell, alternatesItsBackgroundWithTheRow)
{
    const auto background = [this] { return static_cast<kit::ImageView*>(cell.backgroundView())->image().identity(); };
    configure(0);
    EXPECT_EQ(background(), kit::Image::named(QStringLiteral("cellback1")).identity());
    configure(1);
    EXPECT_EQ(background(), kit::Image::named(QStringLiteral("cellback2")).identity());
    configure(2);
    EXPECT_EQ(background(), kit::Image::named(QStringLiteral("cellback1")).identity());
}

TEST_F(PackageCell, clipsTheIconToRoundCorners)
{
    configure();
    EXPECT_EQ(cell.imageView()->cornerRadius(), 7);
    EXPECT_TRUE(cell.imageView()->clipsToBounds());
    EXPECT_EQ(cell.imageView()->contentMode(), kit::ImageView::ContentMode::AspectFit);
}

TEST_F(PackageCell, hasAFixedGeometry)
{
    configure();
    cell.layoutSubviews();
    const double width = cell.contentView()->width();
    EXPECT_GT(width, 300);
    EXPECT_EQ(cell.imageView()->frame(), QRectF(12, 9, 42, 42));
    EXPECT_EQ(cell.textLabel()->frame(), QRectF(66, 11, width - 110, 22));
    EXPECT_EQ(cell.detailTextLabel()->frame(), QRectF(66, 33, width - 110, 18));
}

TEST_F(PackageCell, hasTheRoomThatALargerTextNeeds)
{
    struct Expected
    {
        double scale;
        double rowHeight;
        double iconTop;
        double nameTop;
        double nameHeight;
        double detailHeight;
    };
    // Three fifths of a row of 60 grow with the texts, whose lines of 22 and 18 stand in its middle, one point lower.
    for (const Expected& expected : { Expected{ 1.25, 69, 13, 10, 28, 23 }, Expected{ 1.5, 78, 18, 10, 33, 27 },
             Expected{ 1.75, 87, 22, 9, 39, 32 }, Expected{ 2, 96, 27, 9, 44, 36 } }) {
        SCOPED_TRACE(expected.scale);
        kit::TextScale::set(expected.scale);
        cell.setFrame({ 0, 0, 390, expected.rowHeight });
        cell.layoutSubviews();
        const double width = cell.contentView()->width() - 110;
        EXPECT_EQ(cell.imageView()->frame(), QRectF(12, expected.iconTop, 42, 42));
        EXPECT_EQ(cell.textLabel()->frame(), QRectF(66, expected.nameTop, width, expected.nameHeight));
        EXPECT_EQ(cell.detailTextLabel()->frame(),
            QRectF(66, expected.nameTop + expected.nameHeight, width, expected.detailHeight));
    }
}

TEST_F(PackageCell, keepsItsGeometryWhenTheIconArrives)
{
    configure();
    cell.imageView()->setImage(kit::Image::fromData(pngOf(Qt::red, { 300, 20 }), 1));
    EXPECT_EQ(cell.imageView()->frame(), QRectF(12, 9, 42, 42));
}

TEST_F(PackageCell, givesTheTextsNoWidthInAVeryNarrowRow)
{
    configure();
    cell.setFrame({ 0, 0, 100, 60 });
    EXPECT_EQ(cell.textLabel()->width(), 0);
    EXPECT_EQ(cell.detailTextLabel()->width(), 0);
    EXPECT_EQ(cell.imageView()->frame(), QRectF(12, 9, 42, 42));
}

TEST_F(PackageCell, showsThePlaceholderAtOnceAndTheIconWhenItHasArrived)
{
    LoopbackServer server;
    const IconNetwork network;
    server.serve("/icon.png", pngOf(Qt::red));
    package->setIconURLString(server.url(QStringLiteral("/icon.png")));
    QSignalSpy changes(cell.imageView(), &kit::ImageView::imageChanged);
    configure();
    EXPECT_TRUE(showsPlaceholder());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !showsPlaceholder(); }, 20000));
    EXPECT_EQ(cell.imageView()->image().pixels(1).pixelColor(5, 5), QColor(Qt::red));
}
