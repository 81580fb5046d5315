#pragma once

#include "Registry.h"
#include "UIViewController.h"
#include <memory>
#include <vector>

namespace velmorath {

class UIStoryboard;

/// One screen of a storyboard.
struct UIStoryboardScene {
    std::string identifier;
    std::function<std::shared_ptr<UIViewController>()> make;
    /// Puts the subviews into the controller's view and connects the controller's outlets.
    std::function<void(UIViewController&, UIView&)> fill;
    /// From a transition's identifier to that of the screen that it leads to.
    std::map<std::string, std::string> transitions{};
    /// The one that it is a screen of.
    const UIStoryboard* storyboard = nullptr;

    /// A new controller for where a transition leads; nothing when there is no such transition.
    std::shared_ptr<UIViewController> destinationOf(const std::string& transition) const;
};

/// The screens of a program and the transitions between them.
class UIStoryboard {
public:
    /// Makes the storyboard known under this name; the first scene is the one that a program starts with.
    static void enter(std::string name, std::vector<UIStoryboardScene>);
    /// It is fatal when none was entered under that name.
    static const UIStoryboard& named(std::string_view name)
    {
        return Registry<UIStoryboard>::named(name, "storyboard");
    }

    std::shared_ptr<UIViewController> instantiateInitialViewController() const
    {
        return instantiate(m_scenes.front());
    }
    /// It is fatal when there is no screen with that identifier.
    std::shared_ptr<UIViewController> instantiateViewController(std::string_view identifier) const;

private:
    static std::shared_ptr<UIViewController> instantiate(const UIStoryboardScene&);

    std::vector<UIStoryboardScene> m_scenes;
};

} // namespace velmorath
