#include "actions/process/ChildProcess.h"

#include "actions/process/DescriptorLimit.h"
#include "actions/process/SignalDispositions.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// All of the wait status but the flag that tells of a core dump.
constexpr int exitStatusMask = 0xff7f;

class SpawnFileActions
{
public:
    SpawnFileActions()
        : m_usable(posix_spawn_file_actions_init(&m_actions) == 0)
    {
    }
    SpawnFileActions(const SpawnFileActions&) = delete;
    SpawnFileActions& operator=(const SpawnFileActions&) = delete;
    ~SpawnFileActions()
    {
        if (m_usable)
            posix_spawn_file_actions_destroy(&m_actions);
    }

    // Standard input too is opened write-only: a child that reads from it fails instead of waiting.
    bool silence(int descriptor)
    {
        return m_usable && posix_spawn_file_actions_addopen(&m_actions, descriptor, "/dev/null", O_WRONLY, 0) == 0;
    }

    bool give(int descriptor, int childDescriptor)
    {
        return m_usable && posix_spawn_file_actions_adddup2(&m_actions, descriptor, childDescriptor) == 0;
    }

    // Connections that libraries opened without asking to have them closed in children, and anything else.
    bool closeFrom(int descriptor)
    {
        return m_usable && posix_spawn_file_actions_addclosefrom_np(&m_actions, descriptor) == 0;
    }

    const posix_spawn_file_actions_t* get() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions = {};
    bool m_usable;
};

std::vector<char*> nullTerminated(QList<QByteArray>& texts)
{
    std::vector<char*> pointers;
    for (QByteArray& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// What is not to be passed on goes in every child.
bool silenceOutputs(SpawnFileActions& actions)
{
    return actions.silence(STDOUT_FILENO) && actions.silence(STDERR_FILENO) && actions.closeFrom(STDERR_FILENO + 1);
}

// Zero, success, when the child can no longer be asked about, as where SIGCHLD is ignored.
int waitStatus(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) { }
    return status;
}

std::optional<pid_t> spawned(const std::vector<char*>& arguments, const SpawnFileActions& actions)
{
    const DescriptorLimit::OfChildren limit;
    pid_t child = 0;
    const int error = posix_spawn(&child, arguments.front(), actions.get(), nullptr, arguments.data(), environ);
    return error == 0 ? std::optional(child) : std::nullopt;
}

// How the child ended, or none when there was none.
std::optional<int> waitStatusOf(const QStringList& arguments, const SpawnFileActions& actions)
{
    if (arguments.isEmpty())
        return std::nullopt;
    QList<QByteArray> texts;
    for (const QString& argument : arguments)
        texts.append(argument.toUtf8());
    const std::vector<char*> vector = nullTerminated(texts);

    SignalDispositions::restoreForChildren();
    const auto child = spawned(vector, actions);
    return child ? std::optional(waitStatus(*child)) : std::nullopt;
}

} // namespace

bool runChildProcess(const QStringList& arguments)
{
    SpawnFileActions actions;
    if (!actions.silence(STDIN_FILENO) || !silenceOutputs(actions))
        return false;
    const auto status = waitStatusOf(arguments, actions);
    return status && (*status & exitStatusMask) == 0;
}

std::optional<int> exitCodeOfChildProcess(const QStringList& arguments, int standardInput)
{
    SpawnFileActions actions;
    if (!actions.give(standardInput, STDIN_FILENO) || !silenceOutputs(actions))
        return std::nullopt;
    const auto status = waitStatusOf(arguments, actions);
    return status && WIFEXITED(*status) ? std::optional(WEXITSTATUS(*status)) : std::nullopt;
}

bool isExecutableFile(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat information = {};
    return stat(name.constData(), &information) == 0 && S_ISREG(information.st_mode)
        && access(name.constData(), X_OK) == 0;
}
