// Loaded before a program's own libraries, it ends the program at one step of what that does to the files below a
// directory. In the environment: CUT_DIRECTORY; CUT_AT, the number of the step, from 1; CUT_HOW, "killed" for a process
// that is killed there, or "power" for a machine that is switched off: what was not brought to the disk by then is lost
// too, the contents of a new file as well as a new name. A write is two steps: its first half, then the rest.
#include <array>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum class Kind { Other, Directory, NewFile };
struct Opened
{
    Kind kind = Kind::Other;
    bool isOnDisk = false;
    std::string path;
};

// By descriptor; a small program has few.
std::array<Opened, 256> opened;
std::string newContents;
std::string renamedTo;
int steps = 0;

template <typename Function> Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool isWatched(const char* path)
{
    const char* const directory = std::getenv("CUT_DIRECTORY");
    return directory && std::strncmp(path, directory, std::strlen(directory)) == 0;
}

std::string backupOf(const std::string& path)
{
    return path + ".before";
}

void loseWhatIsNotOnTheDisk()
{
    if (!newContents.empty())
        truncate(newContents.c_str(), 0);
    if (!renamedTo.empty())
        real<int(const char*, const char*)>("rename")(backupOf(renamedTo).c_str(), renamedTo.c_str());
}

void step()
{
    if (++steps != std::atoi(std::getenv("CUT_AT")))
        return;
    if (std::strcmp(std::getenv("CUT_HOW"), "power") == 0)
        loseWhatIsNotOnTheDisk();
    raise(SIGKILL);
}

Opened* openedAt(int descriptor)
{
    const auto index = static_cast<std::size_t>(descriptor);
    return descriptor >= 0 && index < opened.size() && opened[index].kind != Kind::Other ? &opened[index] : nullptr;
}

int note(int descriptor, const char* path, int flags)
{
    if (descriptor < 0 || static_cast<std::size_t>(descriptor) >= opened.size())
        return descriptor;
    Opened& entry = opened[static_cast<std::size_t>(descriptor)];
    entry = { Kind::Other, false, path };
    if (flags & O_CREAT) {
        entry.kind = Kind::NewFile;
        newContents = path;
    } else if (flags & O_DIRECTORY) {
        entry.kind = Kind::Directory;
    }
    return descriptor;
}

int openWatched(const char* name, const char* path, int flags, mode_t mode)
{
    const bool watched = isWatched(path);
    if (watched)
        step();
    const int descriptor = real<int(const char*, int, ...)>(name)(path, flags, mode);
    return watched ? note(descriptor, path, flags) : descriptor;
}

} // namespace

extern "C" int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, unsigned int));
    va_end(arguments);
    return openWatched("open", path, flags, mode);
}

extern "C" int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, unsigned int));
    va_end(arguments);
    return openWatched("open64", path, flags, mode);
}

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t size)
{
    auto* const plainly = real<ssize_t(int, const void*, std::size_t)>("write");
    if (!openedAt(descriptor))
        return plainly(descriptor, bytes, size);
    step();
    const ssize_t half = plainly(descriptor, bytes, size / 2);
    if (half < 0)
        return half;
    step();
    const ssize_t rest
        = plainly(descriptor, static_cast<const char*>(bytes) + half, size - static_cast<std::size_t>(half));
    return rest < 0 ? rest : half + rest;
}

extern "C" int fsync(int descriptor)
{
    Opened* const entry = openedAt(descriptor);
    if (entry)
        step();
    const int result = real<int(int)>("fsync")(descriptor);
    if (entry && result == 0 && entry->kind == Kind::NewFile)
        newContents.clear();
    if (entry && result == 0 && entry->kind == Kind::Directory && !renamedTo.empty()) {
        real<int(const char*)>("unlink")(backupOf(renamedTo).c_str());
        renamedTo.clear();
    }
    return result;
}

extern "C" int close(int descriptor)
{
    if (Opened* const entry = openedAt(descriptor)) {
        step();
        *entry = {};
    }
    return real<int(int)>("close")(descriptor);
}

extern "C" int rename(const char* from, const char* to)
{
    auto* const plainly = real<int(const char*, const char*)>("rename");
    if (!isWatched(to))
        return plainly(from, to);
    step();
    link(to, backupOf(to).c_str());
    const int result = plainly(from, to);
    if (result == 0)
        renamedTo = to;
    // Whatever the contents were under the old name, they are lost under the new one.
    if (result == 0 && newContents == from)
        newContents = to;
    return result;
}
