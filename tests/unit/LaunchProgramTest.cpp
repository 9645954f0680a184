#include "platform/win32/system/LaunchProgram.h"

#include <gtest/gtest.h>

#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/system/SystemRedirection.h"
#include "tests/support/win32/ReplacedImport.h"

namespace ambrio {
namespace {

// What the system was last asked to start. It refuses meanwhile.
class AskedOf {
  public:
    AskedOf() {
        program_.reset();
        line_.clear();
    }

    // Nothing when the system is to find the program by itself.
    [[nodiscard]] const std::optional<std::wstring>& Program() const { return program_; }
    [[nodiscard]] const std::wstring& Line() const { return line_; }
    [[nodiscard]] DWORD Flags() const { return flags_; }

  private:
    static BOOL WINAPI Create(LPCWSTR program, LPWSTR line, LPSECURITY_ATTRIBUTES,
                              LPSECURITY_ATTRIBUTES, BOOL, DWORD flags, LPVOID, LPCWSTR,
                              LPSTARTUPINFOW, LPPROCESS_INFORMATION) {
        program_ = program == nullptr ? std::nullopt : std::optional<std::wstring>(program);
        line_ = line;
        flags_ = flags;
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }

    static inline std::optional<std::wstring> program_;
    static inline std::wstring line_;
    static inline DWORD flags_ = 0;
    ReplacedImport import_{L"kernel32.dll", "CreateProcessW", reinterpret_cast<void*>(&Create)};
};

TEST(LaunchProgram, StartsAProgramOfTheSystemsFolderByItsBareName) {
    EXPECT_TRUE(LaunchProgram(L"hostname.exe", WindowState::Hidden));
}

TEST(LaunchProgram, SaysFalseWhenThereIsNoSuchProgram) {
    EXPECT_FALSE(LaunchProgram(L"No such saver.scr /S", WindowState::Hidden));
    EXPECT_FALSE(LaunchProgram(L"", WindowState::NormalFocus));
    EXPECT_FALSE(LaunchProgram(L"C:\\no such folder\\a.exe", WindowState::NormalFocus));
}

TEST(LaunchProgram, NamesTheFolderOfABareNameToTheSystemAndLeavesTheLineAlone) {
    const AskedOf asked;
    EXPECT_FALSE(LaunchProgram(L"hostname.exe /x", WindowState::Hidden));
    EXPECT_EQ(WithoutRedirection(GetSystemFolder() + L"\\hostname.exe"), asked.Program());
    EXPECT_EQ(L"hostname.exe /x", asked.Line());
    EXPECT_FALSE(LaunchProgram(L"\"C:\\a b\\c.scr\" /c", WindowState::Hidden));
    EXPECT_EQ(std::nullopt, asked.Program());
    EXPECT_EQ(L"\"C:\\a b\\c.scr\" /c", asked.Line());
}

TEST(LaunchProgram, DoesNotPassOnThisProgramsErrorMode) {
    const AskedOf asked;
    EXPECT_FALSE(LaunchProgram(L"hostname.exe", WindowState::Hidden));
    EXPECT_EQ(static_cast<DWORD>(CREATE_DEFAULT_ERROR_MODE), asked.Flags());
}

TEST(LaunchProgram, AsksTheSystemForNothingThatItDoesNotFind) {
    const AskedOf asked;
    for (const wchar_t* line : {L"No such saver.scr /S", L"System32", L""}) {
        EXPECT_FALSE(LaunchProgram(line, WindowState::Hidden));
        EXPECT_EQ(L"", asked.Line()) << line;
    }
}

}  // namespace
}  // namespace ambrio
