#include <array>

#include "engine/DestinationFolder.h"
#include "platform/RuntimeError.h"
#include "tests/fuzz/Fuzzers.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {
namespace {

// Answers some calls wrongly, as the input says, and counts them all.
class Unreliable : public ObservedFileSystem {
  public:
    Unreliable(FileSystem& target, FuzzInput& input) : ObservedFileSystem(target), input_(input) {}

    bool Before(const FileCall& call) override {
        ++Calls;
        Require(Calls < kMostCalls, "the loop ends");
        constexpr std::array kNumbers = {
            ErrorNumber::PathNotFound,      ErrorNumber::PathFileAccessError,
            ErrorNumber::FileAlreadyExists, ErrorNumber::PermissionDenied,
            ErrorNumber::DiskNotReady,      ErrorNumber::BadFileNameOrNumber};
        const std::size_t choice = input_.Byte();
        if (choice < kNumbers.size() * 2) {
            HasLied = true;
            if (call.Operation == FileOperation::FolderExists) {
                return false;
            }
            throw RuntimeError(kNumbers[choice / 2]);
        }
        return true;
    }

    // Each pass tries each level once and gets one level further.
    static constexpr int kMostCalls = 200 * 202;
    int Calls = 0;
    bool HasLied = false;

  private:
    FuzzInput& input_;
};

}  // namespace

void FuzzDestinationFolder(FuzzInput input) {
    const std::wstring path = input.Text(200);
    MemoryFileSystem files;
    files.MakeFolder(L"C:\\There");
    files.WriteFile(L"C:\\File");
    files.SetVolume(L"\\\\server\\share", true);
    // When the input is used up, zeroes would be lies without end.
    const bool isReliable = input.Bool();
    Unreliable unreliable(files, input);
    FileSystem& seen = isReliable ? static_cast<FileSystem&>(files) : unreliable;
    FolderAction action = FolderAction::Accessing;
    try {
        const bool wasMade = MakeDestinationFolder(seen, path, action);
        Require(files.FolderExists(path), "what is made is there");
        Require(unreliable.HasLied || wasMade == (action == FolderAction::Creating),
                "the action is told");
    } catch (const RuntimeError&) {
        Require(action == FolderAction::Creating, "only making can fail");
        Require(unreliable.HasLied || !files.FolderExists(path), "what is there is no failure");
    }
    Require(files.FolderExists(L"C:\\There") && files.FileExists(L"C:\\File"), "the rest stays");
}

}  // namespace ambrio
