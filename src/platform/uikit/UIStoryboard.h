#pragma once

#include "Registry.h"
#include "UIViewController.h"
#include <memory>
#include <vector>

namespace velmorath {

class UIStoryboard;

/// One screen of a storyboard: how to make its controller, what its view holds, where one can go.
class UIStoryboardScene {
public:
    using Make = std::function<std::shared_ptr<UIViewController>()>;
    using Fill = std::function<void(UIViewController&, UIView&)>;
    /// From a transition's identifier to that of the screen that it leads to.
    using Transitions = std::map<std::string, std::string>;

    /// `fill` puts the subviews into the controller's view and connects the controller's outlets.
    UIStoryboardScene(std::string identifier, Make make, Fill fill, Transitions transitions = {})
        : m_identifier(std::move(identifier))
        , m_make(std::move(make))
        , m_fill(std::move(fill))
        , m_transitions(std::move(transitions))
    {
    }

    const std::string& identifier() const { return m_identifier; }
    void fill(UIViewController& controller, UIView& view) const { m_fill(controller, view); }
    /// A new controller for where a transition leads; nothing when there is no such transition.
    std::shared_ptr<UIViewController> destinationOf(const std::string& transition) const;

private:
    friend class UIStoryboard;

    std::string m_identifier;
    Make m_make;
    Fill m_fill;
    Transitions m_transitions;
    const UIStoryboard* m_storyboard = nullptr;
};

/// The screens of a program and the transitions between them.
class UIStoryboard {
public:
    /// Makes the storyboard known under this name; the first scene is the one that a program starts with.
    static void enter(std::string name, std::vector<UIStoryboardScene>);
    /// It is fatal when none was entered under that name.
    static const UIStoryboard& named(std::string_view);

    std::shared_ptr<UIViewController> instantiateInitialViewController() const;
    /// It is fatal when there is no screen with that identifier.
    std::shared_ptr<UIViewController> instantiateViewController(std::string_view identifier) const;

private:
    static std::shared_ptr<UIViewController> instantiate(const UIStoryboardScene&);

    std::vector<UIStoryboardScene> m_scenes;
};

} // namespace velmorath
