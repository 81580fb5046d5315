#pragma once

namespace velmorath {

/// Makes the interface file "PubblicitaView" known: a header and the icons of two applications.
void enterPubblicitaNib();

} // namespace velmorath
