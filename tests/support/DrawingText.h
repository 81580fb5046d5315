#pragma once

#include "HeadlessHost.h"

namespace velmorath {

/// What is on the screen as text, to be compared and read: a line for each thing that shows, in the order of
/// drawing, then the editor that lies over it.
///
/// "kind x y width height" comes first, then what there is of: "seen" with the part inside the clip, the
/// colour (red green blue, and an alpha of its own), "alpha" of the layers around it, "radius", and what is
/// special to the kind. Numbers have at most two decimals.
std::vector<std::string> textOf(const DrawingRecorder&, const HeadlessTextInput&);

} // namespace velmorath
