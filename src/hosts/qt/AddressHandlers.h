#pragma once

#include <QObject>
#include <QString>
#include <map>
#include <optional>

namespace velmorath {

/// Which schemes of addresses the desktop has a program for: opening one with none would look as if it had
/// worked. The desktop's tool is asked beside the program, which does not wait for the answer.
class AddressHandlers {
public:
    /// Asks about this scheme soon, to have the answer in time.
    explicit AddressHandlers(const QString& scheme);
    ~AddressHandlers();

    AddressHandlers(const AddressHandlers&) = delete;
    AddressHandlers& operator=(const AddressHandlers&) = delete;

    /// What the tool said last; nothing before it has answered. Asks again, for the next time.
    std::optional<bool> has(const QString& scheme);

private:
    void ask(const QString& scheme);

    std::map<QString, std::optional<bool>> m_answers;
    /// Owns what is being asked.
    QObject m_questions;
};

} // namespace velmorath
