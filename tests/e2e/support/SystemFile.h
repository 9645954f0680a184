#pragma once

#include <string>

namespace ambrio::e2e {

// A file put into one of the system's folders for the length of a test. A file that is there
// already is left alone and counts as not installed.
class SystemFile {
  public:
    // Copies `source` to `place`.
    SystemFile(const std::wstring& source, std::wstring place);
    ~SystemFile();
    SystemFile(const SystemFile&) = delete;
    SystemFile& operator=(const SystemFile&) = delete;

    // False when the rights do not suffice or something of that name is there.
    [[nodiscard]] bool IsInstalled() const { return installed_; }

  private:
    std::wstring place_;
    bool installed_ = false;
};

// Without a separator at the end. The System folder is what everybody calls so; NativeFiles.h tells
// of the one that a 32-bit program is shown in its place.
[[nodiscard]] std::wstring WindowsFolder();
[[nodiscard]] std::wstring SystemFolder();

}  // namespace ambrio::e2e
