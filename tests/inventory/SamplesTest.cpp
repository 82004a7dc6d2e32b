// The committed sample tables and their golden texts.

#include "tests/inventory/GoldenText.h"
#include "tests/testing/SampleTables.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace
{
constexpr const char* IfMeant =
    "If the difference is meant, take it over and review it as a diff: cmake --build " VQ_BINARY_DIR
    " --target update-samples";

std::string sampleFile(const Sample& sample, const char* extension)
{
    return std::string(VQ_SOURCE_DIR "/samples/") + sample.name + extension;
}

std::string contentsOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

class SampleFile : public testing::TestWithParam<Sample>
{
};
}

TEST_P(SampleFile, FileIsWhatTheBuilderMakes)
{
    const std::vector<unsigned char> table = GetParam().table().dump();
    const std::string file = contentsOf(sampleFile(GetParam(), ".bin"));
    EXPECT_EQ(std::vector<unsigned char>(file.begin(), file.end()), table) << IfMeant;
}

TEST_P(SampleFile, ClassesAnswerTheGoldenText)
{
    EXPECT_EQ(goldenText(sampleFile(GetParam(), ".bin")), contentsOf(sampleFile(GetParam(), ".golden.txt"))) << IfMeant;
}

INSTANTIATE_TEST_SUITE_P(All, SampleFile, testing::ValuesIn(Samples),
                         [](const testing::TestParamInfo<Sample>& info) { return std::string(info.param.name); });
