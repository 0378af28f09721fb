// Names that nobody answers for, in a network of its own whose name server is silent.
#include "http/Client.h"
#include "http/Fetch.h"

#include "Ways.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>

using http::Failure;

namespace {

enum Ending { AsExpected, NoNetworkOfItsOwn, WaitedForTheLookUp, WrongOutcome };

void write(const char* path, const std::string& text)
{
    std::ofstream(path) << text;
}

// With the loopback device alone, and with names asked for at the address of silentServer().
bool enterOwnNetwork()
{
    const std::string user = std::to_string(getuid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET | CLONE_NEWNS) != 0)
        return false;
    write("/proc/self/setgroups", "deny");
    write("/proc/self/uid_map", "0 " + user + " 1");
    const std::string servers = testing::TempDir() + "silent-name-server-" + std::to_string(getpid());
    write(servers.c_str(), "nameserver 127.0.0.1\noptions timeout:30 attempts:1\n");
    ifreq loopback = { .ifr_ifrn = { "lo" } };
    loopback.ifr_flags = IFF_UP;
    const int control = socket(AF_INET, SOCK_DGRAM, 0);
    return mount(servers.c_str(), "/etc/resolv.conf", nullptr, MS_BIND, nullptr) == 0 && unlink(servers.c_str()) == 0
        && ioctl(control, SIOCSIFFLAGS, &loopback) == 0;
}

int silentServer()
{
    constexpr int namePort = 53;
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(namePort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int server = socket(AF_INET, SOCK_DGRAM, 0);
    return bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 ? server : -1;
}

void waitForQuestion(int server)
{
    std::array<char, 512> question = {};
    recv(server, question.data(), question.size(), 0);
}

// The thread of a look-up is left to itself, so it is there as long as the look-up is.
bool isLookingUp()
{
    const std::filesystem::directory_iterator threads("/proc/self/task");
    return std::distance(begin(threads), end(threads)) > 1;
}

http::Request hopeless()
{
    http::Request request = requestOf(Way::Index, "http://repository.example/");
    request.limits.inactivity = std::chrono::hours(1);
    return request;
}

// In a process of its own, for a network is entered for good.
int endingOf(const std::function<Ending(int server)>& steps)
{
    const pid_t child = fork();
    if (child == 0) {
        const int server = enterOwnNetwork() ? silentServer() : -1;
        _exit(server < 0 ? NoNetworkOfItsOwn : steps(server));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(HangingLookUpTest, shouldNotKeepAClientFromGoing)
{
    EXPECT_EQ(endingOf([](int server) {
        {
            http::Client client;
            client.start(hopeless(), std::make_shared<GatheringReceiver>(), nullptr);
            waitForQuestion(server);
        }
        return isLookingUp() ? AsExpected : WaitedForTheLookUp;
    }),
        AsExpected);
}

TEST(HangingLookUpTest, shouldNotKeepATransferFromBeingStopped)
{
    EXPECT_EQ(endingOf([](int server) {
        std::stop_source stop;
        Failure failure = Failure::None;
        {
            const std::jthread stopping([&] {
                waitForQuestion(server);
                stop.request_stop();
            });
            GatheringReceiver receiver;
            failure = http::fetch(hopeless(), receiver, stop.get_token()).failure;
        }
        if (failure != Failure::Cancelled)
            return WrongOutcome;
        return isLookingUp() ? AsExpected : WaitedForTheLookUp;
    }),
        AsExpected);
}

TEST(HangingLookUpTest, shouldBeBoundedByTheTimeForConnecting)
{
    EXPECT_EQ(endingOf([](int) {
        http::Request request = hopeless();
        request.limits.inactivity = std::chrono::milliseconds(200);
        GatheringReceiver receiver;
        if (http::fetch(request, receiver).failure != Failure::Silent)
            return WrongOutcome;
        return isLookingUp() ? AsExpected : WaitedForTheLookUp;
    }),
        AsExpected);
}
