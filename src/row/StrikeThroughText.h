#pragma once

#include "UITextField.h"

namespace velmorath {

class KeyedUnarchiver;

/// A text field that can draw a line over its text.
class StrikeThroughText : public UITextField {
public:
    explicit StrikeThroughText(const CGRect& frame);
    /// Is not archived: this ends the program.
    explicit StrikeThroughText(KeyedUnarchiver&);

    bool strikeThrough() const { return m_strikeThrough; }
    void setStrikeThrough(bool);

    void layoutSubviews() override;

    const std::shared_ptr<CALayer> strikeThroughLayer = std::make_shared<CALayer>();
    const CGFloat kStrikeOutThickness = 2.0;

private:
    void placeLine();

    bool m_strikeThrough = false;
};

} // namespace velmorath
