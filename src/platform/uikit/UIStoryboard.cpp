#include "UIStoryboard.h"
#include "FatalError.h"

namespace velmorath {

namespace {

std::map<std::string, std::unique_ptr<UIStoryboard>, std::less<>>& storyboards()
{
    static std::map<std::string, std::unique_ptr<UIStoryboard>, std::less<>> s_storyboards;
    return s_storyboards;
}

} // namespace

std::shared_ptr<UIViewController> UIStoryboardScene::destinationOf(const std::string& transition) const
{
    const auto found = m_transitions.find(transition);
    return found == m_transitions.end() ? nullptr : m_storyboard->instantiateViewController(found->second);
}

void UIStoryboard::enter(std::string name, std::vector<UIStoryboardScene> scenes)
{
    auto storyboard = std::make_unique<UIStoryboard>();
    storyboard->m_scenes = std::move(scenes);
    for (UIStoryboardScene& scene : storyboard->m_scenes)
        scene.m_storyboard = storyboard.get();
    storyboards().insert_or_assign(std::move(name), std::move(storyboard));
}

const UIStoryboard& UIStoryboard::named(std::string_view name)
{
    const auto found = storyboards().find(name);
    if (found == storyboards().end())
        fatalError("There is no storyboard named " + std::string(name));
    return *found->second;
}

std::shared_ptr<UIViewController> UIStoryboard::instantiateInitialViewController() const
{
    return instantiate(m_scenes.front());
}

std::shared_ptr<UIViewController> UIStoryboard::instantiateViewController(std::string_view identifier) const
{
    for (const UIStoryboardScene& scene : m_scenes) {
        if (scene.identifier() == identifier)
            return instantiate(scene);
    }
    fatalError("The storyboard has no screen named " + std::string(identifier));
}

std::shared_ptr<UIViewController> UIStoryboard::instantiate(const UIStoryboardScene& scene)
{
    std::shared_ptr<UIViewController> controller = scene.m_make();
    controller->setScene(&scene);
    return controller;
}

} // namespace velmorath
