#include "Bundle.h"
#include "FatalError.h"
#include "Print.h"
#include "ViewController.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace velmorath {

void ViewController::handlePinch(UIPinchGestureRecognizer& recognizer)
{
    print("handlePinch");
    const UIGestureRecognizer::State state = recognizer.state();
    if (state == UIGestureRecognizer::State::began) {
        // A pinch that was cancelled left these as they were.
        pinchInProgress = false;
        pinchExceededRequiredDistance = false;
        if (!tastieraAttiva)
            pinchStarted(recognizer);
    } else if (state == UIGestureRecognizer::State::changed && pinchInProgress
        && recognizer.numberOfTouches() == 2) {
        pinchChanged(recognizer);
    } else if (state == UIGestureRecognizer::State::ended) {
        pinchEnded();
    }
}

TouchPoints ViewController::getNormalizedTouchPoints(const UIPinchGestureRecognizer& recognizer) const
{
    print("getNormalizedTouchPoints");
    const CGPoint first = recognizer.locationOfTouch(0, *table());
    const CGPoint second = recognizer.locationOfTouch(1, *table());
    return second.y < first.y ? TouchPoints{second, first} : TouchPoints{first, second};
}

bool ViewController::viewContainsPoint(const UIView& view, CGPoint point) const
{
    print("viewContainsPoint");
    const CGRect frame = view.frame();
    return frame.minY() < point.y && point.y < frame.maxY();
}

void ViewController::pinchStarted(const UIPinchGestureRecognizer& recognizer)
{
    print("pinchStarted");
    initialTouchPoints = getNormalizedTouchPoints(recognizer);
    upperCellIndex = -100;
    lowerCellIndex = -100;
    const auto rows = laidOutRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (viewContainsPoint(*rows[i], initialTouchPoints->upper))
            upperCellIndex = static_cast<std::int64_t>(i);
        if (viewContainsPoint(*rows[i], initialTouchPoints->lower))
            lowerCellIndex = static_cast<std::int64_t>(i);
    }
    if (std::abs(upperCellIndex - lowerCellIndex) != 1)
        return;
    pinchInProgress = true;
    const TableViewCell& upperRow = *rows.at(static_cast<std::size_t>(upperCellIndex));
    // One that was cancelled left the placeholder as it was.
    placeHolderCell->setTransform(CGAffineTransform::identity());
    placeHolderCell->setFrame(upperRow.frame().offsetBy(0, 30.0));
    placeHolderCell->setBackgroundColor(upperRow.backgroundColor());
    table()->insertSubview(placeHolderCell, 0);
}

void ViewController::pinchChanged(const UIPinchGestureRecognizer& recognizer)
{
    print("pinchChanged");
    const TouchPoints current = getNormalizedTouchPoints(recognizer);
    if (!initialTouchPoints)
        fatalError("A pinch went on that had not started");
    const CGFloat upper = current.upper.y - initialTouchPoints->upper.y;
    const CGFloat lower = initialTouchPoints->lower.y - current.lower.y;
    const CGFloat delta = std::min({upper, lower, 0.0});
    const auto rows = laidOutRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto place = static_cast<std::int64_t>(i);
        if (place <= upperCellIndex)
            rows[i]->setTransform(CGAffineTransform::translation(0, delta));
        if (place >= lowerCellIndex)
            rows[i]->setTransform(CGAffineTransform::translation(0, -delta));
    }

    const CGFloat rowHeight = table()->rowHeight();
    const CGFloat gap = -2 * delta;
    placeHolderCell->setTransform(CGAffineTransform::scale(1.0, std::min(rowHeight, gap) / rowHeight));
    pinchExceededRequiredDistance = rowHeight < gap;
    placeHolderCell->label->setText(pinchExceededRequiredDistance
            ? Bundle::main().localizedString("Release to add item")
            : std::string("Pull apart to add item"));
    placeHolderCell->setAlpha(std::min(gap / rowHeight, 1.0));
}

void ViewController::pinchEnded()
{
    print("pinchEnded");
    pinchInProgress = false;
    placeHolderCell->setTransform(CGAffineTransform::identity());
    placeHolderCell->removeFromSuperview();
    const auto rows = laidOutRows();
    if (!pinchExceededRequiredDistance) {
        UIView::animate(0.2, 0, [&] {
            for (const auto& row : rows)
                row->setTransform(CGAffineTransform::identity());
        });
        return;
    }
    pinchExceededRequiredDistance = false;
    for (const auto& row : rows)
        row->setTransform(CGAffineTransform::identity());
    const double rowsAbove = std::floor(table()->contentOffset().y / table()->rowHeight());
    if (!(std::fabs(rowsAbove) < 9.2e18))
        fatalError("The list is scrolled further than can be counted");
    const auto above = static_cast<std::int64_t>(rowsAbove);
    constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
    if (lowerCellIndex > 0 && above > highest - lowerCellIndex)
        fatalError("The place of a new note is too far down to be counted");
    toDoItemAddedAtIndex(lowerCellIndex + above);
}

} // namespace velmorath
