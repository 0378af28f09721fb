#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>

// The pictures of one suite that were looked at and kept, and the comparison of what is drawn now with them.
// Another renderer's pictures only have to resemble them: glyphs and edges fall a little differently on the pixels.
// A picture that differs is written to the directory of actual ones, with a picture of the difference beside it.
class GoldenPictures
{
public:
    enum class Purpose { Compare, Renew, Resemble };

    GoldenPictures(const QString& suite, Purpose purpose);

    // Empty when the picture is the golden one, or has become it; otherwise what is wrong, naming the files to look at.
    QString check(const QString& name, const QImage& picture);
    // Golden pictures of the suite that nothing has drawn; when renewing, they are removed and this is empty.
    QStringList leftOver();

private:
    bool isGoodEnough(const QImage& golden, const QImage& actual) const;
    void renew(const QString& file, const QImage& golden, const QImage& actual);
    QString report(const QString& file, const QImage& golden, const QImage& actual) const;

    Purpose m_purpose;
    QDir m_golden;
    QDir m_actual;
    QStringList m_drawn;
};
