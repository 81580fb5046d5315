#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmorath {

/// Knows how to take back what was done, and how to do it again. All that is registered in one turn of the
/// main queue is taken back together. Main thread only.
class UndoManager {
public:
    using Action = std::function<void()>;

    /// Older steps than this many are forgotten.
    static constexpr std::size_t levelsOfUndo = 100;

    /// The action takes a change back that was just made, and registers in turn what makes it again. The name
    /// says what was done, in the user's language. What was taken back cannot be done again from now on.
    void registerUndo(std::string name, Action action);

    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }
    /// What would be taken back or done again; there must be such a step.
    const std::string& undoActionName() const { return m_undo.back().name; }
    const std::string& redoActionName() const { return m_redo.back().name; }

    /// Nothing happens where there is nothing to take back or to do again.
    void undo() { perform(m_undo, m_redo); }
    void redo() { perform(m_redo, m_undo); }

private:
    struct Group {
        std::string name;
        std::vector<Action> actions;
        /// Whether what is registered next belongs to it, too.
        std::shared_ptr<bool> isOpen;
    };
    using Groups = std::vector<Group>;

    /// Runs the last group of one kind; what that registers is one group of the other kind.
    void perform(Groups& from, Groups& to);

    Groups m_undo;
    Groups m_redo;
    /// Where a group is being run, the groups that what it registers goes to.
    Groups* m_target = nullptr;
};

} // namespace velmorath
