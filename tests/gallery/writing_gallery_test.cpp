// Chinese, Japanese, Korean, Arabic and Hebrew: each in its direction, none of them moving another about.
#include "tests/gallery/Gallery.h"

TEST_F(AtScale1, worldwideList)
{
    fillCatalogFromAroundTheWorld();
    open(Tab::Changes);
    expectPicture(QStringLiteral("worldwide-list"));
}

TEST_F(AtScale1, worldwideCategories)
{
    fillCatalogFromAroundTheWorld();
    open(Tab::Categories, Low);
    expectPicture(QStringLiteral("worldwide-categories"));
}

TEST_F(AtScale1, arabicPackage)
{
    fillCatalogFromAroundTheWorld();
    open(Tab::Changes, Low);
    showPackage(packageNamed(QStringLiteral("مفكرة الأيام")));
    expectPicture(QStringLiteral("arabic-package"));
}

TEST_F(AtScale1, japanesePackage)
{
    fillCatalogFromAroundTheWorld();
    open(Tab::Changes, Low);
    showPackage(packageNamed(QStringLiteral("写真アルバム")));
    expectPicture(QStringLiteral("japanese-package"));
}

TEST_F(AtScale1, longArabicPackage)
{
    fillCatalogFromAroundTheWorld();
    open(Tab::Changes, Low);
    showPackage(
        packageNamed(QStringLiteral("حزمة ذات اسم طويل جدا لا يتسع له أي سطر مهما كانت النافذة عريضة على الشاشة")));
    expectPicture(QStringLiteral("arabic-package-excessive"));
}

TEST_F(AtScale1, hebrewUninstallSheet)
{
    fillCatalogFromAroundTheWorld();
    const VeskPackagePtr hebrew = packageNamed(QStringLiteral("יומן לילה"));
    manager->setPackages({ hebrew });
    open(Tab::Manage, Low);
    tap(2, 0);
    expectPicture(QStringLiteral("hebrew-sheet"));
}

TEST_F(WithLargeTexts, arabicPackage)
{
    fillCatalogFromAroundTheWorld();
    open(Tab::Changes);
    showPackage(packageNamed(QStringLiteral("مفكرة الأيام")));
    expectPicture(QStringLiteral("arabic-package"));
}
