#include "tests/e2e/support/ExecutableFile.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {

ExecutableFile::ExecutableFile(const std::wstring& path) : bytes_(ReadFileBytes(path)) {
    const auto header = static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0).e_lfanew);
    const WORD magic = At<IMAGE_NT_HEADERS32>(header).OptionalHeader.Magic;
    is64Bit_ = magic == IMAGE_NT_OPTIONAL_HDR64_MAGIC;
    if (is64Bit_) {
        ReadHeader<IMAGE_NT_HEADERS64>(header);
    } else if (magic == IMAGE_NT_OPTIONAL_HDR32_MAGIC) {
        ReadHeader<IMAGE_NT_HEADERS32>(header);
    } else {
        throw std::runtime_error("not an executable file");
    }
}

template <typename Header>
void ExecutableFile::ReadHeader(std::size_t offset) {
    const auto header = At<Header>(offset);
    characteristics_ = header.FileHeader.Characteristics;
    dllCharacteristics_ = header.OptionalHeader.DllCharacteristics;
    systemMajor_ = header.OptionalHeader.MajorSubsystemVersion;
    systemMinor_ = header.OptionalHeader.MinorSubsystemVersion;
    isSigned_ = header.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_SECURITY].Size != 0;
    ReadSections(offset + sizeof(Header), header.FileHeader.NumberOfSections);
    ReadImports(header.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

void ExecutableFile::ReadSections(std::size_t offset, int count) {
    for (int i = 0; i < count; ++i, offset += sizeof(IMAGE_SECTION_HEADER)) {
        const auto section = At<IMAGE_SECTION_HEADER>(offset);
        const auto* name = reinterpret_cast<const char*>(section.Name);
        sections_.push_back({std::string(name, strnlen(name, sizeof section.Name)),
                             section.Characteristics, section.VirtualAddress, section.SizeOfRawData,
                             section.PointerToRawData});
    }
}

void ExecutableFile::ReadImports(DWORD address) {
    for (std::size_t offset = OffsetOf(address);; offset += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto library = At<IMAGE_IMPORT_DESCRIPTOR>(offset);
        if (library.Name == 0) {
            return;
        }
        std::string name = bytes_.c_str() + OffsetOf(library.Name);
        std::transform(name.begin(), name.end(), name.begin(), [](unsigned char letter) {
            return static_cast<char>(std::tolower(letter));
        });
        imports_.push_back(name);
    }
}

template <typename Structure>
Structure ExecutableFile::At(std::size_t offset) const {
    if (offset > bytes_.size() || bytes_.size() - offset < sizeof(Structure)) {
        throw std::runtime_error("not a whole executable file");
    }
    Structure structure;
    std::memcpy(&structure, bytes_.data() + offset, sizeof structure);
    return structure;
}

std::size_t ExecutableFile::OffsetOf(DWORD address) const {
    for (const Section& section : sections_) {
        if (address >= section.Address && address - section.Address < section.Size) {
            return section.FileOffset + (address - section.Address);
        }
    }
    throw std::runtime_error("an address outside the executable file");
}

}  // namespace ambrio::e2e
