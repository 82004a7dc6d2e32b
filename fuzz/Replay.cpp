// Runs a fuzz target without a fuzzer: over every file of a corpus, and over simple variations of each: cut off at
// every length, and every byte changed in some ways. For ordinary builds, where the same inputs must hold.
//
//     <target>_replay <corpus directory>

#include <cstdio>
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
std::size_t runVariations(const Bytes& seed)
{
    std::size_t count = 0;
    const auto run = [&count](const Bytes& input) {
        LLVMFuzzerTestOneInput(input.data(), input.size());
        ++count;
    };
    run(seed);
    for (std::size_t i = 0; i < seed.size(); ++i) {
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
    std::size_t seeds = 0;
    std::size_t inputs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            inputs += runVariations(contentOf(entry.path()));
            ++seeds;
        }
    }
    std::printf("%zu inputs from %zu seeds\n", inputs, seeds);
    return seeds > 0 ? 0 : 1;
}
