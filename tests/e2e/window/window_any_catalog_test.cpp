// The whole window on catalogs that chance makes of bytes as hostile as they come: it draws every screen of them.
// VESK_CATALOGS tells how many catalogs; each number makes the same one in every run.
#include "tests/e2e/window/WindowTest.h"
#include "ui/screens/browse/PackageDetailViewController.h"

#include <array>
#include <random>

namespace {

constexpr int usualCatalogs = 8;

class AnyCatalog : public WindowTest
{
protected:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_chance); }

    // Characters of every kind that has troubled somebody, and bytes that are none.
    QByteArray anyCharacter()
    {
        static const std::array<const char*, 24> troublesome{ "\xc4\xb0", "\xef\xb7\xba", "\xef\xb7\xbd", "\xcc\x81",
            "\xd2\x89", "\xe2\x80\xae", "\xe2\x81\xa7", "\xe2\x80\x8f", "\xe2\x80\x8d", "\xf0\x9f\x91\xa8",
            "\xf0\x9f\x8f\xb4", "\xd7\x90", "\xd8\xb9", "\xe6\xbc\xa2", "\xed\xa0\x80", "\xff", "\xc3", "\xe2\x80\xa8",
            "\xef\xbb\xbf", "<b>", "&lt;", "\t", "\x1b", "%1" };
        return below(3) == 0 ? QByteArray(troublesome.at(static_cast<std::size_t>(below(troublesome.size()))))
                             : QByteArray(1, static_cast<char>(' ' + below(95)));
    }
    QByteArray anyText()
    {
        static const std::array<int, 8> lengths{ 0, 1, 3, 10, 10, 40, 300, 6000 };
        const int length = lengths.at(static_cast<std::size_t>(below(lengths.size())));
        if (below(6) == 0)
            return anyCharacter().repeated(length);
        QByteArray text;
        for (int index = 0; index < length; ++index)
            text += anyCharacter();
        return text;
    }
    QByteArray anyStanza()
    {
        static const std::array<const char*, 12> fields{ "Package", "Package", "Package", "Name", "Version", "Author",
            "Maintainer", "Section", "Description", "Icon", "Depiction", "Homepage" };
        QByteArray stanza;
        for (int field = below(10); field >= 0; --field)
            stanza += QByteArray(fields.at(static_cast<std::size_t>(below(fields.size())))) + ": " + anyText() + "\n";
        for (int line = below(4); line > 0; --line)
            stanza += " " + anyText() + "\n";
        return stanza + "\n";
    }
    QByteArray anyIndex()
    {
        QByteArray index;
        for (int stanza = below(40); stanza >= 0; --stanza)
            index += anyStanza();
        return index;
    }

    // As the program has it after a reload.
    void readCatalog(unsigned number)
    {
        m_chance.seed(number);
        const QString source = QStringLiteral("http://127.0.0.1/%1").arg(number);
        network->serve(source + QStringLiteral("/Packages"), anyIndex());
        bool isRead = false;
        manager->addRepositoryWithURLString(source, [&](bool, const auto&) { isRead = true; });
        ASSERT_TRUE(waitUntil([&] { return isRead; }));
    }
    void lookAtTable()
    {
        EXPECT_FALSE(touch->picture().isNull());
        table().scrollByPage(1);
        EXPECT_FALSE(touch->picture().isNull());
    }
    void lookAtEveryTab()
    {
        for (const char* tab : { "Changes", "Categories", "Manage", "Search", "Vesk" }) {
            ASSERT_TRUE(touch->tapTab(QString::fromLatin1(tab)));
            turnLoop();
            lookAtTable();
        }
        touch->type(QString::fromUtf8(anyText()).left(20));
    }
    void lookAtPackages()
    {
        const PackageVector packages = manager->packages().all();
        for (std::size_t place = 0; place < packages.size(); place += 1 + packages.size() / 8) {
            touch->stack().pushViewController(new PackageDetailViewController(packages.at(place), *installer),
                kit::NavigationController::Animation::None);
            turnLoop();
            lookAtTable();
            touch->stack().popViewController(kit::NavigationController::Animation::None);
        }
    }

private:
    std::mt19937 m_chance;
};

int catalogs()
{
    const int asked = qEnvironmentVariableIntValue("VESK_CATALOGS");
    return asked > 0 ? asked : usualCatalogs;
}

} // namespace

TEST_F(AnyCatalog, isDrawnOnEveryScreen)
{
    open();
    std::size_t drawn = 0;
    for (int number = 0; number < catalogs(); ++number) {
        SCOPED_TRACE(number);
        readCatalog(static_cast<unsigned>(number));
        lookAtEveryTab();
        lookAtPackages();
        ASSERT_FALSE(HasFatalFailure());
        drawn += manager->packages().size();
        manager->removeRepository(manager->repositories().front());
    }
    EXPECT_GT(drawn, static_cast<std::size_t>(catalogs()) * 5);
}
