#include "UIStoryboard.h"
#include "FatalError.h"

namespace velmorath {

std::shared_ptr<UIViewController> UIStoryboardScene::destinationOf(const std::string& transition) const
{
    const auto found = transitions.find(transition);
    return found == transitions.end() ? nullptr : storyboard->instantiateViewController(found->second);
}

void UIStoryboard::enter(std::string name, std::vector<UIStoryboardScene> scenes)
{
    UIStoryboard& storyboard = Registry<UIStoryboard>::enter(std::move(name), {});
    storyboard.m_scenes = std::move(scenes);
    for (UIStoryboardScene& scene : storyboard.m_scenes)
        scene.storyboard = &storyboard;
}

std::shared_ptr<UIViewController> UIStoryboard::instantiateViewController(std::string_view identifier) const
{
    for (const UIStoryboardScene& scene : m_scenes) {
        if (scene.identifier == identifier)
            return instantiate(scene);
    }
    fatalError("The storyboard has no screen named " + std::string(identifier));
}

std::shared_ptr<UIViewController> UIStoryboard::instantiate(const UIStoryboardScene& scene)
{
    std::shared_ptr<UIViewController> controller = scene.make();
    controller->setScene(&scene);
    return controller;
}

} // namespace velmorath
