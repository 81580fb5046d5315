#include "Story.h"
#include "CommittedTexts.h"
#include "Print.h"
#include "RowLook.h"
#include "UIApplication.h"
#include <cmath>

namespace velmorath {

namespace {

std::string joined(const Lines& lines)
{
    std::string all;
    for (const std::string& line : lines)
        all += (all.empty() ? "" : " | ") + line;
    return all;
}

std::string number(CGFloat value)
{
    return description(std::round(value * 100) / 100);
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
    tell("offset", number(table().contentOffset().y));
    const HeadlessTextInput& input = host.textInput();
    tell(
        "editor", input.isEditing() ? "\"" + input.text() + "\" at " + number(input.frame().midY()) : "none");
    tell("over the list", presented() ? host.client().accessibilityTree().children.back().label : "nothing");
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

/// Those that are not as they should be with what they are: how far aside or below, how pale, of another
/// colour.
std::string Story::rowsInSight()
{
    Lines all;
    for (const auto& row : rows()) {
        const CALayerState shown = row->layer().presented(host.clock().now());
        const std::int64_t index = *table().placeOf(*row);
        const double ramp = rowRamp(index, list().arrayNote.size());
        const bool hasColor = row->backgroundColor() == themeColor(list().theme, std::isnan(ramp) ? 0 : ramp);
        const CGFloat place = static_cast<CGFloat>(index) * 60 + 30;
        const CGFloat aside = shown.position.x + shown.transform.tx - table().bounds().size.width / 2;
        const CGFloat below = shown.position.y + shown.transform.ty - place;
        all.push_back((row->toDoItem()->completed ? "x " : "") + row->label->text()
            + (aside != 0 ? " >" + number(aside) : "") + (below != 0 ? " v" + number(below) : "")
            + (shown.opacity != 1 ? " %" + number(shown.opacity) : "") + (hasColor ? "" : " ~")
            + (row->isHidden() ? " hidden" : ""));
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
