#pragma once

#include "UIViewController.h"
#include "delegatoTutorialChiuso.h"

namespace velmorath {

/// Shows the tutorial with its two pictures over a screen. A missing picture is fatal.
void presentTutorial(UIViewController& presenter, delegatoTutorialChiuso& delegate);

} // namespace velmorath
