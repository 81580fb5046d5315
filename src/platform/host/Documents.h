#pragma once

#include "Result.h"
#include <functional>
#include <optional>
#include <string>

namespace velmorath {

/// Gives texts and files to other programs, and takes them from there. Each call shows what the machine has
/// for it and returns at once; the answer comes later, or never when the user does not decide. Main thread
/// only.
class Documents {
public:
    virtual ~Documents() = default;

    enum class Shared {
        /// Another program has it, or the user changed his mind.
        handedOver,
        /// It is on the clipboard.
        copied,
        failed,
    };

    /// Hands a text to the machine's own sharing, or else to the clipboard.
    virtual void share(const std::string& utf8, std::function<void(Shared)> answer) = 0;

    /// Lets the user put bytes into a file, for which a name is proposed. The answer is an error or nothing:
    /// that the user changed his mind is none.
    virtual void save(const std::string& name, const std::string& bytes,
        std::function<void(std::optional<Error>)> answer) = 0;

    /// Lets the user choose a file, and answers with what is in it, or with nothing when there was none
    /// chosen.
    virtual void open(std::function<void(Result<std::optional<std::string>>)> answer) = 0;
};

} // namespace velmorath
