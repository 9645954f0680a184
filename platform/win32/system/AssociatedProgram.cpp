#include "platform/win32/system/AssociatedProgram.h"

#include <array>
#include <utility>
#include <vector>

#include "platform/DecimalText.h"
#include "platform/Trim.h"
#include "platform/win32/system/Handle.h"
#include "platform/win32/system/TextOfCall.h"

namespace ambrio {
namespace {

// The results of the shell's calls that mean success are larger.
constexpr INT_PTR kLastShellError = 32;

bool IsSuccess(HINSTANCE result) {
    return reinterpret_cast<INT_PTR>(result) > kLastShellError;
}

// A file of one line that was not there before and goes with this object.
class NewFile {
  public:
    explicit NewFile(std::wstring path) : path_(std::move(path)) {
        const auto file = MakeHandle<UniqueHandle>(CreateFileW(
            path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        isMade_ = file != nullptr;
        constexpr char kLine[] = "abc\r\n";
        DWORD written = 0;
        if (isMade_) {
            WriteFile(file.get(), kLine, sizeof(kLine) - 1, &written, nullptr);
        }
    }
    ~NewFile() {
        if (isMade_) {
            DeleteFileW(path_.c_str());
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] bool IsMade() const { return isMade_; }

  private:
    std::wstring path_;
    bool isMade_ = false;
};

// Where the file may lie, the best place first. A file of the user's that bears the name stays.
std::vector<std::wstring> PlacesFor(const std::wstring& ext) {
    constexpr int kOtherNames = 9;
    const std::wstring dotExt = L"." + ext;
    const std::wstring folder =
        TextOfCall([](wchar_t* buffer, DWORD size) { return GetTempPathW(size, buffer); });
    std::vector<std::wstring> places = {L"~temp" + dotExt, folder + L"~temp" + dotExt};
    for (int i = 1; i <= kOtherNames; ++i) {
        places.push_back(folder + L"~temp" + DecimalText(i) + dotExt);
    }
    return places;
}

std::wstring ProgramFor(const std::wstring& file) {
    std::array<wchar_t, MAX_PATH + 1> path = {};
    return IsSuccess(FindExecutableW(file.c_str(), L"", path.data())) ? Trim(path.data())
                                                                      : std::wstring();
}

}  // namespace

std::wstring GetBrowserPath(const std::wstring& ext) {
    for (const std::wstring& place : PlacesFor(ext)) {
        if (const NewFile file(place); file.IsMade()) {
            return ProgramFor(place);
        }
    }
    return {};
}

bool ShellOpen(const std::wstring& program, const std::wstring& arguments, HWND owner) {
    return IsSuccess(
        ShellExecuteW(owner, L"open", program.c_str(), arguments.c_str(), L"", SW_SHOWNORMAL));
}

}  // namespace ambrio
