#include "EndSignals.h"
#include <array>
#include <cerrno>
#include <fcntl.h>

namespace velmorath {

namespace {

/// A handler may do next to nothing: it writes into a pipe, at whose other end the loop waits.
volatile std::sig_atomic_t s_pipe = -1;

extern "C" void writeIntoPipe(int)
{
    const int before = errno;
    [[maybe_unused]] const ssize_t written = write(s_pipe, "", 1);
    errno = before;
}

} // namespace

EndSignals::EndSignals(std::function<void()> onSignal)
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_out = Descriptor(ends[0]);
    m_in = Descriptor(ends[1]);
    s_pipe = m_in.get();
    m_notifier = std::make_unique<QSocketNotifier>(m_out.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
        [this, onSignal = std::move(onSignal)] {
            std::array<char, 16> bytes{};
            while (read(m_out.get(), bytes.data(), bytes.size()) > 0) { }
            onSignal();
        });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action { };
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = writeIntoPipe;
        action.sa_flags = SA_RESTART;
        if (sigaction(signal, &action, nullptr) == 0)
            m_taken.push_back(signal);
    }
}

EndSignals::~EndSignals()
{
    for (const int signal : m_taken)
        std::signal(signal, SIG_DFL);
}

} // namespace velmorath
