#include "UITextView.h"
#include "HostKey.h"

namespace velmorath {

bool UITextView::keyPressed(const HostKeyPress& press)
{
    const bool starts = press.key == HostKey::enter || press.key == HostKey::edit;
    return starts && becomeFirstResponder();
}

} // namespace velmorath
