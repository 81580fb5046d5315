#include "SingleProgram.h"
#include "UserFolders.h"
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sstream>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>

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

/// A zero, which no path contains, ends the token and each file.
std::string joined(const DesktopCall& call)
{
    std::string message = call.activationToken + '\0';
    for (const std::string& file : call.files)
        message += file + '\0';
    return message;
}

DesktopCall parted(const std::string& message)
{
    std::vector<std::string> parts;
    std::istringstream stream(message);
    for (std::string part; std::getline(stream, part, '\0');)
        parts.push_back(part);
    if (parts.empty())
        return {};
    return {parts.front(), {parts.begin() + 1, parts.end()}};
}

} // namespace

std::string SingleProgram::usualFolder()
{
    const auto runtime = UserFolders::runtime();
    if (runtime && access(runtime->c_str(), W_OK) == 0)
        return *runtime;
    return UserFolders::data().value_or(std::string());
}

SingleProgram::SingleProgram(const std::string& folder)
    : m_socketPath(folder + "/velmorath.socket")
{
    if (folder.empty())
        return;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    m_lock = Descriptor(
        open((folder + "/velmorath.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!m_lock)
        return;
    m_isFirst = flock(m_lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (m_isFirst)
        listen();
}

SingleProgram::~SingleProgram()
{
    if (m_socket)
        unlink(m_socketPath.c_str());
}

void SingleProgram::listen()
{
    sockaddr_un address{};
    if (!setAddress(address, m_socketPath))
        return;
    m_socket = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // Whoever holds the lock owns the socket: one that is there was left behind.
    unlink(m_socketPath.c_str());
    constexpr int mostWaiting = 8;
    if (bind(m_socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || ::listen(m_socket.get(), mostWaiting) != 0)
        m_socket.close();
}

bool SingleProgram::callFirst(const DesktopCall& call) const
{
    sockaddr_un address{};
    if (!setAddress(address, m_socketPath))
        return false;
    const Descriptor caller(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // The first one may have its lock and not yet its socket.
    constexpr int pause = 20;
    int connected = -1;
    for (int waited = 0; connected != 0 && waited < answerTimeout; waited += pause) {
        connected = connect(caller.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
        if (connected != 0)
            poll(nullptr, 0, pause);
    }
    if (connected == 0) {
        const std::string message = joined(call);
        [[maybe_unused]] const auto sent = send(caller.get(), message.data(), message.size(), MSG_NOSIGNAL);
        shutdown(caller.get(), SHUT_WR);
        // It answers by closing; until then the permission must not end together with this program.
        pollfd answered{caller.get(), POLLIN, 0};
        connected = poll(&answered, 1, answerTimeout) > 0 ? 0 : -1;
    }
    return connected == 0;
}

void SingleProgram::setOnCall(std::function<void(const DesktopCall&)> onCall)
{
    m_onCall = std::move(onCall);
    if (!m_socket)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_socket.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { answer(); });
}

void SingleProgram::answer()
{
    const Descriptor caller(accept(m_socket.get(), nullptr, nullptr));
    if (!caller)
        return;
    // A caller sends everything at once; one that is silent is not waited for long.
    std::string message;
    std::array<char, 4096> bytes{};
    constexpr int patience = 100;
    constexpr std::size_t longestMessage = 1 << 20;
    pollfd sent{caller.get(), POLLIN, 0};
    while (message.size() < longestMessage && poll(&sent, 1, patience) > 0) {
        const ssize_t count = recv(caller.get(), bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (count <= 0)
            break;
        message.append(bytes.data(), static_cast<std::size_t>(count));
    }
    m_onCall(parted(message));
}

} // namespace velmorath
