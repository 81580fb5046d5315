#include "NFXIntroViewController.h"
namespace velmorath {
void presentTutorial(UIViewController&, delegatoTutorialChiuso&) { }
} // namespace velmorath
