#include "ui/screens/manage/SourcesViewController.h"

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/classic/ClassicUI.h"
#include "ui/kit/view/Button.h"
#include "ui/kit/view/Switch.h"

namespace {

constexpr int Active = 0;
constexpr int Available = 1;

class SourcesScreen : public ScreenTest
{
protected:
    SourcesScreen() { setSources({ "http://127.0.0.1/one", "http://127.0.0.1/two", "http://127.0.0.1/three" }); }

    void setSources(const std::vector<const char*>& urls)
    {
        std::vector<VeskRepositoryPtr> repositories;
        for (const char* url : urls)
            repositories.push_back(VeskRepository::repositoryWithURLString(QString::fromLatin1(url), QString()));
        manager->setRepositories(repositories);
    }
    SourcesViewController* show() { return ScreenTest::show(new SourcesViewController(*manager, *installer)); }
    kit::BarButtonItem* addBarButton() const
    {
        return navigation->viewControllers().front()->navigationItem()->rightBarButtonItem();
    }
    kit::Switch* switchOf(int row) const { return qobject_cast<kit::Switch*>(cell(Active, row)->accessoryView()); }
    kit::Button* addButtonOf(int row) const
    {
        return qobject_cast<kit::Button*>(cell(Available, row)->accessoryView());
    }
    // Presses "Add" in the bar, types the text and confirms.
    void addByAlert(const QString& url)
    {
        addBarButton()->press();
        lastAlert()->textFields().first()->setText(url);
        lastAlert()->choose(1);
    }
    QStringList sourceURLs() const
    {
        QStringList urls;
        for (const VeskRepositoryPtr& repository : manager->repositories())
            urls.append(repository->urlString());
        return urls;
    }
    static QString defaultURL(int row)
    {
        return RepoManager::defaultRepositories()[static_cast<std::size_t>(row)]->urlString();
    }
};

} // namespace

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

TEST_F(SourcesScreen, asksForAURLWithAFieldMadeForIt)
{
    show();
    addBarButton()->press();
    ASSERT_NE(lastAlert(), nullptr);
    EXPECT_EQ(lastAlert()->style(), kit::AlertController::Style::Alert);
    EXPECT_EQ(lastAlert()->title(), QStringLiteral("Add Source"));
    EXPECT_EQ(lastAlert()->message(), QStringLiteral("Enter an APT repository URL."));
    ASSERT_EQ(lastAlert()->textFields().size(), 1);
    const kit::AlertTextField* field = lastAlert()->textFields().first();
    EXPECT_TRUE(field->placeholder().startsWith(QStringLiteral("https://")));
    EXPECT_TRUE(field->text().isEmpty());
    EXPECT_EQ(field->inputHints(),
        static_cast<int>(Qt::ImhUrlCharactersOnly | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText));
    ASSERT_EQ(lastAlert()->actions().size(), 2);
    EXPECT_EQ(lastAlert()->actions()[0]->title(), QStringLiteral("Cancel"));
    EXPECT_EQ(lastAlert()->actions()[0]->style(), kit::AlertAction::Style::Cancel);
    EXPECT_EQ(lastAlert()->actions()[1]->title(), QStringLiteral("Add"));
    EXPECT_EQ(lastAlert()->actions()[1]->style(), kit::AlertAction::Style::Default);
    EXPECT_TRUE(addBarButton()->isEnabled());
}

TEST_F(SourcesScreen, addsNothingWhenTheAlertIsCancelled)
{
    show();
    addBarButton()->press();
    lastAlert()->textFields().first()->setText(QStringLiteral("http://127.0.0.1/new"));
    lastAlert()->cancel();
    EXPECT_EQ(manager->repositories().size(), 3U);
    EXPECT_TRUE(addBarButton()->isEnabled());
}

TEST_F(SourcesScreen, doesNothingWithAnEmptyText)
{
    show();
    const int writes = store->writes;
    addByAlert(QStringLiteral(""));
    EXPECT_TRUE(addBarButton()->isEnabled());
    EXPECT_EQ(manager->repositories().size(), 3U);
    EXPECT_EQ(store->writes, writes);
    EXPECT_EQ(window.alerts().size(), 1);
}

TEST_F(SourcesScreen, addsATypedSourceWithItsButtonDisabledUntilItsFirstRefreshEnded)
{
    network->hold();
    show();
    addByAlert(QStringLiteral("http://127.0.0.1/new"));
    EXPECT_FALSE(addBarButton()->isEnabled());
    ASSERT_TRUE(waitUntil([&] { return !network->requestedURLs().isEmpty(); }));
    EXPECT_FALSE(addBarButton()->isEnabled());
    EXPECT_EQ(table()->layout().rowCount(Active), 3);
    network->release();
    ASSERT_TRUE(waitUntil([&] { return addBarButton()->isEnabled(); }));
    EXPECT_EQ(table()->layout().rowCount(Active), 4);
    EXPECT_EQ(detail(Active, 3), QStringLiteral("http://127.0.0.1/new"));
    EXPECT_EQ(text(Active, 3), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(window.alerts().size(), 1);
}

TEST_F(SourcesScreen, passesTheTypedTextOnAsItIs)
{
    show();
    addByAlert(QStringLiteral("  127.0.0.1/blank/ \n"));
    ASSERT_TRUE(waitUntil([&] { return addBarButton()->isEnabled(); }));
    EXPECT_EQ(sourceURLs().last(), QStringLiteral("https://127.0.0.1/blank/"));
}

TEST_F(SourcesScreen, enablesItsButtonInALaterTurnAlsoWhenTheURLIsRefusedAtOnce)
{
    show();
    addByAlert(QStringLiteral("not a url"));
    EXPECT_FALSE(addBarButton()->isEnabled());
    turnLoop();
    EXPECT_TRUE(addBarButton()->isEnabled());
    EXPECT_EQ(manager->repositories().size(), 3U);
    EXPECT_EQ(window.alerts().size(), 1);
}

TEST_F(SourcesScreen, refusesBlanksAloneWithoutAWord)
{
    show();
    addByAlert(QStringLiteral("   "));
    EXPECT_FALSE(addBarButton()->isEnabled());
    turnLoop();
    EXPECT_TRUE(addBarButton()->isEnabled());
    EXPECT_EQ(manager->repositories().size(), 3U);
}

TEST_F(SourcesScreen, changesNothingWhenTheSourceIsThereAlready)
{
    show();
    const int writes = store->writes;
    addByAlert(QStringLiteral("http://127.0.0.1/two"));
    EXPECT_FALSE(addBarButton()->isEnabled());
    turnLoop();
    EXPECT_TRUE(addBarButton()->isEnabled());
    EXPECT_EQ(manager->repositories().size(), 3U);
    EXPECT_EQ(store->writes, writes);
    EXPECT_TRUE(network->requestedURLs().isEmpty());
}

TEST_F(SourcesScreen, opensNoSecondAlertWhileItsButtonIsDisabled)
{
    network->hold();
    show();
    addByAlert(QStringLiteral("http://127.0.0.1/new"));
    addBarButton()->press();
    EXPECT_EQ(window.alerts().size(), 1);
    network->release();
    ASSERT_TRUE(waitUntil([&] { return addBarButton()->isEnabled(); }));
}

TEST_F(SourcesScreen, turnsABuiltInSourcesButtonIntoACheckmarkOnceItIsAdded)
{
    show();
    addButtonOf(2)->press();
    EXPECT_FALSE(addBarButton()->isEnabled());
    EXPECT_NE(addButtonOf(2), nullptr);
    ASSERT_TRUE(waitUntil([&] { return addBarButton()->isEnabled(); }));
    EXPECT_EQ(sourceURLs().last(), defaultURL(2));
    EXPECT_EQ(cell(Available, 2)->accessoryType(), kit::TableViewCell::AccessoryType::Checkmark);
    EXPECT_EQ(cell(Available, 2)->accessoryView(), nullptr);
    EXPECT_EQ(table()->layout().rowCount(Active), 4);
}

TEST_F(SourcesScreen, turnsTheCheckmarkBackIntoAButtonAtTheReloadAfterTheRemoval)
{
    const QByteArray added = defaultURL(1).toLatin1();
    setSources({ "http://127.0.0.1/one", added.constData() });
    show();
    table()->openRow()->deleteRow(Active, 1);
    EXPECT_EQ(cell(Available, 1)->accessoryType(), kit::TableViewCell::AccessoryType::Checkmark);
    appearAgain();
    EXPECT_NE(addButtonOf(1), nullptr);
    EXPECT_EQ(cell(Available, 1)->accessoryType(), kit::TableViewCell::AccessoryType::None);
}

TEST_F(SourcesScreen, addsFurtherBuiltInSourcesWhileAnAddRuns)
{
    network->hold();
    show();
    addByAlert(QStringLiteral("http://127.0.0.1/new"));
    EXPECT_FALSE(addBarButton()->isEnabled());
    EXPECT_TRUE(addButtonOf(0)->isEnabled());
    addButtonOf(0)->press();
    addButtonOf(1)->press();
    EXPECT_EQ(
        sourceURLs().mid(3), QStringList({ QStringLiteral("http://127.0.0.1/new"), defaultURL(0), defaultURL(1) }));
    ASSERT_TRUE(waitUntil([&] { return network->requestedURLs().size() == 3; }));
    network->release();
    ASSERT_TRUE(waitUntil([&] { return addBarButton()->isEnabled(); }));
    ASSERT_TRUE(waitUntil([&] { return table()->layout().rowCount(Active) == 6; }));
}

TEST_F(SourcesScreen, ignoresAButtonWithATagOutOfRange)
{
    auto* screen = show();
    kit::Button button;
    const int count = static_cast<int>(RepoManager::defaultRepositories().size());
    for (const int tag : { -1, count, 1000000 }) {
        button.setTag(tag);
        screen->addDefault(&button);
    }
    EXPECT_TRUE(addBarButton()->isEnabled());
    EXPECT_EQ(manager->repositories().size(), 3U);
}

TEST_F(SourcesScreen, mayBeGoneWhenAnAddEnds)
{
    network->hold();
    show();
    addByAlert(QStringLiteral("http://127.0.0.1/new"));
    ASSERT_TRUE(waitUntil([&] { return !network->requestedURLs().isEmpty(); }));
    dismissScreen();
    network->release();
    ASSERT_TRUE(waitUntil([&] { return !manager->errorMessage().isEmpty(); }));
    turnLoop();
    EXPECT_EQ(manager->repositories().size(), 4U);
}

TEST_F(SourcesScreen, mayBeGoneWhenItsAlertIsAnswered)
{
    show();
    addBarButton()->press();
    lastAlert()->textFields().first()->setText(QStringLiteral("http://127.0.0.1/new"));
    dismissScreen();
    lastAlert()->choose(1);
    EXPECT_EQ(manager->repositories().size(), 3U);
}

// MARK: removing

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
    auto* screen = show();
    EXPECT_FALSE(table()->openRow()->canDelete(Available, 0));
    screen->commitEditingStyle(kit::EditingStyle::Delete, { Available, 0 });
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
