#include "UITouch.h"
#include "UIView.h"

namespace velmorath {

CGPoint UITouch::locationIn(const UIView& view) const
{
    return view.convertFromWindow(m_location);
}

} // namespace velmorath
