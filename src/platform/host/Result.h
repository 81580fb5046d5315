#pragma once

#include <optional>
#include <string>
#include <utility>

namespace velmorath {

/// Why something did not work, in words for a log line.
struct Error {
    std::string description;
};

/// A value or the reason why there is none. Nothing in this program throws.
template <typename T> class [[nodiscard]] Result {
public:
    Result(T value)
        : m_value(std::move(value))
    {
    }
    Result(Error error)
        : m_error(std::move(error))
    {
    }

    explicit operator bool() const { return m_value.has_value(); }
    T& operator*() { return *m_value; }
    const T& operator*() const { return *m_value; }
    T* operator->() { return &*m_value; }
    const T* operator->() const { return &*m_value; }
    const Error& error() const { return m_error; }

private:
    std::optional<T> m_value;
    Error m_error;
};

} // namespace velmorath
