#pragma once

#include "Files.h"
#include <filesystem>
#include <fstream>
#include <iterator>

namespace velmorath {

inline std::string contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Puts these bytes in a file's place where the answer comes at once. Nothing when it worked.
inline std::optional<Error> replaceFile(Files& files, const std::string& path, std::string_view bytes)
{
    std::optional<Error> result = Error{"no answer"};
    files.replace(path, bytes, [&](const std::optional<Error>& error) { result = error; });
    return result;
}

/// The same by another program: written beside, and renamed over.
inline void replaceFromOutside(const std::string& path, std::string_view bytes)
{
    const std::string beside = path + ".tmp";
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(beside) << bytes;
    std::filesystem::rename(beside, path);
}

} // namespace velmorath
