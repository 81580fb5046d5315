#include "UIScreen.h"
#include "Host.h"

namespace velmorath {

const UIScreen& UIScreen::main()
{
    static const UIScreen s_main;
    return s_main;
}

CGRect UIScreen::bounds() const
{
    return {{0, 0}, Host::current().screen().size()};
}

} // namespace velmorath
