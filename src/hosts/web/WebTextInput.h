#pragma once

#include "TextInput.h"

namespace velmorath {

/// An <input> or a <textarea> over the canvas.
class WebTextInput final : public TextInput {
public:
    void begin(TextInputClient&, const std::string& utf8, const CGTextStyle&, TextInputTraits) override;
    void place(const CGRect& frame, const CGRect& clip, CGFloat opacity) override;
    CGFloat scrolled() const override;
    void end() override;

    /// What the page reports. Nobody listens once the editing has ended.
    void changed(const std::string& utf8);
    void returned();

private:
    TextInputClient* m_client = nullptr;
};

} // namespace velmorath
