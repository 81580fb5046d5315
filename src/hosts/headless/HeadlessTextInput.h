#pragma once

#include "TextInput.h"

namespace velmorath {

/// An editor whose keys the test presses.
class HeadlessTextInput : public TextInput {
public:
    void begin(TextInputClient&, const std::string& utf8, const CGTextStyle&, TextInputTraits) override;
    void place(const CGRect& frame, const CGRect& clip, CGFloat opacity) override;
    CGFloat scrolled() const override { return m_client ? m_traits.scrolled : 0; }
    void end() override { m_client = nullptr; }

    bool isEditing() const { return m_client; }
    const std::string& text() const { return m_text; }
    const CGTextStyle& style() const { return m_style; }
    const TextInputTraits& traits() const { return m_traits; }
    CGRect frame() const { return m_frame; }
    CGRect clip() const { return m_clip; }
    CGFloat opacity() const { return m_opacity; }

    /// Scrolls many lines, in points from their beginning.
    void scrollTo(CGFloat offset) { m_traits.scrolled = offset; }
    /// Adds to the end of the text. Nothing happens when nothing is edited.
    void type(const std::string& utf8) { replaceText(m_text + utf8); }
    /// Everything selected and typed over.
    void replaceText(const std::string& utf8);
    void pressReturn();

private:
    TextInputClient* m_client = nullptr;
    std::string m_text;
    CGTextStyle m_style;
    TextInputTraits m_traits;
    CGRect m_frame;
    CGRect m_clip;
    CGFloat m_opacity = 1;
};

} // namespace velmorath
