// The one part of Vesk that runs as root, for a person who is not: pkexec starts it once the administrator has agreed.
//
// usage: install-package SHA256 <ARCHIVE
//
// Installs the archive that is open on standard input if it has the digest. The exit status is dpkg's, or 125 when
// anything is not as it must be, in which case dpkg was not run. Says nothing.
//
// Nothing of the caller's is believed but the administrator's word for the digest: not the environment, the working
// directory, further descriptors, limits or signals. The archive is copied to where nobody else can write before its
// digest is taken, so what was judged is what is installed. What stands here is all of it; keep it short enough to be
// read at a sitting.
#include <array>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sha2.h>
#include <spawn.h>
#include <string>
#include <strings.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int notAsItMustBe = 125;
constexpr const char* cacheDirectory = "/var/cache/vesk";
constexpr size_t digestDigits = size_t{ SHA256_DIGEST_LENGTH } * 2;
constexpr size_t pieceSize = 64UL * 1024;

bool isDigest(const char* text)
{
    return strlen(text) == digestDigits && strspn(text, "0123456789abcdefABCDEF") == digestDigits;
}

// Limits survive the change of user: a caller could have dpkg break off in the middle.
void liftLimits()
{
    const rlimit none = { RLIM_INFINITY, RLIM_INFINITY };
    for (const auto limit : { RLIMIT_AS, RLIMIT_CPU, RLIMIT_DATA, RLIMIT_FSIZE })
        setrlimit(limit, &none);
}

bool takeNothingOver()
{
    closefrom(STDERR_FILENO + 1);
    umask(022);
    liftLimits();
    // Where it is ignored, a child's end cannot be asked about.
    return signal(SIGCHLD, SIG_DFL) != SIG_ERR && chdir("/") == 0;
}

// A directory of root's that nobody else can enter; one that is there and is not so is refused, never mended.
bool hasCacheDirectory()
{
    struct stat found = {};
    if (mkdir(cacheDirectory, S_IRWXU) != 0 && errno != EEXIST)
        return false;
    return lstat(cacheDirectory, &found) == 0 && S_ISDIR(found.st_mode) && found.st_uid == 0
        && (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

bool writeAll(int descriptor, const uint8_t* bytes, size_t count)
{
    while (count > 0) {
        const ssize_t written = write(descriptor, bytes, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        count -= static_cast<size_t>(written);
    }
    return true;
}

// A file of root's own, removed with this object.
class PrivateCopy
{
public:
    PrivateCopy()
        : m_descriptor(hasCacheDirectory() ? mkostemps(m_path.data(), 4, O_CLOEXEC) : -1)
    {
    }
    PrivateCopy(const PrivateCopy&) = delete;
    PrivateCopy& operator=(const PrivateCopy&) = delete;
    ~PrivateCopy()
    {
        if (m_descriptor >= 0) {
            close(m_descriptor);
            unlink(m_path.c_str());
        }
    }

    // Copies so many bytes of standard input from its beginning. Whether all were written and have the digest.
    bool take(off_t length, const char* digest) const
    {
        if (m_descriptor < 0)
            return false;
        SHA2_CTX context;
        SHA256Init(&context);
        std::array<uint8_t, pieceSize> piece = {};
        for (off_t position = 0; position < length;) {
            const ssize_t count = pread(STDIN_FILENO, piece.data(), piece.size(), position);
            if (count <= 0 || !writeAll(m_descriptor, piece.data(), static_cast<size_t>(count)))
                return false;
            SHA256Update(&context, piece.data(), static_cast<size_t>(count));
            position += count;
        }
        std::array<char, SHA256_DIGEST_STRING_LENGTH> found = {};
        return strcasecmp(SHA256End(&context, found.data()), digest) == 0;
    }

    const std::string& path() const { return m_path; }

private:
    std::string m_path = std::string(cacheDirectory) + "/XXXXXX.deb";
    int m_descriptor;
};

// The child begins with no signal blocked or ignored, and without a terminal that a package's script could wait at.
bool setAttributes(posix_spawnattr_t& attributes)
{
    constexpr short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID;
    sigset_t none = {};
    sigset_t all = {};
    return sigemptyset(&none) == 0 && sigfillset(&all) == 0 && posix_spawnattr_init(&attributes) == 0
        && posix_spawnattr_setsigmask(&attributes, &none) == 0 && posix_spawnattr_setsigdefault(&attributes, &all) == 0
        && posix_spawnattr_setflags(&attributes, flags) == 0;
}

bool silence(posix_spawn_file_actions_t& actions)
{
    const auto open = [&actions](int descriptor) {
        return posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_RDWR, 0) == 0;
    };
    return posix_spawn_file_actions_init(&actions) == 0 && open(STDIN_FILENO) && open(STDOUT_FILENO)
        && open(STDERR_FILENO);
}

// dpkg's exit status.
int statusOf(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return notAsItMustBe;
    return WIFEXITED(status) ? WEXITSTATUS(status) : notAsItMustBe;
}

int runDpkg(std::string archive)
{
    std::string program = "/usr/bin/dpkg";
    std::string install = "-i";
    // dpkg wants the folders of the system's own tools; nobody is there to answer debconf.
    std::string path = "PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin";
    std::string frontend = "DEBIAN_FRONTEND=noninteractive";
    const std::array<char*, 4> arguments = { program.data(), install.data(), archive.data(), nullptr };
    const std::array<char*, 3> environment = { path.data(), frontend.data(), nullptr };
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t actions;
    pid_t child = 0;
    if (!setAttributes(attributes) || !silence(actions))
        return notAsItMustBe;
    const int failure
        = posix_spawn(&child, program.c_str(), &actions, &attributes, arguments.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
    return failure == 0 ? statusOf(child) : notAsItMustBe;
}

int installPackage(const char* digest)
{
    // Looked at before anything is opened: where standard input is closed, the copy itself would come to stand in its
    // place.
    struct stat input = {};
    if (fstat(STDIN_FILENO, &input) != 0 || !S_ISREG(input.st_mode))
        return notAsItMustBe;
    const PrivateCopy copy;
    return copy.take(input.st_size, digest) ? runDpkg(copy.path()) : notAsItMustBe;
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2 || !isDigest(arguments[1]) || !takeNothingOver())
        return notAsItMustBe;
    return installPackage(arguments[1]);
}
