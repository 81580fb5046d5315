#include "HeadlessTextInput.h"

namespace velmorath {

void HeadlessTextInput::begin(
    TextInputClient& client, const std::string& utf8, const CGTextStyle& style, TextInputTraits traits)
{
    m_client = &client;
    m_text = utf8;
    m_style = style;
    m_traits = traits;
}

void HeadlessTextInput::place(const CGRect& frame, const CGRect& clip, CGFloat opacity)
{
    m_frame = frame;
    m_clip = clip;
    m_opacity = opacity;
}

void HeadlessTextInput::replaceText(const std::string& utf8)
{
    if (!m_client)
        return;
    m_text = utf8;
    m_client->textInputDidChange(m_text);
}

void HeadlessTextInput::pressReturn()
{
    if (m_client)
        m_client->textInputDidReturn();
}

} // namespace velmorath
