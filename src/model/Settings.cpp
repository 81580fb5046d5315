#include "Settings.h"
#include "FatalError.h"
#include "Print.h"
#include "UserDefaults.h"

namespace velmorath {

SettingsDictionary defaultSettings(std::string_view theme)
{
    return {{"appIconBadge", "true"}, {"soundEffect", "true"}, {"vibration", "true"},
        {"theme", std::string(theme)}};
}

SettingsDictionary loadSettings(std::string_view defaultTheme)
{
    const PropertyList* stored = UserDefaults::standard().object(settingsKey);
    if (!stored) {
        print("non cè qualcosa");
        print("devo inizializzare il dizionario");
        SettingsDictionary defaults = defaultSettings(defaultTheme);
        saveSettings(defaults);
        return defaults;
    }
    print("cè qualcosa");
    const SettingsDictionary* dizionarioSettaggi = stored->dictionary();
    if (!dizionarioSettaggi)
        fatalError("The stored settings are not a dictionary");
    print("dizionarioSettaggi : " + description(*dizionarioSettaggi));
    return *dizionarioSettaggi;
}

void saveSettings(const SettingsDictionary& settings)
{
    UserDefaults::standard().setObject(settingsKey, settings);
    UserDefaults::standard().synchronize();
}

const std::string& setting(const SettingsDictionary& settings, std::string_view key)
{
    const auto found = settings.find(key);
    const std::string* value = found == settings.end() ? nullptr : found->second.string();
    if (!value)
        fatalError("The settings lack a string under " + std::string(key));
    return *value;
}

} // namespace velmorath
