#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"

namespace ambrio {

// Whole runs over what can lie in wait on a user's disks. Whatever it is, no source loses a byte
// and the run ends.
class HazardTest : public testing::Test {
  protected:
    HazardTest() { Bench.AddSet(L"S", L"C:\\Data", L"C:\\Copies"); }

    // Other folders than the usual ones, for a file that has one name in both.
    void Point(const std::wstring& source, const std::wstring& destination) {
        Bench.Set(L"S", kSourceKey, source);
        Bench.Set(L"S", kDestinationKey, destination);
    }
    void File(const std::wstring& path, const std::string& content = "x",
              FileSeconds time = 13'400'000'000) {
        Bench.Files.WriteFile(path, content, kAttributeArchive, time);
    }
    // Runs through `files`, which may stand in front of the usual ones.
    void Run(FileSystem& files) { Bench.Run(files, Bench.Settings); }
    void Run() { Bench.Run(); }
    // A second run has nothing left to copy.
    void ExpectNothingMoreToCopy() {
        Run();
        EXPECT_EQ(Bench.State.FilesCopied, 0);
    }
    [[nodiscard]] std::string Content(const std::wstring& path) {
        return Bench.Files.FileExists(path) ? Bench.Files.Content(path) : "none";
    }

    EngineBench Bench;
};

}  // namespace ambrio
