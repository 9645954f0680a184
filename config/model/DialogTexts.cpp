#include "config/model/DialogTexts.h"

#include "platform/DecimalText.h"

namespace ambrio {

std::wstring ConfigurationCaption(const std::wstring& title) {
    return title + L" Configuration";
}

std::wstring LogOnlyErrorsTooltip(const FileSystem& fileSystem, const std::wstring& title,
                                  const std::wstring& logFile, const std::wstring& windowsFolder) {
    const std::wstring name = title + L".log";
    const std::wstring usual = FileSystem::BuildPath(windowsFolder, name);
    const bool isUsual = fileSystem.FoldedName(logFile) == fileSystem.FoldedName(usual);
    return L"Unless checked, a log (" + (isUsual ? name : logFile) + L") is created " +
           (isUsual ? L"in your Windows folder " : L"") + L"every time " + title + L" runs.";
}

std::wstring RemoveQuestion(const std::wstring& setName) {
    return L"About to remove " + setName + L"\r\nfrom your list of backup sets.\r\nAre you sure?";
}

std::wstring PropertiesCaption(const std::wstring& setName) {
    return (setName.empty() ? L"New Set" : setName) + L" Properties";
}

std::wstring BrowseCaption(const std::wstring& setName, std::int16_t browseIndex) {
    return L"Choose " + setName +
           (browseIndex != kBrowseSource ? L" destination folder" : L" source folder");
}

std::wstring DriveFailureText(wchar_t letter, const std::wstring& reason) {
    return L"Drive " + std::wstring(1, letter) + L": cannot be opened.\r\n" + reason;
}

std::wstring FileSelectionCaption(const std::wstring& setName) {
    return setName + L" properties - File selection";
}

std::wstring AboutCaption(const std::wstring& title) {
    return L"About " + title;
}

std::wstring VersionText(int major, int minor, int revision) {
    return L"Version " + DecimalText(major) + L"." + DecimalText(minor) + L"." +
           DecimalText(revision);
}

}  // namespace ambrio
