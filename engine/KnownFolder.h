#pragma once

#include <optional>
#include <string>

#include "platform/FileSystem.h"

namespace ambrio {

// A folder that exists, and which one it is. The file system is asked for that when it first
// matters, and once. It must live longer.
class KnownFolder {
  public:
    KnownFolder(FileSystem& fileSystem, std::wstring path);

    [[nodiscard]] const std::wstring& Path() const { return path_; }

    // Whether both are one and the same: by identity, or by their spelling where one has none that
    // can be told.
    [[nodiscard]] bool Is(const KnownFolder& other) const;
    // Whether it is known that they lie on different volumes.
    [[nodiscard]] bool IsElsewhereThan(const KnownFolder& other) const;
    // Throws RuntimeError when the identity cannot be told: the reason why the folder cannot be
    // reached, or PathFileAccessError where the file system does not number its folders.
    void RequireIdentity() const;

  private:
    const std::optional<FileIdentity>& Identity() const;

    FileSystem& fileSystem_;
    std::wstring path_;
    mutable bool wasAsked_ = false;
    mutable std::optional<FileIdentity> identity_;
};

}  // namespace ambrio
