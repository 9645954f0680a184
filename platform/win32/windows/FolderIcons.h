#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

// The system's small icons for a folder.
class FolderIcons {
  public:
    FolderIcons();

    // Null when the system has none.
    [[nodiscard]] HICON Closed() const { return closed_.get(); }
    [[nodiscard]] HICON Open() const { return open_.get(); }

  private:
    struct Deleter {
        void operator()(HICON icon) const { DestroyIcon(icon); }
    };
    using UniqueIcon = std::unique_ptr<std::remove_pointer_t<HICON>, Deleter>;

    UniqueIcon closed_;
    UniqueIcon open_;
};

}  // namespace ambrio
