#include "tests/ui/screens/manage/SourcesScreen.h"
#include "ui/classic/ClassicUI.h"

TEST_F(SourcesScreen, hasTwoSectionsAndAnAddButton)
{
    auto* screen = show();
    EXPECT_EQ(screen->title(), QStringLiteral("Sources"));
    EXPECT_EQ(screen->navigationItem()->leftBarButtonItem(), nullptr);
    ASSERT_NE(addBarButton(), nullptr);
    EXPECT_EQ(addBarButton()->title(), QStringLiteral("Add"));
    EXPECT_EQ(addBarButton()->style(), kit::BarButtonItem::Style::Plain);
    EXPECT_TRUE(addBarButton()->isEnabled());
    EXPECT_EQ(table()->backgroundColor(), ClassicUI::veskBackgroundColor());
    ASSERT_EQ(table()->layout().sectionCount(), 2);
    EXPECT_EQ(headerText(Active), QStringLiteral("ACTIVE SOURCES"));
    EXPECT_EQ(headerText(Available), QStringLiteral("AVAILABLE SOURCES"));
    EXPECT_EQ(table()->layout().headerHeight(Active), 25);
    EXPECT_EQ(table()->layout().headerHeight(Available), 25);
    EXPECT_EQ(table()->refreshControl(), nullptr);
}

TEST_F(SourcesScreen, showsTheUsersSourcesInTheirOrder)
{
    manager->repositories()[1]->setEnabled(false);
    show();
    EXPECT_EQ(texts(Active), QStringList({ QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three") }));
    EXPECT_EQ(detail(Active, 1), QStringLiteral("http://127.0.0.1/two"));
    EXPECT_EQ(cell(Active, 0)->reuseIdentifier(), QStringLiteral("SourceCell"));
    EXPECT_EQ(cell(Active, 0)->style(), kit::TableViewCell::Style::Subtitle);
    const kit::Image symbol = kit::Image::systemNamed(QStringLiteral("antenna.radiowaves.left.and.right"));
    EXPECT_FALSE(symbol.isNull());
    EXPECT_EQ(cell(Active, 0)->imageView()->image(), symbol);
    EXPECT_EQ(cell(Active, 0)->imageView()->tintColor(), ClassicUI::veskBlueColor());
    EXPECT_EQ(cell(Active, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    ASSERT_NE(switchOf(0), nullptr);
    EXPECT_TRUE(switchOf(0)->isOn());
    EXPECT_FALSE(switchOf(1)->isOn());
    const auto background
        = [this](int row) { return qobject_cast<kit::ImageView*>(cell(Active, row)->backgroundView())->image(); };
    EXPECT_EQ(background(1), ClassicUI::stretchableAsset(QStringLiteral("cellback2"), { 0, 12, 0, 12 }));
    EXPECT_EQ(background(2), ClassicUI::stretchableAsset(QStringLiteral("cellback1"), { 0, 12, 0, 12 }));
}

TEST_F(SourcesScreen, findsASourceByTheFirstLettersOfItsNameUnlessItIsGone)
{
    show();
    table()->rowFocus()->type(QStringLiteral("th"));
    EXPECT_EQ(table()->rowFocus()->row(), 2);
    table()->rowFocus()->clear();
    setSources({});
    table()->rowFocus()->type(QStringLiteral("thr"));
    EXPECT_EQ(table()->rowFocus()->row(), -1);
}

TEST_F(SourcesScreen, offersEveryBuiltInSourceWhenTheUserHasNone)
{
    setSources({});
    show();
    EXPECT_EQ(table()->layout().rowCount(Active), 0);
    EXPECT_EQ(headerText(Active), QStringLiteral("ACTIVE SOURCES"));
    const auto defaults = RepoManager::defaultRepositories();
    ASSERT_EQ(table()->layout().rowCount(Available), static_cast<int>(defaults.size()));
    for (int row = 0; row < static_cast<int>(defaults.size()); ++row) {
        const VeskRepository& source = *defaults[static_cast<std::size_t>(row)];
        EXPECT_EQ(text(Available, row), source.name());
        EXPECT_EQ(detail(Available, row), source.urlString());
        ASSERT_NE(addButtonOf(row), nullptr);
        EXPECT_EQ(addButtonOf(row)->title(), QStringLiteral("Add"));
        EXPECT_EQ(addButtonOf(row)->frame().size(), QSizeF(70, 30));
        EXPECT_EQ(addButtonOf(row)->tag(), row);
        EXPECT_EQ(addButtonOf(row)->backgroundImage(),
            ClassicUI::stretchableAsset(QStringLiteral("buttonback"), { 0, 12, 0, 12 }));
        EXPECT_EQ(cell(Available, row)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    }
}

TEST_F(SourcesScreen, marksABuiltInSourceThatTheUserHasWithACheckmark)
{
    const QByteArray added = defaultURL(1).toLatin1();
    setSources({ added.constData() });
    show();
    EXPECT_EQ(cell(Available, 1)->accessoryType(), kit::TableViewCell::AccessoryType::Checkmark);
    EXPECT_EQ(cell(Available, 1)->accessoryView(), nullptr);
    EXPECT_NE(addButtonOf(0), nullptr);
    EXPECT_EQ(text(Available, 1), RepoManager::defaultRepositories()[1]->name());
}

TEST_F(SourcesScreen, stillOffersABuiltInSourceThatDiffersByCaseOrASlash)
{
    const QByteArray upper = defaultURL(0).toUpper().toLatin1();
    const QByteArray slashed = defaultURL(1).toLatin1() + '/';
    setSources({ upper.constData(), slashed.constData() });
    show();
    EXPECT_NE(addButtonOf(0), nullptr);
    EXPECT_NE(addButtonOf(1), nullptr);
}

TEST_F(SourcesScreen, givesAReusedCellItsOwnAccessory)
{
    const QByteArray added = defaultURL(0).toLatin1();
    setSources({ added.constData(), "http://127.0.0.1/two" });
    show();
    for (int appearance = 0; appearance < 6; ++appearance) {
        appearAgain();
        EXPECT_NE(switchOf(0), nullptr);
        EXPECT_EQ(cell(Active, 0)->accessoryType(), kit::TableViewCell::AccessoryType::None);
        EXPECT_EQ(cell(Available, 0)->accessoryType(), kit::TableViewCell::AccessoryType::Checkmark);
        EXPECT_EQ(cell(Available, 0)->accessoryView(), nullptr);
        EXPECT_NE(addButtonOf(1), nullptr);
        EXPECT_EQ(cell(Available, 1)->accessoryType(), kit::TableViewCell::AccessoryType::None);
    }
}

// MARK: switches

TEST_F(SourcesScreen, storesASwitchedSourceAtOnceWithoutReloading)
{
    show();
    kit::Switch* control = switchOf(1);
    const int writes = store->writes;
    control->toggle();
    EXPECT_FALSE(manager->repositories()[1]->enabled());
    EXPECT_TRUE(manager->repositories()[0]->enabled());
    EXPECT_TRUE(manager->repositories()[2]->enabled());
    EXPECT_EQ(store->writes, writes + 1);
    EXPECT_FALSE(store->stored->at(1).enabled);
    EXPECT_EQ(switchOf(1), control);
    control->toggle();
    EXPECT_TRUE(manager->repositories()[1]->enabled());
}

TEST_F(SourcesScreen, findsASwitchsRowInAScrolledTable)
{
    std::vector<VeskRepositoryPtr> repositories;
    for (int number = 0; number < 40; ++number)
        repositories.push_back(
            VeskRepository::repositoryWithURLString(QStringLiteral("http://127.0.0.1/%1").arg(number), QString()));
    manager->setRepositories(repositories);
    show();
    table()->setContentOffset(1234);
    switchOf(25)->toggle();
    for (int number = 0; number < 40; ++number)
        EXPECT_EQ(manager->repositories()[static_cast<std::size_t>(number)]->enabled(), number != 25) << number;
}

TEST_F(SourcesScreen, findsASwitchsRowAfterTheRowAboveWasDeleted)
{
    show();
    kit::Switch* control = switchOf(1);
    table()->openRow()->deleteRow(Active, 0);
    control->toggle();
    EXPECT_FALSE(manager->repositories()[0]->enabled());
    EXPECT_EQ(manager->repositories()[0]->name(), QStringLiteral("two"));
    EXPECT_TRUE(manager->repositories()[1]->enabled());
}

TEST_F(SourcesScreen, ignoresASwitchOutsideTheUsersSources)
{
    auto* screen = show();
    auto* control = new kit::Switch;
    cell(Available, 0)->setAccessoryView(control);
    const int writes = store->writes;
    screen->toggleSource(control);
    EXPECT_EQ(store->writes, writes);
    EXPECT_TRUE(manager->repositories()[0]->enabled());
}

TEST_F(SourcesScreen, ignoresASwitchThatStandsOnNoRow)
{
    auto* screen = show();
    kit::Switch stray;
    stray.setFrame({ 0, 100000, 51, 31 });
    const int writes = store->writes;
    screen->toggleSource(&stray);
    EXPECT_EQ(store->writes, writes);
}

// MARK: adding

TEST_F(SourcesScreen, removesASwipedSourceByDeletingItsRowAlone)
{
    addPackage(QStringLiteral("Package"));
    show();
    kit::TableViewCell* const first = cell(Active, 0);
    kit::TableViewCell* const third = cell(Active, 2);
    kit::TableViewCell* const available = cell(Available, 0);
    ASSERT_TRUE(table()->openRow()->canDelete(Active, 1));
    table()->openRow()->deleteRow(Active, 1);
    EXPECT_EQ(sourceURLs(),
        QStringList({ QStringLiteral("http://127.0.0.1/one"), QStringLiteral("http://127.0.0.1/three") }));
    EXPECT_EQ(store->stored->size(), 2U);
    EXPECT_TRUE(manager->packages().empty());
    EXPECT_EQ(table()->layout().rowCount(Active), 2);
    EXPECT_EQ(cell(Active, 0), first);
    EXPECT_EQ(cell(Active, 1), third);
    EXPECT_EQ(cell(Available, 0), available);
    // By an animation.
    EXPECT_TRUE(table()->isSliding());
}

TEST_F(SourcesScreen, removesTheSwipedSourceWhileAnotherIsBeingAdded)
{
    network->hold();
    show();
    addByAlert(QStringLiteral("http://127.0.0.1/four"));
    ASSERT_EQ(manager->repositories().size(), 4U);
    ASSERT_EQ(table()->layout().rowCount(Active), 3);
    table()->openRow()->deleteRow(Active, 1);
    EXPECT_FALSE(sourceURLs().contains(QStringLiteral("http://127.0.0.1/two")));
    // The table now knows of the new one, too.
    ASSERT_EQ(table()->layout().rowCount(Active), 3);
    EXPECT_EQ(detail(Active, 2), QStringLiteral("http://127.0.0.1/four"));
    network->release();
    EXPECT_TRUE(waitUntil([this] { return addBarButton()->isEnabled(); }));
}

TEST_F(SourcesScreen, offersNoDeleteOnAvailableSources)
{
    addPackage(QStringLiteral("Package"));
    auto* screen = show();
    const int writes = store->writes;
    EXPECT_FALSE(table()->openRow()->canDelete(Available, 0));
    screen->commitEditingStyle(kit::EditingStyle::Delete, { Available, 0 });
    EXPECT_EQ(manager->packages().size(), 1U);
    EXPECT_EQ(store->writes, writes);
    EXPECT_EQ(manager->repositories().size(), 3U);
    EXPECT_EQ(table()->layout().rowCount(Available), 4);
}

TEST_F(SourcesScreen, ignoresTheDeletionOfARowThatIsNotThere)
{
    auto* screen = show();
    const int writes = store->writes;
    screen->commitEditingStyle(kit::EditingStyle::Delete, { Active, 3 });
    EXPECT_EQ(manager->repositories().size(), 3U);
    EXPECT_EQ(store->writes, writes);
}

// MARK: taps and appearances

TEST_F(SourcesScreen, handsATappedSourceToAnotherPackageManager)
{
    show();
    table()->tapRow(Active, 1);
    EXPECT_TRUE(isFadingOut(cell(Active, 1)));
    EXPECT_EQ(opener.openedURLs(), QStringList(QStringLiteral("sileo://source/http://127.0.0.1/two")));
    EXPECT_EQ(stackSize(), 1U);
}

TEST_F(SourcesScreen, onlyDeselectsATappedAvailableSource)
{
    show();
    table()->tapRow(Available, 0);
    EXPECT_TRUE(isFadingOut(cell(Available, 0)));
    EXPECT_TRUE(opener.openedURLs().isEmpty());
    EXPECT_EQ(manager->repositories().size(), 3U);
}

TEST_F(SourcesScreen, ignoresATapOnASourceThatIsGone)
{
    show();
    setSources({ "http://127.0.0.1/one" });
    table()->tapRow(Active, 2);
    EXPECT_TRUE(opener.openedURLs().isEmpty());
}

TEST_F(SourcesScreen, readsTheSourcesAtEveryAppearance)
{
    show();
    setSources({ "http://127.0.0.1/other" });
    EXPECT_EQ(table()->layout().rowCount(Active), 3);
    appearAgain();
    EXPECT_EQ(texts(Active), QStringList(QStringLiteral("other")));
}

TEST_F(SourcesScreen, namesTheSourceThatEachOfItsControlsIsFor)
{
    setSources({ "http://127.0.0.1/one" });
    manager->repositories().front()->setName(QStringLiteral("Small Source"));
    show();
    EXPECT_EQ(switchOf(0)->accessibilityLabel(), QStringLiteral("Small Source"));
    EXPECT_EQ(addButtonOf(0)->accessibilityLabel(),
        QStringLiteral("Add ") + RepoManager::defaultRepositories().front()->name());
}
