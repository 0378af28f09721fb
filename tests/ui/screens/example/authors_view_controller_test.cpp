#include "tests/ui/screens/ScreenWorld.h"
#include "tests/ui/screens/example/AuthorsViewController.h"

namespace {

class AuthorsScreen : public ScreenTest
{
protected:
    AuthorsViewController* show() { return ScreenTest::show(new AuthorsViewController(*manager)); }
    void addPackageOf(const QString& author, const QString& name) { addPackage(name)->setAuthor(author); }
};

} // namespace

TEST_F(AuthorsScreen, showsOneRowWhenTheCatalogIsEmpty)
{
    EXPECT_EQ(show()->title(), QStringLiteral("Authors"));
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Refresh Vesk to load authors")));
}

TEST_F(AuthorsScreen, listsEveryAuthorWithTheirNumberOfPackages)
{
    addPackageOf(QStringLiteral("Zoe"), QStringLiteral("One"));
    addPackageOf(QStringLiteral("Ada"), QStringLiteral("Two"));
    addPackageOf(QStringLiteral("Zoe"), QStringLiteral("Three"));
    show();
    EXPECT_EQ(texts(0), (QStringList{ QStringLiteral("Ada"), QStringLiteral("Zoe") }));
    EXPECT_EQ(detail(0, 0), QStringLiteral("1"));
    EXPECT_EQ(detail(0, 1), QStringLiteral("2"));
}

TEST_F(AuthorsScreen, readsTheCatalogAnewAtEveryAppearance)
{
    show();
    addPackageOf(QStringLiteral("Ada"), QStringLiteral("Late"));
    appearAgain();
    EXPECT_EQ(texts(0), QStringList(QStringLiteral("Ada")));
}
