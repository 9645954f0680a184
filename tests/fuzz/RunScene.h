#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/fuzz/FuzzInput.h"
#include "tests/support/EngineBench.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// What goes wrong in a run, each time that it could.
struct RunFaults {
    std::set<std::pair<FileOperation, std::wstring>> Calls = {};  // by what they are called with
    ErrorNumber Number = ErrorNumber::PermissionDenied;           // with which they fail
    bool CopiesAreOverlooked = false;  // by a look that fails, which else throws
    bool InputBeforeTheRun = false;
    std::wstring InputAtCopyOf = {};  // the source that is being copied when input comes
};

// A bench with up to two Sets that have small trees on both sides, a log of before and a second
// screen saver, all as the input says.
class RunScene {
  public:
    // The input is read further by MakeFaults and must live longer.
    explicit RunScene(FuzzInput& input);

    [[nodiscard]] RunFaults MakeFaults();
    // The file that has its copy there; empty when that is no place for copies.
    [[nodiscard]] std::wstring SourceOf(const std::wstring& copy) const;
    // False when a Set is not selected or the list of Sets cannot be gone through.
    [[nodiscard]] bool RunsAllSets() const { return runsAllSets_; }

    EngineBench Bench;

  private:
    struct Place {
        std::wstring Source;
        std::wstring Destination;
    };

    bool OneIn(std::size_t count) { return input_.Below(count) == count - 1; }
    void AddSet(const std::wstring& name);
    void AddFiles(const Place& place);
    void AddOddities(const Place& place);
    void AddFile(const std::wstring& path, const std::string& content);
    void AddSurroundings();
    [[nodiscard]] std::vector<std::wstring> PathsFor(FileOperation operation);

    FuzzInput& input_;
    std::vector<Place> places_;        // of the Sets
    std::vector<std::wstring> paths_;  // of files, below either folder of a Set
    bool runsAllSets_ = true;
    int files_ = 0;
};

}  // namespace ambrio
