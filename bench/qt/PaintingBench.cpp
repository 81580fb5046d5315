#include "DemoClient.h"
#include "Surface.h"
#include <QApplication>
#include <benchmark/benchmark.h>

namespace velmorath {

namespace {

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
