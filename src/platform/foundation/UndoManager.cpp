#include "UndoManager.h"
#include "DispatchQueue.h"
#include <utility>

namespace velmorath {

void UndoManager::registerUndo(std::string name, Action action)
{
    if (!m_target)
        m_redo.clear();
    Groups& groups = m_target ? *m_target : m_undo;
    if (groups.empty() || !*groups.back().isOpen) {
        groups.push_back({std::move(name), {}, std::make_shared<bool>(true)});
        DispatchQueue::main().async([isOpen = groups.back().isOpen] { *isOpen = false; });
        if (groups.size() > levelsOfUndo)
            groups.erase(groups.begin());
    }
    groups.back().actions.push_back(std::move(action));
}

void UndoManager::perform(Groups& from, Groups& to)
{
    if (from.empty() || m_target)
        return;
    const Group group = std::move(from.back());
    from.pop_back();
    for (Groups* const groups : {&from, &to}) {
        if (!groups->empty())
            *groups->back().isOpen = false;
    }
    m_target = &to;
    for (auto action = group.actions.rbegin(); action != group.actions.rend(); ++action)
        (*action)();
    m_target = nullptr;
    if (!to.empty())
        *to.back().isOpen = false;
}

} // namespace velmorath
