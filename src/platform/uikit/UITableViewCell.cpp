#include "UITableViewCell.h"
#include "UIGestureRecognizer.h"
#include "UIReadableColumn.h"
#include "UITableView.h"

namespace velmorath {

namespace {

constexpr CGFloat textMargin = 15;
constexpr CGFloat checkmarkWidth = 28;
/// Of the handle for reordering: wide enough for a thumb.
constexpr CGFloat handleWidth = 50;

const CGColor paleness = CGColor::gray(1, 0.3);

/// Begins as soon as a finger is down, and follows it.
class GripRecognizer : public UIGestureRecognizer {
public:
    void touchesBegan(const UITouches& began) override
    {
        UIGestureRecognizer::touchesBegan(began);
        if (state() == State::possible)
            begin();
    }
    CGFloat y() const { return touches().front()->location().y; }
};

/// The handle of a row in reordering mode: three lines to grip. The drag itself is the table's.
class UITableViewReorderControl : public UIView {
public:
    UITableViewReorderControl()
    {
        const auto grip = std::make_shared<GripRecognizer>();
        grip->addTarget([this](UIGestureRecognizer& recognizer) { handleGrip(recognizer); });
        addGestureRecognizer(grip);
    }

    void gestureEnded() override
    {
        if (cell())
            cell()->gestureEnded();
    }

protected:
    void draw(CGContext& context) const override
    {
        constexpr CGFloat lineWidth = 22, thickness = 2, gap = 6;
        const CGFloat x = bounds().midX() - lineWidth / 2;
        for (int line = -1; line <= 1; ++line) {
            const CGFloat y = bounds().midY() + line * gap - thickness / 2;
            context.fill(CGRectMake(x, y, lineWidth, thickness), thickness / 2, CGColor{1, 1, 1, 0.85});
        }
    }

private:
    /// Nothing when the handle was taken away under the finger.
    UITableViewCell* cell() const { return static_cast<UITableViewCell*>(superview()); }

    void handleGrip(UIGestureRecognizer& recognizer)
    {
        UITableView* const table = cell() ? cell()->table() : nullptr;
        if (!table)
            return;
        const CGFloat y = static_cast<GripRecognizer&>(recognizer).y();
        if (recognizer.state() == UIGestureRecognizer::State::began)
            table->beginReordering(*cell(), y);
        else if (recognizer.state() == UIGestureRecognizer::State::changed)
            table->continueReordering(y);
        else
            table->endReordering(recognizer.state() == UIGestureRecognizer::State::ended);
    }
};

} // namespace

UITableViewCell::UITableViewCell(UITableViewCellStyle, std::string reuseIdentifier)
    : m_reuseIdentifier(std::move(reuseIdentifier))
    , m_textLabel(std::make_shared<UILabel>())
{
    // Touches are the row's own.
    m_textLabel->setUserInteractionEnabled(false);
    addSubview(m_textLabel);
}

void UITableViewCell::setAccessoryType(UITableViewCellAccessoryType type)
{
    if (m_accessoryType == type)
        return;
    m_accessoryType = type;
    if (type == UITableViewCellAccessoryType::checkmark) {
        m_checkmark = std::make_shared<UILabel>();
        m_checkmark->setText("\u2713");
        m_checkmark->setFont(UIFont::boldSystemFont(22));
        m_checkmark->setTextColor(UIColor::white());
        m_checkmark->setTextAlignment(CGTextAlignment::center);
        m_checkmark->setUserInteractionEnabled(false);
        addSubview(m_checkmark);
    } else {
        m_checkmark->removeFromSuperview();
        m_checkmark.reset();
    }
    setNeedsLayout();
}

void UITableViewCell::draw(CGContext& context) const
{
    if ((m_highlighted || m_selected) && m_selectionStyle != UITableViewCellSelectionStyle::none)
        context.fill(bounds(), 0, paleness);
}

void UITableViewCell::setShowsReorderControl(bool shows)
{
    if (shows == static_cast<bool>(m_reorderControl))
        return;
    if (shows) {
        m_reorderControl = std::make_shared<UITableViewReorderControl>();
        addSubview(m_reorderControl);
    } else {
        m_reorderControl->removeFromSuperview();
        m_reorderControl.reset();
    }
    setNeedsLayout();
}

CGFloat UITableViewCell::reorderControlWidth() const
{
    return m_reorderControl ? handleWidth : 0;
}

UITableView* UITableViewCell::table() const
{
    return dynamic_cast<UITableView*>(superview());
}

bool UITableViewCell::isHiddenFromAccessibility() const
{
    return !table() || !table()->placeOf(*this);
}

std::optional<UIAccessibilityInfo> UITableViewCell::accessibilityInfo()
{
    UITableView* const around = table();
    const std::int64_t place = *around->placeOf(*this);
    UIAccessibilityInfo info{{.role = m_accessibilityRole,
        .label = m_textLabel->text(),
        .value = m_accessibilityValue,
        .isSelected = m_accessoryType == UITableViewCellAccessoryType::checkmark,
        .isToggle = m_isAccessibilityToggle,
        .index = place}};
    if (!around->isEditing()) {
        info.press = [around, place] {
            around->selectByUser(place);
            return true;
        };
    }
    return info;
}

void UITableViewCell::gestureEnded()
{
    if (UITableView* around = table())
        around->setNeedsLayout();
}

void UITableViewCell::layoutSubviews()
{
    const CGSize size = bounds().size;
    const CGFloat controlWidth = reorderControlWidth();
    const CGRect column = readableColumn(bounds().insetBy(textMargin, 0));
    CGFloat right = std::min(column.maxX(), size.width - controlWidth - textMargin);
    if (m_checkmark) {
        right -= checkmarkWidth;
        m_checkmark->setFrame(CGRectMake(right, 0, checkmarkWidth, size.height));
    }
    m_textLabel->setFrame(CGRectMake(column.minX(), 0, std::max(0.0, right - column.minX()), size.height));
    if (m_reorderControl)
        m_reorderControl->setFrame(CGRectMake(size.width - controlWidth, 0, controlWidth, size.height));
}

} // namespace velmorath
