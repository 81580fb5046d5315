// Saving and loading the whole list, beside what the disk alone takes for the same bytes. The budgets:
// saving at most 2.5 times writing, loading at most three times reading and 35 ms.

#include "HeadlessHost.h"
#include "KeyedArchiver.h"
#include "ManyNotes.h"
#include "SharedNoteFile.h"
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

namespace velmorath {
namespace {

class BenchHost : public HeadlessHost {
public:
    BenchHost()
        : HeadlessHost({})
    {
        files().setShared(true);
    }

    std::string path() { return *files().documentDirectory() + "/noteSalvate.archive"; }
};

void put(benchmark::State& state, BenchHost& host, std::string_view bytes)
{
    host.files().replace(host.path(), bytes, [&](const auto& error) {
        if (error)
            state.SkipWithError("cannot write");
    });
}

void countBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

void writeRaw(benchmark::State& state)
{
    BenchHost host;
    auto bytes = KeyedArchiver::archivedData(manyNotes(static_cast<int>(state.range(0))));
    // The first makes the folders.
    put(state, host, bytes);
    for (auto _ : state) {
        int file = open(host.path().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        bool written = write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
        if (!written || fsync(file) != 0)
            state.SkipWithError("cannot write");
        close(file);
    }
    countBytes(state, bytes.size());
}

void save(benchmark::State& state)
{
    BenchHost host;
    auto notes = manyNotes(static_cast<int>(state.range(0)));
    SharedNoteFile file;
    for (auto _ : state)
        file.save(notes);
    if (host.console().lines().back() != "Success writing to file!")
        state.SkipWithError("cannot save");
    countBytes(state, host.files().read(host.path())->size());
}

void readRaw(benchmark::State& state)
{
    BenchHost host;
    auto bytes = KeyedArchiver::archivedData(manyNotes(static_cast<int>(state.range(0))));
    put(state, host, bytes);
    for (auto _ : state) {
        int file = open(host.path().c_str(), O_RDONLY | O_CLOEXEC);
        if (read(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            state.SkipWithError("cannot read");
        close(file);
    }
    countBytes(state, bytes.size());
}

void load(benchmark::State& state)
{
    BenchHost host;
    ToDoItem2::enterInUnarchiver();
    auto notes = manyNotes(static_cast<int>(state.range(0)));
    put(state, host, KeyedArchiver::archivedData(notes));
    for (auto _ : state) {
        auto file = std::make_unique<SharedNoteFile>();
        Notes loaded = file->load();
        // The program keeps its list.
        state.PauseTiming();
        if (loaded.size() != notes.size())
            state.SkipWithError("cannot load");
        loaded.clear();
        file.reset();
        state.ResumeTiming();
    }
    countBytes(state, host.files().read(host.path())->size());
}

BENCHMARK(writeRaw)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(save)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readRaw)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(load)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace velmorath
