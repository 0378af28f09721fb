#include "tests/gallery/GalleryCatalog.h"

#include <array>

namespace {

struct Entry
{
    const char* name;
    const char* author;
    const char* section;
    const char* version;
    const char* installedVersion;
    const char* description;
};

constexpr std::array<Entry, 30> entries{ {
    { "Almanac", "Edda Brook", "Utilities", "2.4.1", nullptr,
        "Sunrise, sunset, the phases of the moon and the feasts of the year, worked out on the device without asking "
        "anybody. Every day has a page of its own, and each page has room for three lines of your own hand." },
    { "Amberlight", "Tove Lind", "Themes", "1.0", "1.0", "A warm look for the evening." },
    { "Birdsong", "Marsh & Reed", "Sounds", "3.2", nullptr, "Forty alarm sounds, recorded at dawn." },
    { "Bookbinder", "Orin Pell", "Utilities", "0.9.8", "0.9.6", "Folds long articles into small books." },
    { "Cartwheel", "Jun Abara", "Games", "5.1", nullptr, "Keep the wagon rolling through eleven villages." },
    { "Chalkboard", "Edda Brook", "Education", "1.3.2", "1.3.2", "A board, a sponge and six colours of chalk." },
    { "Clearwater", "Tove Lind", "Themes", "2.0", nullptr, "Cool blues, one fine line, nothing else." },
    { "Compositor", "Lena Voss", "Developer", "4.0.12", nullptr, "Looks into the layers of any window." },
    { "Daybreak", "Marsh & Reed", "Sounds", "1.1", nullptr, "" },
    { "Driftwood", "Ilse Marek", "Wallpapers", "1.6", "1.4", "Twelve quiet pictures of the shore." },
    { "Evergreen", "Ilse Marek", "Wallpapers", "2.2", nullptr, "Forest floors, moss and bark." },
    { "Ferryman", "Orin Pell", "Networking", "3.0.4", nullptr, "Carries files from one device to the next." },
    { "Fieldnotes", "Edda Brook", "Utilities", "1.8", "1.8", "A notebook that opens on today." },
    { "Glyphsmith", "Lena Voss", "Developer", "2.7.0", nullptr, "Draw a letter, see it in a sentence." },
    { "Harbour", "Jun Abara", "Games", "1.2.9", nullptr, "Load the ships before the tide turns." },
    { "Inkwell", "Orin Pell", "Utilities", "2.1", nullptr, "Signs documents with your own pen." },
    { "Kettle", "Tove Lind", "Utilities", "1.0.3", nullptr, "Counts the minutes for tea, eggs and bread." },
    { "Lamplighter", "Ilse Marek", "System", "6.0", "6.0", "Turns the lights on when it gets dark." },
    { "Longhand", "Edda Brook", "Fonts", "1.5", nullptr, "A face made from forty letters to a friend." },
    { "Meridian", "Jun Abara", "Utilities", "3.3", nullptr, "Ten clocks for ten cities." },
    { "Nightjar", "Marsh & Reed", "Sounds", "1.0", nullptr, "Sounds for those who stay up." },
    { "Orchard", "Ilse Marek", "Wallpapers", "1.9", nullptr, "Apples, pears, plums." },
    { "Paperweight", "Lena Voss", "System", "2.0.1", nullptr, "Keeps a document from being moved." },
    { "Quarry", "Orin Pell", "Developer", "0.4", nullptr, "Digs through logs." },
    { "Rainfall", "Marsh & Reed", "Sounds", "2.5", nullptr, "Rain on a tin roof, for an hour." },
    { "Signalbox", "Lena Voss", "Networking", "1.7.7", "1.7.2", "Shows which program talks to whom." },
    { "Tidewater", "Tove Lind", "Themes", "3.1", nullptr, "The look of Clearwater, after a storm." },
    { "Vesper", "Ilse Marek", "System", "1.4", nullptr, "Says good night at the hour you choose." },
    { "Windmill", "Jun Abara", "Games", "2.0", nullptr, "Grind corn with nothing but the breeze." },
    { "Yardstick", "Edda Brook", "Education", "1.1.1", nullptr, "Measures what the camera sees." },
} };

constexpr std::array<Entry, 7> excessiveEntries{ {
    { "A Package Whose Name Was Written by Somebody Who Could Not Come to an End", "Short", "Utilities", "1.0", nullptr,
        "" },
    { "Long Author", "The Honourable Society for the Preservation of Needlessly Long Designations and Titles",
        "Utilities", "1.0", "0.9", "" },
    { "Long Version", "Edda Brook", "Utilities", "184467440737095516159999999999:2024.10.31~beta12+git20241031.1-4",
        "1.0", "" },
    { "Everything Is Long Here and Installed As Well, So That a Badge Stands Beside It",
        "The Honourable Society for the Preservation of Needlessly Long Designations and Titles",
        "A Section of a Name That No Row Has Room For, However Wide the Window Is Made",
        "184467440737095516159999999999:2024.10.31~beta12+git20241031.1-4",
        "184467440737095516159999999999:2024.10.31~beta12+git20241031.1-4", "" },
    { "Ünïcödé Ñåmes — “Quoted” & <Tagged>", "Łukasz Żółć, Søren Ærø, İpek Şahin", "Utilities", "1.0", nullptr, "" },
    { "Ελληνικά Русский", "Ἀθηνᾶ, Фёдор", "Utilities", "1.0", nullptr, "" },
    { "OneWordThatIsSoLongThatThereIsNoPlaceToBreakItAnywhereAtAllInTheWholeRow", "x", "Utilities", "1.0", nullptr,
        "OneWordThatIsSoLongThatThereIsNoPlaceToBreakItAnywhereAtAllInTheWholeRowAndThenSomeMore." },
} };

constexpr std::array<Entry, 12> worldwideEntries{ {
    { "日历与农历", "李明", "工具", "2.1", nullptr,
        "在一页上显示公历、农历、二十四节气和传统节日。可以为每一天写下三行笔记，也可以把重要的日子标成红色。"
        "所有内容都保存在设备上，不需要网络。" },
    { "繁體字典", "陳小華", "教育", "1.4.2", "1.4.2", "收錄五萬個字，依部首與筆畫查詢。" },
    { "写真アルバム", "山田 花子", "ユーティリティ", "3.0", nullptr,
        "写真を日付ごとに並べて、小さな本のようにめくります。思い出をひとことで書き添えることもできます。" },
    { "한글 메모장", "김서연", "유틸리티", "1.9", "1.8", "오늘의 할 일을 한 줄씩 적는 작은 메모장입니다." },
    { "مفكرة الأيام", "ليلى حداد", "أدوات", "2.0", nullptr,
        "مفكرة صغيرة تعرض أيام الأسبوع والأعياد ومواقيت الشروق والغروب، وتحفظ ملاحظاتك على الجهاز دون الحاجة إلى "
        "الاتصال بالشبكة. تدعم الإصدار 2.0 والأحدث." },
    { "יומן לילה", "נועם לוי", "כלים", "1.3", "1.3", "יומן קטן לשעות הערב: שורה אחת בכל יום, בלי הסחות דעת." },
    { "حزمة ذات اسم طويل جدا لا يتسع له أي سطر مهما كانت النافذة عريضة على الشاشة", "مؤلف", "أدوات", "1.0", nullptr,
        "" },
    { "一个名字非常非常长以至于任何一行都放不下而且没有任何空格可以换行的软件包", "作者", "工具", "1.0", nullptr, "" },
    { "Tides أمواج 2", "Tove لين", "Themes", "2.0", nullptr, "Latin and Arabic letters in one line." },
    { "\u202eReversed by Force", "Edda \u202eBrook", "Utilities", "1.0", "0.9",
        "What was forced to run backwards runs forwards." },
    { "\u2067Left Open", "\u202bMarsh & Reed", "Utilities", "3.2", nullptr, "Opened, and never closed." },
    { "שלום Hello עולם", "Orin Pell (עורך)", "Utilities", "0.4", nullptr, "Both ways." },
} };

QString text(const char* utf8)
{
    return utf8 ? QString::fromUtf8(utf8) : QString();
}

VeskPackagePtr packageOf(const Entry& entry, int number, const VeskRepositoryPtr& repository)
{
    auto package = std::make_shared<VeskPackage>();
    package->setPackageID(QStringLiteral("org.example.package%1").arg(number, 2, 10, QLatin1Char('0')));
    package->setName(text(entry.name));
    package->setAuthor(text(entry.author));
    package->setSection(text(entry.section));
    package->setVersion(text(entry.version));
    package->setInstalledVersion(text(entry.installedVersion));
    package->setDesc(text(entry.description));
    package->setRepository(repository);
    return package;
}

template <typename Entries>
std::vector<VeskPackagePtr> packagesOf(const Entries& given, const VeskRepositoryPtr& repository)
{
    std::vector<VeskPackagePtr> packages;
    for (const Entry& entry : given)
        packages.push_back(packageOf(entry, static_cast<int>(packages.size()), repository));
    return packages;
}

} // namespace

std::vector<VeskPackagePtr> galleryPackages(const VeskRepositoryPtr& repository)
{
    return packagesOf(entries, repository);
}

std::vector<VeskPackagePtr> excessivePackages(const VeskRepositoryPtr& repository)
{
    return packagesOf(excessiveEntries, repository);
}

std::vector<VeskPackagePtr> worldwidePackages(const VeskRepositoryPtr& repository)
{
    return packagesOf(worldwideEntries, repository);
}
