#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace ambrio {

// Where the help and the web page are, and what can show them.

// The address of the project's page on the web. While this is empty, the about box leads to the
// page that is installed beside the program.
inline constexpr const wchar_t* kPublicPage = L"";

// What the about box names and opens: the public page if there is one, else the installed one.
[[nodiscard]] std::wstring WebPage(const std::wstring& publicPage, const std::wstring& helpPage);

// Whether a page is a file of this machine or of a share, not an address.
[[nodiscard]] bool IsFile(const std::wstring& page);

// What a browser is to be given for a page: an address as it is, the full path of a file as one.
// Letters beyond ASCII stay, which every browser takes.
[[nodiscard]] std::wstring AddressOf(const std::wstring& page);

// Whether this system shows files of the kind that the viewer of older systems shows.
// `windowsFolder` has no separator at its end.
[[nodiscard]] bool HasHelpViewer(FileSystem& fileSystem, const std::wstring& windowsFolder);

}  // namespace ambrio
