#include "FatalError.h"
#include "Print.h"
#include "TableViewCell.h"
#include "UIApplication+Keyboard.h"
#include "UIPanGestureRecognizer.h"

namespace velmorath {

bool TableViewCell::gestureRecognizerShouldBegin(UIGestureRecognizer& recognizer)
{
    const auto* pan = dynamic_cast<const UIPanGestureRecognizer*>(&recognizer);
    if (!pan)
        return false;
    print("gestureRecognizerShouldBegin");
    if (!superview())
        fatalError("A row that is not in a table was swiped");
    const CGVector translation = pan->translationIn(*superview());
    return std::fabs(translation.dy) < std::fabs(translation.dx);
}

void TableViewCell::handlePan(UIPanGestureRecognizer& recognizer)
{
    print("handlePan");
    if (isKeyboardPresented(UIApplication::shared())) {
        print(
            "------------------------------------------------------------ LA TASTIERA E' MOSTRATA QUINDI NON POSSO PERMETTERE DI FARE CANCELLARE LA NOTA");
        return;
    }
    switch (recognizer.state()) {
    case UIGestureRecognizer::State::began:
        originalCenter = center();
        break;
    case UIGestureRecognizer::State::changed:
        followPan(recognizer);
        break;
    case UIGestureRecognizer::State::ended:
        endPan();
        break;
    case UIGestureRecognizer::State::possible:
    case UIGestureRecognizer::State::cancelled:
    case UIGestureRecognizer::State::failed:
        break;
    }
}

void TableViewCell::followPan(const UIPanGestureRecognizer& recognizer)
{
    const CGVector translation = recognizer.translationIn(*this);
    setCenter({originalCenter.x + translation.dx, originalCenter.y});

    const CGFloat x = frame().origin.x;
    const CGFloat threshold = frame().size.width * 0.5;
    deleteOnDragRelease = x < -threshold;
    completeOnDragRelease = x > threshold;
    const CGFloat cueAlpha = std::fabs(x) / threshold;
    tickLabel->setAlpha(cueAlpha);
    crossLabel->setAlpha(cueAlpha);
    tickLabel->setTextColor(completeOnDragRelease ? UIColor::green() : UIColor::white());
    crossLabel->setTextColor(deleteOnDragRelease ? UIColor::red() : UIColor::white());
}

void TableViewCell::endPan()
{
    if (deleteOnDragRelease) {
        if (delegate && m_toDoItem)
            delegate->toDoItemDeleted(m_toDoItem);
        return;
    }
    const CGRect restingFrame = CGRectMake(0, frame().origin.y, bounds().size.width, bounds().size.height);
    if (completeOnDragRelease && m_toDoItem)
        completeOrReopen();
    UIView::animate(0.2, 0, [&] { setFrame(restingFrame); });
}

void TableViewCell::completeOrReopen()
{
    const bool completes = !m_toDoItem->completed;
    label->setStrikeThrough(completes);
    itemCompleteLayer->setHidden(!completes);
    if (!completes) {
        if (delegate)
            delegate->toDoItemRiaperto(m_toDoItem);
        return;
    }
    if (!delegate)
        fatalError("A row without a delegate completed its note");
    delegate->toDoItemCambiaColoreALetto(m_toDoItem);
}

} // namespace velmorath
