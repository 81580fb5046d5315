#pragma once

#include "IndexPath.h"
#include "UILabel.h"
#include "UIView.h"
#include <string>

namespace velmorath {

class UITableView;

enum class UITableViewCellStyle { standard };
enum class UITableViewCellSelectionStyle {
    none,
    /// Pales while it is held down or selected.
    standard,
};
enum class UITableViewCellAccessoryType { none, checkmark };

/// One row of a table. The table makes it, puts it in place and uses it again for another row.
class UITableViewCell : public UIView {
public:
    UITableViewCell(UITableViewCellStyle, std::string reuseIdentifier);

    const std::string& reuseIdentifier() const { return m_reuseIdentifier; }
    /// The built-in text, on the left.
    UILabel& textLabel() { return *m_textLabel; }
    void setSelectionStyle(UITableViewCellSelectionStyle style) { m_selectionStyle = style; }

    /// What the row shows at its right end.
    UITableViewCellAccessoryType accessoryType() const { return m_accessoryType; }
    void setAccessoryType(UITableViewCellAccessoryType);
    void setSelected(bool selected) { setDrawn(m_selected, selected); }

    /// What the row is to those who do not see it: an item of the list, unless it is set.
    void setAccessibilityRole(AccessibilityRole role) { m_accessibilityRole = role; }
    /// The checkmark says that the row is on, and its absence that it is off.
    void setAccessibilityToggle(bool isToggle) { m_isAccessibilityToggle = isToggle; }
    /// What it holds or how it stands, where the text does not say it.
    void setAccessibilityValue(std::string value) { m_accessibilityValue = std::move(value); }

    /// Shows or takes away the handle at the right end by which the row is dragged to another place.
    void setShowsReorderControl(bool);
    /// How much of the row's right end that handle takes; nothing when it is not there.
    CGFloat reorderControlWidth() const;

    /// The table that the row is in; nothing outside any.
    UITableView* table() const;

    bool canBecomeFocused() const override { return true; }
    /// What is in a table without being one of its rows just now: it is on its way out, or only looks like
    /// one.
    bool isHiddenFromAccessibility() const override;
    /// The built-in text as an item of the table; a checkmark counts as selected.
    std::optional<UIAccessibilityInfo> accessibilityInfo() override;
    void layoutSubviews() override;
    /// The table makes up for what it did not do to the row for the sake of the gesture.
    void gestureEnded() override;

    void touchesBegan(const UITouches&) override { setHighlighted(true); }
    void touchesEnded(const UITouches&) override { setHighlighted(false); }
    void touchesCancelled(const UITouches&) override { setHighlighted(false); }

protected:
    void draw(CGContext&) const override;

private:
    void setHighlighted(bool highlighted) { setDrawn(m_highlighted, highlighted); }

    std::string m_reuseIdentifier;
    std::shared_ptr<UILabel> m_textLabel;
    std::shared_ptr<UILabel> m_checkmark;
    std::shared_ptr<UIView> m_reorderControl;
    UITableViewCellSelectionStyle m_selectionStyle = UITableViewCellSelectionStyle::standard;
    UITableViewCellAccessoryType m_accessoryType = UITableViewCellAccessoryType::none;
    AccessibilityRole m_accessibilityRole = AccessibilityRole::listItem;
    std::string m_accessibilityValue;
    bool m_isAccessibilityToggle = false;
    bool m_highlighted = false;
    bool m_selected = false;
};

} // namespace velmorath
