#pragma once

#include "Info.h"
#include "Info2.h"
#include "Info3.h"
#include "Story.h"

namespace velmorath {

/// The whole program, with ways to and on the information, options and theme screens.
class SettingsTest : public Story {
protected:
    void openInformation()
    {
        const CGSize size = host.screen().size();
        tap({size.width - 28, size.height - 28});
        host.advance(0.5);
    }
    void openOptions()
    {
        openInformation();
        tapRow(3);
    }
    void openThemes()
    {
        openOptions();
        tapRow(3);
    }
    /// On a row of one of the three screens; what it opens is there afterwards.
    void tapRow(std::size_t place)
    {
        tap({160, 56 + place * 60.0 + 30});
        host.advance(0.5);
    }
    void close()
    {
        tap({28, 28});
        host.advance(0.5);
    }

    /// The screen on top of all others.
    UIViewController& top() const
    {
        UIViewController* controller = &list();
        while (controller->presentedViewController())
            controller = controller->presentedViewController().get();
        return *controller;
    }
    template <typename Screen> bool isOnTop() const { return dynamic_cast<Screen*>(&top()); }
    SettingsScreen& screen() const { return dynamic_cast<SettingsScreen&>(top()); }

    /// What the file of the user-defaults store holds.
    SettingsDictionary stored()
    {
        UserDefaults::standard().reset();
        const SettingsDictionary* settings = UserDefaults::standard().dictionary(settingsKey);
        return settings ? *settings : SettingsDictionary{};
    }
    void storeWithout(const std::string& key)
    {
        SettingsDictionary settings = *UserDefaults::standard().dictionary(settingsKey);
        settings.erase(key);
        UserDefaults::standard().setObject(settingsKey, settings);
    }
};

} // namespace velmorath
