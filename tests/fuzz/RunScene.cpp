#include "tests/fuzz/RunScene.h"

#include <array>

#include "platform/GeneralDate.h"
#include "platform/TemporaryName.h"
#include "settings/SettingKeys.h"

namespace ambrio {
namespace {

constexpr std::array kOperations = {FileOperation::FileExists,
                                    FileOperation::FolderExists,
                                    FileOperation::GetFile,
                                    FileOperation::GetFolder,
                                    FileOperation::Next,
                                    FileOperation::IdentityOf,
                                    FileOperation::CreateFolder,
                                    FileOperation::SetAttributes,
                                    FileOperation::DeleteFile,
                                    FileOperation::CopyFile,
                                    FileOperation::OpenForAppending,
                                    FileOperation::IsWritableFolder,
                                    FileOperation::WriteLine,
                                    FileOperation::FindFile,
                                    FileOperation::MayFollow,
                                    FileOperation::Flush};

constexpr std::array kNumbers = {ErrorNumber::PermissionDenied, ErrorNumber::PathNotFound,
                                 ErrorNumber::FileNotFound,     ErrorNumber::DiskFull,
                                 ErrorNumber::DiskNotReady,     ErrorNumber::PathFileAccessError};

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L'\\'));
}

}  // namespace

RunScene::RunScene(FuzzInput& input) : input_(input) {
    AddSurroundings();
    if (!OneIn(16)) {
        AddSet(L"A");
        if (input_.Bool()) {
            AddSet(L"B");
        }
    }
}

void RunScene::AddSurroundings() {
    Bench.Set(kGeneralSection, kLogOnlyErrorsKey, YesNo(OneIn(3)));
    // The last run was never, yesterday, today, tomorrow.
    if (const std::size_t day = input_.Below(4); day != 0) {
        const DateTime then{2026, 11, static_cast<int>(19 + day), 23, 59, 59};
        Bench.Set(kGeneralSection, kLastRunKey, GeneralDateText(then));
    }
    if (input_.Bool()) {
        Bench.Files.WriteFile(EngineBench::LogFile(), "before\r\n",
                              OneIn(8) ? kAttributeReadOnly : 0);
    }
    if (OneIn(3)) {
        Bench.Set(kGeneralSection, kSecondarySaverKey, L"Stars");
        for (const wchar_t* folder : {L"C:\\Windows", L"C:\\Windows\\System32"}) {
            if (input_.Bool()) {
                Bench.Files.WriteFile(folder + std::wstring(L"\\Stars.scr"));
            }
        }
    }
}

void RunScene::AddSet(const std::wstring& name) {
    const Place place{L"C:\\From" + name, (OneIn(3) ? L"C:\\Far\\Off\\To" : L"C:\\To") + name};
    Bench.AddSet(name, place.Source, place.Destination);
    for (const wchar_t* key : {kOverwriteReadOnlyKey, kClearArchiveBitKey, kDeleteCopyArchiveBitKey,
                               kDeleteCopyReadOnlyKey}) {
        Bench.Set(name, key, YesNo(input_.Bool()));
    }
    Bench.Set(name, kRecursiveKey, YesNo(!OneIn(4)));
    constexpr std::array kTypes = {kCopyTypeDateTime, kCopyTypeArchiveBit, kCopyTypeReadOnly,
                                   L"Unknown"};
    Bench.Set(name, kCopyTypeKey, kTypes[input_.Below(kTypes.size())]);
    if (OneIn(8)) {
        Bench.Set(name, kSelectedKey, OneIn(3) ? L"Perhaps" : L"False");
        runsAllSets_ = false;
    }
    if (!OneIn(16)) {
        Bench.Files.MakeFolder(place.Source);
        AddFiles(place);
    }
    AddOddities(place);
    places_.push_back(place);
}

void RunScene::AddFiles(const Place& place) {
    constexpr std::array kFolders = {L"\\", L"\\s\\", L"\\s\\t\\", L"\\u\\"};
    for (std::size_t count = input_.Below(9); count > 0; --count) {
        const std::wstring path =
            kFolders[input_.Below(kFolders.size())] + std::to_wstring(input_.Below(6));
        paths_.push_back(path);
        AddFile(place.Source + path, "new");
        if (input_.Bool()) {
            AddFile(place.Destination + path, "old");
        }
    }
}

// A copy whose file is gone, what a killed run has left, and what stands in the way.
void RunScene::AddOddities(const Place& place) {
    if (input_.Bool()) {
        AddFile(place.Destination + L"\\gone", "old");
    }
    if (input_.Bool()) {
        paths_.push_back(L"\\" + TemporaryName(9, 7));
        AddFile(place.Destination + paths_.back(), "half");
    }
    if (OneIn(8) && !Bench.Files.FolderExists(place.Destination + L"\\u")) {
        AddFile(place.Destination + L"\\u", "old");
    }
    if (OneIn(8) && !Bench.Files.FileExists(place.Destination + L"\\0")) {
        Bench.Files.MakeFolder(place.Destination + L"\\0");
    }
}

void RunScene::AddFile(const std::wstring& path, const std::string& content) {
    FileAttributes attributes = input_.Bool() ? kAttributeArchive : 0;
    attributes |= input_.Bool() ? kAttributeReadOnly : 0;
    attributes |= input_.Below(4) == 0 ? kAttributeHidden : 0;
    Bench.Files.WriteFile(path, content + std::to_string(files_++), attributes,
                          13'400'000'000 + static_cast<FileSeconds>(input_.Below(3)));
}

RunFaults RunScene::MakeFaults() {
    RunFaults faults;
    faults.Number = kNumbers[input_.Below(kNumbers.size())];
    faults.CopiesAreOverlooked = input_.Bool();
    faults.InputBeforeTheRun = OneIn(16);
    if (places_.empty() || paths_.empty()) {
        return faults;
    }
    for (std::size_t count = input_.Below(4); count > 0; --count) {
        const FileOperation operation = kOperations[input_.Below(kOperations.size())];
        const std::vector<std::wstring> paths = PathsFor(operation);
        faults.Calls.insert({operation, paths[input_.Below(paths.size())]});
    }
    if (OneIn(3)) {
        faults.InputAtCopyOf = PathsFor(FileOperation::CopyFile).front();
    }
    return faults;
}

// The paths with which a run may call the operation, for one of its files.
std::vector<std::wstring> RunScene::PathsFor(FileOperation operation) {
    const Place& place = places_[input_.Below(places_.size())];
    const std::wstring& path = paths_[input_.Below(paths_.size())];
    const std::wstring source = place.Source + path;
    const std::wstring copy = place.Destination + path;
    switch (operation) {
        case FileOperation::FileExists:
            return {copy, EngineBench::LogFile(), L"C:\\Windows\\Stars.scr"};
        case FileOperation::FindFile:
            return {copy};
        case FileOperation::DeleteFile:
            return {copy, EngineBench::LogFile()};
        case FileOperation::SetAttributes:
            return {source, copy};
        case FileOperation::GetFile:
        case FileOperation::CopyFile:
            return {source};
        case FileOperation::CreateFolder:
            return {FolderOf(copy), FolderOf(place.Destination)};
        case FileOperation::OpenForAppending:
        case FileOperation::WriteLine:
        case FileOperation::Flush:
            return {EngineBench::LogFile()};
        case FileOperation::IsWritableFolder:
            return {Bench.App.ProgramFolder};
        default:
            return {FolderOf(source), FolderOf(copy)};
    }
}

std::wstring RunScene::SourceOf(const std::wstring& copy) const {
    for (const Place& place : places_) {
        if (copy.starts_with(place.Destination + L"\\")) {
            return place.Source + copy.substr(place.Destination.size());
        }
    }
    return {};
}

}  // namespace ambrio
