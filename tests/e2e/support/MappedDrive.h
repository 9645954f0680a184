#pragma once

#include <string>

namespace ambrio::e2e {

// A drive letter that stands for a folder for the length of a test. When the folder is removed
// meanwhile, it is a drive that is not ready.
class MappedDrive {
  public:
    // Takes the last letter that is free. Throws std::system_error when there is none or when it
    // cannot be mapped.
    explicit MappedDrive(std::wstring folder);
    ~MappedDrive();
    MappedDrive(const MappedDrive&) = delete;
    MappedDrive& operator=(const MappedDrive&) = delete;

    // With its colon.
    [[nodiscard]] const std::wstring& Name() const { return name_; }

  private:
    std::wstring folder_;
    std::wstring name_;
};

// The last letter that no drive has, with a colon. Throws std::system_error when there is none.
[[nodiscard]] std::wstring FreeDriveName();

}  // namespace ambrio::e2e
