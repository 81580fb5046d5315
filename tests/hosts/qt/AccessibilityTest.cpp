#include "HostFixture.h"
#include <QAccessible>

namespace velmorath {

namespace {

Texts s_reports;

void recordReport(QAccessibleEvent* event)
{
    static const std::map<QAccessible::Event, std::string> names{{QAccessible::ObjectCreated, "created "},
        {QAccessible::ObjectDestroyed, "destroyed "}, {QAccessible::NameChanged, "name "},
        {QAccessible::DescriptionChanged, "value "}, {QAccessible::StateChanged, "state "},
        {QAccessible::Focus, "focus "}, {QAccessible::DialogStart, "dialog "},
        {QAccessible::ObjectShow, "said "}};
    const auto name = names.find(event->type());
    QAccessibleInterface* const interface = event->accessibleInterface();
    if (name != names.end() && interface)
        s_reports.push_back(name->second + interface->text(QAccessible::Name).toStdString());
}

AccessibilityElement element(
    std::int64_t identifier, AccessibilityRole role, const std::string& label, CGRect frame)
{
    return {.identifier = identifier, .role = role, .label = label, .frame = frame};
}

class Accessibility : public HostFixture {
protected:
    Accessibility()
    {
        AccessibilityElement list = element(2, AccessibilityRole::list, "Notes", CGRectMake(0, 0, 375, 600));
        list.count = 20;
        list.children = {element(3, AccessibilityRole::listItem, "One", CGRectMake(0, 0, 375, 60)),
            element(4, AccessibilityRole::listItem, "Two", CGRectMake(0, 60, 375, 60))};
        list.children[0].value = "Completed";
        client.tree = {.identifier = 1,
            .children = {list, element(5, AccessibilityRole::button, "Add", CGRectMake(0, 600, 375, 60))}};
    }
    ~Accessibility() override { QAccessible::setActive(false); }

    static void listen() { QAccessible::setActive(true); }
    void makeFrame()
    {
        host.screen().requestFrame();
        QTest::qWait(50);
    }
    QAccessibleInterface* screen() { return QAccessible::queryAccessibleInterface(&host.widget()); }
    AccessibilityElement& listElement() { return client.tree.children[0]; }
};

TEST_F(Accessibility, NothingIsAskedUntilSomebodyListens)
{
    makeFrame();
    EXPECT_EQ(client.readings, 0);
    EXPECT_EQ(screen()->childCount(), 0);
    listen();
    EXPECT_EQ(screen()->childCount(), 2);
    const int before = client.readings;
    QTest::qWait(100);
    EXPECT_EQ(client.readings, before) << "nothing moved";
    QAccessible::setActive(false);
    makeFrame();
    EXPECT_EQ(client.readings, before);
    EXPECT_EQ(screen()->childCount(), 0);
}

TEST_F(Accessibility, ReportsWhatChanged)
{
    AccessibleMirror mirror(host.widget(), recordReport);
    mirror.setClient(&client);
    listen();
    const auto reportsOfAFrame = [&] {
        s_reports.clear();
        mirror.frameMade(false, 1);
        return s_reports;
    };
    EXPECT_EQ(reportsOfAFrame(), Texts()) << "nothing changed";
    listElement().children[0].label = "Uno";
    listElement().children[0].value = "";
    listElement().children[0].isToggle = true;
    listElement().children[0].isSelected = true;
    listElement().children[1].isFocused = true;
    EXPECT_EQ(reportsOfAFrame(), (Texts{"name Uno", "value Uno", "state Uno", "focus Two"}));
    QAccessibleInterface* const second = mirror.interface(4);
    EXPECT_EQ(mirror.interface(3)->role(), QAccessible::CheckBox);
    EXPECT_TRUE(mirror.interface(3)->state().checkable);
    EXPECT_TRUE(mirror.interface(3)->state().checked);
    EXPECT_FALSE(second->state().checkable);
    EXPECT_TRUE(second->state().focused);
    EXPECT_EQ(second->window(), host.widget().windowHandle());
    s_reports.clear();
    mirror.reportFocus();
    EXPECT_EQ(s_reports, Texts{"focus Two"});

    listElement().children.erase(listElement().children.begin());
    listElement().children.push_back(
        element(6, AccessibilityRole::listItem, "New", CGRectMake(0, 60, 375, 60)));
    EXPECT_EQ(reportsOfAFrame(), Texts{"created New"});
    EXPECT_TRUE(mirror.interface(3)) << "for those who look at where they come from";
    EXPECT_EQ(mirror.interface(2)->child(0), second) << "an element keeps its interface";

    listElement().children.push_back(listElement().children[0]);
    listElement().children.erase(listElement().children.begin());
    EXPECT_EQ(reportsOfAFrame(), (Texts{"destroyed Uno", "destroyed Two", "created Two", "focus Two"}));
    EXPECT_EQ(mirror.interface(3), nullptr);
    EXPECT_EQ(mirror.interface(2)->child(1), second) << "it is the same one at its new place";

    AccessibilityElement dialog = element(7, AccessibilityRole::dialog, "Sure?", {});
    dialog.children = {element(8, AccessibilityRole::button, "Yes", CGRectMake(100, 300, 100, 40))};
    client.tree.children = {dialog};
    EXPECT_EQ(reportsOfAFrame(), (Texts{"created Sure?", "dialog Sure?"}));
    EXPECT_TRUE(mirror.interface(7)->state().modal);
    EXPECT_EQ(mirror.focusedInterface(), nullptr);

    EXPECT_TRUE(QTest::qWaitFor([] { return s_reports.size() == 4; }));
    EXPECT_EQ(s_reports, (Texts{"created Sure?", "dialog Sure?", "destroyed Notes, 20", "destroyed Add"}))
        << "what went goes alone, after a while";
    client.tree.children[0].children[0].isFocused = true;
    mirror.announce("Deleted, Two");
    EXPECT_EQ(reportsOfAFrame(), (Texts{"focus Yes", "said Deleted, Two"}))
        << "what happened comes last: a new focus would cut it short";
    EXPECT_EQ(reportsOfAFrame(), Texts());
}

TEST_F(Accessibility, ShortMotionsAreWaitedForAndLongOnesNot)
{
    listen();
    int frames = 0;
    client.readings = 0;
    client.onFrame = [&] {
        if (++frames < 10)
            host.screen().requestFrame();
    };
    host.screen().requestFrame();
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames >= 9; }));
    EXPECT_EQ(client.readings, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.readings == 1; }));

    client.onFrame = [&] { host.screen().requestFrame(); };
    host.screen().requestFrame();
    EXPECT_TRUE(QTest::qWaitFor([&] { return client.readings >= 3; })) << "it never comes to rest";
}

} // namespace

} // namespace velmorath
