#pragma once

#include <QByteArray>
#include <QString>

// The files in which the new contents of another one are written before they take its name. They stand beside it, and
// each is locked for as long as its writer lives: one that can be locked was left by a program that was killed in the
// middle, or by a machine that lost its power. Nothing throws.
class UnfinishedFiles
{
public:
    // Keeps one from being taken for abandoned, until this goes or the program ends, however it ends.
    class Claim
    {
    public:
        Claim() = default;
        Claim(const Claim&) = delete;
        Claim& operator=(const Claim&) = delete;
        ~Claim();

        // Once, of a file that is open. False when it was taken for abandoned just before; true also where a file
        // system knows no locks, for there nothing is. The descriptor may be closed then.
        bool take(int file, const QByteArray& path);

    private:
        int m_file = -1;
    };

    // Of the file at that path, which is no link.
    explicit UnfinishedFiles(const QString& path);

    // A path that nothing has.
    QString newPath() const;
    // What cannot be looked at or removed stays.
    void removeAbandoned() const;

private:
    bool isOne(const QString& name) const;

    QString m_directory;
    // All but their last, random part.
    QString m_stem;
};
