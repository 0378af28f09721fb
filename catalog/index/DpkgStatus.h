#pragma once

#include "catalog/text/HashSlots.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <string_view>
#include <vector>

// The installed packages as the dpkg status database tells them, read once and never changed afterwards: any number of
// threads may look up in it. Every stanza counts, whatever its status line says.
class DpkgStatus
{
public:
    static QStringList standardPaths();
    // The first file that can be read, even an empty one, is the only one consulted; without any, nothing is installed.
    static DpkgStatus read(const QStringList& paths);
    // UTF-8 is expected; bytes that are not are taken for Latin-1.
    static DpkgStatus fromBytes(QByteArray bytes);

    // None when the package is not there or has no version. The view is good while this lives.
    std::optional<std::string_view> versionOf(std::string_view packageID) const;

private:
    struct Installed
    {
        std::string_view packageID;
        std::optional<std::string_view> version;
    };

    void addStanzas();
    void add(const Installed& installed);

    // On the heap, so that the views into it stay good when this is moved.
    QByteArray m_text;
    std::vector<Installed> m_installed;
    // Places of these by identifier, each plus one.
    HashSlots m_places;
};
