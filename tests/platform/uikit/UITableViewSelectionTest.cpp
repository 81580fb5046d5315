#include "ListTest.h"

namespace velmorath {
namespace {

constexpr std::size_t rowCount = 40;

class SelectionTest : public ListTest, public UITableViewDataSource, public UITableViewDelegate {
protected:
    SelectionTest()
    {
        start({});
        m_table->setDataSource(this);
        m_table->setDelegate(this);
        m_table->registerClass<UITableViewCell>("row");
        const auto controller = std::make_shared<UIViewController>();
        list().present(controller, false);
        controller->view()->addSubview(m_table);
        host.draw();
    }

    std::int64_t tableViewNumberOfRowsInSection(UITableView&, std::int64_t) override { return rowCount; }
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(
        UITableView& table, IndexPath path) override
    {
        auto cell = table.dequeueReusableCell("row", path);
        cell->setSelectionStyle(style);
        cell->setAccessoryType(
            path.row == 1 ? UITableViewCellAccessoryType::checkmark : UITableViewCellAccessoryType::none);
        cell->textLabel().setText(std::to_string(path.row));
        return cell;
    }
    void tableViewDidSelectRowAtIndexPath(UITableView&, IndexPath path) override
    {
        told.push_back("+" + std::to_string(path.row));
    }
    void tableViewDidDeselectRowAtIndexPath(UITableView&, IndexPath path) override
    {
        told.push_back("-" + std::to_string(path.row));
    }

    /// The tops of the rows that are shown pale.
    std::vector<CGFloat> paleRows()
    {
        std::vector<CGFloat> tops;
        const DrawingRecorder drawing = host.draw();
        for (const DrawingCommand& command : drawing.commands()) {
            const bool isPale = command.kind == DrawingCommand::Kind::fill && command.color.alpha < 1
                && command.color.red == 1;
            if (isPale && !command.visible.isEmpty())
                tops.push_back(command.rect.origin.y);
        }
        return tops;
    }

    UITableViewCellSelectionStyle style = UITableViewCellSelectionStyle::standard;
    Lines told;
    const std::shared_ptr<UITableView> m_table = std::make_shared<UITableView>(CGRectMake(0, 0, 320, 440));
};

TEST_F(SelectionTest, ARowIsPaleWhileItIsHeldAndUntilAnotherIsSelected)
{
    Finger finger(host, {100, 60});
    EXPECT_EQ(paleRows(), (std::vector<CGFloat>{44}));
    EXPECT_EQ(told, Lines{});
    finger.lift();
    EXPECT_EQ(paleRows(), (std::vector<CGFloat>{44}));
    tap({100, 100});
    tap({100, 100});
    EXPECT_EQ(paleRows(), (std::vector<CGFloat>{88}));
    EXPECT_EQ(told, (Lines{"+1", "-1", "+2", "+2"}));
    m_table->reloadData();
    EXPECT_EQ(paleRows(), std::vector<CGFloat>{});
    tap({100, 20});
    EXPECT_EQ(told.size(), 5u);
}

TEST_F(SelectionTest, AHeldRowThatIsDraggedAwayIsNotSelected)
{
    Finger finger(host, {100, 200});
    finger.moveBy({0, -60});
    EXPECT_EQ(paleRows(), std::vector<CGFloat>{});
    finger.hold();
    finger.lift();
    EXPECT_EQ(told, Lines{});
}

TEST_F(SelectionTest, ARowOfTheOtherStyleNeverPales)
{
    style = UITableViewCellSelectionStyle::none;
    m_table->reloadData();
    Finger finger(host, {100, 60});
    EXPECT_EQ(paleRows(), std::vector<CGFloat>{});
    finger.lift();
    EXPECT_EQ(paleRows(), std::vector<CGFloat>{});
    EXPECT_EQ(told, (Lines{"+1"}));
}

} // namespace
} // namespace velmorath
