#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QStringList>

// The pictures of one scale that were looked at and kept, and the comparison of what is drawn now with them.
// A picture that differs is written to the directory of actual ones, with a picture of the difference beside it.
class GoldenPictures
{
public:
    enum class Purpose { Compare, Renew };

    GoldenPictures(double scale, Purpose purpose);

    // Empty when the picture is the golden one, or has become it; otherwise what is wrong, naming the files to look at.
    QString check(const QString& name, const QImage& picture);
    // Golden pictures of this scale that nothing has drawn; when renewing, they are removed and this is empty.
    QStringList leftOver();

    double scale() const { return m_scale; }

private:
    QString fileName(const QString& name) const;
    void renew(const QString& file, const QImage& golden, const QImage& actual);
    QString report(const QString& file, const QImage& golden, const QImage& actual) const;

    double m_scale;
    Purpose m_purpose;
    QDir m_golden;
    QDir m_actual;
    QStringList m_drawn;
};
