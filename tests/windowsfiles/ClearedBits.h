#pragma once

#include <cstdint>
#include <string>

#include "platform/win32/system/Handle.h"

namespace ambrio::windowsfiles {

// The files whose archive bit has been cleared, for as long as they are what they were then: a
// file that has got another time or another size since was written to by somebody, whoever it was,
// and has its bit again. All processes that a test starts share one table with it: the first makes
// it and puts its name into the environment, where the others find it. Any thread may call.
class ClearedBits {
  public:
    // Throws std::system_error.
    ClearedBits();
    ClearedBits(const ClearedBits&) = delete;
    ClearedBits& operator=(const ClearedBits&) = delete;

    // True when there is nothing to look up.
    [[nodiscard]] bool IsEmpty() const;
    [[nodiscard]] bool IsCleared(const BY_HANDLE_FILE_INFORMATION& file) const;
    // False when the table is full.
    [[nodiscard]] bool Clear(const BY_HANDLE_FILE_INFORMATION& file);
    void Set(const BY_HANDLE_FILE_INFORMATION& file);

  private:
    struct Entry;
    struct Table;
    class Lock;
    struct ViewCloser {
        void operator()(const void* view) const { UnmapViewOfFile(view); }
    };

    [[nodiscard]] Entry* Find(const BY_HANDLE_FILE_INFORMATION& file) const;

    UniqueHandle mutex_;
    UniqueHandle mapping_;
    std::unique_ptr<void, ViewCloser> view_;
    Table* table_ = nullptr;  // in the view
};

}  // namespace ambrio::windowsfiles
