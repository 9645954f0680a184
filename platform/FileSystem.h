#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileAttributes.h"

namespace ambrio {

// Whole seconds since 1601-01-01 UTC. Fractions are dropped wherever a time is read, so that a
// destination that keeps coarser fractions than the source does not look older than its source.
using FileSeconds = std::int64_t;

// What a listing or GetFile says of one file or folder.
struct FileEntry {
    std::wstring Name;              // the name alone, no path
    FileAttributes Attributes = 0;  // as the file system holds them
    FileSeconds DateLastModified = 0;
    std::uint64_t Size = 0;  // bytes; 0 for a folder
    // A mount point: a junction, or a volume mounted in a folder. False for symbolic links.
    bool IsMountPoint = false;
    // Of GetFile and FindFile: a link to a file that a user without power over this one has made.
    // It is described by itself, and CopyFile refuses it.
    bool IsOfAnotherUser = false;

    [[nodiscard]] bool IsFolder() const { return (Attributes & kAttributeDirectory) != 0; }
    [[nodiscard]] bool IsLink() const { return (Attributes & kAttributeLink) != 0; }
};

// Which file or folder a path leads to, whatever its spelling and through whatever links: a volume
// and the file system's own number on it.
struct FileIdentity {
    mutable std::uint64_t Volume = 0;  // its number, which a disk and its clone have in common
    std::uint64_t File = 0;
    mutable std::uint64_t Disk = 0;  // tells the two apart; 0 where unknown, as on a server
    // The file system gives no numbers: File stands for the path at which the system arrived. Equal
    // ones are one file, different ones may still be one.
    bool IsByPath = false;
    // Fills Volume and Disk in, when they first matter: files of different numbers are told apart
    // without, and a volume can cost many times what a number does. Empty when that is done; false
    // when it cannot be told any more, so that they may be any.
    mutable std::function<bool(const FileIdentity&)> FindPlace = {};
    mutable bool IsAnywhere = false;  // as FindPlace said

    // Finds out now where the file lies, unless that is known.
    void Settle() const {
        if (const auto find = std::exchange(FindPlace, {})) {
            IsAnywhere = !find(*this);
        }
    }

    // False only when it is known that they lie on different volumes. One reached through a server
    // may be this machine's own, so that an unknown disk may be any.
    [[nodiscard]] bool MayShareVolumeWith(const FileIdentity& other) const {
        if (IsByPath || other.IsByPath) {
            return true;
        }
        Settle();
        other.Settle();
        return IsAnywhere || other.IsAnywhere ||
               (Volume == other.Volume && (Disk == other.Disk || Disk == 0 || other.Disk == 0));
    }
    friend bool operator==(const FileIdentity& one, const FileIdentity& other) {
        return one.File == other.File && one.IsByPath == other.IsByPath &&
               one.MayShareVolumeWith(other);
    }
};

// Walks the entries of one folder, files and subfolders, in the file system's own order, without
// "." and "..". It holds the folder open until it is destroyed.
class FolderReader {
  public:
    virtual ~FolderReader() = default;
    // Fills `entry` with the next one; false when there is no more (`entry` is then unspecified).
    // Throws RuntimeError when the listing breaks off.
    virtual bool Next(FileEntry& entry) = 0;
    // Which folder this is, as FileSystem::IdentityOf would have told it when it was opened: that
    // of exactly what Next lists, whatever has come to its path since. Throws RuntimeError.
    virtual std::optional<FileIdentity> Identity() = 0;
};

// A text file open for appending, in the system's code page. Closing is the destructor's business.
class TextStream {
  public:
    virtual ~TextStream() = default;
    // Writes the text and a CR LF; characters that the code page lacks become its default
    // character. Throws RuntimeError; part of the line may then have been written.
    virtual void WriteLine(const std::wstring& text) = 0;
    // Returns when all that was written lies on the disk, where that is one of this machine. Throws
    // RuntimeError.
    virtual void Flush() = 0;
};

// A copy that has everything but its name. When it goes without that, its temporary file goes too,
// as far as that can be done. It may go on another thread than the one that it was made on.
class PreparedCopy {
  public:
    virtual ~PreparedCopy() = default;
    // Gives the copy its name where source and destination are what they were when it was made.
    // Otherwise, where that fails, and without `overwrite` where the name is taken, it gives false
    // and nothing has changed.
    [[nodiscard]] virtual bool Finish(bool overwrite) = 0;
};

// A file that will probably be copied soon.
struct ExpectedCopy {
    std::wstring Source;
    std::wstring Destination;
    std::uint64_t Size = 0;  // of the source, in bytes
    // No copy is known. Nobody looks for one either: the name is taken or not when it is given.
    bool SeemsNew = false;
};

// Called now and then while an operation takes long, so that the caller can let pending events
// run. Must not throw and must not call the file system, but to expect nothing any more.
using Yield = std::function<void()>;

// The one file-system object of the process. Paths are plain ("C:\Data\x.txt", "\\server\share"),
// of any length and in any script. Every operation that can fail throws RuntimeError and then
// leaves things as they were, unless it says otherwise. To be used on one thread.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    // True when `path` is an existing file (folder). Whatever goes wrong on the way gives false.
    virtual bool FileExists(const std::wstring& path) = 0;
    virtual bool FolderExists(const std::wstring& path) = 0;

    // One read of a file's attributes, size and time. PathNotFound or FileNotFound when it is gone;
    // a folder of that name counts as FileNotFound.
    virtual FileEntry GetFile(const std::wstring& path) = 0;

    // The same for a file that may not be there, in one look: nothing where FileExists is false,
    // else what GetFile gives or throws.
    virtual std::optional<FileEntry> FindFile(const std::wstring& path) = 0;

    // Opens the folder for listing; PathNotFound when it does not exist.
    virtual std::unique_ptr<FolderReader> GetFolder(const std::wstring& path) = 0;

    // Which file or folder this is, links followed; nothing when its file system does not number
    // them. Throws the reason why it cannot be reached; PathNotFound when it does not exist.
    virtual std::optional<FileIdentity> IdentityOf(const std::wstring& path) = 0;

    // True when a name is found in this folder exactly where FoldedName says that it is there, as
    // on the machine's own disks; false where the folder tells names apart by their case, and where
    // a server decides. Never fails; false when it cannot be told.
    virtual bool FindsFoldedNames(const std::wstring& folder) = 0;

    // Makes one level. PathNotFound when the parent is missing, FileAlreadyExists when something
    // of that name exists.
    virtual void CreateFolder(const std::wstring& path) = 0;

    // Writes the attributes that can be set; the others are ignored.
    virtual void SetAttributes(const std::wstring& path, FileAttributes attributes) = 0;

    // Removes one file. A read-only file goes only with `force`, else PermissionDenied. When the
    // removal itself fails, the file has its attributes back.
    virtual void DeleteFile(const std::wstring& path, bool force) = 0;

    // Copies content, attributes, modification time and streams. The destination name holds the
    // whole old or the whole new content at any moment, also when the process is killed or the
    // power fails: the copy is made under a name of TemporaryName.h in the same folder, flushed to
    // the disk where that is one of this machine, and then renamed. Without
    // `overwrite` an existing destination is FileAlreadyExists; a read-only one is
    // PermissionDenied before anything is written; a hidden or system one is replaced. `yield` may
    // be empty.
    virtual void CopyFile(const std::wstring& source, const std::wstring& destination,
                          bool overwrite, const Yield& yield) = 0;

    // Makes the first part of such a copy, without anybody seeing it, on any thread. Nothing where
    // that fails, where CopyFile had better decide, where the source is larger than said, or where
    // `isWanted` has become false meanwhile.
    virtual std::unique_ptr<PreparedCopy> PrepareCopy(const ExpectedCopy& copy,
                                                      const std::function<bool()>& isWanted);

    // The bytes that are free for this user in a folder; nothing where nobody can tell. On any
    // thread.
    virtual std::optional<std::uint64_t> FreeBytes(const std::wstring& folder);

    // Hints, which need no answer, never fail and may be wrong. The copies that the caller is about
    // to ask for, all into one folder:
    virtual void ExpectCopies(const std::vector<ExpectedCopy>& copies);
    // None of those that were named and not asked for yet is to be expected any more. Returns at
    // once; on any thread, as long as it is not at the same time as one of the other two hints.
    virtual void ExpectNothing();
    // The same, and no hint follows for a while. What was begun because of one has ended, or was
    // given a tenth of a second for it.
    virtual void EndExpecting();

    // Opens a text file for appending, creating it when it does not exist.
    virtual std::unique_ptr<TextStream> OpenForAppending(const std::wstring& path) = 0;

    // True when a new file can be made in the folder, and the file of that name in it, where there
    // is one, can be opened for appending. Leaves nothing there.
    virtual bool IsWritableFolder(const std::wstring& path, const std::wstring& file) = 0;

    // False for a link to a folder that a user without power over this one has made: what lies
    // behind it is not what this user meant. True for anything else, also for a path that does not
    // exist. A link whose owner cannot be told is another user's. (Links to files: GetFile tells of
    // them, CopyFile refuses them with PathFileAccessError.)
    virtual bool MayFollow(const std::wstring& folder) = 0;

    // The form of a name in which two names of one and the same file are equal texts: names are
    // compared without regard to case, as the platform does it.
    [[nodiscard]] virtual std::wstring FoldedName(const std::wstring& name) const = 0;

    // The two parts joined with exactly one separator between them; an empty first part gives the
    // second alone.
    [[nodiscard]] static std::wstring BuildPath(const std::wstring& folder,
                                                const std::wstring& name);
};

}  // namespace ambrio
