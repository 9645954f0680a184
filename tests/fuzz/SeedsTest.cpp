// Every seed of the fuzzers, once: what they have found stays found.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FuzzSeeds.h"
#include "tests/fuzz/Fuzzers.h"

namespace ambrio {
namespace {

struct Fuzzer {
    const char* Name;  // of its folder of seeds
    void (*Run)(FuzzInput input);
};

class SeedsTest : public testing::TestWithParam<Fuzzer> {};

TEST_P(SeedsTest, FindNothing) {
    int seeds = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(std::string(kFuzzSeeds) + GetParam().Name)) {
        std::ifstream stream(file.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
        EXPECT_NO_THROW(GetParam().Run(
            FuzzInput({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()})))
            << file.path();
        ++seeds;
    }
    EXPECT_GT(seeds, 2);
}

INSTANTIATE_TEST_SUITE_P(OfEachFuzzer, SeedsTest,
                         testing::Values(Fuzzer{"FuzzSetList", FuzzSetList},
                                         Fuzzer{"FuzzTextConversion", FuzzTextConversion},
                                         Fuzzer{"FuzzCommandLine", FuzzCommandLine},
                                         Fuzzer{"FuzzDestinationFolder", FuzzDestinationFolder},
                                         Fuzzer{"FuzzRun", FuzzRun}),
                         [](const auto& fuzzer) { return std::string(fuzzer.param.Name); });

}  // namespace
}  // namespace ambrio
