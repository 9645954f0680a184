#include "tests/support/CountingFileSystem.h"

#include <algorithm>

namespace ambrio {
namespace {

template <typename Condition>
int Count(const std::vector<FileCall>& calls, Condition condition) {
    return static_cast<int>(std::count_if(calls.begin(), calls.end(), condition));
}

}  // namespace

int CountingFileSystem::CallsOf(FileOperation operation) const {
    return Count(calls_, [operation](const FileCall& call) { return call.Operation == operation; });
}

int CountingFileSystem::CallsOn(const std::wstring& path) const {
    const std::wstring folded = FoldedName(path);
    return Count(calls_, [&](const FileCall& call) {
        return FoldedName(call.Path) == folded || FoldedName(call.Destination) == folded;
    });
}

int CountingFileSystem::CallsBelow(const std::wstring& folder) const {
    const std::wstring start = FoldedName(BuildPath(folder, {}));
    const auto isBelow = [&](const std::wstring& path) {
        const std::wstring folded = FoldedName(path);
        return folded.size() > start.size() && folded.starts_with(start);
    };
    return Count(calls_, [&](const FileCall& call) {
        return isBelow(call.Path) || isBelow(call.Destination);
    });
}

bool CountingFileSystem::Before(const FileCall& call) {
    calls_.push_back(call);
    return true;
}

}  // namespace ambrio
