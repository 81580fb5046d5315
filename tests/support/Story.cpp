#include "Story.h"
#include "CommittedTexts.h"
#include "UIApplication.h"

namespace velmorath {

namespace {

std::string joined(const Lines& lines)
{
    std::string all;
    for (const std::string& line : lines)
        all += (all.empty() ? "" : " | ") + line;
    return all;
}

} // namespace

void Story::TearDown()
{
    if (m_lines.empty())
        return;
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    CommittedTexts(VELMORATH_STORIES)
        .compare(std::string(test.test_suite_name()) + "." + test.name(), m_lines);
}

void Story::then(const std::string& what, double seconds, const std::function<void()>& deed)
{
    m_lines.push_back("== " + what);
    deed();
    addLines();
    host.advance(seconds);
    addLines();
    tell("notes", joined(notes()));
    tell("file", saved() == notes() ? "the same" : joined(saved()));
    tell("rows", rowsInSight());
    tell("offset", rounded(table().contentOffset().y));
    const HeadlessTextInput& input = host.textInput();
    tell("editor",
        input.isEditing() ? "\"" + input.text() + "\" at " + rounded(input.frame().midY()) : "none");
    const std::vector<AccessibilityElement> top = host.client().accessibilityTree().children;
    const std::string over = top.empty() ? "an empty screen" : top.back().label;
    tell("over the list", presented() ? over : "nothing");
    tell("opened", joined(host.effects().openedAddresses()));
    tell("badge", std::to_string(badge()));
    const auto view = UIApplication::shared().focusSystem().focusedView();
    const auto focused = std::dynamic_pointer_cast<TableViewCell>(view);
    tell("keys", focused ? focused->label->text() : view ? view->accessibilityLabel() : "nowhere");
    m_known["felt"] = m_known["says"] = "";
    tell("felt", joined(takeFelt()));
    const Lines& announced = host.effects().announced();
    tell("says",
        joined({announced.begin() + static_cast<std::ptrdiff_t>(std::min(m_heard, announced.size())),
            announced.end()}));
    m_heard = announced.size();
    addScreen();
}

void Story::tellLines()
{
    takeLines();
    m_tellsLines = true;
}

void Story::addLines()
{
    if (!m_tellsLines)
        return;
    for (const std::string& line : takeLines()) {
        if (line != "layoutSubviews")
            m_lines.push_back("  " + (line.starts_with("error : ") ? "error" : line));
    }
    m_lines.push_back("  --");
}

void Story::addScreen()
{
    if (!m_tellsScreen)
        return;
    const Lines before = std::exchange(m_screen, reader.everything());
    const auto [was, is] = std::mismatch(before.begin(), before.end(), m_screen.begin(), m_screen.end());
    const auto [wasEnd, isEnd] = std::mismatch(
        before.rbegin(), std::make_reverse_iterator(was), m_screen.rbegin(), std::make_reverse_iterator(is));
    for (const std::string& line : Lines(was, wasEnd.base()))
        m_lines.push_back("- " + line);
    for (const std::string& line : Lines(is, isEnd.base()))
        m_lines.push_back("+ " + line);
}

std::string Story::rowsInSight()
{
    Lines all;
    for (const auto& row : rows()) {
        all.push_back((row->toDoItem()->completed ? "x " : "") + row->label->text());
        for (const std::string& oddity : oddities(*row))
            all.back() += " " + oddity;
    }
    return joined(all);
}

void Story::tell(const std::string& what, const std::string& now)
{
    std::string& before = m_known[what];
    if (before != now)
        m_lines.push_back(what + ": " + now);
    before = now;
}

} // namespace velmorath
