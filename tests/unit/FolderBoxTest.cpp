#include "config/FolderBox.h"

#include <cstring>
#include <initializer_list>
#include <utility>
#include <vector>

#include "config/frmProperties.h"
#include "resources/DialogIds.h"
#include "tests/support/win32/ReplacedImport.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

// Notes for which boxes the shell was asked to complete what is typed, and with what.
class CompletionCounter {
  public:
    // Where the shell is to have no such function, nothing can be asked.
    explicit CompletionCounter(bool exists) {
        exists_ = exists;
        calls_.clear();
    }

    using Call = std::pair<HWND, DWORD>;
    [[nodiscard]] const std::vector<Call>& Calls() const { return calls_; }

  private:
    static HRESULT WINAPI Complete(HWND box, DWORD what) {
        calls_.emplace_back(box, what);
        return S_OK;
    }
    static FARPROC WINAPI Address(HMODULE library, const char* name) {
        if (HIWORD(reinterpret_cast<ULONG_PTR>(name)) == 0 ||
            std::strcmp(name, "SHAutoComplete") != 0) {
            return real_(library, name);
        }
        return exists_ ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&Complete)) : nullptr;
    }

    static inline std::vector<Call> calls_;
    static inline bool exists_ = true;
    // The system's own and not what a call would take, which is the replacement.
    static inline const auto real_ =
        reinterpret_cast<decltype(&GetProcAddress)>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetProcAddress")));
    ReplacedImport import_{L"kernel32.dll", "GetProcAddress", reinterpret_cast<void*>(&Address)};
};

class FolderBoxTest : public FormTest {
  protected:
    void Open() { form_.Load(nullptr); }
    [[nodiscard]] ControlProbe At(int control) const { return {form_.Handle(), control}; }

    // Drops files and folders on a control, as the shell does.
    void Drop(int control, std::initializer_list<std::wstring> paths) const {
        std::wstring names;
        for (const std::wstring& path : paths) {
            names += path + L'\0';
        }
        names += L'\0';
        const std::size_t size = names.size() * sizeof(wchar_t);
        const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + size);
        auto* header = static_cast<DROPFILES*>(GlobalLock(memory));
        header->pFiles = sizeof(DROPFILES);
        header->fWide = TRUE;
        std::memcpy(header + 1, names.data(), size);
        GlobalUnlock(memory);
        At(control).Send(WM_DROPFILES, reinterpret_cast<WPARAM>(memory));
    }

    const std::wstring folder_ =
        L"C:\\" + std::wstring(200, L'd') + L"\\" + std::wstring(100, L'e');
    const std::wstring file_ = L"C:\\Dropped file.txt";
    frmProperties form_{Context};
};

TEST_F(FolderBoxTest, TakesTheFirstFolderThatIsDroppedOnIt) {
    Files.MakeFolder(folder_);
    Files.MakeFolder(L"C:\\Another");
    Files.WriteFile(file_);
    Open();
    Drop(IDC_TXT_FOLDER_1, {file_, folder_, L"C:\\Another"});
    EXPECT_EQ(folder_, At(IDC_TXT_FOLDER_1).Text());
    EXPECT_EQ(L"C:\\My Documents", At(IDC_TXT_FOLDER_0).Text());
    Drop(IDC_TXT_FOLDER_0, {L"C:\\Another"});
    EXPECT_EQ(L"C:\\Another", At(IDC_TXT_FOLDER_0).Text());
    EXPECT_EQ(folder_, At(IDC_TXT_FOLDER_1).Text());
}

TEST_F(FolderBoxTest, TakesNoFile) {
    Files.WriteFile(file_);
    Open();
    Drop(IDC_TXT_FOLDER_0, {file_, L"C:\\missing"});
    EXPECT_EQ(L"C:\\My Documents", At(IDC_TXT_FOLDER_0).Text());
}

// Nothing is dropped on a window that does not say that it takes files.
TEST_F(FolderBoxTest, SaysThatItTakesFilesAsNoOtherControlDoes) {
    Open();
    const auto takes = [this](int control) {
        return (GetWindowLongPtrW(At(control).Handle(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES) != 0;
    };
    EXPECT_TRUE(takes(IDC_TXT_FOLDER_0));
    EXPECT_TRUE(takes(IDC_TXT_FOLDER_1));
    EXPECT_FALSE(takes(IDC_TXT_SET));
}

TEST_F(FolderBoxTest, HasTheShellCompleteTheNamesOfFolders) {
    const CompletionCounter completions(true);
    Open();
    constexpr DWORD kFolders = 0x20;
    EXPECT_EQ((std::vector<CompletionCounter::Call>{{At(IDC_TXT_FOLDER_0).Handle(), kFolders},
                                                    {At(IDC_TXT_FOLDER_1).Handle(), kFolders}}),
              completions.Calls());
}

TEST_F(FolderBoxTest, IsAnOrdinaryOneWhereTheShellCompletesNothing) {
    const CompletionCounter completions(false);
    Open();
    At(IDC_TXT_FOLDER_0).SetText(L"typed");
    EXPECT_EQ(L"typed", At(IDC_TXT_FOLDER_0).Text());
    EXPECT_TRUE(completions.Calls().empty());
}

}  // namespace
}  // namespace ambrio
