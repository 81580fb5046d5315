#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmorath {

/// An absolute address: a scheme, a colon, and whatever the scheme makes of the rest.
class URL {
public:
    /// Nothing when the text is no address: without a scheme or anything after it, or with a character
    /// that has to be percent-encoded in an address.
    static std::optional<URL> parse(std::string text);

    const std::string& absoluteString() const { return m_text; }

private:
    explicit URL(std::string text)
        : m_text(std::move(text))
    {
    }

    std::string m_text;
};

/// The text (UTF-8) as a part of an address: all but letters, digits and "-._~" percent-encoded.
std::string percentEncoded(std::string_view utf8);

} // namespace velmorath
