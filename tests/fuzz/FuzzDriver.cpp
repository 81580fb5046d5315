// Runs a fuzz target without a fuzzing engine: every file of a corpus as it is, then damaged in ways that
// are the same in each run, for some seconds.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

class Damage {
public:
    Bytes apply(Bytes bytes, const Bytes& other)
    {
        for (auto changes = below(4) + 1; changes > 0; --changes)
            change(bytes, other);
        return bytes;
    }

    std::size_t below(std::size_t end) { return end == 0 ? 0 : m_random() % end; }

private:
    void change(Bytes& bytes, const Bytes& other)
    {
        constexpr std::uint8_t telling[] = {0x00, 0x01, 0x0F, 0x1F, 0x7F, 0x80, 0xA1, 0xD1, 0xFF};
        auto place = static_cast<std::ptrdiff_t>(below(bytes.size()));
        switch (below(6)) {
        case 0:
            if (!bytes.empty())
                bytes[static_cast<std::size_t>(place)] ^= static_cast<std::uint8_t>(1u << below(8));
            break;
        case 1:
            if (!bytes.empty())
                bytes[static_cast<std::size_t>(place)] = telling[below(std::size(telling))];
            break;
        case 2:
            bytes.resize(below(bytes.size()));
            break;
        case 3:
            bytes.insert(bytes.begin() + place, below(8), static_cast<std::uint8_t>(below(256)));
            break;
        case 4: {
            auto length = std::min(below(8), bytes.size() - static_cast<std::size_t>(place));
            bytes.erase(bytes.begin() + place, bytes.begin() + place + static_cast<std::ptrdiff_t>(length));
            break;
        }
        case 5: {
            auto from = below(other.size());
            auto length = std::min(
                below(64), std::min(other.size() - from, bytes.size() - static_cast<std::size_t>(place)));
            std::copy_n(other.begin() + static_cast<std::ptrdiff_t>(from), length, bytes.begin() + place);
            break;
        }
        }
    }

    std::mt19937_64 m_random{2026};
};

std::vector<Bytes> readCorpus(const char* folder)
{
    std::vector<Bytes> corpus;
    for (auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return corpus;
}

void run(const Bytes& bytes)
{
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 3) {
        std::fprintf(stderr, "usage: %s SECONDS CORPUS-FOLDER\n", arguments[0]);
        return 2;
    }
    auto corpus = readCorpus(arguments[2]);
    if (corpus.empty())
        return 2;
    for (auto& bytes : corpus)
        run(bytes);

    Damage damage;
    auto end = std::chrono::steady_clock::now() + std::chrono::seconds(std::atoi(arguments[1]));
    long long runs = 0;
    for (; std::chrono::steady_clock::now() < end; ++runs)
        run(damage.apply(corpus[damage.below(corpus.size())], corpus[damage.below(corpus.size())]));
    std::printf("%zu files, %lld damaged ones\n", corpus.size(), runs);
    return 0;
}
