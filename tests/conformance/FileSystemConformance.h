#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/RuntimeError.h"
#include "tests/conformance/FileSystemWorld.h"
#include "tests/support/RuntimeErrorOf.h"

namespace ambrio {

// What every FileSystem must do. Each test runs in every world that this build can make.
class FileSystemConformance : public testing::TestWithParam<FileSystemWorldMaker> {
  protected:
    void SetUp() override;

    [[nodiscard]] FileSystemWorld& World() { return *world_; }
    [[nodiscard]] FileSystem& Files() { return world_->Files(); }
    // A path in the test's own folder.
    [[nodiscard]] std::wstring At(const std::wstring& name) const;
    // The same, for a file or folder that it makes first.
    std::wstring NewFile(const std::wstring& name, const std::string& content = "content");
    std::wstring NewFolder(const std::wstring& name);

    void Copy(const std::wstring& source, const std::wstring& destination, bool overwrite = true);
    [[nodiscard]] FileAttributes Attributes(const std::wstring& path);
    void AddAttributes(const std::wstring& path, FileAttributes attributes);
    // The listing of a folder, by name.
    [[nodiscard]] std::map<std::wstring, FileEntry> List(const std::wstring& folder);
    // True when the folder holds just these names.
    [[nodiscard]] testing::AssertionResult HasOnly(const std::wstring& folder,
                                                   std::vector<std::wstring> names);

    // The numbers that the operations end with; nothing for success.
    using Outcome = std::optional<ErrorNumber>;
    [[nodiscard]] Outcome Creating(const std::wstring& path);
    [[nodiscard]] Outcome Getting(const std::wstring& path);
    [[nodiscard]] Outcome Listing(const std::wstring& path);
    [[nodiscard]] Outcome Deleting(const std::wstring& path, bool force = false);
    [[nodiscard]] Outcome Copying(const std::wstring& source, const std::wstring& destination,
                                  bool overwrite = true);
    [[nodiscard]] Outcome Logging(const std::wstring& path);

  private:
    std::unique_ptr<FileSystemWorld> world_;
};

// The name of a world as the name of a test ends with it.
[[nodiscard]] inline std::string WorldName(
    const testing::TestParamInfo<FileSystemWorldMaker>& world) {
    return world.param.Name;
}

}  // namespace ambrio
