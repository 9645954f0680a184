#include "config/model/HelpPages.h"

#include <cstdint>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

// Newer systems have something of the viewer's name that only says that there is none any more. It
// takes some ten thousand bytes, the viewer hundreds of thousands.
constexpr std::uint64_t kLargestPlaceholder = 65536;

// What means something of its own in an address, and the blank, which separates arguments. The
// sign that introduces these is one of them.
std::wstring Escaped(wchar_t c) {
    switch (c) {
        case L' ':
            return L"%20";
        case L'#':
            return L"%23";
        case L'%':
            return L"%25";
        case L'\\':
            return L"/";
        default:
            return std::wstring(1, c);
    }
}

}  // namespace

std::wstring WebPage(const std::wstring& publicPage, const std::wstring& helpPage) {
    return publicPage.empty() ? helpPage : publicPage;
}

bool IsFile(const std::wstring& page) {
    return page.find(L"://") == std::wstring::npos;
}

std::wstring AddressOf(const std::wstring& page) {
    if (!IsFile(page)) {
        return page;
    }
    // A share's own slashes stand where a drive needs a third one.
    std::wstring address = page.starts_with(L"\\\\") ? L"file:" : L"file:///";
    for (const wchar_t c : page) {
        address += Escaped(c);
    }
    return address;
}

bool HasHelpViewer(FileSystem& fileSystem, const std::wstring& windowsFolder) {
    try {
        const auto viewer =
            fileSystem.FindFile(FileSystem::BuildPath(windowsFolder, L"winhlp32.exe"));
        return viewer && viewer->Size > kLargestPlaceholder;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace ambrio
