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
    if (recognizer.state() == UIGestureRecognizer::State::began)
        m_panIsIgnored = false;
    m_panIsIgnored = m_panIsIgnored || isKeyboardPresented(UIApplication::shared());
    if (m_panIsIgnored) {
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
        deleteNote();
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
    // The row may be bound to another note before the list is done with this one.
    const std::shared_ptr<ToDoItem2> note = m_toDoItem;
    if (!completes) {
        if (delegate)
            delegate->toDoItemRiaperto(note);
        return;
    }
    if (!delegate)
        fatalError("A row without a delegate completed its note");
    delegate->toDoItemCambiaColoreALetto(note);
}

void TableViewCell::deleteNote()
{
    const std::shared_ptr<ToDoItem2> note = m_toDoItem;
    if (delegate && note)
        delegate->toDoItemDeleted(note);
}

} // namespace velmorath
