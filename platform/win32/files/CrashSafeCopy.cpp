#include "platform/win32/files/CrashSafeCopy.h"

#include <optional>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/win32/files/CopyWithYield.h"
#include "platform/win32/files/ExtendedPath.h"
#include "platform/win32/files/FileEntryData.h"
#include "platform/win32/files/FileIdentity.h"
#include "platform/win32/files/LinkOwner.h"
#include "platform/win32/files/Patience.h"
#include "platform/win32/files/RenameOpenFile.h"
#include "platform/win32/files/Win32Error.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/WorkWithYield.h"

namespace ambrio {
namespace {

constexpr std::uint64_t kLongCopy = 1 << 20;  // bytes

bool NameIsTaken(DWORD code) {
    return code == ERROR_FILE_EXISTS || code == ERROR_ALREADY_EXISTS;
}

// A name must not be given to data that a power failure could still take away. The file stays open.
DWORD Flush(const std::wstring& temporary, std::uint64_t size, const CopyWatch& watch,
            Patience& patience, const Yield& yield, UniqueHandle& file) {
    DWORD code = OpenToFlush(temporary, patience, file);
    if (code == ERROR_SUCCESS && size < kSmallFile) {
        return FlushToDisk(file.get());
    }
    if (code == ERROR_SUCCESS && watch.IsBrokenOff()) {
        return ERROR_REQUEST_ABORTED;
    }
    if (code == ERROR_SUCCESS) {
        WorkWithYield([&] { code = FlushToDisk(file.get()); }, yield);
    }
    return code;
}

// `file` is the temporary where it is open anyway, which saves the system opening it once more.
DWORD Rename(UniqueHandle file, const std::wstring& temporary, const std::wstring& destination,
             bool overwrite, Patience& patience) {
    if (file && RenameOpenFile(file.get(), destination, overwrite) == ERROR_SUCCESS) {
        return ERROR_SUCCESS;
    }
    // Also where that failed: this is the way that every file system knows, and whose failures can
    // be told from those that somebody's short look leads to. Not with our own look in the way.
    file.reset();
    for (;;) {
        if (MoveFileExW(temporary.c_str(), destination.c_str(),
                        overwrite ? MOVEFILE_REPLACE_EXISTING : 0) != 0) {
            return ERROR_SUCCESS;
        }
        const DWORD code = GetLastError();
        if (!IsHeldByOthers(code, temporary, destination) || !patience.Wait()) {
            return code;
        }
    }
}

// What does not go stays for the next run that comes by the folder.
void RemoveTemporary(const std::wstring& temporary, Patience& patience) {
    SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL);
    bool again = true;
    while (again && DeleteFileW(temporary.c_str()) == 0) {
        again = IsHeldByOthers(GetLastError(), temporary, temporary) && patience.Wait();
    }
}

// Two names of one file agree in time and size; only then is it worth opening both to see.
bool AreOneFile(const std::wstring& source, const WIN32_FILE_ATTRIBUTE_DATA& sourceData,
                const std::wstring& destination, const WIN32_FILE_ATTRIBUTE_DATA& destinationData) {
    if (CompareFileTime(&sourceData.ftLastWriteTime, &destinationData.ftLastWriteTime) != 0 ||
        sourceData.nFileSizeLow != destinationData.nFileSizeLow ||
        sourceData.nFileSizeHigh != destinationData.nFileSizeHigh) {
        return false;
    }
    const auto sourceIdentity = ReadFileIdentity(source);
    return sourceIdentity && sourceIdentity == ReadFileIdentity(destination);
}

void RequireReplaceable(const std::wstring& source, const WIN32_FILE_ATTRIBUTE_DATA& sourceData,
                        const std::wstring& destination, bool overwrite) {
    WIN32_FILE_ATTRIBUTE_DATA old;
    const DWORD code = ReadFileData(destination, old);
    if (code == ERROR_FILE_NOT_FOUND) {
        return;
    }
    if (code != ERROR_SUCCESS) {
        ThrowWin32(code);
    }
    if (!overwrite) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    const bool refused =
        (old.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
    if (refused || AreOneFile(source, sourceData, destination, old)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

std::uint64_t SizeOf(const WIN32_FILE_ATTRIBUTE_DATA& data) {
    return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32U) | data.nFileSizeLow;
}

// What a file looks like, links not followed; nothing for one that is not there.
using Looks = std::optional<WIN32_FILE_ATTRIBUTE_DATA>;

bool AreAlike(const Looks& one, const Looks& other) {
    if (!one || !other) {
        return !one && !other;
    }
    return one->dwFileAttributes == other->dwFileAttributes &&
           CompareFileTime(&one->ftLastWriteTime, &other->ftLastWriteTime) == 0 &&
           CompareFileTime(&one->ftCreationTime, &other->ftCreationTime) == 0 &&
           SizeOf(*one) == SizeOf(*other);
}

// Gives false where nobody can tell.
bool Look(const std::wstring& extended, Looks& looks) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    const DWORD code = ReadFileData(extended, data);
    looks = code == ERROR_SUCCESS ? Looks(data) : std::nullopt;
    return code == ERROR_SUCCESS || code == ERROR_FILE_NOT_FOUND;
}

// A disk that keeps times in steps (of two seconds, one, a hundredth) may give a file that has just
// been written and is written once more the same time.
bool MayChangeUnseen(const FILETIME& lastWrite) {
    constexpr std::uint64_t kSecond = 10'000'000;
    constexpr std::uint64_t kLongest = 3 * kSecond;
    const auto ticksOf = [](const FILETIME& time) {
        return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32U) | time.dwLowDateTime;
    };
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return ticksOf(lastWrite) % (kSecond / 100) == 0 &&
           ticksOf(lastWrite) + kLongest > ticksOf(now);
}

bool HasAny(const WIN32_FILE_ATTRIBUTE_DATA& data, DWORD attributes) {
    return (data.dwFileAttributes & attributes) != 0;
}

// The first part of a copy, held until its turn. Whatever is out of the ordinary is CopyFile's.
class TemporaryCopy : public PreparedCopy {
  public:
    TemporaryCopy(ExpectedCopy what, const std::wstring& temporaryName)
        : what_(std::move(what)), temporary_(FolderOfExtended(what_.Destination) + temporaryName) {}
    ~TemporaryCopy() override {
        if (isThere_) {
            const Yield nobody;
            Patience patience(nobody);
            RemoveTemporary(temporary_, patience);
        }
    }
    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;

    [[nodiscard]] bool Make(FlushedDrives& flushed, const std::function<bool()>& isWanted) {
        if (!MayBeCopied() || !MayBeReplaced() || !isWanted()) {
            return false;
        }
        CopyWatch unseen;
        const DWORD code =
            CopyWithYield(what_.Source, temporary_, SizeOf(*sourceLooks_), unseen, Yield());
        isThere_ = !NameIsTaken(code);  // part of it, at least
        return code == ERROR_SUCCESS && isWanted() && IsSafe(flushed, unseen);
    }

    [[nodiscard]] bool Finish(bool overwrite) override {
        Looks source;
        if (!Look(what_.Source, source) || !AreAlike(source, sourceLooks_)) {
            return false;
        }
        DWORD flags = 0;  // the rename itself finds a destination that has come meanwhile
        if (destinationLooks_) {
            Looks destination;
            if (!overwrite || !Look(what_.Destination, destination) ||
                !AreAlike(destination, destinationLooks_)) {
                return false;
            }
            flags = MOVEFILE_REPLACE_EXISTING;
        }
        if (MoveFileExW(temporary_.c_str(), what_.Destination.c_str(), flags) == 0) {
            return false;
        }
        isThere_ = false;
        return true;
    }

  private:
    static constexpr DWORD kOdd = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;

    [[nodiscard]] bool MayBeCopied() {
        return Look(what_.Source, sourceLooks_) && sourceLooks_ && !HasAny(*sourceLooks_, kOdd) &&
               SizeOf(*sourceLooks_) < kSmallFile && SizeOf(*sourceLooks_) <= what_.Size &&
               !MayChangeUnseen(sourceLooks_->ftLastWriteTime);
    }
    [[nodiscard]] bool MayBeReplaced() {
        if (what_.SeemsNew) {
            return true;
        }
        return Look(what_.Destination, destinationLooks_) &&
               (!destinationLooks_ ||
                (!HasAny(*destinationLooks_, kOdd | FILE_ATTRIBUTE_READONLY) &&
                 !AreOneFile(what_.Source, *sourceLooks_, what_.Destination, *destinationLooks_)));
    }
    // It does not stay open: another program that takes it for a leftover and removes it would only
    // be put off until it has its name.
    [[nodiscard]] bool IsSafe(FlushedDrives& flushed, const CopyWatch& unseen) const {
        const Yield nobody;
        Patience patience(nobody);
        UniqueHandle file;
        return !flushed.Hold(temporary_) ||
               Flush(temporary_, 0, unseen, patience, nobody, file) == ERROR_SUCCESS;
    }

    const ExpectedCopy what_;
    const std::wstring temporary_;
    Looks sourceLooks_;       // before the copy was begun
    Looks destinationLooks_;  // the same
    bool isThere_ = false;    // the temporary
};

}  // namespace

std::unique_ptr<PreparedCopy> PrepareCrashSafeCopy(const ExpectedCopy& what,
                                                   const std::wstring& temporaryName,
                                                   FlushedDrives& flushed,
                                                   const std::function<bool()>& isWanted) {
    auto copy = std::make_unique<TemporaryCopy>(what, temporaryName);
    if (!copy->Make(flushed, isWanted)) {
        return nullptr;
    }
    return copy;
}

void CrashSafeCopy(const std::wstring& source, const std::wstring& destination,
                   const std::wstring& temporaryName, bool overwrite, FlushedDrives& flushed,
                   CopyWatch& watch, const Yield& yield) {
    WIN32_FILE_ATTRIBUTE_DATA sourceData;
    if (const DWORD code = ReadFileData(source, sourceData); code != ERROR_SUCCESS) {
        ThrowForPath(code, source);
    }
    if ((sourceData.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    if ((sourceData.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
        IsLinkOfAnotherUser(source)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    const std::uint64_t size = SizeOf(sourceData);
    // Nothing is to be overwritten: the rename finds out by itself. A long copy is not made for it.
    if (overwrite || size >= kLongCopy) {
        RequireReplaceable(source, sourceData, destination, overwrite);
    }

    const std::wstring temporary = FolderOfExtended(destination) + temporaryName;
    Patience patience(yield);
    UniqueHandle file;
    DWORD code = CopyWithYield(source, temporary, size, watch, yield);
    if (NameIsTaken(code)) {
        ThrowWin32(code);  // somebody else's, so it is not removed
    }
    if (code == ERROR_SUCCESS && flushed.Hold(temporary)) {
        code = Flush(temporary, size, watch, patience, yield, file);
    }
    if (code == ERROR_SUCCESS) {
        code = Rename(std::move(file), temporary, destination, overwrite, patience);
    }
    if (code != ERROR_SUCCESS) {
        file.reset();
        RemoveTemporary(temporary, patience);
        ThrowForPath(code, temporary);
    }
}

}  // namespace ambrio
