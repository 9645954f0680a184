#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace ambrio {

// A folder, and which one it is. The file system is asked for that when it first matters, and once.
// It must live longer.
class KnownFolder {
  public:
    // What is asked which folder it is.
    enum class Asked {
        Path,
        // The listing, which is opened for that and kept: one opening serves both, and no other
        // folder can come in between. Where the folder may not be listed the path is asked after
        // all. Where there is none nothing is known, and the path is asked the next time.
        Listing,
    };

    KnownFolder(FileSystem& fileSystem, std::wstring path, Asked asked = Asked::Path);

    [[nodiscard]] const std::wstring& Path() const { return path_; }

    // Whether both are one and the same: by identity, or by their spelling where one has none that
    // can be told.
    [[nodiscard]] bool Is(const KnownFolder& other) const;
    // Whether it is known that they lie on different volumes.
    [[nodiscard]] bool IsElsewhereThan(const KnownFolder& other) const;
    // Throws RuntimeError when the identity cannot be told: the reason why the folder cannot be
    // reached, or PathFileAccessError where the file system does not number its folders.
    void RequireIdentity() const;

    // Hands out the listing that was kept, and else opens one. Throws RuntimeError; where there was
    // one to be kept and it could not be opened, the reason that it had then.
    [[nodiscard]] std::unique_ptr<FolderReader> GetListing() const;
    // Nobody wants a listing any more: closes the one that was kept, and none is opened to be kept.
    void CloseListing() const;

  private:
    const std::optional<FileIdentity>& Identity() const;
    // Throws RuntimeError.
    void Ask() const;

    FileSystem& fileSystem_;
    std::wstring path_;
    mutable Asked asked_;  // the next time
    mutable bool wasAsked_ = false;
    mutable std::optional<FileIdentity> identity_;
    mutable std::unique_ptr<FolderReader> listing_;
    mutable std::optional<RuntimeError> notListed_;  // why there is none to be kept
};

}  // namespace ambrio
