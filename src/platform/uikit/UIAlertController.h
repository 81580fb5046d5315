#pragma once

#include "UIButton.h"
#include "UILabel.h"
#include "UIViewController.h"
#include <optional>
#include <vector>

namespace velmorath {

enum class UIAlertControllerStyle {
    /// A box in the middle.
    alert,
    /// A column of choices at the bottom.
    actionSheet,
};
enum class UIAlertActionStyle { standard, cancel, destructive };

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
    UIAlertController(std::string title, std::optional<std::string> message,
        UIAlertControllerStyle = UIAlertControllerStyle::alert);

    /// Buttons stand in the order of their actions. All are added before the alert is presented.
    void addAction(UIAlertAction action) { m_actions.push_back(std::move(action)); }

    void viewDidLoad() override;
    void viewDidLayoutSubviews() override;
    /// Enter and Space press the button of the standard style in an alert, unless they are pointed at another
    /// one.
    bool keyPressed(const HostKeyPress&) override;
    /// The same as the button that cancels, or else the first one.
    bool escapePressed() override;

private:
    const UIAlertAction* actionOf(UIAlertActionStyle) const;
    void layOutBox(UIView& box);

    std::string m_title;
    std::optional<std::string> m_message;
    UIAlertControllerStyle m_alertStyle;
    std::vector<UIAlertAction> m_actions;
};

} // namespace velmorath
