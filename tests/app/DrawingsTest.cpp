#include "DrawingText.h"
#include "ScreenReader.h"
#include "ScreensWalk.h"
#include <filesystem>
#include <fstream>
#include <set>

namespace velmorath {
namespace {

/// Compares every screen with what is committed of it, or writes it anew: see docs/contributing.md.
class DrawingsTest : public ScreensWalk {
protected:
    void look(const std::string& state) override
    {
        Lines lines = textOf(host.draw(), host.textInput());
        if (size.width == 375) {
            for (const std::string& told : ScreenReader(host).everything())
                lines.push_back("told " + told);
        }
        for (std::string& line : lines) {
            for (std::size_t at = 0; (at = line.find('\n', at)) != std::string::npos;)
                line.replace(at, 1, "\\n");
        }
        const std::string name = state + suffix() + ".txt";
        EXPECT_TRUE(names.insert(name).second) << name << " stands for two states";
        if (writes)
            write(name, lines);
        else
            compare(name, lines);
    }

    /// What is committed but seen nowhere is old.
    void compareNames() const
    {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (names.contains(name))
                continue;
            if (writes)
                std::filesystem::remove(entry.path());
            else
                ADD_FAILURE() << name << " is the drawing of no state";
        }
    }

    CGSize size;
    std::set<std::string> names;

private:
    std::string suffix() const
    {
        return size.width == 375 ? ""
                                 : "-" + std::to_string(static_cast<int>(size.width)) + "x"
                + std::to_string(static_cast<int>(size.height));
    }

    void write(const std::string& name, const Lines& lines) const
    {
        std::ofstream file(folder + name);
        for (const std::string& line : lines)
            file << line << "\n";
    }

    void compare(const std::string& name, const Lines& lines) const
    {
        std::ifstream file(folder + name);
        ASSERT_TRUE(file) << name << " is missing";
        std::string committed;
        std::size_t i = 0;
        for (; std::getline(file, committed) && i < lines.size(); ++i)
            ASSERT_EQ(lines[i], committed) << "drawings/" << name << ":" << i + 1;
        ASSERT_TRUE(file.eof()) << "drawings/" << name << ":" << i + 1 << " is not drawn: " << committed;
        ASSERT_EQ(i, lines.size()) << "drawings/" << name << " lacks " << lines[i];
    }

    const std::string folder = VELMORATH_DRAWINGS "/";
    const bool writes = std::getenv("VELMORATH_WRITE_DRAWINGS");
};

TEST_F(DrawingsTest, EveryScreenLooksAsItIsCommitted)
{
    for (const CGSize screen : {CGSize{375, 667}, {320, 568}, {1200, 800}}) {
        size = screen;
        walk(screen, screen.width == 375);
    }
    compareNames();
}

} // namespace
} // namespace velmorath
