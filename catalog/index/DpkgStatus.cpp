#include "catalog/index/DpkgStatus.h"

#include "catalog/text/TextDecoding.h"
#include "catalog/text/TextHash.h"

#include <QFile>
#include <QFileInfo>

namespace {

// A status file of a whole distribution's packages stays under this; a larger one is no status file.
constexpr qint64 maximumFileSize = qint64(256) * 1024 * 1024;

constexpr std::string_view packagePrefix = "Package:";
constexpr std::string_view versionPrefix = "Version:";

std::optional<QByteArray> contentsOf(const QString& path)
{
    // A pipe or a device in the file's place could block for ever.
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    QFile file(path);
    if (file.size() > maximumFileSize || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    // Room is made for all that is asked for, whether it is there or not.
    QByteArray contents = file.read(file.size());
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return contents;
}

std::string_view trimmedBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return text.substr(0, 0);
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

struct Stanza
{
    std::optional<std::string_view> packageID;
    std::optional<std::string_view> version;

    void readLine(std::string_view line)
    {
        if (line.starts_with(packagePrefix))
            packageID = trimmedBlanks(line.substr(packagePrefix.size()));
        else if (line.starts_with(versionPrefix))
            version = trimmedBlanks(line.substr(versionPrefix.size()));
    }
};

} // namespace

QStringList DpkgStatus::standardPaths()
{
    return { QStringLiteral("/var/lib/dpkg/status"), QStringLiteral("/var/lib/apt/dpkg/status"),
        QStringLiteral("/Library/dpkg/status") };
}

DpkgStatus DpkgStatus::read(const QStringList& paths)
{
    for (const QString& path : paths) {
        if (auto contents = contentsOf(path))
            return fromBytes(std::move(*contents));
    }
    return {};
}

DpkgStatus DpkgStatus::fromBytes(QByteArray bytes)
{
    DpkgStatus status;
    status.m_text = isUtf8(viewOf(bytes)) ? std::move(bytes) : utf8FromLatin1(viewOf(bytes));
    status.addStanzas();
    return status;
}

std::optional<std::string_view> DpkgStatus::versionOf(std::string_view packageID) const
{
    const auto isSame = [&](std::uint32_t number) { return m_installed[number - 1].packageID == packageID; };
    const std::uint32_t number = m_places.find(hashOfText(packageID), isSame);
    return number == 0 ? std::nullopt : m_installed[number - 1].version;
}

void DpkgStatus::addStanzas()
{
    std::string_view rest = withoutByteOrderMark(viewOf(m_text));
    Stanza stanza;
    while (!rest.empty()) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(rest.size(), line.size() + 1));
        if (!line.empty()) {
            stanza.readLine(line);
            if (!rest.empty())
                continue;
        }
        if (stanza.packageID)
            add({ *stanza.packageID, stanza.version });
        stanza = {};
    }
}

// The first stanza of a package counts.
void DpkgStatus::add(const Installed& installed)
{
    const auto isSame = [&](std::uint32_t number) { return m_installed[number - 1].packageID == installed.packageID; };
    m_places.findOrAdd(hashOfText(installed.packageID), isSame, [&] {
        m_installed.push_back(installed);
        return static_cast<std::uint32_t>(m_installed.size());
    });
}
