#include "UITextField.h"
#include "Host.h"

namespace velmorath {

CGRect UITextField::textRect() const
{
    const CGTextMetrics metrics = Host::current().screen().measure(text(), font());
    const CGFloat width = std::min(metrics.size.width, bounds().size.width);
    const CGFloat x = metrics.readsFromTheRight ? bounds().maxX() - width : bounds().minX();
    return CGRectMake(x, bounds().midY() - metrics.size.height / 2, width, metrics.size.height);
}

void UITextField::didBeginEditing()
{
    if (m_delegate)
        m_delegate->textFieldDidBeginEditing(*this);
}

void UITextField::didEndEditing()
{
    if (m_delegate)
        m_delegate->textFieldDidEndEditing(*this);
}

void UITextField::didReturn()
{
    if (m_delegate)
        m_delegate->textFieldShouldReturn(*this);
}

} // namespace velmorath
