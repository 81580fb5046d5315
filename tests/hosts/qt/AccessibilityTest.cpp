#include "HostFixture.h"
#include <QAccessible>

namespace velmorath {

namespace {

QStringList s_reports;

void recordReport(QAccessibleEvent* event)
{
    static const QMap<QAccessible::Event, QString> names{
        {QAccessible::ObjectCreated, QStringLiteral("created")},
        {QAccessible::ObjectDestroyed, QStringLiteral("destroyed")},
        {QAccessible::NameChanged, QStringLiteral("name")},
        {QAccessible::DescriptionChanged, QStringLiteral("value")},
        {QAccessible::StateChanged, QStringLiteral("state")}, {QAccessible::Focus, QStringLiteral("focus")},
        {QAccessible::DialogStart, QStringLiteral("dialog")},
        {QAccessible::ObjectShow, QStringLiteral("said")}};
    QAccessibleInterface* const interface = event->accessibleInterface();
    if (names.contains(event->type()) && interface)
        s_reports.append(names[event->type()] + QLatin1Char(' ') + interface->text(QAccessible::Name));
}

AccessibilityElement button(std::int64_t identifier, const std::string& label, CGRect frame)
{
    return {.identifier = identifier,
        .role = AccessibilityRole::button,
        .label = label,
        .frame = frame,
        .isFocusable = true,
        .isPressable = true};
}

class Accessibility : public HostFixture {
protected:
    Accessibility()
    {
        const AccessibilityElement one{.identifier = 3,
            .role = AccessibilityRole::listItem,
            .label = "One",
            .value = "Completed",
            .frame = CGRectMake(0, 0.5, 375, 60),
            .isFocusable = true,
            .isPressable = true,
            .index = 0,
            .actions = {"Reopen", "Delete"}};
        AccessibilityElement two = one;
        two.identifier = 4;
        two.label = "Two";
        two.frame = CGRectMake(0, 60, 375, 60);
        const AccessibilityElement list{.identifier = 2,
            .role = AccessibilityRole::list,
            .label = "Notes",
            .frame = CGRectMake(0, 0, 375, 600),
            .count = 20,
            .children = {one, two}};
        client.tree = {.identifier = 1, .children = {list, button(5, "Add", CGRectMake(0, 600, 375, 60))}};
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
    EXPECT_EQ(reportsOfAFrame(), QStringList()) << "nothing changed";
    listElement().children[0].label = "Uno";
    listElement().children[0].value = "";
    listElement().children[0].isToggle = true;
    listElement().children[0].isSelected = true;
    listElement().children[1].isFocused = true;
    EXPECT_EQ(reportsOfAFrame(),
        QStringList({QStringLiteral("name Uno"), QStringLiteral("value Uno"), QStringLiteral("state Uno"),
            QStringLiteral("focus Two")}));
    QAccessibleInterface* const second = mirror.interface(4);
    EXPECT_EQ(mirror.interface(3)->role(), QAccessible::CheckBox);
    EXPECT_TRUE(mirror.interface(3)->state().checkable);
    EXPECT_TRUE(mirror.interface(3)->state().checked);
    EXPECT_FALSE(second->state().checkable);
    EXPECT_TRUE(second->state().focused);
    EXPECT_EQ(second->window(), host.widget().windowHandle());
    s_reports.clear();
    mirror.reportFocus();
    EXPECT_EQ(s_reports, QStringList(QStringLiteral("focus Two")));

    listElement().children.erase(listElement().children.begin());
    listElement().children.push_back(button(6, "New", CGRectMake(0, 60, 375, 60)));
    EXPECT_EQ(reportsOfAFrame(), QStringList(QStringLiteral("created New")));
    EXPECT_TRUE(mirror.interface(3)) << "for those who look at where they come from";
    EXPECT_EQ(mirror.interface(2)->child(0), second) << "an element keeps its interface";

    listElement().children.push_back(listElement().children[0]);
    listElement().children.erase(listElement().children.begin());
    EXPECT_EQ(reportsOfAFrame(),
        QStringList({QStringLiteral("destroyed Uno"), QStringLiteral("destroyed Two"),
            QStringLiteral("created Two"), QStringLiteral("focus Two")}));
    EXPECT_EQ(mirror.interface(3), nullptr);
    EXPECT_EQ(mirror.interface(2)->child(1), second) << "it is the same one at its new place";

    AccessibilityElement dialog{.identifier = 7, .role = AccessibilityRole::dialog, .label = "Sure?"};
    dialog.children.push_back(button(8, "Yes", CGRectMake(100, 300, 100, 40)));
    client.tree.children = {dialog};
    EXPECT_EQ(
        reportsOfAFrame(), QStringList({QStringLiteral("created Sure?"), QStringLiteral("dialog Sure?")}));
    EXPECT_TRUE(mirror.interface(7)->state().modal);
    EXPECT_EQ(mirror.focusedInterface(), nullptr);

    EXPECT_TRUE(QTest::qWaitFor([] { return s_reports.size() == 4; }));
    EXPECT_EQ(s_reports.mid(2),
        QStringList({QStringLiteral("destroyed Notes, 20"), QStringLiteral("destroyed Add")}))
        << "alone, after a while";
    client.tree.children[0].children[0].isFocused = true;
    mirror.announce("Deleted, Two");
    EXPECT_EQ(
        reportsOfAFrame(), QStringList({QStringLiteral("focus Yes"), QStringLiteral("said Deleted, Two")}))
        << "what happened comes last: a new focus would cut it short";
    EXPECT_EQ(reportsOfAFrame(), QStringList());
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
