// What the built program says of itself to the system, to installers and to its user: read from the
// file, for both of its sizes.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ProductVersion.h"
#include "tests/e2e/support/ExecutableFile.h"
#include "tests/e2e/support/Files.h"
#include "tests/e2e/support/Text.h"

namespace ambrio::e2e {
namespace {

struct ModuleCloser {
    using pointer = HMODULE;
    void operator()(HMODULE module) const { FreeLibrary(module); }
};

class ProgramFileTest : public testing::TestWithParam<const wchar_t*> {
  protected:
    void SetUp() override {
        if (!FileExists(Path)) {
            GTEST_SKIP() << "this program was not built";
        }
        file_.reset(LoadLibraryExW(Path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE));
        ASSERT_NE(nullptr, file_.get()) << GetLastError();
    }

    [[nodiscard]] HMODULE File() const { return file_.get(); }
    [[nodiscard]] std::string Manifest() const {
        const HRSRC found = FindResourceW(File(), MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24));
        const HGLOBAL loaded = found != nullptr ? LoadResource(File(), found) : nullptr;
        const void* text = loaded != nullptr ? LockResource(loaded) : nullptr;
        return text == nullptr
                   ? std::string()
                   : std::string(static_cast<const char*>(text), SizeofResource(File(), found));
    }

    const std::wstring Path = TestProgramFolder() + L"\\" + GetParam();

  private:
    std::unique_ptr<HMODULE, ModuleCloser> file_;
};

// The version information as the properties of a file show it.
class VersionInformation {
  public:
    explicit VersionInformation(const std::wstring& path)
        : bytes_(GetFileVersionInfoSizeW(path.c_str(), nullptr)) {
        EXPECT_NE(0, GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(bytes_.size()),
                                         bytes_.data()));
    }
    [[nodiscard]] std::wstring Text(const std::wstring& name) const {
        void* text = nullptr;
        UINT length = 0;
        const std::wstring block = L"\\StringFileInfo\\040904B0\\" + name;
        return VerQueryValueW(bytes_.data(), block.c_str(), &text, &length) != 0 && length > 0
                   ? std::wstring(static_cast<const wchar_t*>(text), length - 1)
                   : std::wstring();
    }
    [[nodiscard]] VS_FIXEDFILEINFO Fixed() const {
        void* fixed = nullptr;
        UINT length = 0;
        return VerQueryValueW(bytes_.data(), L"\\", &fixed, &length) != 0
                   ? *static_cast<const VS_FIXEDFILEINFO*>(fixed)
                   : VS_FIXEDFILEINFO{};
    }

  private:
    std::vector<char> bytes_;
};

TEST_P(ProgramFileTest, TellsItsNameVersionAndMaker) {
    const VersionInformation information(Path);
    const std::wstring version = std::to_wstring(AMBRIO_VERSION_MAJOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_MINOR) + L"." +
                                 std::to_wstring(AMBRIO_VERSION_REVISION);
    EXPECT_EQ(information.Text(L"ProductName"), L"Ambrio");
    EXPECT_EQ(information.Text(L"ProductVersion"), version);
    EXPECT_EQ(information.Text(L"FileVersion"), version);
    EXPECT_EQ(information.Text(L"OriginalFilename"), L"Ambrio.scr");
    EXPECT_EQ(information.Text(L"CompanyName"), L"The Ambrio authors");
    EXPECT_EQ(information.Text(L"LegalCopyright"), L"Copyright \u00A9 2026 The Ambrio authors");
    EXPECT_NE(information.Text(L"FileDescription").find(L"screen saver"), std::wstring::npos);
    constexpr DWORD kMajorAndMinor = MAKELONG(AMBRIO_VERSION_MINOR, AMBRIO_VERSION_MAJOR);
    constexpr DWORD kRevision = MAKELONG(0, AMBRIO_VERSION_REVISION);
    EXPECT_EQ(information.Fixed().dwFileVersionMS, kMajorAndMinor);
    EXPECT_EQ(information.Fixed().dwFileVersionLS, kRevision);
    EXPECT_EQ(information.Fixed().dwProductVersionMS, kMajorAndMinor);
    EXPECT_EQ(information.Fixed().dwProductVersionLS, kRevision);
}

TEST_P(ProgramFileTest, IsListedAmongTheSaversByItsName) {
    wchar_t name[100] = L"";
    EXPECT_GT(LoadStringW(File(), 1, name, 100), 0);
    EXPECT_EQ(std::wstring(name), L"Ambrio");
}

TEST_P(ProgramFileTest, AsksForWindows7OrLater) {
    const ExecutableFile file(Path);
    EXPECT_EQ(file.SystemMajor(), 6);
    EXPECT_EQ(file.SystemMinor(), 1);
}

TEST_P(ProgramFileTest, HasAManifestThatTheSystemAccepts) {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.lpSource = Path.c_str();
    wanted.lpResourceName = MAKEINTRESOURCEW(1);
    const HANDLE context = CreateActCtxW(&wanted);
    ASSERT_NE(INVALID_HANDLE_VALUE, context) << GetLastError();
    ReleaseActCtx(context);
}

TEST_P(ProgramFileTest, AsksForNoRightsAndForWhatNewSystemsGive) {
    const std::string manifest = Manifest();
    const std::string version = std::to_string(AMBRIO_VERSION_MAJOR) + "." +
                                std::to_string(AMBRIO_VERSION_MINOR) + "." +
                                std::to_string(AMBRIO_VERSION_REVISION) + ".0";
    for (const std::string& part : {
             std::string("name=\"Ambrio\" version=\"" + version + "\""),
             std::string("level=\"asInvoker\" uiAccess=\"false\""),
             std::string("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""),
             std::string(">true</dpiAware>"),
             std::string(">PerMonitorV2, system</dpiAwareness>"),
             std::string(">true</longPathAware>"),
             // Windows 7, 8, 8.1, 10 and 11.
             std::string("supportedOS Id=\"{35138b9a-5d96-4fbd-8e2d-a2440225f93a}\""),
             std::string("supportedOS Id=\"{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}\""),
             std::string("supportedOS Id=\"{1f676c76-80e1-4239-95bb-83d0f6d0da78}\""),
             std::string("supportedOS Id=\"{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}\""),
         }) {
        EXPECT_NE(manifest.find(part), std::string::npos) << part;
    }
}

INSTANTIATE_TEST_SUITE_P(OfBothSizes, ProgramFileTest,
                         testing::Values(L"Ambrio.scr", L"Ambrio64.scr"),
                         [](const auto& file) { return "File" + std::to_string(file.index); });

}  // namespace
}  // namespace ambrio::e2e
