#pragma once

#include <string_view>

/// Addresses and identifiers of the outside world. They stand on domains that are reserved for examples:
/// whoever publishes the program puts their own here.
namespace velmorath::configuration {

/// The host of the application store.
constexpr std::string_view storeHost = "store.velmorath.example";
/// This program in the store.
constexpr std::string_view storeIdentifier = "1000000001";
/// Two other programs of the same makers.
constexpr std::string_view appId1 = "1000000002";
constexpr std::string_view appId2 = "1000000003";
/// What the makers do with the user's data.
constexpr std::string_view privacyPage = "https://www.velmorath.example/privacy";
/// Where the makers are written to.
constexpr std::string_view contactAddress = "hello@velmorath.example";

} // namespace velmorath::configuration
