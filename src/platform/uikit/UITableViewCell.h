#pragma once

#include "IndexPath.h"
#include "UILabel.h"
#include "UIView.h"
#include <string>

namespace velmorath {

enum class UITableViewCellStyle { standard };
enum class UITableViewCellSelectionStyle {
    none,
    /// Pales while it is held down.
    standard,
};

/// One row of a table. The table makes it, puts it in place and uses it again for another row.
class UITableViewCell : public UIView {
public:
    UITableViewCell(UITableViewCellStyle, std::string reuseIdentifier);

    const std::string& reuseIdentifier() const { return m_reuseIdentifier; }
    /// The built-in text, on the left.
    UILabel& textLabel() { return *m_textLabel; }
    UITableViewCellSelectionStyle selectionStyle() const { return m_selectionStyle; }
    void setSelectionStyle(UITableViewCellSelectionStyle style) { m_selectionStyle = style; }

    /// Shows or takes away the handle at the right end by which the row is dragged to another place.
    void setShowsReorderControl(bool);

    void layoutSubviews() override;

private:
    std::string m_reuseIdentifier;
    std::shared_ptr<UILabel> m_textLabel;
    std::shared_ptr<UIView> m_reorderControl;
    UITableViewCellSelectionStyle m_selectionStyle = UITableViewCellSelectionStyle::standard;
};

} // namespace velmorath
