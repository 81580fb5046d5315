#include "UIResponder.h"

namespace velmorath {

UIResponder::~UIResponder()
{
    if (s_current == this)
        s_current = nullptr;
}

bool UIResponder::becomeFirstResponder()
{
    if (isFirstResponder())
        return true;
    if (s_current && !s_current->resignFirstResponder())
        return false;
    s_current = this;
    return true;
}

bool UIResponder::resignFirstResponder()
{
    if (isFirstResponder())
        s_current = nullptr;
    return true;
}

} // namespace velmorath
