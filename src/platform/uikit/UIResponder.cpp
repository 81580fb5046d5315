#include "UIResponder.h"

namespace velmorath {

namespace {

UIResponder* s_current = nullptr;

}

UIResponder::~UIResponder()
{
    if (s_current == this)
        s_current = nullptr;
}

UIResponder* UIResponder::current()
{
    return s_current;
}

void UIResponder::setCurrent(UIResponder* responder)
{
    s_current = responder;
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
