#include "UIAlertController.h"
#include "HostKey.h"
#include <algorithm>

namespace velmorath {

namespace {

constexpr CGFloat boxWidth = 270;
constexpr CGFloat padding = 20;
constexpr CGFloat buttonHeight = 48;
constexpr CGFloat hairline = 0.5;
constexpr CGFloat sheetMargin = 12;
const CGColor boxColor = CGColor::gray(0.16);
const CGColor lineColor = CGColor::gray(0.35);
const CGColor standardColor{0.35, 0.68, 1, 1};
const CGColor destructiveColor{1, 0.35, 0.32, 1};

std::shared_ptr<UIView> line(const CGRect& frame)
{
    auto view = std::make_shared<UIView>(frame);
    view->setBackgroundColor(lineColor);
    return view;
}

/// Title, message and buttons.
class Box : public UIView {
public:
    explicit Box(std::string title) { setAccessibilityLabel(std::move(title)); }

    std::optional<UIAccessibilityInfo> accessibilityInfo() override
    {
        return UIAccessibilityInfo{{.role = AccessibilityRole::dialog, .label = accessibilityLabel()}};
    }
};

/// A label with wrapped, centred text below `y`; returns where it ends.
CGFloat addText(UIView& box, const std::string& text, const CGFont& font, CGFloat y, bool isHeading)
{
    auto label = std::make_shared<UILabel>();
    label->setHeading(isHeading);
    label->setText(text);
    label->setFont(font);
    label->setTextColor(UIColor::white());
    label->setTextAlignment(CGTextAlignment::center);
    label->setWraps(true);
    const CGFloat width = boxWidth - 2 * padding;
    const CGFloat height = std::ceil(label->heightFitting(width));
    label->setFrame(CGRectMake(padding, y, width, height));
    box.addSubview(label);
    return y + height;
}

} // namespace

UIAlertController::UIAlertController(
    std::string title, std::optional<std::string> message, UIAlertControllerStyle style)
    : m_title(std::move(title))
    , m_message(std::move(message))
    , m_alertStyle(style)
{
    setModalPresentationStyle(UIModalPresentationStyle::overFullScreen);
}

void UIAlertController::viewDidLoad()
{
    view()->setBackgroundColor(UIColor::black().withAlpha(0.45));
    auto box = std::make_shared<Box>(m_title);
    box->setBackgroundColor(boxColor);
    box->setClipsToBounds(true);
    box->layer().setCornerRadius(14);
    layOutBox(*box);
    view()->addSubview(box);
}

void UIAlertController::viewDidLayoutSubviews()
{
    const std::shared_ptr<UIView> box = view()->subviews().front();
    const CGRect bounds = view()->bounds();
    const CGSize size = box->bounds().size;
    const CGFloat top = m_alertStyle == UIAlertControllerStyle::actionSheet
        ? bounds.maxY() - sheetMargin - size.height
        : bounds.midY() - size.height / 2;
    // Lines of half a point are seen where they begin at whole ones.
    box->setFrame({{std::floor(bounds.midX() - size.width / 2), std::floor(top)}, size});
}

bool UIAlertController::keyPressed(const HostKeyPress& press)
{
    if (press.key != HostKey::enter && press.key != HostKey::space)
        return UIViewController::keyPressed(press);
    const UIAlertAction* const action = actionOf(UIAlertActionStyle::standard);
    if (!action || m_alertStyle == UIAlertControllerStyle::actionSheet)
        return false;
    dismiss(true, action->handler);
    return true;
}

const UIAlertAction* UIAlertController::actionOf(UIAlertActionStyle style) const
{
    const auto found = std::find_if(m_actions.begin(), m_actions.end(),
        [&](const UIAlertAction& candidate) { return candidate.style == style; });
    return found == m_actions.end() ? nullptr : &*found;
}

bool UIAlertController::escapePressed()
{
    if (m_actions.empty())
        return false;
    const UIAlertAction* const cancel = actionOf(UIAlertActionStyle::cancel);
    dismiss(true, (cancel ? *cancel : m_actions.front()).handler);
    return true;
}

void UIAlertController::layOutBox(UIView& box)
{
    CGFloat y = addText(box, m_title, UIFont::boldSystemFont(17), padding, true);
    if (m_message)
        y = addText(box, *m_message, UIFont::systemFont(14), y + 6, false);
    y += padding;

    // Two buttons share a line, any other number stand one below the other.
    const bool isRow = m_actions.size() == 2 && m_alertStyle == UIAlertControllerStyle::alert;
    const CGFloat buttonWidth = isRow ? boxWidth / 2 : boxWidth;
    CGFloat x = 0;
    for (std::size_t i = 0; i < m_actions.size(); ++i) {
        const UIAlertAction& action = m_actions[i];
        if (!isRow || i == 0)
            box.addSubview(line(CGRectMake(0, y, boxWidth, hairline)));
        auto button = std::make_shared<UIButton>(CGRectMake(x, y, buttonWidth, buttonHeight));
        button->setTitle(action.title);
        button->setTitleColor(
            action.style == UIAlertActionStyle::destructive ? destructiveColor : standardColor);
        if (action.style == UIAlertActionStyle::cancel)
            button->setFont(UIFont::boldSystemFont(17));
        button->addTarget([this, handler = action.handler](UIControl&) { dismiss(true, handler); });
        box.addSubview(button);
        if (isRow && i == 0) {
            x += buttonWidth;
            box.addSubview(line(CGRectMake(x, y, hairline, buttonHeight)));
        } else {
            y += buttonHeight;
        }
    }
    box.setFrame(CGRectMake(0, 0, boxWidth, y));
}

} // namespace velmorath
