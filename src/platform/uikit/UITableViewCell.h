#pragma once

#include "IndexPath.h"
#include "UILabel.h"
#include "UIView.h"
#include <string>

namespace velmorath {

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
    bool isSelected() const { return m_selected; }
    void setSelected(bool);

    /// Shows or takes away the handle at the right end by which the row is dragged to another place.
    void setShowsReorderControl(bool);
    /// How much of the row's right end that handle takes; nothing when it is not there.
    CGFloat reorderControlWidth() const;

    bool canBecomeFocused() const override { return true; }
    void layoutSubviews() override;

    void touchesBegan(const UITouches&) override { setHighlighted(true); }
    void touchesEnded(const UITouches&) override { setHighlighted(false); }
    void touchesCancelled(const UITouches&) override { setHighlighted(false); }

protected:
    void draw(CGContext&) const override;

private:
    void setHighlighted(bool);

    std::string m_reuseIdentifier;
    std::shared_ptr<UILabel> m_textLabel;
    std::shared_ptr<UILabel> m_checkmark;
    std::shared_ptr<UIView> m_reorderControl;
    UITableViewCellSelectionStyle m_selectionStyle = UITableViewCellSelectionStyle::standard;
    UITableViewCellAccessoryType m_accessoryType = UITableViewCellAccessoryType::none;
    bool m_highlighted = false;
    bool m_selected = false;
};

} // namespace velmorath
