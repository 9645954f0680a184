#pragma once

#include <string>
#include <vector>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio::e2e {

// What the header of an executable file promises the system. Read once, by the constructor, which
// throws std::runtime_error for a file that is none.
class ExecutableFile {
  public:
    explicit ExecutableFile(const std::wstring& path);

    struct Section {
        std::string Name;
        DWORD Characteristics;  // IMAGE_SCN_*
        DWORD Address;          // relative to the image's start
        DWORD Size;             // in the file, in bytes
        DWORD FileOffset;
    };

    [[nodiscard]] bool Is64Bit() const { return is64Bit_; }
    // IMAGE_FILE_*, IMAGE_DLLCHARACTERISTICS_*.
    [[nodiscard]] WORD Characteristics() const { return characteristics_; }
    [[nodiscard]] WORD DllCharacteristics() const { return dllCharacteristics_; }
    // The oldest Windows that takes it.
    [[nodiscard]] int SystemMajor() const { return systemMajor_; }
    [[nodiscard]] int SystemMinor() const { return systemMinor_; }
    // Whether it carries a signature, of whomever.
    [[nodiscard]] bool IsSigned() const { return isSigned_; }
    [[nodiscard]] const std::vector<Section>& Sections() const { return sections_; }
    // The names of the libraries that it cannot start without, in lower case.
    [[nodiscard]] const std::vector<std::string>& Imports() const { return imports_; }

  private:
    template <typename Header>
    void ReadHeader(std::size_t offset);
    void ReadSections(std::size_t offset, int count);
    void ReadImports(DWORD address);
    template <typename Structure>
    [[nodiscard]] Structure At(std::size_t offset) const;
    // Where in the file lies what lies there in memory.
    [[nodiscard]] std::size_t OffsetOf(DWORD address) const;

    std::string bytes_;
    bool is64Bit_ = false;
    WORD characteristics_ = 0;
    WORD dllCharacteristics_ = 0;
    int systemMajor_ = 0;
    int systemMinor_ = 0;
    bool isSigned_ = false;
    std::vector<Section> sections_;
    std::vector<std::string> imports_;
};

}  // namespace ambrio::e2e
