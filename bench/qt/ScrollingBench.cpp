// One frame of the real list while it scrolls, from the wheel's turn to the last pixel, painted by the Qt
// host on a phone's screen of 750 x 1334 pixels. The budget: below 4 ms, and the same for 100 notes as for
// 100,000.

#include "KeyedArchiver.h"
#include "Main.h"
#include "QtHost.h"
#include "Surface.h"
#include "ToDoItem2.h"
#include "UserDefaults.h"
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace velmorath {

namespace {

class SilentConsole final : public Console {
public:
    void writeLine(std::string_view) override { }
    void flush() override { }
};

/// The Qt host, but frames are made when the benchmark wants them.
class BenchHost final : public Host {
public:
    Screen& screen() override { return m_host.screen(); }
    TextInput& textInput() override { return m_host.textInput(); }
    Clock& clock() override { return m_host.clock(); }
    Files& files() override { return m_host.files(); }
    Locale& locale() override { return m_host.locale(); }
    Effects& effects() override { return m_host.effects(); }
    Documents& documents() override { return m_host.documents(); }
    Console& console() override { return m_console; }
    int run(HostClient& client) override
    {
        m_client = &client;
        return 0;
    }

    QtHost& qt() { return m_host; }
    HostClient& client() { return *m_client; }

private:
    QtHost m_host{ProgramFolders::find()};
    SilentConsole m_console;
    HostClient* m_client = nullptr;
};

void writeNotes(BenchHost& host, std::int64_t count)
{
    std::vector<std::shared_ptr<ToDoItem2>> notes;
    for (std::int64_t i = 0; i < count; ++i) {
        notes.push_back(std::make_shared<ToDoItem2>());
        notes.back()->text = "Note number " + std::to_string(i) + " of the list";
        notes.back()->data = "Nov 22, 2026";
        notes.back()->completed = i % 3 == 0;
    }
    KeyedArchiver::archiveRootObject(
        notes, *host.files().documentDirectory() + "/noteSalvate.archive", [](bool) {});
}

void scrollingFrame(benchmark::State& state)
{
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    BenchHost host;
    Host::install(host);
    UserDefaults::standard().reset();
    writeNotes(host, state.range(0));
    host.qt().widget().resize(static_cast<int>(screenSize.width), static_cast<int>(screenSize.height));
    velmorath::main(0, nullptr);
    host.client().prepareFrame();

    Surface surface;
    CGFloat way = 0;
    for (auto step : state) {
        way += 7.3;
        // Down and up again, as a list of 100 ends.
        const CGFloat turn = std::fmod(way, 8000) < 4000 ? -7.3 : 7.3;
        host.client().scrolled({180, 300}, {0, turn});
        const CGRect damage = host.client().prepareFrame();
        if (damage.isEmpty())
            state.SkipWithError("the list did not scroll");
        host.client().draw(surface.context(), damage);
    }
    host.client().willTerminate();
}
BENCHMARK(scrollingFrame)->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace velmorath
