#pragma once

#include "PropertyList.h"
#include <string>
#include <string_view>

namespace velmorath {

/// A screen's own copy of the user's options: the strings "soundEffect", "vibration" and "appIconBadge",
/// each "true" or off, and "theme". Entries that this program does not know stay in it.
using SettingsDictionary = PropertyList::Dictionary;

/// The key of the options in the user-defaults store.
constexpr std::string_view settingsKey = "settaggi";

/// The options that a first launch starts with, in this theme.
SettingsDictionary defaultSettings(std::string_view theme);

/// Reads the stored options. Where there are none, stores and returns the defaults in the given theme.
/// A stored entry that is not a dictionary ends the program.
SettingsDictionary loadSettings(std::string_view defaultTheme);

/// Stores all options and writes them to disk at once.
void saveSettings(const SettingsDictionary&);

/// One option. A key that is missing, or holds something other than a string, ends the program.
const std::string& setting(const SettingsDictionary&, std::string_view key);

} // namespace velmorath
