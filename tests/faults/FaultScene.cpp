#include "tests/faults/FaultScene.h"

#include "platform/TemporaryName.h"
#include "settings/SettingKeys.h"

namespace ambrio {
namespace {

constexpr FileSeconds kTimeOfCopies = 13'300'000'000;
constexpr FileSeconds kNewTime = 13'400'000'000;
constexpr std::uint32_t kKilledProcess = 5;

bool IsRemoval(Plan plan) {
    return plan == Plan::RemoveCopy || plan == Plan::RemoveReadOnlyCopy;
}

FileAttributes SourceAttributes(const PlannedFile& file) {
    return IsRemoval(file.What) ? 0 : kAttributeArchive;
}

FileAttributes CopyAttributes(const PlannedFile& file) {
    const bool isReadOnly =
        file.What == Plan::ReplaceReadOnly || file.What == Plan::RemoveReadOnlyCopy;
    return isReadOnly ? kAttributeReadOnly : 0;
}

}  // namespace

std::wstring SourceFolder(const std::wstring& folder) {
    return L"C:\\Files\\" + folder;
}

std::wstring CopyFolder(const std::wstring& folder) {
    return L"C:\\Copies\\" + folder;
}

std::wstring NameOfLeftover() {
    return TemporaryName(1, kKilledProcess);
}

std::wstring LeftoverIn(const std::wstring& folder) {
    return CopyFolder(folder) + L"\\" + NameOfLeftover();
}

std::wstring PlannedFile::Source() const {
    return SourceFolder(Folder) + L"\\" + Name;
}

std::wstring PlannedFile::Copy() const {
    return CopyFolder(Folder) + L"\\" + Name;
}

std::string NewContent(const PlannedFile& file) {
    const std::wstring path = file.Folder + std::wstring(L"\\") + file.Name;
    return "new " + std::string(path.begin(), path.end());
}

FaultScene::FaultScene() {
    AddSets();
    for (const PlannedFile& file : kPlannedFiles) {
        AddFile(file);
    }
    for (const wchar_t* set : {L"B", L"C"}) {
        for (const wchar_t* folder : kFoldersOfASet) {
            Bench.Files.WriteFile(LeftoverIn(std::wstring(set) + folder), "half");
        }
    }
    Bench.Files.WriteFile(EngineBench::LogFile(), "yesterday\r\n");
    Bench.Files.WriteFile(L"C:\\Windows\\System32\\Stars.scr");
}

void FaultScene::AddSets() {
    for (const wchar_t* set : kFaultSets) {
        Bench.AddSet(set, SourceFolder(set), CopyFolder(set));
    }
    Bench.Set(L"A", kCopyTypeKey, kCopyTypeDateTime);
    Bench.Set(L"B", kCopyTypeKey, kCopyTypeArchiveBit);
    Bench.Set(L"B", kClearArchiveBitKey, kYes);
    Bench.Set(L"B", kDeleteCopyArchiveBitKey, kYes);
    Bench.Set(L"C", kCopyTypeKey, kCopyTypeReadOnly);
    Bench.Set(L"C", kOverwriteReadOnlyKey, kYes);
    Bench.Set(kGeneralSection, kSecondarySaverKey, L"Stars");
    Bench.Files.MakeFolder(L"C:\\Copies");
}

void FaultScene::AddFile(const PlannedFile& file) {
    Bench.Files.WriteFile(file.Source(), NewContent(file), SourceAttributes(file), kNewTime);
    if (file.What == Plan::Leave) {
        Bench.Files.WriteFile(file.Copy(), NewContent(file), 0, kNewTime);
    } else if (file.What != Plan::CopyNew) {
        Bench.Files.WriteFile(file.Copy(), std::string(kOldContent), CopyAttributes(file),
                              kTimeOfCopies);
    }
}

}  // namespace ambrio
