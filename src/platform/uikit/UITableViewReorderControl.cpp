#include "UITableViewReorderControl.h"
#include "UIGestureRecognizer.h"
#include "UITableView.h"

namespace velmorath {

namespace {

/// Begins as soon as a finger is down, and follows it.
class GripRecognizer : public UIGestureRecognizer {
public:
    void touchesBegan(const UITouches& began) override
    {
        UIGestureRecognizer::touchesBegan(began);
        if (state() == State::possible)
            begin();
    }
    void touchesMoved(const UITouches&) override
    {
        if (isActive())
            change();
    }
    void touchesEnded(const UITouches& ended) override
    {
        if (isActive())
            end();
        UIGestureRecognizer::touchesEnded(ended);
    }
    CGFloat y() const { return touches().front()->location().y; }
};

} // namespace

UITableViewReorderControl::UITableViewReorderControl()
{
    const auto grip = std::make_shared<GripRecognizer>();
    grip->addTarget([this](UIGestureRecognizer& recognizer) { handleGrip(recognizer); });
    addGestureRecognizer(grip);
}

UITableViewCell* UITableViewReorderControl::cell() const
{
    return static_cast<UITableViewCell*>(superview());
}

void UITableViewReorderControl::handleGrip(UIGestureRecognizer& recognizer)
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

void UITableViewReorderControl::gestureEnded()
{
    if (cell())
        cell()->gestureEnded();
}

void UITableViewReorderControl::draw(CGContext& context) const
{
    constexpr CGFloat lineWidth = 22, thickness = 2, gap = 6;
    const CGFloat x = bounds().midX() - lineWidth / 2;
    for (int line = -1; line <= 1; ++line) {
        const CGFloat y = bounds().midY() + line * gap - thickness / 2;
        context.fill(CGRectMake(x, y, lineWidth, thickness), thickness / 2, CGColor{1, 1, 1, 0.85});
    }
}

} // namespace velmorath
