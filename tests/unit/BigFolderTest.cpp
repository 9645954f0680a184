#include <gtest/gtest.h>

#include <chrono>

#include "engine/ListingYield.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

// What a run over one folder of unchanged files costs, the folder's making not counted.
std::chrono::duration<double> TimeOfRun(int files) {
    EngineBench bench;
    bench.AddSet(L"S", L"C:\\From", L"C:\\To");
    for (int i = 0; i < files; ++i) {
        const std::wstring name = L"\\file " + std::to_wstring(i);
        bench.Files.WriteFile(L"C:\\From" + name, "", 0, 1);
        bench.Files.WriteFile(L"C:\\To" + name, "", 0, 1);
    }
    const auto start = std::chrono::steady_clock::now();
    bench.Run();
    EXPECT_EQ(bench.State.FilesChecked, files);
    EXPECT_EQ(bench.State.FilesCopied, 0);
    return std::chrono::steady_clock::now() - start;
}

// Ten times the files may cost thirty times the time before this complains: a cost that grows with
// the square would be a hundred times.
TEST(BigFolder, AHundredThousandFilesCostInProportion) {
    static_cast<void>(TimeOfRun(1'000));
    const auto small = TimeOfRun(10'000);
    const auto big = TimeOfRun(100'000);
    EXPECT_LT(big / small, 30);
}

TEST(BigFolder, AnInterruptInALongListingHandsOverOneFileAndListsNoFurther) {
    EngineBench bench;
    bench.AddSet(L"S", L"C:\\From", L"C:\\To");
    for (int i = 0; i < 10 * kEntriesBetweenYields; ++i) {
        bench.Files.WriteFile(L"C:\\From\\file " + std::to_wstring(i));
    }
    bench.InterruptAtEvent(1);
    CountingFileSystem counting(bench.Files);
    bench.Run(counting, bench.Settings);
    EXPECT_EQ(bench.State.FilesChecked, 1);
    EXPECT_EQ(counting.CallsOf(FileOperation::Next), 1);
}

}  // namespace
}  // namespace ambrio
