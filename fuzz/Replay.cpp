// Runs a fuzz target without a fuzzer: over every file of a corpus, and over simple variations of each: cut off at
// every length, and every byte changed in some ways. For ordinary builds, where the same inputs must hold.
//
//     <target>_replay <corpus directory> [<number>]
//
// A number limits the variations of each seed to about as many, spread over it: for targets that take long.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace
{
using Bytes = std::vector<unsigned char>;

Bytes contentOf(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The number of inputs run.
std::size_t runVariations(const Bytes& seed, std::size_t most)
{
    constexpr std::size_t variationsOfAByte = 7;
    const std::size_t step = std::max<std::size_t>(1, seed.size() * variationsOfAByte / most);
    std::size_t count = 0;
    const auto run = [&count](const Bytes& input) {
        LLVMFuzzerTestOneInput(input.data(), input.size());
        ++count;
    };
    run(seed);
    for (std::size_t i = 0; i < seed.size(); i += step) {
        run(Bytes(seed.begin(), seed.begin() + static_cast<long>(i)));
        const unsigned char original = seed[i];
        for (const unsigned changed : {0x00u, 0xFFu, 0x7Fu, original ^ 0x01u, original ^ 0x80u, original + 1u}) {
            Bytes input = seed;
            input[i] = static_cast<unsigned char>(changed);
            run(input);
        }
    }
    return count;
}
}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s <corpus directory> [<number>]\n", argv[0]);
        return 2;
    }
    const std::size_t most = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : static_cast<std::size_t>(-1);
    std::size_t seeds = 0;
    std::size_t inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        inputs += runVariations(contentOf(entry.path()), most);
        ++seeds;
    }
    std::printf("%zu inputs from %zu seeds\n", inputs, seeds);
    return seeds > 0 ? 0 : 1;
}
