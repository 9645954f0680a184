#include <algorithm>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "platform/TemporaryName.h"
#include "tests/fuzz/Fuzzers.h"
#include "tests/fuzz/RunScene.h"
#include "tests/support/WatchedRun.h"

namespace ambrio {
namespace {

// Thrown where the program would be killed.
struct Killed : std::exception {};

// The contents of the files below a folder, by path.
using Contents = std::map<std::wstring, std::string>;

void AddContents(const ModelNode& folder, const std::wstring& path, Contents& contents) {
    for (const ModelNode& child : folder.Children) {
        const std::wstring below = PathBelow(path, child.Name);
        if (child.IsFolder) {
            AddContents(child, below, contents);
        } else if (!IsTemporaryName(child.Name)) {
            contents[below] = child.Content;
        }
    }
}

Contents ContentsOf(EngineBench& bench) {
    Contents contents;
    AddContents(*WatchedRun(bench).World().Disk.Folder(L"C:"), L"C:", contents);
    return contents;
}

// Fails what the faults name, whenever it is called, and lets input come while a file is copied.
class Failing : public ObservedFileSystem {
  public:
    Failing(EngineBench& bench, FileSystem& files, const RunFaults& faults)
        : ObservedFileSystem(files), bench_(bench), faults_(faults) {}

    bool Before(const FileCall& call) override {
        if (call.Operation == FileOperation::CopyFile && faults_.InputAtCopyOf == call.Path) {
            bench_.Signals.Interrupted = true;
        }
        if (!faults_.Calls.contains({call.Operation, call.Path})) {
            return true;
        }
        switch (call.Operation) {
            case FileOperation::FileExists:
            case FileOperation::FolderExists:
            case FileOperation::IdentityOf:
            case FileOperation::IsWritableFolder:
            case FileOperation::MayFollow:
                return false;
            case FileOperation::FindFile:
                if (faults_.CopiesAreOverlooked) {
                    return false;
                }
                throw RuntimeError(faults_.Number);
            default:
                throw RuntimeError(faults_.Number);
        }
    }

  private:
    EngineBench& bench_;
    const RunFaults& faults_;
};

// A run with these faults comes to exactly what the model says, also with copies made ahead.
void RunAsForetold(RunScene& scene, const RunFaults& faults, bool ahead) {
    EngineBench& bench = scene.Bench;
    bench.Signals = {};
    bench.Signals.Interrupted = faults.InputBeforeTheRun;
    WatchedRun run(bench);
    run.World().InputAtCopyOf.insert(faults.InputAtCopyOf);
    Failing failing(bench, ahead ? bench.FilesAhead() : bench.Files, faults);
    bench.Run(failing, bench.Settings);
    const Stage ofTheOtherLook =
        faults.CopiesAreOverlooked ? Stage::ReadCopy : Stage::TestCopyToReplace;
    const std::string trouble = run.Trouble([&](Stage stage, const std::wstring& path) {
        const auto operation = OperationOf(stage);
        const bool fails = stage != ofTheOtherLook && operation.has_value() &&
                           faults.Calls.contains({*operation, path});
        return fails ? std::optional(faults.Number) : std::nullopt;
    });
    Require(trouble.empty(), trouble.c_str());
}

// A run that ends for good at that copy, if there are so many. Each file is then what it was, or
// what a run that is not killed would make of it.
void RunAndKill(RunScene& scene, int copy) {
    EngineBench& bench = scene.Bench;
    const Contents before = ContentsOf(bench);
    int copies = 0;
    bench.Files.BeforeRename = [&] {
        if (++copies == copy) {
            throw Killed();
        }
    };
    bench.Signals = {};
    try {
        bench.Run();
    } catch (const Killed&) {
        bench.Signals = {};
    }
    bench.Files.BeforeRename = {};
    for (const auto& [path, content] : ContentsOf(bench)) {
        const auto old = before.find(path);
        const auto source = before.find(scene.SourceOf(path));
        const bool isOld = old != before.end() && old->second == content;
        const bool isNew = source != before.end() && source->second == content;
        Require(isOld || isNew || path.ends_with(L"\\Ambrio.log"), "a copy is whole");
    }
}

void ExpectNoTemporaries(RunScene& scene) {
    const std::vector<std::wstring> lines = scene.Bench.Files.Snapshot(L"C:\\");
    Require(std::none_of(lines.begin(), lines.end(),
                         [](const std::wstring& line) {
                             return line.find(L"~ambrio-") != std::wstring::npos;
                         }),
            "no temporary stays");
}

void FuzzRunOnce(FuzzInput input, bool ahead) {
    RunScene scene(input);
    if (input.Bool()) {
        RunAsForetold(scene, scene.MakeFaults(), ahead);
    } else {
        RunAndKill(scene, 1 + static_cast<int>(input.Below(6)));
    }
    RunAsForetold(scene, {}, ahead);
    const RunState& state = scene.Bench.State;
    if (scene.RunsAllSets() && !state.HasFailures() && state.FatalErrorText.empty()) {
        ExpectNoTemporaries(scene);
    }
    RunAsForetold(scene, {}, ahead);
    // What stays to be done is what the rules forbid to do.
    Require(state.FilesCopied == state.CopyErrors, "the work is done");
}

}  // namespace

void FuzzRun(FuzzInput input) {
    FuzzRunOnce(input, false);
    FuzzRunOnce(input, true);
}

}  // namespace ambrio
