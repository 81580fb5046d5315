#include "CommittedTexts.h"
#include "DrawingText.h"
#include "ScreenReader.h"
#include "ScreensWalk.h"

namespace velmorath {
namespace {

class DrawingsTest : public ScreensWalk {
protected:
    void look(const std::string& state) override
    {
        Lines lines = textOf(host.draw(), host.textInput());
        if (size.width == 375) {
            ScreenReader reader(host);
            for (const std::string& told : reader.everything())
                lines.push_back("told " + told);
            EXPECT_EQ(reader.faults(), Lines{}) << state;
        }
        drawings.compare(state + suffix(), lines);
    }

    CommittedTexts drawings{VELMORATH_DRAWINGS};
    CGSize size;

private:
    std::string suffix() const
    {
        return size.width == 375 ? ""
                                 : "-" + std::to_string(static_cast<int>(size.width)) + "x"
                + std::to_string(static_cast<int>(size.height));
    }
};

TEST_F(DrawingsTest, EveryScreenLooksAsItIsCommitted)
{
    for (const CGSize screen : {CGSize{375, 667}, {320, 568}, {1200, 800}}) {
        size = screen;
        walk(screen, screen.width == 375);
    }
    drawings.compareNames();
}

} // namespace
} // namespace velmorath
