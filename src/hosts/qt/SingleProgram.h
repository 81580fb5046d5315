#pragma once

#include "Descriptor.h"
#include "DesktopCall.h"
#include <QSocketNotifier>
#include <functional>
#include <memory>
#include <string>

namespace velmorath {

/// Sees to it that a user runs the program once. A lock that the system itself gives up when a program
/// ends, however it ends, says who is the first; on a socket beside it the others call.
class SingleProgram {
public:
    /// Without a folder, or with one that cannot be written, everybody is the first.
    explicit SingleProgram(const std::string& folder);
    ~SingleProgram();

    SingleProgram(const SingleProgram&) = delete;
    SingleProgram& operator=(const SingleProgram&) = delete;

    bool isFirst() const { return m_isFirst; }

    /// Hands the first program what this one was called for. False when it does not answer.
    bool callFirst(const DesktopCall&) const;

    /// For the first one: called for each that starts later. There must be a Qt loop.
    void setOnCall(std::function<void(const DesktopCall&)>);

    /// A folder for the lock: the session's own one, else the one of the user's data. Empty where there is
    /// none.
    static std::string usualFolder();

private:
    void listen();
    void answer();

    std::string m_socketPath;
    Descriptor m_lock;
    Descriptor m_socket;
    bool m_isFirst = true;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void(const DesktopCall&)> m_onCall;
};

} // namespace velmorath
