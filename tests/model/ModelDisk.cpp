#include "tests/model/ModelDisk.h"

#include <algorithm>
#include <sstream>

namespace ambrio {
namespace {

std::wstring NameIn(const std::wstring& path) {
    return path.substr(path.find_last_of(L'\\') + 1);
}

auto ChildOf(const ModelNode& folder, const std::wstring& name) {
    return std::find_if(folder.Children.begin(), folder.Children.end(),
                        [&](const ModelNode& child) { return child.Name == name; });
}

std::wstring TextOf(const ModelNode& node) {
    if (node.IsFolder) {
        return L"folder";
    }
    std::wstringstream text;
    text << L"<" << std::wstring(node.Content.begin(), node.Content.end()) << L"> attributes "
         << node.Attributes << L", time " << node.Time;
    return text.str();
}

void AddFacts(const ModelNode& folder, const std::wstring& path,
              std::map<std::wstring, std::wstring>& facts) {
    for (const ModelNode& child : folder.Children) {
        const std::wstring below = PathBelow(path, child.Name);
        facts[below] = TextOf(child);
        AddFacts(child, below, facts);
    }
}

}  // namespace

std::wstring PathBelow(const std::wstring& folder, const std::wstring& name) {
    return folder + L"\\" + name;
}

const ModelNode* ModelDisk::Find(const std::wstring& path) const {
    std::wistringstream names(path);
    std::wstring name;
    std::getline(names, name, L'\\');
    const ModelNode* node = name == root_.Name ? &root_ : nullptr;
    while (node != nullptr && std::getline(names, name, L'\\')) {
        const auto child = ChildOf(*node, name);
        node = child == node->Children.end() ? nullptr : &*child;
    }
    return node;
}

ModelNode* ModelDisk::Find(const std::wstring& path) {
    return const_cast<ModelNode*>(std::as_const(*this).Find(path));
}

ModelNode* ModelDisk::FolderOf(const std::wstring& path) {
    const std::size_t end = path.find_last_of(L'\\');
    ModelNode* folder = end == std::wstring::npos ? nullptr : Find(path.substr(0, end));
    return folder != nullptr && folder->IsFolder ? folder : nullptr;
}

const ModelNode* ModelDisk::File(const std::wstring& path) const {
    const ModelNode* node = Find(path);
    return node != nullptr && !node->IsFolder ? node : nullptr;
}

const ModelNode* ModelDisk::Folder(const std::wstring& path) const {
    const ModelNode* node = Find(path);
    return node != nullptr && node->IsFolder ? node : nullptr;
}

ModelDisk::Result ModelDisk::MakeFolder(const std::wstring& path) {
    if (Find(path) != nullptr) {
        return ErrorNumber::FileAlreadyExists;
    }
    ModelNode* parent = FolderOf(path);
    if (parent == nullptr) {
        return ErrorNumber::PathNotFound;
    }
    parent->Children.push_back({NameIn(path), true});
    return std::nullopt;
}

ModelDisk::Result ModelDisk::Remove(const std::wstring& path, bool force) {
    const ModelNode* file = File(path);
    if (file == nullptr) {
        return ErrorNumber::FileNotFound;
    }
    if (file->IsReadOnly() && !force) {
        return ErrorNumber::PermissionDenied;
    }
    ModelNode& folder = *FolderOf(path);
    folder.Children.erase(ChildOf(folder, NameIn(path)));
    return std::nullopt;
}

ModelDisk::Result ModelDisk::Copy(const std::wstring& source, const std::wstring& destination) {
    const ModelNode* file = File(source);
    if (file == nullptr) {
        return ErrorNumber::FileNotFound;
    }
    ModelNode copy = *file;
    copy.Name = NameIn(destination);
    copy.Attributes |= kAttributeArchive;
    if (ModelNode* old = Find(destination); old != nullptr) {
        if (old->IsFolder || old->IsReadOnly()) {
            return ErrorNumber::PermissionDenied;
        }
        *old = copy;
    } else if (ModelNode* folder = FolderOf(destination); folder != nullptr) {
        folder->Children.push_back(copy);
    } else {
        return ErrorNumber::PathNotFound;
    }
    return std::nullopt;
}

void ModelDisk::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Find(path)->Attributes = attributes;
}

ModelDisk::Result ModelDisk::Open(const std::wstring& path, FileSeconds now) {
    if (const ModelNode* node = Find(path); node != nullptr) {
        return node->IsFolder || node->IsReadOnly() ? Result(ErrorNumber::PermissionDenied)
                                                    : std::nullopt;
    }
    ModelNode* folder = FolderOf(path);
    if (folder == nullptr) {
        return ErrorNumber::PathNotFound;
    }
    folder->Children.push_back({NameIn(path), false, {}, kAttributeArchive, now});
    return std::nullopt;
}

void ModelDisk::Append(const std::wstring& path, const std::string& bytes, FileSeconds now) {
    ModelNode& file = *Find(path);
    file.Content += bytes;
    file.Attributes |= kAttributeArchive;
    file.Time = now;
}

std::map<std::wstring, std::wstring> ModelDisk::Facts() const {
    std::map<std::wstring, std::wstring> facts;
    AddFacts(root_, root_.Name, facts);
    return facts;
}

}  // namespace ambrio
