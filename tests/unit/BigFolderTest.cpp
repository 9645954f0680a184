#include <gtest/gtest.h>

#include <ctime>

#include "engine/ListingYield.h"
#include "engine/LookAhead.h"
#include "tests/support/CountingFileSystem.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

// How long processors have worked for this program, in seconds: what others do meanwhile is not in
// it.
double SecondsOfWork() {
    timespec time{};
    EXPECT_EQ(clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time), 0);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// What a run over one folder of unchanged files costs, the folder's making not counted.
double WorkOfRun(int files) {
    EngineBench bench;
    bench.AddSet(L"S", L"C:\\From", L"C:\\To");
    for (int i = 0; i < files; ++i) {
        const std::wstring name = L"\\file " + std::to_wstring(i);
        bench.Files.WriteFile(L"C:\\From" + name, "", 0, 1);
        bench.Files.WriteFile(L"C:\\To" + name, "", 0, 1);
    }
    const double start = SecondsOfWork();
    bench.Run();
    EXPECT_EQ(bench.State.FilesChecked, files);
    EXPECT_EQ(bench.State.FilesCopied, 0);
    return SecondsOfWork() - start;
}

// Ten times the files may cost thirty times the work before this complains: a cost that grows with
// the square would be a hundred times.
TEST(BigFolder, AHundredThousandFilesCostInProportion) {
    static_cast<void>(WorkOfRun(1'000));
    const double small = WorkOfRun(10'000);
    const double big = WorkOfRun(100'000);
    EXPECT_GT(small, 0) << "nothing was measured";
    EXPECT_LT(big, 30 * small);
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
    EXPECT_EQ(counting.CallsOf(FileOperation::Next), static_cast<int>(LookAhead::kMostEntries))
        << "what was read ahead when the first file was to be copied";
}

}  // namespace
}  // namespace ambrio
