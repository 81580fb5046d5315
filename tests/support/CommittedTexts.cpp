#include "CommittedTexts.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace velmorath {

CommittedTexts::CommittedTexts(std::string folder)
    : m_folder(std::move(folder))
    , m_writes(std::getenv("VELMORATH_WRITE_DRAWINGS"))
{
}

void CommittedTexts::compare(const std::string& name, std::vector<std::string> lines)
{
    for (std::string& line : lines) {
        for (std::size_t at = 0; (at = line.find('\n', at)) != std::string::npos;)
            line.replace(at, 1, "\\n");
    }
    const std::string file = name + ".txt";
    EXPECT_TRUE(m_names.insert(file).second) << file << " stands for two things";
    if (m_writes) {
        std::ofstream written(m_folder + "/" + file);
        for (const std::string& line : lines)
            written << line << "\n";
        return;
    }
    std::ifstream committed(m_folder + "/" + file);
    ASSERT_TRUE(committed) << file << " is missing";
    std::string expected;
    std::size_t i = 0;
    for (; i < lines.size() && std::getline(committed, expected); ++i)
        ASSERT_EQ(lines[i], expected)
            << file << ":" << i + 1 << "; VELMORATH_WRITE_DRAWINGS=1 writes it anew";
    ASSERT_EQ(i, lines.size()) << file << " ends before: " << lines[i];
    ASSERT_FALSE(std::getline(committed, expected)) << file << ":" << i + 1 << " is no more: " << expected;
}

void CommittedTexts::compareNames() const
{
    for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
        const std::string file = entry.path().filename().string();
        if (m_names.contains(file))
            continue;
        if (m_writes)
            std::filesystem::remove(entry.path());
        else
            ADD_FAILURE() << file << " is of nothing";
    }
}

} // namespace velmorath
