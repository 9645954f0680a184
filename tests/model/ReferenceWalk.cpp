#include "tests/model/ReferenceWalk.h"

#include <algorithm>

#include "platform/TemporaryName.h"

namespace ambrio {
void ReferenceWalk::RunSet(const ModelSet& set) {
    set_ = set;
    WalkFolder(set.Source, set.Destination);
}

void ReferenceWalk::Require(Stage stage, const std::wstring& path) const {
    if (const auto fault = run_.Fails(stage, path)) {
        throw ModelFailure{*fault};
    }
}

void ReferenceWalk::FailFolder(ErrorNumber number, const wchar_t* action,
                               const std::wstring& folder) {
    ++run_.Out.FolderErrors;
    run_.Log(ErrorText(number) + L" while " + action + L" folder " + PathText(folder));
}

void ReferenceWalk::WalkFolder(const std::wstring& source, const std::wstring& destination) {
    run_.Show(L"lblSource", source);
    run_.Show(L"lblDest", destination);
    run_.Show(L"lblFile", L"");
    if (run_.Fails(Stage::TestSourceFolder, source) || run_.Disk.Folder(source) == nullptr) {
        ++run_.Out.FolderErrors;
        run_.Log(L"Error <" + source + L"> does not exist.");
        run_.Show(L"lblChecked", run_.Out.FilesChecked);
        return;
    }
    if (IsForeignLink(Stage::TestSourceLink, source)) {
        return;
    }
    const std::optional<bool> wasMade = MakeDestination(destination);
    if (!wasMade || IsForeignLink(Stage::TestDestinationLink, destination)) {
        return;
    }
    try {
        if (WalkContent(source, destination, *wasMade)) {
            run_.Show(L"lblChecked", run_.Out.FilesChecked);
        }
    } catch (const ModelFailure& failure) {
        run_.Show(L"lblfsoStatus", L"");
        FailFolder(failure.Number, L"accessing", source);
    }
}

bool ReferenceWalk::IsForeignLink(Stage stage, const std::wstring& folder) {
    const bool isForeign = run_.Fails(stage, folder).has_value();
    if (isForeign) {
        FailFolder(ErrorNumber::PathFileAccessError, L"accessing", folder);
    }
    return isForeign;
}

std::optional<bool> ReferenceWalk::MakeDestination(const std::wstring& destination) {
    const auto isThere = [&] {
        return !run_.Fails(Stage::TestDestinationFolder, destination) &&
               run_.Disk.Folder(destination) != nullptr;
    };
    if (isThere()) {
        return false;
    }
    ModelDisk::Result result = MakeMissingLevels(destination);
    if (!result && !isThere()) {
        result = ErrorNumber::PathFileAccessError;  // made, and yet not there
    }
    if (result) {
        FailFolder(*result, L"creating", destination);
        return std::nullopt;
    }
    return true;
}

ModelDisk::Result ReferenceWalk::MakeFolder(const std::wstring& path) {
    const auto fault = run_.Fails(Stage::MakeDestinationFolder, path);
    return fault ? fault : run_.Disk.MakeFolder(path);
}

// From the folder itself up to the first level that can be made, then the same again, a level
// further down each time.
ModelDisk::Result ReferenceWalk::MakeMissingLevels(const std::wstring& destination) {
    std::wstring lastMade;
    for (;;) {
        ModelDisk::Result result = MakeFolder(destination);
        std::wstring level = destination;
        while (result == ErrorNumber::PathNotFound && level.find(L'\\') != std::wstring::npos) {
            level.resize(level.find_last_of(L'\\'));
            result = MakeFolder(level);
        }
        if (level == destination) {
            return result;
        }
        const bool goesOn = !result || result == ErrorNumber::PathFileAccessError;
        if (!goesOn || level.size() <= lastMade.size()) {
            return result.value_or(ErrorNumber::PathNotFound);
        }
        lastMade = level;
    }
}

bool ReferenceWalk::WalkContent(const std::wstring& source, const std::wstring& destination,
                                bool isNew) {
    run_.Show(L"lblfsoStatus", L"building file list ...");
    Require(Stage::ListSource, source);
    const Content content = ReadSource(source);
    Listing listing = isNew ? Listing(std::in_place) : ListDestination(destination);
    if (!isNew) {
        SweepLeftovers(source, destination, listing);
    }
    for (const std::wstring& name : content.Files) {
        run_.Show(L"lblfsoStatus", L"");
        HandOver({name, PathBelow(source, name), PathBelow(destination, name), isNew}, listing);
        if (run_.Out.Interrupted) {
            return false;
        }
    }
    if (content.BrokenOff) {
        throw ModelFailure{*content.BrokenOff};
    }
    run_.Show(L"lblfsoStatus", L"");
    run_.Show(L"lblFile", L"");
    if (set_.IsRecursive) {
        // After an interruption too: each further folder is made and its first file handed over.
        run_.Show(L"lblfsoStatus", L"building folder list ...");
        for (const std::wstring& name : content.Folders) {
            run_.Show(L"lblfsoStatus", L"");
            WalkFolder(PathBelow(source, name), PathBelow(destination, name));
        }
        run_.Show(L"lblfsoStatus", L"");
    }
    return true;
}

ReferenceWalk::Content ReferenceWalk::ReadSource(const std::wstring& source) const {
    Content content;
    const std::vector<ModelNode>& children = run_.Disk.Folder(source)->Children;
    for (auto child = children.begin();; ++child) {
        content.BrokenOff = run_.Fails(Stage::WalkSource, source);
        if (content.BrokenOff || child == children.end()) {
            return content;
        }
        (child->IsFolder ? content.Folders : content.Files).push_back(child->Name);
    }
}

ReferenceWalk::Listing ReferenceWalk::ListDestination(const std::wstring& destination) const {
    Listing listing(std::in_place);
    if (run_.Out.Interrupted || run_.Fails(Stage::ListDestination, destination)) {
        return std::nullopt;
    }
    const std::vector<ModelNode>& children = run_.Disk.Folder(destination)->Children;
    for (auto child = children.begin();; ++child) {
        if (run_.Fails(Stage::WalkDestination, destination)) {
            return std::nullopt;
        }
        if (child == children.end()) {
            return listing;
        }
        if (!child->IsFolder) {
            listing->emplace(child->Name, *child);
        }
    }
}

void ReferenceWalk::SweepLeftovers(const std::wstring& source, const std::wstring& destination,
                                   const Listing& listing) {
    if (!listing) {
        return;
    }
    for (const auto& [name, file] : *listing) {
        if (!IsTemporaryName(name)) {
            continue;
        }
        const std::wstring ofSource = PathBelow(source, name);
        ModelDisk::Result look = run_.Fails(Stage::LookForLeftoversFile, ofSource);
        if (!look && run_.Disk.File(ofSource) == nullptr) {
            look = ErrorNumber::FileNotFound;
        }
        const std::wstring path = PathBelow(destination, name);
        if (look == ErrorNumber::FileNotFound && !run_.Fails(Stage::RemoveLeftover, path)) {
            run_.Disk.Remove(path, true);
        }
    }
}

void ReferenceWalk::HandOver(const File& file, const Listing& listing) {
    bool isToBeRemoved = false;
    bool isToBeCopied = false;
    try {
        Require(Stage::ReadSource, file.Source);
        isToBeRemoved = set_.RemovesCopies && !Qualifies(file) && HasCopyToRemove(file, listing);
        isToBeCopied = Qualifies(file) && IsToBeCopied(file, listing);
    } catch (const ModelFailure& failure) {
        const std::wstring text =
            ErrorText(failure.Number) + L" in CopyFile " + BothPathsText(file.Source, file.Copy);
        run_.Out.FatalErrorText = text;
        run_.Out.Interrupted = true;
        run_.Log(text);
        return;
    }
    if (isToBeRemoved) {
        Remove(file);
        Require(Stage::ReadSourceAgain, file.Source);
    }
    run_.Show(L"lblChecked", ++run_.Out.FilesChecked);
    if (isToBeCopied) {
        Copy(file);
    } else if (isClipPlaying_) {
        isClipPlaying_ = false;
        run_.ChangeDisplay(L"stop");
        run_.ChangeDisplay(L"hide");
    }
}

bool ReferenceWalk::Qualifies(const File& file) const {
    const FileAttributes attributes = run_.Disk.File(file.Source)->Attributes;
    if (set_.CopyType == L"ArchiveBit") {
        return (attributes & kAttributeArchive) != 0;
    }
    return set_.CopyType != L"ReadOnly" || (attributes & kAttributeReadOnly) == 0;
}

bool ReferenceWalk::HasCopyToRemove(const File& file, const Listing& listing) const {
    return (!listing || listing->contains(file.Name)) &&
           !run_.Fails(Stage::TestCopyToRemove, file.Copy) && run_.Disk.File(file.Copy) != nullptr;
}

// A listed copy that needs nothing is believed; any other is looked at anew, but for a folder that
// was made just now.
bool ReferenceWalk::IsToBeCopied(const File& file, const Listing& listing) {
    const FileSeconds time = run_.Disk.File(file.Source)->Time;
    const auto needsNothing = [&](const ModelNode& copy) {
        return copy.Time >= time && !(set_.OverwritesReadOnly && copy.IsReadOnly());
    };
    if (listing) {
        const auto listed = listing->find(file.Name);
        if (listed != listing->end() && needsNothing(listed->second)) {
            return false;
        }
    }
    if (file.IsInNewFolder || run_.Fails(Stage::TestCopyToReplace, file.Copy)) {
        return true;
    }
    Require(Stage::ReadCopy, file.Copy);
    const ModelNode* copy = run_.Disk.File(file.Copy);
    if (copy == nullptr) {
        return true;
    }
    if (set_.OverwritesReadOnly && copy->IsReadOnly()) {
        Require(Stage::MakeCopyWritable, file.Copy);
        run_.Disk.SetAttributes(file.Copy, copy->Attributes & ~kAttributeReadOnly);
    }
    return copy->Time < time;
}

void ReferenceWalk::Remove(const File& file) {
    RunOutcome& out = run_.Out;
    run_.Show(L"lblFile", file.Name + L" - removing copy");
    const auto fault = run_.Fails(Stage::RemoveCopy, file.Copy);
    const auto result = fault ? fault : run_.Disk.Remove(file.Copy, true);
    ++out.CopiesRemoved;
    out.RemoveErrors += result ? 1 : 0;
    run_.Show(L"lblRemoved", out.CopiesRemoved - out.RemoveErrors);
    if (result) {
        run_.Log(ErrorText(*result) + L" while removing " + PathText(file.Copy));
    }
}

void ReferenceWalk::Copy(const File& file) {
    RunOutcome& out = run_.Out;
    if (!isClipPlaying_) {
        isClipPlaying_ = true;
        run_.ChangeDisplay(L"play");
        run_.ChangeDisplay(L"show");
    }
    run_.ChangeDisplay(L"colour");
    run_.Show(L"lblFile", file.Name + L" - copying");
    ++out.FilesCopied;
    out.Interrupted |= run_.World.InputAtCopyOf.contains(file.Source);
    const auto fault = run_.Fails(Stage::CopyFile, file.Source);
    if (const auto result = fault ? fault : run_.Disk.Copy(file.Source, file.Copy)) {
        ++out.CopyErrors;
        run_.Log(ErrorText(*result) + L" while copying " + BothPathsText(file.Source, file.Copy));
    }
    if (set_.ClearsArchiveBit) {
        ClearArchiveBit(file);  // after a failed copy too
    }
    run_.Show(L"lblFile", file.Name + L" - done");
    run_.Show(L"lblcopied", out.FilesCopied - out.CopyErrors);
}

void ReferenceWalk::ClearArchiveBit(const File& file) {
    try {
        Require(Stage::ReadSourceForArchiveBit, file.Source);
        Require(Stage::ClearArchiveBit, file.Source);
        const FileAttributes attributes = run_.Disk.File(file.Source)->Attributes;
        run_.Disk.SetAttributes(file.Source, attributes & ~kAttributeArchive);
    } catch (const ModelFailure& failure) {
        run_.Log(ErrorText(failure.Number) + L" while clearing archive bit on " +
                 PathText(file.Source));
    }
}

}  // namespace ambrio
