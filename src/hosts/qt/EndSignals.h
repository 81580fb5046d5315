#pragma once

#include "Descriptor.h"
#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <memory>
#include <vector>

namespace velmorath {

/// The signals by which a system asks a program to end (SIGTERM, SIGHUP and SIGINT), as calls in the Qt
/// loop. One that whoever started the program had ignored stays so. At most one object at a time.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onSignal);
    ~EndSignals();

    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    Descriptor m_out;
    Descriptor m_in;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<int> m_taken;
};

} // namespace velmorath
