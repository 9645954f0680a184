#include "tests/e2e/support/Installation.h"

#include <array>
#include <memory>
#include <stdexcept>

#include "tests/e2e/support/Environment.h"
#include "tests/e2e/support/Handles.h"
#include "tests/e2e/support/NativeFiles.h"
#include "tests/e2e/support/SystemFile.h"
#include "tests/e2e/support/Waiting.h"

namespace ambrio::e2e {

namespace {

constexpr const wchar_t* kEntry =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Ambrio";

std::wstring KnownFolder(int folder) {
    wchar_t path[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path))) {
        throw std::runtime_error("the system does not say where a folder is");
    }
    return path;
}

// A 32-bit program is told another folder by the ordinary way.
std::wstring ProgramsFolder() {
    const std::wstring native = TextFromEnvironment(L"ProgramW6432");
    return native.empty() ? KnownFolder(CSIDL_PROGRAM_FILES) : native;
}

UniqueKey OpenEntry(HKEY root) {
    HKEY key = nullptr;
    RegOpenKeyExW(root, kEntry, 0, KEY_READ | KEY_WOW64_64KEY, &key);
    return UniqueKey(key);
}

template <typename Interface>
struct Releaser {
    void operator()(Interface* object) const { object->Release(); }
};
template <typename Interface>
using UniqueInterface = std::unique_ptr<Interface, Releaser<Interface>>;

class Com {
  public:
    Com() : result_(CoInitialize(nullptr)) {}
    ~Com() {
        if (SUCCEEDED(result_)) {
            CoUninitialize();
        }
    }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;

  private:
    HRESULT result_;
};

// This process's token, in which the administrators' group only forbids.
UniqueHandle TokenWithoutRights() {
    HANDLE own = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own) == 0) {
        ThrowWin32Error("opening the process's token");
    }
    const UniqueHandle ownToken(own);
    std::array<BYTE, SECURITY_MAX_SID_SIZE> administrators{};
    DWORD size = administrators.size();
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators.data(), &size);
    SID_AND_ATTRIBUTES forbidden{administrators.data(), 0};
    HANDLE token = nullptr;
    if (CreateRestrictedToken(own, DISABLE_MAX_PRIVILEGE, 1, &forbidden, 0, nullptr, 0, nullptr,
                              &token) == 0) {
        return nullptr;
    }
    return UniqueHandle(token);
}

}  // namespace

Installation::Installation(For whom)
    : root_(whom == For::Everybody ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {
    if (whom == For::Everybody) {
        programFolder_ = WindowsFolder();
        folder_ = ProgramsFolder() + L"\\Ambrio";
        startMenu_ = KnownFolder(CSIDL_COMMON_PROGRAMS) + L"\\Ambrio";
    } else {
        folder_ = KnownFolder(CSIDL_LOCAL_APPDATA) + L"\\Programs\\Ambrio";
        programFolder_ = folder_;
        startMenu_ = KnownFolder(CSIDL_PROGRAMS) + L"\\Ambrio";
    }
}

std::optional<std::wstring> Installation::ListedText(const wchar_t* name) const {
    const UniqueKey entry = OpenEntry(root_);
    std::array<wchar_t, 1000> text{};
    DWORD size = sizeof text - sizeof(wchar_t);
    DWORD type = REG_NONE;
    if (!entry ||
        RegQueryValueExW(entry.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()),
                         &size) != ERROR_SUCCESS ||
        type != REG_SZ) {
        return std::nullopt;
    }
    return text.data();
}

std::optional<DWORD> Installation::ListedNumber(const wchar_t* name) const {
    const UniqueKey entry = OpenEntry(root_);
    DWORD number = 0;
    DWORD size = sizeof number;
    DWORD type = REG_NONE;
    if (!entry ||
        RegQueryValueExW(entry.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&number),
                         &size) != ERROR_SUCCESS ||
        type != REG_DWORD) {
        return std::nullopt;
    }
    return number;
}

bool Installation::IsListed() const {
    return OpenEntry(root_) != nullptr;
}

bool Is64BitSystem() {
    return sizeof(void*) == 8 || HasTwoSystemFolders();
}

ShortcutTarget ReadShortcut(const std::wstring& path) {
    const Com com;
    IShellLinkW* made = nullptr;
    IPersistFile* asked = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                reinterpret_cast<void**>(&made)))) {
        throw std::runtime_error("the system has no shortcuts");
    }
    const UniqueInterface<IShellLinkW> link(made);
    if (FAILED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&asked)))) {
        throw std::runtime_error("shortcuts cannot be read");
    }
    const UniqueInterface<IPersistFile> file(asked);
    if (FAILED(file->Load(path.c_str(), STGM_READ))) {
        throw std::runtime_error("there is no such shortcut");
    }
    std::array<wchar_t, MAX_PATH> target{};
    std::array<wchar_t, MAX_PATH> arguments{};
    link->GetPath(target.data(), MAX_PATH, nullptr, SLGP_RAWPATH);
    link->GetArguments(arguments.data(), MAX_PATH);
    return {target.data(), arguments.data()};
}

std::optional<DWORD> RunWithoutRights(const std::wstring& program, const std::wstring& arguments) {
    const UniqueHandle token = TokenWithoutRights();
    if (!token) {
        return std::nullopt;
    }
    std::wstring line = L"\"" + program + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessAsUserW(token.get(), program.c_str(), line.data(), nullptr, nullptr, FALSE, 0,
                             nullptr, nullptr, &startup, &started) == 0) {
        ThrowWin32Error("starting a program without rights");
    }
    const UniqueHandle process(started.hProcess);
    const UniqueHandle thread(started.hThread);
    if (WaitForSingleObject(process.get(), static_cast<DWORD>(4 * kSoon.count())) !=
        WAIT_OBJECT_0) {
        TerminateProcess(process.get(), 1);
    }
    DWORD code = 0;
    GetExitCodeProcess(process.get(), &code);
    return code;
}

}  // namespace ambrio::e2e
