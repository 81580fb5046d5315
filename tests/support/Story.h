#pragma once

#include "ListTest.h"
#include "ScreenReader.h"
#include <map>

namespace velmorath {

/// A test that does one thing after the other and compares what there is to be seen, felt, heard and read in
/// the file after each with what is committed of it, under the test's name, in tests/app/stories.
class Story : public ListTest {
protected:
    void TearDown() override;

    /// Does it, lets time pass, and tells what is another than before.
    void then(
        const std::string& what, double seconds, const std::function<void()>& deed = [] {});
    void then(const std::string& what, const std::function<void()>& deed) { then(what, 1, deed); }

    /// From now on the lines that the program writes are told, too: at once, and those that come later.
    void tellLines();
    /// From now on what the screen says to who does not see it is told, too: what is said no more, and what
    /// is said instead.
    void tellScreen() { m_tellsScreen = true; }

    ScreenReader reader{host};

private:
    std::string rowsInSight();
    void addLines();
    void addScreen();
    void tell(const std::string& what, const std::string& now);

    Lines m_lines;
    Lines m_screen;
    std::map<std::string, std::string> m_known;
    std::size_t m_heard = 0;
    bool m_tellsLines = false;
    bool m_tellsScreen = false;
};

} // namespace velmorath
