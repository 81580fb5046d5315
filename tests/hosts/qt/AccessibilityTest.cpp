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

class Accessibility : public HostFixture, public TextInputClient {
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

    void textInputDidChange(const std::string&) override { }
    void textInputDidReturn() override { }

    static void listen() { QAccessible::setActive(true); }
    void makeFrame()
    {
        host.screen().requestFrame();
        QTest::qWait(50);
    }
    QAccessibleInterface* screen() { return QAccessible::queryAccessibleInterface(&host.widget()); }
    QAccessibleInterface* row(int index) { return screen()->child(0)->child(index); }
    static void act(QAccessibleInterface* element, const QString& name)
    {
        element->actionInterface()->doAction(name);
    }
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

TEST_F(Accessibility, ShowsTheTreeWithWhatCanBeDone)
{
    listen();
    QAccessibleInterface* const list = screen()->child(0);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Notes, 20")) << "not the two in sight";
    ASSERT_EQ(list->childCount(), 2);
    EXPECT_EQ(row(1)->parent(), list);
    EXPECT_EQ(list->indexOfChild(row(1)), 1);
    EXPECT_EQ(row(0)->text(QAccessible::Description), QStringLiteral("Completed, 1/20"));
    const QPoint corner = host.widget().mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(row(0)->rect(), QRect(corner, QSize(375, 61)));
    EXPECT_EQ(list->childAt(corner.x() + 10, corner.y() + 100), row(1));
    EXPECT_EQ(row(0)->window(), host.widget().windowHandle());

    const QString press = QAccessibleActionInterface::pressAction();
    const QString focus = QAccessibleActionInterface::setFocusAction();
    const QStringList own{QStringLiteral("Reopen"), QStringLiteral("Delete")};
    EXPECT_EQ(row(1)->actionInterface()->actionNames(), QStringList({press, focus}) + own);
    act(row(1), own[1]);
    act(row(0), press);
    act(row(0), focus);
    act(list, press);
    act(row(0), QStringLiteral("Nonsense"));
    EXPECT_EQ(client.performed, (std::vector<std::pair<std::int64_t, std::size_t>>{{4, 1}}));
    EXPECT_EQ(client.pressed, (std::vector<std::int64_t>{3, 2})) << "the client knows what cannot be pressed";
    EXPECT_EQ(client.focused, (std::vector<std::int64_t>{3}));
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

TEST_F(Accessibility, TheEditorIsThereWithItsName)
{
    listElement().children[0].isFocused = true;
    listen();
    host.textInput().begin(*this, "text", {}, {.label = "Note"});
    host.textInput().place(CGRectMake(0, 0, 200, 40), CGRectMake(0, 0, 375, 667), 1);
    ASSERT_EQ(screen()->childCount(), 3);
    QAccessibleInterface* const editor = screen()->child(2)->child(0);
    EXPECT_EQ(editor->role(), QAccessible::EditableText);
    EXPECT_EQ(editor->text(QAccessible::Name), QStringLiteral("Note"));
    EXPECT_EQ(screen()->focusChild(), editor);
    QAccessibleTextInterface* const text = editor->textInterface();
    int start = 0;
    int end = 0;
    text->attributes(3, &start, &end);
    EXPECT_EQ(text->text(start, end), QStringLiteral("text")) << "readers read by what attributes apply to";
    EXPECT_EQ(text->cursorPosition(), 4);
    editor->editableTextInterface()->replaceText(0, 1, QStringLiteral("n"));
    EXPECT_EQ(editor->text(QAccessible::Value), QStringLiteral("next"));
    host.textInput().end();
    EXPECT_EQ(screen()->focusChild(), row(0)) << "keys are the list's again";
}

} // namespace

} // namespace velmorath
