// The same screens on screens of other densities: lines one pixel fine, nothing blurred.
#include "tests/gallery/Gallery.h"

namespace {

constexpr QSize Small(390, 290);

} // namespace

TEST_F(AtScale1_25, sources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Small);
    tap(0, 0);
    expectPicture(QStringLiteral("sources"));
}

TEST_F(AtScale1_25, package)
{
    fillCatalog();
    open(Small);
    tap(0, 3);
    scrollToEnd();
    expectPicture(QStringLiteral("package"));
}

TEST_F(AtScale1_5, home)
{
    fillCatalog();
    open(Small);
    expectPicture(QStringLiteral("home"));
}

TEST_F(AtScale1_5, sheet)
{
    fillCatalog();
    open(Tab::Manage, Small);
    tap(2, 0);
    expectPicture(QStringLiteral("sheet"));
}

TEST_F(AtScale1_5, search)
{
    fillCatalog();
    open(Tab::Search, Small);
    expectPicture(QStringLiteral("search"));
}

TEST_F(AtScale2, home)
{
    fillCatalog();
    open(Small);
    expectPicture(QStringLiteral("home"));
}

TEST_F(AtScale2, package)
{
    fillCatalog();
    open(Small);
    tap(0, 3);
    scrollToEnd();
    expectPicture(QStringLiteral("package"));
}

TEST_F(AtScale2, sources)
{
    addSources();
    fillCatalog();
    open(Tab::Manage, Small);
    tap(0, 0);
    shownTable().openRow()->open(0, 1);
    expectPicture(QStringLiteral("sources"));
}

TEST_F(AtScale3, home)
{
    fillCatalog();
    open(Small);
    expectPicture(QStringLiteral("home"));
}

TEST_F(AtScale3, package)
{
    fillCatalog();
    open(Small);
    tap(0, 3);
    scrollToEnd();
    expectPicture(QStringLiteral("package"));
}

TEST_F(AtScale3, search)
{
    open(Tab::Search, Small);
    expectPicture(QStringLiteral("search"));
}
