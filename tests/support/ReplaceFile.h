#pragma once

#include "Files.h"

namespace velmorath {

/// Puts these bytes in a file's place where the answer comes at once. Nothing when it worked.
inline std::optional<Error> replaceFile(Files& files, const std::string& path, std::string_view bytes)
{
    std::optional<Error> result = Error{"no answer"};
    files.replace(path, bytes, [&](const std::optional<Error>& error) { result = error; });
    return result;
}

} // namespace velmorath
