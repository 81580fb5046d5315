#include "DemoClient.h"
#include "QtContext.h"
#include "ShadowCache.h"
#include "TextCache.h"
#include <QApplication>
#include <benchmark/benchmark.h>

namespace velmorath {

namespace {

constexpr CGSize screenSize{375, 667};
constexpr int scale = 2;

/// A phone's screen in memory, as a window has it.
class Surface {
public:
    Surface()
    {
        m_image.setDevicePixelRatio(scale);
        m_painter.begin(&m_image);
    }
    ~Surface() { m_painter.end(); }

    QPainter& painter() { return m_painter; }
    QtContext& context() { return m_context; }

private:
    QImage m_image{int(screenSize.width) * scale, int(screenSize.height) * scale, QImage::Format_RGB32};
    QPainter m_painter;
    TextCache m_texts;
    ShadowCache m_shadows;
    QtContext m_context{m_painter, m_texts, m_shadows};
};

/// What every painted frame costs at the least.
void fillOnce(benchmark::State& state)
{
    Surface surface;
    for (auto step : state)
        surface.painter().fillRect(QRectF(0, 0, screenSize.width, screenSize.height), Qt::red);
}
BENCHMARK(fillOnce)->Unit(benchmark::kMillisecond);

/// Twelve rows at rest.
void wholeScreen(benchmark::State& state)
{
    Surface surface;
    for (auto step : state)
        DemoClient::drawRows(surface.context(), screenSize, 0, -1, {});
}
BENCHMARK(wholeScreen)->Unit(benchmark::kMillisecond);

/// The same while they move by parts of a point.
void scrolling(benchmark::State& state)
{
    Surface surface;
    double offset = 0;
    for (auto step : state) {
        DemoClient::drawRows(surface.context(), screenSize, offset, -1, {});
        offset = offset > 20 ? 0 : offset + 0.37;
    }
}
BENCHMARK(scrolling)->Unit(benchmark::kMillisecond);

/// The same with texts never seen before.
void newTexts(benchmark::State& state)
{
    Surface surface;
    int number = 0;
    std::map<int, std::string> texts;
    for (auto step : state) {
        for (int row = 0; row < 12; ++row)
            texts[row] = "A note that nobody wrote before, " + std::to_string(++number);
        DemoClient::drawRows(surface.context(), screenSize, 0, -1, texts);
    }
}
BENCHMARK(newTexts)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velmorath

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
