#include "Bundle.h"
#include "FatalError.h"
#include "HostKey.h"
#include "Print.h"
#include "ViewController.h"
#include <algorithm>

namespace velmorath {

void ViewController::scrollViewWillBeginDragging(UIScrollView& scrollView)
{
    print("scrollViewWillBeginDragging");
    if (tastieraAttiva)
        return;
    pullDownInProgress = scrollView.contentOffset().y <= 0.0;
    placeHolderCell->setBackgroundColor(colorForFirstRow());
    if (!pullDownInProgress)
        return;
    showPull(scrollView.contentOffset().y);
    table()->insertSubview(placeHolderCell, 0);
}

void ViewController::scrollViewDidScroll(UIScrollView& scrollView)
{
    const CGFloat y = scrollView.contentOffset().y;
    if (!pullDownInProgress || y > 0.0) {
        pullDownInProgress = false;
        return;
    }
    showPull(y);
}

void ViewController::showPull(CGFloat y)
{
    const CGFloat rowHeight = table()->rowHeight();
    // A pinch that was cancelled left it squeezed.
    placeHolderCell->setTransform(CGAffineTransform::identity());
    placeHolderCell->setFrame(CGRectMake(0, -rowHeight, table()->frame().size.width, rowHeight));
    const bool isDeep = rowHeight < -y;
    placeHolderCell->label->setText(
        Bundle::main().localizedString(isDeep ? "Release to add item" : "Pull to add item"));
    placeHolderCell->setAlpha(std::min(-y / rowHeight, 1.0));
}

void ViewController::scrollViewDidEndDragging(UIScrollView& scrollView, bool)
{
    print("scrollViewDidEndDragging");
    if (pullDownInProgress && table()->rowHeight() < -scrollView.contentOffset().y) {
        print("toDoItemAdded");
        toDoItemAddedAtIndex(0);
    }
    pullDownInProgress = false;
    placeHolderCell->removeFromSuperview();
}

bool ViewController::keyPressed(const HostKeyPress& press)
{
    switch (press.key) {
    case HostKey::insert:
        return nuovaNota();
    case HostKey::undo:
        return takeBack();
    case HostKey::redo:
        return doAgain();
    default:
        return UIViewController::keyPressed(press);
    }
}

bool ViewController::nuovaNota()
{
    if (!canAddNote())
        return false;
    table()->setContentOffset({0, 0});
    toDoItemAddedAtIndex(0);
    return true;
}

void ViewController::toDoItemAddedAtIndex(std::int64_t index)
{
    print("toDoItemAddedAtIndex");
    const auto note = std::make_shared<ToDoItem2>();
    note->text = "";
    if (index < 0 || index > static_cast<std::int64_t>(arrayNote.size()))
        fatalError("A note was to be inserted outside the list");
    m_typed = {note, stateOf(note)};
    arrayNote.insert(arrayNote.begin() + index, note);
    table()->reloadData();
    table()->layoutIfNeeded();
    // Only a row in sight can be typed into.
    if (!table()->cellForRow({0, index}))
        table()->scrollToRow(index);
    for (const auto& row : laidOutRows()) {
        if (row->toDoItem() == note) {
            row->label->becomeFirstResponder();
            break;
        }
    }
}

} // namespace velmorath
