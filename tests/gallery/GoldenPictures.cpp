#include "tests/gallery/GoldenPictures.h"

#include "tests/gallery/SmallPng.h"

#include <QTextStream>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr QImage::Format Pixels = QImage::Format_RGB888;

// Of 255 in any of the three colours: what is seen where two pictures lie side by side.
constexpr int Noticeable = 64;
constexpr double LargestNoticeableShare = 0.0025;

bool isNoticeable(QRgb one, QRgb other)
{
    return std::abs(qRed(one) - qRed(other)) > Noticeable || std::abs(qGreen(one) - qGreen(other)) > Noticeable
        || std::abs(qBlue(one) - qBlue(other)) > Noticeable;
}

// From 0 to 1; pictures of different sizes have nothing in common.
double noticeableShare(const QImage& golden, const QImage& actual)
{
    if (golden.size() != actual.size())
        return 1;
    int noticeable = 0;
    for (int y = 0; y < golden.height(); ++y)
        for (int x = 0; x < golden.width(); ++x)
            noticeable += isNoticeable(golden.pixel(x, y), actual.pixel(x, y)) ? 1 : 0;
    return static_cast<double>(noticeable) / (golden.width() * golden.height());
}

// What is the same stays, faint; what differs is red.
QImage difference(const QImage& golden, const QImage& actual)
{
    QImage picture(golden.size().expandedTo(actual.size()), Pixels);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const bool isInBoth = golden.valid(x, y) && actual.valid(x, y);
            const bool isSame = isInBoth && golden.pixel(x, y) == actual.pixel(x, y);
            const int grey = isSame ? 192 + qGray(actual.pixel(x, y)) / 4 : 0;
            picture.setPixel(x, y, isSame ? qRgb(grey, grey, grey) : qRgb(220, 0, 0));
        }
    return picture;
}

} // namespace

GoldenPictures::GoldenPictures(const QString& suite, Purpose purpose)
    : m_purpose(purpose)
    , m_golden(QDir(QStringLiteral(GALLERY_GOLDEN)).filePath(suite))
    , m_actual(QDir(QStringLiteral(GALLERY_ACTUAL)).filePath(suite))
{
    m_golden.mkpath(QStringLiteral("."));
    m_actual.mkpath(QStringLiteral("."));
}

QString GoldenPictures::check(const QString& name, const QImage& picture)
{
    const QString file = name + QStringLiteral(".png");
    if (m_drawn.contains(file))
        return file + QStringLiteral(" is drawn twice");
    m_drawn.append(file);
    const QImage actual = picture.convertToFormat(Pixels);
    const QImage golden = QImage(m_golden.filePath(file)).convertToFormat(Pixels);
    if (isGoodEnough(golden, actual)) {
        m_actual.remove(file);
        m_actual.remove(QStringLiteral("difference-") + file);
        return {};
    }
    if (m_purpose != Purpose::Renew)
        return report(file, golden, actual);
    renew(file, golden, actual);
    return {};
}

bool GoldenPictures::isGoodEnough(const QImage& golden, const QImage& actual) const
{
    if (m_purpose != Purpose::Resemble)
        return actual == golden;
    const double share = noticeableShare(golden, actual);
    QTextStream(stdout) << "noticeably different: " << share * 100 << " % of the pixels" << Qt::endl;
    return share <= LargestNoticeableShare;
}

void GoldenPictures::renew(const QString& file, const QImage& golden, const QImage& actual)
{
    saveSmallPng(actual, m_golden.filePath(file));
    QTextStream(stdout) << (golden.isNull() ? "new      " : "changed  ") << m_golden.filePath(file) << Qt::endl;
}

QString GoldenPictures::report(const QString& file, const QImage& golden, const QImage& actual) const
{
    const QString path = m_actual.filePath(file);
    const QString differencePath = m_actual.filePath(QStringLiteral("difference-") + file);
    saveSmallPng(actual, path);
    saveSmallPng(difference(golden, actual), differencePath);
    return QStringLiteral("golden      %1%2\nactual      %3\ndifference  %4")
        .arg(m_golden.filePath(file), golden.isNull() ? QStringLiteral(" (is not there)") : QString(), path,
            differencePath);
}

QStringList GoldenPictures::leftOver()
{
    QStringList files = m_golden.entryList(QDir::Files);
    const auto isDrawn = [this](const QString& file) { return m_drawn.contains(file); };
    files.erase(std::remove_if(files.begin(), files.end(), isDrawn), files.end());
    if (m_purpose != Purpose::Renew)
        return files;
    for (const QString& file : files) {
        m_golden.remove(file);
        QTextStream(stdout) << "removed  " << m_golden.filePath(file) << Qt::endl;
    }
    return {};
}
