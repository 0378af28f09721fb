#include "ui/screens/browse/PackageTableViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicPackageCell.h"
#include "ui/classic/ClassicUI.h"
#include "ui/screens/browse/PackageDetailViewController.h"

namespace {

// The packages it is given, in that order.
class GivenPackages : public PackageTableViewController
{
public:
    GivenPackages(PackageInstaller& installer, const PackageVector& given)
        : PackageTableViewController(installer)
        , m_given(given)
    {
    }

    int reads = 0;

protected:
    PackageSelection readPackages() override
    {
        ++reads;
        return m_given;
    }
    QString headerTitle() const override { return QStringLiteral("Given: %1").arg(packages().size()); }
    QString emptyText() const override { return QStringLiteral("Nothing given"); }

private:
    const PackageVector& m_given;
};

class PackageTable : public ScreenTest
{
protected:
    GivenPackages* show() { return ScreenTest::show(new GivenPackages(*installer, given)); }
    void give(const QString& name) { given.push_back(addPackage(name)); }
    kit::Image background(int row) const
    {
        return qobject_cast<kit::ImageView*>(cell(0, row)->backgroundView())->image();
    }

    PackageVector given;
};

} // namespace

TEST_F(PackageTable, isOneStyledSectionUnderItsHeader)
{
    give(QStringLiteral("One"));
    show();
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
    EXPECT_EQ(table()->rowHeight(), 60);
    EXPECT_EQ(table()->layout().sectionCount(), 1);
    EXPECT_EQ(table()->layout().headerHeight(0), 25);
    EXPECT_EQ(headerText(0), QStringLiteral("GIVEN: 1")) << "told of the packages that were just read";
}

TEST_F(PackageTable, showsOneCentredRowInTheDefaultColourWhenThereAreNone)
{
    show();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Nothing given")));
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("EmptyCell"));
    EXPECT_EQ(cell(0, 0)->style(), kit::TableViewCell::Style::Default);
    EXPECT_EQ(cell(0, 0)->textLabel()->textAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(cell(0, 0)->textLabel()->textColor(), ClassicUI::veskTextColor());
    EXPECT_EQ(cell(0, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    EXPECT_EQ(cell(0, 0)->accessoryView(), nullptr);
}

TEST_F(PackageTable, onlyDeselectsTheEmptyRowWhenItIsTapped)
{
    show();
    table()->tapRow(0, 0);
    EXPECT_TRUE(isFadingOut(cell(0, 0)));
    EXPECT_EQ(stackSize(), 1U);
    EXPECT_TRUE(window.alerts().isEmpty());
}

TEST_F(PackageTable, hasOneEmptyRowBeforeItsFirstLoad)
{
    give(QStringLiteral("One"));
    GivenPackages screen(*installer, given);
    EXPECT_EQ(screen.numberOfRowsInSection(0), 1);
    EXPECT_TRUE(screen.packages().empty());
    EXPECT_EQ(screen.reads, 0);
}

TEST_F(PackageTable, showsThePackagesInTheirOrderInPackageCellsOfAlternatingBackgrounds)
{
    give(QStringLiteral("Two"));
    give(QStringLiteral("One"));
    show();
    EXPECT_EQ(texts(0), (QStringList{ QStringLiteral("Two"), QStringLiteral("One") }));
    ASSERT_NE(qobject_cast<ClassicPackageCell*>(cell(0, 0)), nullptr);
    EXPECT_EQ(cell(0, 0)->reuseIdentifier(), QStringLiteral("PackageCell"));
    EXPECT_EQ(cell(0, 0)->style(), kit::TableViewCell::Style::Subtitle);
    EXPECT_EQ(background(0), ClassicUI::stretchableAsset(QStringLiteral("cellback1"), { 0, 12, 0, 12 }));
    EXPECT_EQ(background(1), ClassicUI::stretchableAsset(QStringLiteral("cellback2"), { 0, 12, 0, 12 }));
}

TEST_F(PackageTable, pushesTheTappedPackageAndDeselectsItsRow)
{
    give(QStringLiteral("One"));
    give(QStringLiteral("Two"));
    show();
    kit::TableView* list = table();
    EXPECT_TRUE(isPushedAnimated([&] { list->tapRow(0, 1); }));
    EXPECT_TRUE(isFadingOut(list->cellForRow({ 0, 1 })));
    ASSERT_NE(top<PackageDetailViewController>(), nullptr);
    EXPECT_EQ(top<PackageDetailViewController>()->package(), given[1]);
}

TEST_F(PackageTable, readsThePackagesAtEveryAppearanceAndNotInBetween)
{
    show();
    give(QStringLiteral("Late"));
    table()->setContentOffset(1);
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Nothing given")));
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Late")));
    EXPECT_EQ(headerText(0), QStringLiteral("GIVEN: 1"));
}

TEST_F(PackageTable, readsThemAgainWhenToldTo)
{
    GivenPackages* const screen = show();
    give(QStringLiteral("Late"));
    screen->reloadData();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Late")));
    const PackageSelection& shown = screen->packages();
    EXPECT_EQ(PackageVector(shown.begin(), shown.end()), given);
    EXPECT_EQ(screen->reads, 2);
}

TEST_F(PackageTable, knowsTheNamesOfRowsThatAreNotSeen)
{
    for (int number = 0; number < 100; ++number)
        give(QStringLiteral("Package %1").arg(number));
    given.back()->setName(QString());
    GivenPackages* const screen = show();
    ASSERT_EQ(cell(0, 98), nullptr);
    EXPECT_EQ(screen->nameForRowAtIndexPath({ 0, 98 }), QStringLiteral("Package 98"));
    EXPECT_EQ(screen->nameForRowAtIndexPath({ 0, 99 }), given.back()->packageID()) << "as its row says";
    EXPECT_TRUE(screen->nameForRowAtIndexPath({ 0, 100 }).isNull());
}
