#include "SingleProgram.h"
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace velmorath {

namespace {

constexpr int answerTimeout = 2000;

bool setAddress(sockaddr_un& address, const std::string& path)
{
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

const char* environment(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value == '/' ? value : nullptr;
}

} // namespace

std::string SingleProgram::usualFolder()
{
    const char* runtime = environment("XDG_RUNTIME_DIR");
    if (runtime && access(runtime, W_OK) == 0)
        return runtime;
    if (const char* data = environment("XDG_DATA_HOME"))
        return std::string(data) + "/velmorath";
    const char* home = environment("HOME");
    return home ? std::string(home) + "/.local/share/velmorath" : std::string();
}

SingleProgram::SingleProgram(const std::string& folder)
    : m_socketPath(folder + "/velmorath.socket")
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    m_lock = open((folder + "/velmorath.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (m_lock < 0)
        return;
    m_isFirst = flock(m_lock, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (m_isFirst)
        listen();
}

SingleProgram::~SingleProgram()
{
    m_notifier.reset();
    if (m_socket >= 0) {
        unlink(m_socketPath.c_str());
        close(m_socket);
    }
    if (m_lock >= 0)
        close(m_lock);
}

void SingleProgram::listen()
{
    sockaddr_un address{};
    if (!setAddress(address, m_socketPath))
        return;
    m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    // Whoever holds the lock owns the socket: one that is there was left behind.
    unlink(m_socketPath.c_str());
    constexpr int mostWaiting = 8;
    if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0
        && ::listen(m_socket, mostWaiting) == 0)
        return;
    close(m_socket);
    m_socket = -1;
}

bool SingleProgram::callFirst(const std::string& activationToken) const
{
    sockaddr_un address{};
    if (!setAddress(address, m_socketPath))
        return false;
    const int caller = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // The first one may have its lock and not yet its socket.
    constexpr int pause = 20;
    int connected = -1;
    for (int waited = 0; connected != 0 && waited < answerTimeout; waited += pause) {
        connected = connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof address);
        if (connected != 0)
            poll(nullptr, 0, pause);
    }
    if (connected == 0) {
        [[maybe_unused]] const auto sent =
            send(caller, activationToken.data(), activationToken.size(), MSG_NOSIGNAL);
        shutdown(caller, SHUT_WR);
        // It answers by closing; until then the permission must not end together with this program.
        pollfd answered{caller, POLLIN, 0};
        connected = poll(&answered, 1, answerTimeout) > 0 ? 0 : -1;
    }
    close(caller);
    return connected == 0;
}

void SingleProgram::setOnCall(std::function<void(const std::string&)> onCall)
{
    m_onCall = std::move(onCall);
    if (m_socket < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { answer(); });
}

void SingleProgram::answer()
{
    const int caller = accept(m_socket, nullptr, nullptr);
    if (caller < 0)
        return;
    // A caller has sent everything when it can be heard; one that is silent is not waited for long.
    std::array<char, 4096> bytes{};
    constexpr int patience = 100;
    pollfd sent{caller, POLLIN, 0};
    const ssize_t count =
        poll(&sent, 1, patience) > 0 ? recv(caller, bytes.data(), bytes.size(), MSG_DONTWAIT) : 0;
    m_onCall(std::string(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(0, count))));
    close(caller);
}

} // namespace velmorath
