#pragma once

#include <string>

namespace velmorath {

/// The bytes that the page hands over: it asks for room, writes there, and says how many they are in the
/// call that they belong to. Whoever that call reaches takes them out.
class IncomingBytes {
public:
    static char* makeRoom(std::size_t size);
    static std::string take(std::size_t size);
};

} // namespace velmorath
