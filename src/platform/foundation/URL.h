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
    std::string_view scheme() const { return std::string_view(m_text).substr(0, m_schemeLength); }
    /// The same address under another scheme, which must be a valid one.
    URL withScheme(std::string_view) const;

private:
    URL(std::string text, std::size_t schemeLength)
        : m_text(std::move(text))
        , m_schemeLength(schemeLength)
    {
    }

    std::string m_text;
    std::size_t m_schemeLength;
};

/// The text (UTF-8) as a part of an address: all but letters, digits and "-._~" percent-encoded.
std::string percentEncoded(std::string_view utf8);

} // namespace velmorath
