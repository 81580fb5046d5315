#include "TableViewCell.h"
#include "Bundle.h"
#include "DateText.h"
#include "FatalError.h"
#include "HostKey.h"
#include "Print.h"
#include "RowLook.h"
#include "UIPanGestureRecognizer.h"

namespace velmorath {

namespace {

/// The date's column at the row's right end.
constexpr CGFloat dateColumnWidth = 52.5 + 5;
constexpr CGFloat dateRise = 17;
/// A text is at least this high to the touch.
constexpr CGFloat touchHeight = 44;

std::shared_ptr<StrikeThroughText> makeTextField(CGFloat fontSize, std::string_view name)
{
    auto field = std::make_shared<StrikeThroughText>(CGRect::null());
    field->setTextColor(UIColor::white());
    field->setFont(UIFont::boldSystemFont(fontSize));
    field->setBackgroundColor(UIColor::clear());
    field->setAccessibilityLabel(Bundle::main().localizedString(name));
    return field;
}

std::shared_ptr<UILabel> makeCue(std::string glyph, CGTextAlignment alignment)
{
    auto cue = std::make_shared<UILabel>(CGRect::null());
    cue->setTextColor(UIColor::white());
    cue->setFont(UIFont::boldSystemFont(32.0));
    cue->setBackgroundColor(UIColor::clear());
    cue->setText(std::move(glyph));
    cue->setTextAlignment(alignment);
    return cue;
}

} // namespace

TableViewCell::TableViewCell(UITableViewCellStyle style, std::string reuseIdentifier)
    : UITableViewCell(style, std::move(reuseIdentifier))
    , tickLabel(makeCue("\u2713", CGTextAlignment::right))
    , crossLabel(makeCue("\u2717", CGTextAlignment::left))
    , label(makeTextField(16.0, "Note"))
    , labelData(makeTextField(8.0, "Date"))
{
    label->setKeyboardAppearance(UIKeyboardAppearance::dark);
    label->setReturnKeyType(UIReturnKeyType::done);
    label->setDelegate(*this);
    labelData->setDelegate(*this);
    // The field ends far out of sight: dates stand on the left in every language.
    labelData->setTextAlignment(CGTextAlignment::left);

    addSubview(label);
    addSubview(labelData);
    addSubview(tickLabel);
    addSubview(crossLabel);
    setSelectionStyle(UITableViewCellSelectionStyle::none);

    gradientLayer->setFrame(bounds());
    gradientLayer->setGradient(rowSheen());
    layer().insertSublayer(gradientLayer, 0);

    itemCompleteLayer = std::make_shared<CALayer>(layer());
    itemCompleteLayer->setBackgroundColor({0.0, 0.6, 0.0, 1.0});
    itemCompleteLayer->setHidden(true);
    layer().insertSublayer(itemCompleteLayer, 0);

    const auto recognizer = std::make_shared<UIPanGestureRecognizer>();
    recognizer->addTarget(
        [this](UIGestureRecognizer& pan) { handlePan(static_cast<UIPanGestureRecognizer&>(pan)); });
    recognizer->setDelegate(this);
    addGestureRecognizer(recognizer);
}

TableViewCell::TableViewCell(KeyedUnarchiver&)
    : TableViewCell(UITableViewCellStyle::standard, "")
{
    fatalError("NSCoding not supported");
}

void TableViewCell::layoutSubviews()
{
    print("layoutSubviews");
    UITableViewCell::layoutSubviews();
    const CGFloat width = bounds().size.width;
    const CGFloat height = bounds().size.height;
    gradientLayer->setFrame(bounds());
    itemCompleteLayer->setFrame(bounds());
    label->setFrame(CGRectMake(kLabelLeftMargin, 0, width - kLabelLeftMargin, height));
    // Neither a long text nor one that reads from the right touches the row's end.
    label->setRightInset(std::max(kLabelLeftMargin, reorderControlWidth()));
    labelData->setFrame(CGRectMake(width - dateColumnWidth, -dateRise, width - kLabelLeftMargin, height));
    // What does not fit into the row is cut with an ellipsis.
    labelData->setRightInset(labelData->frame().maxX() - width);
    tickLabel->setFrame(CGRectMake(-(kUICuesWidth + kUICuesMargin), 0, kUICuesWidth, height));
    crossLabel->setFrame(CGRectMake(width + kUICuesMargin, 0, kUICuesWidth, height));
}

std::shared_ptr<UIView> TableViewCell::hitTest(CGPoint point)
{
    std::shared_ptr<UIView> hit = UITableViewCell::hitTest(point);
    const bool isOnText = hit == label || hit == labelData;
    if (!isOnText)
        return hit;

    const auto wordsOf = [](const StrikeThroughText& field) {
        const CGRect frame = field.frame();
        return field.textRect().offsetBy(frame.minX(), frame.minY());
    };
    const CGFloat dateColumn = bounds().size.width - dateColumnWidth;
    if (wordsOf(*labelData).contains(point))
        return labelData;
    const CGRect words = wordsOf(*label);
    const CGRect target = words.insetBy(0, (words.size.height - touchHeight) / 2);
    if (target.contains(point) && point.x < dateColumn)
        return label;
    // A short text that reads from the right lies under the date, and leaves room beside it on the left.
    const bool hasRoomOnTheLeft = words.minX() >= kLabelLeftMargin + dateColumnWidth;
    if (words.contains(point) && hasRoomOnTheLeft)
        return label;
    return shared_from_this();
}

void TableViewCell::setToDoItem(std::shared_ptr<ToDoItem2> note)
{
    if (!note)
        fatalError("A row cannot be bound to no note");
    m_toDoItem = std::move(note);
    label->setText(m_toDoItem->text);
    label->setStrikeThrough(m_toDoItem->completed);
    itemCompleteLayer->setHidden(!label->strikeThrough());
    labelData->setText(m_toDoItem->data);
}

bool TableViewCell::keyPressed(const HostKeyPress& press)
{
    switch (press.key) {
    case HostKey::space:
        if (m_toDoItem)
            completeOrReopen();
        return true;
    case HostKey::remove:
        deleteNote();
        return true;
    case HostKey::edit:
        return label->becomeFirstResponder();
    case HostKey::insert:
        if (!press.shift || !m_toDoItem || !insertionDelegate)
            return false;
        insertionDelegate->toDoItemAddedBelow(m_toDoItem);
        return true;
    default:
        return false;
    }
}

bool TableViewCell::textFieldShouldReturn(UITextField& field)
{
    print("textFieldShouldReturn");
    field.resignFirstResponder();
    return false;
}

bool TableViewCell::textFieldShouldBeginEditing(UITextField&)
{
    print("textFieldShouldBeginEditing");
    return m_toDoItem && !m_toDoItem->completed;
}

void TableViewCell::textFieldDidBeginEditing(UITextField&)
{
    print("textFieldDidBeginEditing");
    if (delegate)
        delegate->cellDidBeginEditing(*this);
}

void TableViewCell::textFieldDidEndEditing(UITextField& field)
{
    print("textFieldDidEndEditing");
    if (m_toDoItem) {
        m_toDoItem->text = field.text();
        const std::string nuovaData = ottieniData();
        m_toDoItem->data = nuovaData;
        labelData->setText(nuovaData);
    }
    if (delegate)
        delegate->cellDidEndEditing(*this);
}

} // namespace velmorath
