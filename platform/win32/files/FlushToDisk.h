#pragma once

#include <array>
#include <atomic>
#include <string>

#include "platform/win32/WindowsHeaders.h"
#include "platform/win32/files/Patience.h"
#include "platform/win32/system/Handle.h"

namespace ambrio {

// Which drives are flushed: those of this machine, fixed and removable. A server flushes as it does
// when a file is closed. Each drive is looked at once. For any thread.
class FlushedDrives {
  public:
    [[nodiscard]] bool Hold(const std::wstring& extended);

  private:
    enum class Kind : unsigned char { Unknown, Flushed, Other };

    static constexpr std::size_t kLetters = 26;
    std::array<std::atomic<Kind>, kLetters> kinds_{};
};

// Opens a new file so that it can be flushed and renamed, a read-only one too, and waits for
// programs that just look into it. Nobody can keep it from being renamed while it is open. Gives
// the Win32 error code, 0 for success; the file has its attributes either way.
[[nodiscard]] DWORD OpenToFlush(const std::wstring& extended, Patience& patience,
                                UniqueHandle& file);

// Returns when the content of a file that is open for writing or appending lies on the disk, out of
// reach of a power failure as far as the device tells the truth about its own cache. Where it can
// the system leaves out what is not needed to read the content. A file system that keeps nothing
// back has done its part. Gives the Win32 error code, 0 for success.
[[nodiscard]] DWORD FlushToDisk(HANDLE file);

}  // namespace ambrio
