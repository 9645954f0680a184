#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/CopyWatch.h"
#include "platform/FileSystem.h"
#include "platform/win32/files/FlushToDisk.h"

namespace ambrio {

// FileSystem::CopyFile between two extended paths. `temporaryName` is the name in the destination
// folder under which the copy is made; `watch` is that of a large file.
void CrashSafeCopy(const std::wstring& source, const std::wstring& destination,
                   const std::wstring& temporaryName, bool overwrite, FlushedDrives& flushed,
                   CopyWatch& watch, const Yield& yield);

// FileSystem::PrepareCopy between two extended paths.
[[nodiscard]] std::unique_ptr<PreparedCopy> PrepareCrashSafeCopy(
    const ExpectedCopy& what, const std::wstring& temporaryName, FlushedDrives& flushed,
    const std::function<bool()>& isWanted);

}  // namespace ambrio
