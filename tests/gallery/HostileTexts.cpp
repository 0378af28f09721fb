#include "tests/gallery/HostileTexts.h"

namespace {

QString flood(const QString& letter, const QString& marks, int count)
{
    return letter + marks.repeated(count);
}

QString controls()
{
    QString text = QStringLiteral("Bell");
    for (char16_t code = 1; code < 0x20; ++code)
        text += QString(QChar(code)) + QLatin1Char('x');
    return text + QStringLiteral("\u0085\u2028\u2029\u009b31m end");
}

// Halves of characters, and characters that are none.
QString noCharacters()
{
    return QStringLiteral("Half") + QChar(0xd83d) + QStringLiteral("and") + QChar(0xde00) + QChar(0xffff)
        + QChar(0xfffe) + QStringLiteral("\ue000\uf8ff end");
}

QString families()
{
    const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466");
    const QString flag = QStringLiteral("\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F");
    return family.repeated(8) + flag.repeated(8) + QStringLiteral("\U0001F1E9\U0001F1EA\u0031\uFE0F\u20E3").repeated(8);
}

} // namespace

const std::vector<HostileText>& hostileTexts()
{
    static const std::vector<HostileText> texts{
        { QStringLiteral("controls"), controls() },
        { QStringLiteral("markup"),
            QStringLiteral("<h1>Big</h1><b>bold</b> <img src=\"file:///etc/passwd\"> <font color=red>&amp;&lt;</font>"
                           "<table><tr><td>cell</table><!-- gone") },
        { QStringLiteral("overrides"),
            QStringLiteral("\u202egnp.exe\u202c \u2067left\u2066open \u200f\u061c\u200e\u202b\u202a\u2068 end") },
        { QStringLiteral("accents"),
            flood(QStringLiteral("Z"), QStringLiteral("\u0301\u0316\u0334\u0489"), 60)
                + flood(QStringLiteral("a"), QStringLiteral("\u030b\u0323"), 120) + QStringLiteral("lgo") },
        { QStringLiteral("families"), families() },
        { QStringLiteral("letters"), QString(20000, QLatin1Char('W')) },
        { QStringLiteral("invisible"), QStringLiteral("In\u200b\u200c\u200d\ufeff\u00ad\u2060\u180e").repeated(300) },
        { QStringLiteral("ligatures"), QStringLiteral("\ufdfa\ufdfd").repeated(300) },
        { QStringLiteral("halves"), noCharacters() },
        { QStringLiteral("lines"), QStringLiteral("line\n\n\n\r\n").repeated(50) },
        { QStringLiteral("blanks"), QString(3000, QLatin1Char(' ')) + QStringLiteral("end") },
    };
    return texts;
}

std::vector<VeskPackagePtr> hostilePackages(const VeskRepositoryPtr& repository)
{
    std::vector<VeskPackagePtr> packages;
    for (const HostileText& text : hostileTexts()) {
        auto package = std::make_shared<VeskPackage>();
        package->setPackageID(text.kind + QLatin1Char('.') + text.text);
        package->setName(text.text);
        package->setAuthor(text.text);
        package->setMaintainer(text.text);
        package->setSection(text.text);
        package->setVersion(text.text);
        package->setInstalledVersion(packages.size() % 2 == 0 ? text.text + QLatin1Char('1') : QString());
        package->setDesc(text.text);
        package->setRepository(repository);
        packages.push_back(package);
    }
    return packages;
}
