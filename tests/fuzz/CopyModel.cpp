#include "tests/fuzz/CopyModel.h"

namespace ambrio {
namespace {

bool Qualifies(const std::wstring& type, FileAttributes attributes) {
    if (type == L"ArchiveBit") {
        return (attributes & 32U) != 0;
    }
    return type != L"ReadOnly" || (attributes & 1U) == 0;
}

}  // namespace

std::wstring PathBelow(const std::wstring& folder, const std::wstring& name) {
    return folder + L"\\" + name;
}

void CopyModel::RunSet(const BackupSet& set, ModelFolder& source,
                       std::map<std::wstring, ModelFile>& copies) {
    set_ = &set;
    copies_ = &copies;
    Walk(source, L"");
}

// After an interruption each further folder still has its first file handed over.
void CopyModel::Walk(ModelFolder& folder, const std::wstring& below) {
    if (Fails(FileOperation::CreateFolder, set_->rsDestnDir + below) ||
        Fails(FileOperation::GetFolder, set_->rsSourceDir + below)) {
        ++FolderErrors;
        return;
    }
    for (auto& [name, file] : folder.Files) {
        HandOver(file, PathBelow(below, name));
        if (Interrupted) {
            return;
        }
    }
    if (set_->rbRecursive) {
        for (ModelFolder& subfolder : folder.Folders) {
            Walk(subfolder, PathBelow(below, subfolder.Name));
        }
    }
}

void CopyModel::HandOver(ModelFile& file, const std::wstring& path) {
    if (Fails(FileOperation::GetFile, set_->rsSourceDir + path)) {
        Interrupted = true;
        return;
    }
    const bool qualifies = Qualifies(set_->rsCopyType, file.Attributes);
    bool isToBeCopied = false;
    if (qualifies && !LookAtCopy(file, path, isToBeCopied)) {
        Interrupted = true;
        return;
    }
    if (!qualifies && set_->rbDeleteCopy && copies_->contains(path)) {
        ++Removed;
        if (Fails(FileOperation::DeleteFile, set_->rsDestnDir + path)) {
            ++RemoveErrors;
        } else {
            copies_->erase(path);
        }
    }
    ++Checked;
    if (isToBeCopied) {
        Copy(file, path);
    }
}

bool CopyModel::LookAtCopy(const ModelFile& file, const std::wstring& path, bool& isToBeCopied) {
    const auto copy = copies_->find(path);
    if (copy == copies_->end()) {
        isToBeCopied = true;
        return true;
    }
    isToBeCopied = file.Time > copy->second.Time;
    if (set_->rbOverwriteReadOnly && (copy->second.Attributes & 1U) != 0) {
        if (Fails(FileOperation::SetAttributes, set_->rsDestnDir + path)) {
            return false;
        }
        copy->second.Attributes &= ~1U;
    }
    return true;
}

void CopyModel::Copy(ModelFile& file, const std::wstring& path) {
    ++Copied;
    const auto old = copies_->find(path);
    const bool isRefused = old != copies_->end() && (old->second.Attributes & 1U) != 0;
    if (isRefused || Fails(FileOperation::CopyFile, set_->rsSourceDir + path)) {
        ++CopyErrors;
    } else {
        (*copies_)[path] = file;
        (*copies_)[path].Attributes |= 32U;
    }
    // After a failed copy too.
    if (set_->rsCopyType == L"ArchiveBit" && set_->rbClearArchive &&
        !Fails(FileOperation::SetAttributes, set_->rsSourceDir + path)) {
        file.Attributes &= ~32U;
    }
}

}  // namespace ambrio
