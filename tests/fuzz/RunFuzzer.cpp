#include <array>
#include <exception>
#include <stdexcept>

#include "platform/TemporaryName.h"
#include "settings/SettingKeys.h"
#include "tests/fuzz/CopyModel.h"
#include "tests/fuzz/Fuzzers.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

using Copies = std::map<std::wstring, ModelFile>;  // by path below the destination

// Thrown where the program would be killed.
struct Killed : std::exception {};

// Fails what the model's faults name, whenever it is called.
class Failing : public ObservedFileSystem {
  public:
    Failing(FileSystem& target, const ModelFaults& faults, ErrorNumber number)
        : ObservedFileSystem(target), faults_(faults), number_(number) {}

    bool Before(const FileCall& call) override {
        if (faults_.contains({call.Operation, call.Path})) {
            throw RuntimeError(number_);
        }
        return true;
    }

  private:
    const ModelFaults& faults_;
    ErrorNumber number_;
};

// Up to two Sets with small trees on both sides, all as the input says.
class Scene {
  public:
    explicit Scene(FuzzInput& input) : input_(input) {
        bench_.Set(kGeneralSection, kLogOnlyErrorsKey, YesNo(input.Bool()));
        const std::size_t sets = 1 + input.Below(2);
        for (std::size_t i = 0; i < sets; ++i) {
            AddSet(i == 0 ? L"A" : L"B");
        }
    }

    // A run with faults, or one that is killed at some copy.
    void RunBadly() {
        if (input_.Bool()) {
            RunAsModelled(Faults());
        } else {
            RunAndKill(1 + static_cast<int>(input_.Below(6)));
        }
    }
    // A run with these faults comes to what the model says.
    void RunAsModelled(const ModelFaults& faults) {
        CopyModel model(faults);
        std::vector<ModelFolder> sources;
        std::vector<Copies> copies;
        for (const BackupSet& set : sets_) {
            sources.push_back(Read(set.rsSourceDir));
            copies.push_back(ReadCopies(set));
            if (!model.Interrupted) {
                model.RunSet(set, sources.back(), copies.back());
            }
        }
        Failing failing(bench_.Files, faults, ErrorNumber::PermissionDenied);
        bench_.Signals = {};
        bench_.Run(failing, bench_.Settings);
        ExpectCounters(model);
        for (std::size_t i = 0; i < sets_.size(); ++i) {
            Require(Read(sets_[i].rsSourceDir) == sources[i], "the source is as it must be");
            Require(ReadCopies(sets_[i]) == copies[i], "the copies are as they must be");
        }
        Require(bench_.Files.OpenHandles() == 0, "nothing stays open");
    }
    void ExpectNothingLeftToCopy() {
        RunAsModelled({});
        // What stays to be done is what the rules forbid to do.
        Require(bench_.State.FilesCopied == bench_.State.CopyErrors, "the work is done");
    }
    void ExpectNoTemporaries() {
        for (const std::wstring& line : bench_.Files.Snapshot(L"C:\\")) {
            Require(line.find(L"~ambrio-") == std::wstring::npos, "no temporary stays");
        }
    }

  private:
    void AddSet(const std::wstring& name) {
        BackupSet set;
        set.Name = name;
        set.rsSourceDir = L"C:\\From" + name;
        set.rsDestnDir = L"C:\\To" + name;
        set.rbRecursive = input_.Below(4) != 0;
        constexpr std::array kTypes = {kCopyTypeDateTime, kCopyTypeArchiveBit, kCopyTypeReadOnly,
                                       L"Unknown"};
        set.rsCopyType = kTypes[input_.Below(kTypes.size())];
        set.rbOverwriteReadOnly = input_.Bool();
        const bool clears = input_.Bool();
        const bool removes = input_.Bool();
        set.rbClearArchive = clears && set.rsCopyType == kCopyTypeArchiveBit;
        set.rbDeleteCopy = removes && (set.rsCopyType == kCopyTypeArchiveBit ||
                                       set.rsCopyType == kCopyTypeReadOnly);
        bench_.AddSet(name, set.rsSourceDir, set.rsDestnDir);
        bench_.Set(name, kRecursiveKey, YesNo(set.rbRecursive));
        bench_.Set(name, kCopyTypeKey, set.rsCopyType);
        bench_.Set(name, kOverwriteReadOnlyKey, YesNo(set.rbOverwriteReadOnly));
        bench_.Set(name, kClearArchiveBitKey, YesNo(clears));
        bench_.Set(name, kDeleteCopyArchiveBitKey, YesNo(removes));
        bench_.Set(name, kDeleteCopyReadOnlyKey, YesNo(removes));
        sets_.push_back(set);
        bench_.Files.MakeFolder(set.rsSourceDir);
        AddFiles(set);
    }
    void AddFiles(const BackupSet& set) {
        constexpr std::array kFolders = {L"\\", L"\\s\\", L"\\s\\t\\", L"\\u\\"};
        for (std::size_t count = input_.Below(9); count > 0; --count) {
            const std::wstring path =
                kFolders[input_.Below(kFolders.size())] + std::to_wstring(input_.Below(6));
            paths_.push_back(path);
            AddFile(set.rsSourceDir + path, "new");
            if (input_.Bool()) {
                AddFile(set.rsDestnDir + path, "old");
            }
        }
        // A copy whose file is gone, and what a killed run has left.
        if (input_.Bool()) {
            AddFile(set.rsDestnDir + L"\\gone", "old");
        }
        if (input_.Bool()) {
            AddFile(set.rsDestnDir + L"\\" + TemporaryName(L"0", 7), "half");
        }
    }
    void AddFile(const std::wstring& path, const char* content) {
        FileAttributes attributes = input_.Bool() ? kAttributeArchive : 0;
        attributes |= input_.Bool() ? kAttributeReadOnly : 0;
        attributes |= input_.Below(4) == 0 ? kAttributeHidden : 0;
        bench_.Files.WriteFile(path, content + std::to_string(files_++), attributes,
                               13'400'000'000 + static_cast<FileSeconds>(input_.Below(3)));
    }

    ModelFaults Faults() {
        constexpr std::array kOperations = {
            FileOperation::GetFile,      FileOperation::CopyFile,      FileOperation::DeleteFile,
            FileOperation::CreateFolder, FileOperation::SetAttributes, FileOperation::GetFolder};
        ModelFaults faults;
        for (std::size_t count = 1 + input_.Below(3); count > 0 && !paths_.empty(); --count) {
            const FileOperation operation = kOperations[input_.Below(kOperations.size())];
            const BackupSet& set = sets_[input_.Below(sets_.size())];
            std::wstring path = paths_[input_.Below(paths_.size())];
            const bool isOfFolder =
                operation == FileOperation::GetFolder || operation == FileOperation::CreateFolder;
            if (isOfFolder) {
                path.resize(path.find_last_of(L'\\'));
            }
            const bool isOfCopy = operation == FileOperation::DeleteFile ||
                                  operation == FileOperation::CreateFolder ||
                                  (operation == FileOperation::SetAttributes && input_.Bool());
            const std::wstring full = (isOfCopy ? set.rsDestnDir : set.rsSourceDir) + path;
            // A folder that is there is not made.
            if (operation != FileOperation::CreateFolder || !bench_.Files.FolderExists(full)) {
                faults.insert({operation, full});
            }
        }
        return faults;
    }

    // Each copy is then what it was, or what a run that is not killed would make of it.
    void RunAndKill(int copy) {
        std::vector<Copies> before;
        for (const BackupSet& set : sets_) {
            before.push_back(ReadCopies(set));
        }
        int copies = 0;
        bench_.Files.BeforeRename = [&] {
            if (++copies == copy) {
                throw Killed();
            }
        };
        try {
            bench_.Signals = {};
            bench_.Run();
        } catch (const Killed&) {
            bench_.Signals = {};
        }
        bench_.Files.BeforeRename = {};
        for (std::size_t i = 0; i < sets_.size(); ++i) {
            for (const auto& [path, file] : ReadCopies(sets_[i])) {
                const bool isNew =
                    bench_.Files.FileExists(sets_[i].rsSourceDir + path) &&
                    file.Content == bench_.Files.Content(sets_[i].rsSourceDir + path);
                Require(
                    isNew || (before[i].contains(path) && before[i][path].Content == file.Content),
                    "a copy is whole");
            }
        }
    }

    void ExpectCounters(const CopyModel& model) const {
        const RunState& state = bench_.State;
        Require(state.FilesChecked == model.Checked, "FilesChecked");
        Require(state.FilesCopied == model.Copied, "FilesCopied");
        Require(state.CopyErrors == model.CopyErrors, "CopyErrors");
        Require(state.CopiesRemoved == model.Removed, "CopiesRemoved");
        Require(state.RemoveErrors == model.RemoveErrors, "RemoveErrors");
        Require(state.FolderErrors == model.FolderErrors, "FolderErrors");
        Require(bench_.Signals.Interrupted == model.Interrupted, "Interrupted");
    }

    ModelFile ReadFile(const std::wstring& path) {
        const MemoryNode& node = bench_.Files.Node(path);
        return {node.Content(), node.Attributes, node.DateLastModified};
    }
    ModelFolder Read(const std::wstring& path) {
        ModelFolder folder;
        const auto reader = bench_.Files.GetFolder(path);
        for (FileEntry entry; reader->Next(entry);) {
            const std::wstring below = PathBelow(path, entry.Name);
            if (entry.IsFolder()) {
                folder.Folders.push_back(Read(below));
                folder.Folders.back().Name = entry.Name;
            } else {
                folder.Files.emplace_back(entry.Name, ReadFile(below));
            }
        }
        return folder;
    }
    Copies ReadCopies(const BackupSet& set) {
        Copies copies;
        if (bench_.Files.FolderExists(set.rsDestnDir)) {
            AddCopies(Read(set.rsDestnDir), L"", copies);
        }
        return copies;
    }
    static void AddCopies(const ModelFolder& folder, const std::wstring& below, Copies& copies) {
        for (const auto& [name, file] : folder.Files) {
            if (!IsTemporaryName(name)) {
                copies[PathBelow(below, name)] = file;
            }
        }
        for (const ModelFolder& subfolder : folder.Folders) {
            AddCopies(subfolder, PathBelow(below, subfolder.Name), copies);
        }
    }

    FuzzInput& input_;
    EngineBench bench_;
    std::vector<BackupSet> sets_;
    std::vector<std::wstring> paths_;
    int files_ = 0;
};

}  // namespace

void FuzzRun(FuzzInput input) {
    Scene scene(input);
    scene.RunBadly();
    scene.RunAsModelled({});
    scene.ExpectNoTemporaries();
    scene.ExpectNothingLeftToCopy();
}

}  // namespace ambrio
