// A program on the user's own sources, for tests of what a disk does to them: switches the first source at every line
// of its standard input, and prints how many sources there are and how the first one stands then.
#include "catalog/RepoManager.h"

#include <QCoreApplication>

#include <cstdio>
#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    RepoManager& manager = *RepoManager::sharedManager();
    std::string line;
    while (std::getline(std::cin, line)) {
        const VeskRepositoryPtr first = manager.repositories().front();
        manager.toggleRepository(first, !first->enabled());
        std::printf("%zu %s\n", manager.repositories().size(), first->enabled() ? "on" : "off");
        std::fflush(stdout);
    }
    return 0;
}
