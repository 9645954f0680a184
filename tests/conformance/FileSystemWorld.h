#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace ambrio {

// A file system under test, with a folder of its own to work in and ways to arrange what the
// FileSystem's own operations cannot make. What is in the folder goes away with the object.
class FileSystemWorld {
  public:
    enum class LinkKind { ToFile, ToFolder, MountPoint };

    // Thrown by what opens a file that somebody else has open and does not share.
    class IsHeld : public std::runtime_error {
      public:
        using std::runtime_error::runtime_error;
    };

    virtual ~FileSystemWorld() = default;

    virtual FileSystem& Files() = 0;
    // An empty folder, absolute, on a drive with a letter.
    [[nodiscard]] virtual std::wstring Root() const = 0;
    // "Q:" or another drive that does not exist.
    [[nodiscard]] virtual std::wstring AbsentDrive() const = 0;
    // The process that stands in the names of temporaries.
    [[nodiscard]] virtual std::uint32_t ProcessId() const = 0;

    // The number of the code page in which its text files are written.
    [[nodiscard]] virtual unsigned CodePage() const = 0;

    // Makes or replaces a file in a folder that exists.
    virtual void Write(const std::wstring& path, const std::string& content) = 0;
    [[nodiscard]] virtual std::string Read(const std::wstring& path) = 0;
    // `ticks` are tenths of microseconds beyond the second; a file system without them drops them.
    virtual void SetTime(const std::wstring& path, FileSeconds time, std::uint32_t ticks) = 0;
    // Opens the file as another program that shares nothing, until the result goes away.
    [[nodiscard]] virtual std::shared_ptr<void> Lock(const std::wstring& path) = 0;
    // False when this user may not make links.
    [[nodiscard]] virtual bool MakeLink(const std::wstring& path, const std::wstring& target,
                                        LinkKind kind) = 0;

    // Gives a file or folder another name in the folder where it lies.
    virtual void Rename(const std::wstring& path, const std::wstring& newName) = 0;

    // Makes a link another user's. False when this user may not give it away.
    [[nodiscard]] virtual bool GiveAway(const std::wstring& link) = 0;

    // Why a test of this name cannot run here, or null.
    [[nodiscard]] virtual const char* ReasonToSkip(const std::string& test) const = 0;
};

// Makes a world; one for each test.
struct FileSystemWorldMaker {
    const char* Name;
    std::unique_ptr<FileSystemWorld> (*Make)();
};

// The worlds that this build can make.
[[nodiscard]] std::vector<FileSystemWorldMaker> FileSystemWorlds();

}  // namespace ambrio
