#include "tests/ui/screens/ScreenWorld.h"

#include "ui/kit/paint/Animations.h"
#include "ui/kit/view/Label.h"

#include <QCoreApplication>
#include <QTest>

ScreenTest::ScreenTest()
{
    CatalogWorld world;
    store->stored = { { QStringLiteral("http://127.0.0.1/first"), QStringLiteral("First"), true } };
    world.store = std::make_unique<MemorySourceStore>(store);
    auto ownedNetwork = std::make_unique<ScriptedNetwork>();
    network = ownedNetwork.get();
    world.network = std::move(ownedNetwork);
    world.workers = std::make_shared<Workers>();
    world.collationLocale = QStringLiteral("en");
    manager = std::make_unique<RepoManager>(std::move(world));

    InstallerSurroundings surroundings;
    surroundings.archiveDirectories = { directory.filePath(QStringLiteral("archives")) };
    surroundings.urlOpener = std::make_unique<RecordingOpener>(opener);
    installer = std::make_unique<PackageInstaller>(std::move(surroundings));
}

ScreenTest::~ScreenTest()
{
    navigation.reset();
}

void ScreenTest::showOnStack(kit::ViewController* screen)
{
    navigation = std::make_unique<kit::NavigationController>(screen, &window);
    navigation->layOut({ 0, 0, 390, 800 + kit::NavigationBar::Height });
    navigation->beginAppearance();
    navigation->endAppearance();
}

void ScreenTest::appearAgain()
{
    navigation->beginDisappearance();
    navigation->endDisappearance();
    navigation->beginAppearance();
    navigation->endAppearance();
}

QStringList ScreenTest::texts(int section) const
{
    QStringList texts;
    for (const kit::IndexPath& indexPath : table()->indexPathsForVisibleRows())
        if (indexPath.section == section)
            texts.append(table()->cellForRow(indexPath)->textLabel()->text());
    return texts;
}

QString ScreenTest::headerText(int section) const
{
    const kit::View* header = table()->headerView(section);
    if (!header)
        return {};
    const auto* label = qobject_cast<kit::Label*>(header->subviews().first());
    return label ? label->text() : QString();
}

bool ScreenTest::isPushedAnimated(const std::function<void()>& step) const
{
    kit::Animations::setEnabled(true);
    step();
    kit::Animations::setEnabled(false);
    return navigation->isPushing() && navigation->isTransitioning();
}

VeskPackagePtr ScreenTest::addPackage(const QString& name, const QString& section)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(QStringLiteral("org.example.") + name.toLower().remove(u' '));
    package->setName(name);
    package->setVersion(QStringLiteral("1.0"));
    package->setSection(section);
    package->setRepository(manager->repositories().front());
    manager->packages().push_back(package);
    return package;
}

VeskPackagePtr ScreenTest::addInstalledPackage(
    const QString& name, const QString& version, const QString& installedVersion)
{
    const VeskPackagePtr package = addPackage(name);
    package->setVersion(version);
    package->setInstalledVersion(installedVersion);
    return package;
}

bool ScreenTest::waitUntil(const std::function<bool()>& condition)
{
    constexpr int GenerousMilliseconds = 20000;
    return QTest::qWaitFor(condition, GenerousMilliseconds);
}

void ScreenTest::turnLoop()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
