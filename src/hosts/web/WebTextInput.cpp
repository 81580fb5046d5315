#include "WebTextInput.h"
#include "CommandBuffer.h"
#include "IncomingBytes.h"
#include "Page.h"
#include <limits>
#include <utility>

namespace velmorath {

void WebTextInput::begin(
    TextInputClient& client, const std::string& utf8, const CGTextStyle& style, TextInputTraits traits)
{
    end();
    m_client = &client;
    const CGFont& font = style.font;
    constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
    const CGPoint tap = traits.tap.value_or(CGPoint{nowhere, nowhere});
    pageBeginEditing(utf8.data(), utf8.size(), traits.label.data(), traits.label.size(), font.family.data(),
        font.family.size(), font.size, font.bold, CommandBuffer::packed(style.color),
        static_cast<int>(style.alignment), traits.multiline, traits.darkKeyboard, traits.doneKey, tap.x,
        tap.y, traits.scrolled);
}

void WebTextInput::place(const CGRect& frame, const CGRect& clip, CGFloat opacity)
{
    if (m_client) {
        pagePlaceEditor(frame.minX(), frame.minY(), frame.size.width, frame.size.height, clip.minX(),
            clip.minY(), clip.size.width, clip.size.height, opacity);
    }
}

CGFloat WebTextInput::scrolled() const
{
    return m_client ? pageEditorScrolled() : 0;
}

void WebTextInput::end()
{
    // Let go of first: the last change may start another editing.
    TextInputClient* const client = std::exchange(m_client, nullptr);
    if (!client)
        return;
    const long length = pageEndEditing();
    if (length >= 0)
        client->textInputDidChange(IncomingBytes::take(static_cast<std::size_t>(length)));
}

void WebTextInput::changed(const std::string& utf8)
{
    if (m_client)
        m_client->textInputDidChange(utf8);
}

void WebTextInput::returned()
{
    if (m_client)
        m_client->textInputDidReturn();
}

} // namespace velmorath
