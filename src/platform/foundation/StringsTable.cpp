#include "StringsTable.h"
#include "Unicode.h"
#include <optional>

namespace velmorath {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

class StringsParser {
public:
    explicit StringsParser(std::string_view text)
        : m_text(text)
    {
        take(byteOrderMark);
    }

    StringsTable parse()
    {
        StringsTable table;
        while (skipToEntry()) {
            auto line = m_text;
            auto key = parseText();
            bool hasValue = key && takeAfterSpace("=");
            skipSpace();
            auto value = hasValue ? parseText() : std::nullopt;
            if (value && takeAfterSpace(";")) {
                table.insert_or_assign(std::move(*key), std::move(*value));
            } else {
                m_text = line;
                skipPast("\n");
            }
        }
        return table;
    }

private:
    bool take(std::string_view token)
    {
        bool isNext = m_text.starts_with(token);
        if (isNext)
            m_text.remove_prefix(token.size());
        return isNext;
    }

    bool takeAfterSpace(std::string_view token)
    {
        skipSpace();
        return take(token);
    }

    void skipSpace()
    {
        auto end = m_text.find_first_not_of(" \t\r\n");
        m_text.remove_prefix(end == std::string_view::npos ? m_text.size() : end);
    }

    void skipPast(std::string_view token)
    {
        auto place = m_text.find(token);
        m_text.remove_prefix(place == std::string_view::npos ? m_text.size() : place + token.size());
    }

    // False at the end.
    bool skipToEntry()
    {
        for (;;) {
            skipSpace();
            if (take("//"))
                skipPast("\n");
            else if (take("/*"))
                skipPast("*/");
            else
                return !m_text.empty();
        }
    }

    std::optional<std::string> parseText()
    {
        if (!take("\""))
            return {};
        std::string text;
        while (!m_text.empty() && m_text.front() != '\n') {
            if (take("\""))
                return text;
            if (take("\\")) {
                if (!parseEscape(text))
                    return {};
            } else {
                appendUTF8(text, takeCharacter(m_text));
            }
        }
        return {};
    }

    bool parseEscape(std::string& text)
    {
        if (take("u") || take("U")) {
            auto character = parseUnit();
            if (!character)
                return false;
            appendUTF8(text, *character);
        } else if (take("n")) {
            text += '\n';
        } else if (take("t")) {
            text += '\t';
        } else if (take("\"")) {
            text += '"';
        } else if (take("\\")) {
            text += '\\';
        } else {
            return false;
        }
        return true;
    }

    // Characters that need more than four digits are written as they are.
    std::optional<char32_t> parseUnit()
    {
        constexpr std::string_view digits = "0123456789abcdef";
        char32_t unit = 0;
        for (int i = 0; i < 4; ++i) {
            auto letter = m_text.empty() ? '\0' : m_text.front();
            auto digit =
                digits.find(letter >= 'A' && letter <= 'F' ? static_cast<char>(letter + 32) : letter);
            if (digit == std::string_view::npos)
                return {};
            unit = unit * 16 + static_cast<char32_t>(digit);
            m_text.remove_prefix(1);
        }
        return unit >= 0xD800 && unit < 0xE000 ? replacementCharacter : unit;
    }

    std::string_view m_text;
};

} // namespace

StringsTable parseStringsTable(std::string_view utf8)
{
    return StringsParser(utf8).parse();
}

} // namespace velmorath
