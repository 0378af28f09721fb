#include "benchmarks/GeneratedIndex.h"

#include <array>
#include <cstdint>
#include <random>

namespace {

const std::array<const char*, 48> words{ "common", "library", "tools", "python", "development", "files", "client",
    "server", "fonts", "image", "network", "system", "daemon", "plugin", "data", "documentation", "module", "support",
    "graphical", "simple", "utility", "runtime", "shared", "header", "kernel", "audio", "video", "terminal", "editor",
    "manager", "package", "game", "science", "parser", "database", "web", "mail", "secure", "backup", "language",
    "translation", "theme", "desktop", "window", "test", "engine", "format", "converter" };

class Generator
{
public:
    QByteArray word() { return words[m_random() % words.size()]; }

    QByteArray sentence(int length)
    {
        QByteArray text = word();
        for (int index = 1; index < length; ++index)
            text += ' ' + word();
        return text;
    }

    QByteArray digits(int count)
    {
        QByteArray text;
        for (int index = 0; index < count; ++index)
            text += "0123456789abcdef"[m_random() % 16];
        return text;
    }

    unsigned number(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

private:
    std::mt19937 m_random{ 20240229 };
};

QByteArray identifierOf(int number)
{
    return "lib-" + QByteArray(words[static_cast<std::size_t>(number) % words.size()]) + '-'
        + QByteArray::number(number);
}

QByteArray dependencies(Generator& generator)
{
    QByteArray text = "Depends: libc6 (>= 2.36)";
    for (unsigned left = generator.number(12); left > 0; --left)
        text += ", lib-" + generator.word() + " (>= " + QByteArray::number(generator.number(9)) + ".1)";
    return text + '\n';
}

} // namespace

QByteArray generatedIndex(int packageCount)
{
    Generator generator;
    QByteArray text;
    for (int number = 0; number < packageCount; ++number) {
        const QByteArray packageID = identifierOf(number);
        const QByteArray version
            = QByteArray::number(generator.number(20)) + '.' + QByteArray::number(generator.number(40)) + "-1";
        text += "Package: " + packageID + "\nVersion: " + version
            + "\nInstalled-Size: " + QByteArray::number(generator.number(90000)) + "\nMaintainer: Team "
            + QByteArray::number(generator.number(1500)) + " <team@lists.example>\nArchitecture: all\n"
            + dependencies(generator) + "Description: " + generator.sentence(6) + "\nHomepage: https://"
            + generator.word() + ".example/" + packageID + "\nDescription-md5: " + generator.digits(32)
            + "\nTag: role::" + generator.word() + ", use::" + generator.word()
            + "\nSection: " + words[generator.number(30)] + "\nPriority: optional\nFilename: pool/main/l/" + packageID
            + '/' + packageID + '_' + version + "_all.deb\nSize: " + QByteArray::number(generator.number(9000000))
            + "\nMD5sum: " + generator.digits(32) + "\nSHA256: " + generator.digits(64) + "\n\n";
    }
    return text;
}

QByteArray generatedStatus(int packageCount)
{
    QByteArray text;
    for (int number = 0; number < packageCount; number += 20)
        text += "Package: " + identifierOf(number) + "\nStatus: install ok installed\nVersion: 1.0-1\n\n";
    return text;
}
