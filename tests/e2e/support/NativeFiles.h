#pragma once

#include <string>

namespace ambrio::e2e {

// Whether this is a 32-bit program on a 64-bit system, which shows it another folder in the place
// of System32.
[[nodiscard]] bool HasTwoSystemFolders();

// The folder of the system's 32-bit programs; empty on a 32-bit system. No separator at the end.
[[nodiscard]] std::wstring OtherSystemFolder();

// While it lives, this thread sees the real System32, and what it starts is started from there. It
// changes nothing where there is only one, nor for the programs that are started.
class NativeFiles {
  public:
    NativeFiles();
    ~NativeFiles();
    NativeFiles(const NativeFiles&) = delete;
    NativeFiles& operator=(const NativeFiles&) = delete;

  private:
    void* before_ = nullptr;
    bool isSwitched_ = false;
};

}  // namespace ambrio::e2e
