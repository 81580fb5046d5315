#include "Bundle.h"
#include "TableViewCell.h"
#include "UIApplication+Keyboard.h"
#include "UITableView.h"

namespace velmorath {

namespace {

std::string words(std::string_view key)
{
    return Bundle::main().localizedString(key);
}

std::string dateAndState(const ToDoItem2& note)
{
    std::string value = note.data.value_or("");
    if (!note.completed)
        return value;
    return value.empty() ? words("Completed") : value + ", " + words("Completed");
}

} // namespace

std::optional<UIAccessibilityInfo> TableViewCell::accessibilityInfo()
{
    std::optional<UIAccessibilityInfo> info = UITableViewCell::accessibilityInfo();
    info->subject = m_toDoItem;
    info->element.label = label->text().empty() ? words("Empty note") : label->text();
    info->element.value = dateAndState(*m_toDoItem);
    if (isKeyboardPresented(UIApplication::shared()))
        info->press = nullptr;
    else
        info->actions = accessibilityActions();
    return info;
}

std::vector<UIAccessibilityAction> TableViewCell::accessibilityActions()
{
    std::vector<UIAccessibilityAction> actions;
    if (!m_toDoItem->completed)
        actions.push_back({words("Edit"), [this] { label->becomeFirstResponder(); }});
    actions.push_back({words(m_toDoItem->completed ? "Reopen" : "Complete"), [this] { completeOrReopen(); }});
    actions.push_back({words("Delete"), [this] { deleteNote(); }});
    actions.push_back({words("Insert below"), [this, note = m_toDoItem] {
                           if (insertionDelegate)
                               insertionDelegate->toDoItemAddedBelow(note);
                       }});
    UITableView* const list = table();
    const std::int64_t place = *list->placeOf(*this);
    const auto addMove = [&](std::string_view name, std::int64_t to) {
        if (to >= 0 && to < list->numberOfRows())
            actions.push_back({words(name), [list, place, to] { list->moveByUser(place, to); }});
    };
    addMove("Move up", place - 1);
    addMove("Move down", place + 1);
    return actions;
}

} // namespace velmorath
