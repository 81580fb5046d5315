#include "Surface.h"
#include <QApplication>
#include <benchmark/benchmark.h>
#include <map>

namespace velmorath {

namespace {

constexpr int rowCount = 12;
constexpr double textMargin = 15;
constexpr double dateWidth = 90;
constexpr double rowHeight = screenSize.height / rowCount;

CGRect textRectOfRow(int row, double offset)
{
    return CGRectMake(
        textMargin, row * rowHeight + offset, screenSize.width - 2 * textMargin - dateWidth, rowHeight);
}

const CGTextStyle rowStyle{.font = {.size = 17, .bold = true}, .color = CGColor::gray(1)};

std::string rowText(int row)
{
    return "Row " + std::to_string(row) + ", as long as notes are";
}

/// Rows as a list has them.
void drawRows(CGContext& context, double offset, const std::map<int, std::string>& texts)
{
    static const CGGradient gloss{
        {CGColor::gray(1, 0.2), CGColor::gray(1, 0.1), {0, 0, 0, 0}, {0, 0, 0, 0.1}}, {0, 0.01, 0.95, 1}};
    const CGTextStyle dateStyle{
        .font = {.size = 11}, .color = CGColor::gray(1, 0.8), .alignment = CGTextAlignment::right};
    for (int row = 0; row < rowCount; ++row) {
        const CGRect rect = CGRectMake(0, row * rowHeight + offset, screenSize.width, rowHeight);
        context.fill(rect, 0, CGColor{1, row * 0.07, 0});
        context.fill(rect, 0, gloss);
        const auto text = texts.find(row);
        context.drawText(
            text == texts.end() ? rowText(row) : text->second, textRectOfRow(row, offset), rowStyle);
        context.drawText("Nov 22, 2026",
            CGRectMake(screenSize.width - textMargin - dateWidth, rect.minY(), dateWidth, rowHeight),
            dateStyle);
    }
}

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
        drawRows(surface.context(), 0, {});
}
BENCHMARK(wholeScreen)->Unit(benchmark::kMillisecond);

/// The same while they move by parts of a point.
void scrolling(benchmark::State& state)
{
    Surface surface;
    double offset = 0;
    for (auto step : state) {
        drawRows(surface.context(), offset, {});
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
        drawRows(surface.context(), 0, texts);
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
