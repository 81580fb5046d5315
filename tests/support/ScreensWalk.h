#pragma once

#include "ListTest.h"

namespace velmorath {

/// Goes to every screen, in each state that looks different, and looks at it there.
class ScreensWalk : public ListTest {
protected:
    /// On a screen of this size: everything, or only what is laid out otherwise on another size.
    void walk(CGSize, bool everything);
    /// Whatever is to be done in a state. The name is the same for the same state on every size.
    virtual void look(const std::string& state) = 0;

private:
    /// Does it, lets time pass, and looks.
    void lookAfter(const std::string& state, const std::function<void()>& deed, double seconds = 0.5);
    void open(const Lines& texts, const std::string& theme = "Blue");
    void openUsualList();
    void visitList();
    void visitGestures();
    void visitEditing();
    void visitReordering();
    void visitThemes();
    void visitNotes();
    void visitInformation();
    void visitTutorial();
    void visitMail();
    void visitSharing();
    void visitNews();
    void visitOverlays();

    bool m_everything = true;
};

} // namespace velmorath
