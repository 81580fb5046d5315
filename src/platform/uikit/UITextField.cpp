#include "UITextField.h"
#include "Host.h"

namespace velmorath {

CGRect UITextField::editingRect() const
{
    CGRect room = bounds();
    room.size.width = std::max(0.0, room.size.width - m_rightInset);
    return room;
}

CGRect UITextField::textRect() const
{
    const CGTextMetrics metrics = Host::current().screen().measure(text(), font());
    const CGRect room = editingRect();
    const CGFloat width = std::min(metrics.size.width, room.size.width);
    const bool isOnTheRight = metrics.readsFromTheRight && style().alignment == CGTextAlignment::natural;
    const CGFloat x = isOnTheRight ? room.maxX() - width : room.minX();
    return CGRectMake(x, room.midY() - metrics.size.height / 2, width, metrics.size.height);
}

} // namespace velmorath
