#pragma once

#include "tests/ui/screens/ScreenWorld.h"
#include "ui/kit/view/Button.h"
#include "ui/kit/view/Switch.h"
#include "ui/screens/manage/SourcesViewController.h"

// The sections of the screen.
inline constexpr int Active = 0;
inline constexpr int Available = 1;

// The screen with three sources of the user's.
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
