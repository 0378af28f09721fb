// Adding sources: by the alert, and by the buttons of those that are built in.
#include "tests/ui/screens/manage/SourcesScreen.h"

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
