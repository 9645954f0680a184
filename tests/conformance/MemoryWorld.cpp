#include "tests/conformance/MemoryWorld.h"

namespace ambrio {

void MemoryWorld::SetTime(const std::wstring& path, FileSeconds time, std::uint32_t /*ticks*/) {
    files_.Node(path).DateLastModified = time;
}

std::shared_ptr<void> MemoryWorld::Lock(const std::wstring& path) {
    MemoryNode& node = files_.Node(path);
    node.Locked = true;
    return {&node, [](MemoryNode* locked) { locked->Locked = false; }};
}

bool MemoryWorld::MakeLink(const std::wstring& path, const std::wstring& target, LinkKind kind) {
    using Kind = MemoryFileSystem::LinkKind;
    const Kind kinds[] = {Kind::ToFile, Kind::ToFolder, Kind::MountPoint};
    files_.MakeLink(path, target, kinds[static_cast<int>(kind)]);
    return true;
}

bool MemoryWorld::GiveAway(const std::wstring& link) {
    files_.Node(link).IsOfAnotherUser = true;
    return true;
}

const char* MemoryWorld::ReasonToSkip(const std::string& /*test*/) const {
    return nullptr;
}

}  // namespace ambrio
