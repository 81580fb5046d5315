#pragma once

#include "UIButton.h"
#include "UILabel.h"
#include "UIViewController.h"
#include <optional>
#include <vector>

namespace velmorath {

enum class UIAlertActionStyle { standard, destructive };

struct UIAlertAction {
    std::string title;
    UIAlertActionStyle style = UIAlertActionStyle::standard;
    /// Runs when the alert is gone. May be empty.
    std::function<void()> handler;
};

/// A question in a box over the dimmed screen, answered by one of its buttons.
class UIAlertController : public UIViewController {
public:
    /// Without a message there is only the title.
    UIAlertController(std::string title, std::optional<std::string> message);

    /// Buttons stand in the order of their actions. All are added before the alert is presented.
    void addAction(UIAlertAction action) { m_actions.push_back(std::move(action)); }

    void viewDidLoad() override;
    /// Enter and Space press the button of the standard style, unless they are pointed at another one.
    bool keyPressed(const HostKeyPress&) override;
    /// The same as the first button.
    bool escapePressed() override;

private:
    void layOutBox(UIView& box);

    std::string m_title;
    std::optional<std::string> m_message;
    std::vector<UIAlertAction> m_actions;
};

} // namespace velmorath
