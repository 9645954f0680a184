// What is stored is shown, each value by its own control, and OK stores what is shown. Ticks have
// two values only, so each has a turn in which it alone differs from all others.

#include <array>
#include <ostream>
#include <string>

#include "config/frmConfiguration.h"
#include "config/frmProperties.h"
#include "resources/DialogIds.h"
#include "settings/SettingKeys.h"
#include "tests/unit/FormFixture.h"

namespace ambrio {
namespace {

// A check box and the keys behind it.
struct Box {
    const char* Name;
    int Control;
    const wchar_t* ReadKey;
    const wchar_t* WrittenKey;
    const wchar_t* CopyType;  // one under which the box can be ticked
};

void PrintTo(const Box& box, std::ostream* out) {
    *out << box.Name;
}

class FormRoundTripTest : public FormTest {
  protected:
    void Put(const wchar_t* section, const wchar_t* key, const std::wstring& value) {
        Store.Values[{section, key}] = value;
    }
    [[nodiscard]] std::wstring Stored(const wchar_t* section, const wchar_t* key) {
        return Store.Values[{section, key}];
    }
    static ControlProbe At(const Form& form, int control) { return {form.Handle(), control}; }
};

constexpr std::array<Box, 5> kBoxes = {{
    {"Recursive", IDC_CHK_RECURSIVE, kRecursiveKey, kRecursiveKey, kCopyTypeDateTime},
    {"OverwriteReadOnly", IDC_CHK_OVERWRITE_RO, kOverwriteReadOnlyKey, kOverwriteReadOnlyKey,
     kCopyTypeReadOnly},
    {"ClearArchive", IDC_CHK_CLEAR_ARCHIVE, kClearArchiveBitKey, kClearArchiveBitKey,
     kCopyTypeArchiveBit},
    {"DeleteCopyArchive", IDC_CHK_DELETE_COPY_ARCHIVE, kDeleteCopyArchiveKey,
     kDeleteCopyArchiveBitKey, kCopyTypeArchiveBit},
    {"DeleteCopyReadOnly", IDC_CHK_DELETE_COPY_READ_ONLY, kDeleteCopyReadOnlyKey,
     kDeleteCopyReadOnlyKey, kCopyTypeReadOnly},
}};

class PropertiesRoundTripTest : public FormRoundTripTest,
                                public testing::WithParamInterface<Box> {};

TEST_P(PropertiesRoundTripTest, KeepsEachValueApart) {
    const Box& only = GetParam();
    for (const Box& box : kBoxes) {
        Put(L"S", box.ReadKey, YesNo(box.Control == only.Control));
    }
    Put(L"S", kSourceKey, L"C:\\From");
    Put(L"S", kDestinationKey, L"D:\\To");
    Put(L"S", kCopyTypeKey, only.CopyType);
    Context.CurrentSetName = L"S";
    frmProperties form(Context);
    form.Load(nullptr);
    EXPECT_EQ(L"S", At(form, IDC_TXT_SET).Text());
    EXPECT_EQ(L"C:\\From", At(form, IDC_TXT_FOLDER_0).Text());
    EXPECT_EQ(L"D:\\To", At(form, IDC_TXT_FOLDER_1).Text());
    EXPECT_EQ(L"Set my own", At(form, IDC_LST_SCHEME).Text());
    for (const Box& box : kBoxes) {
        EXPECT_EQ(box.Control == only.Control, At(form, box.Control).IsTicked()) << box.Name;
    }
    At(form, IDOK).Click();
    for (const Box& box : kBoxes) {
        EXPECT_EQ(YesNo(box.Control == only.Control), Stored(L"S", box.WrittenKey)) << box.Name;
    }
    EXPECT_EQ(L"C:\\From", Stored(L"S", kSourceKey));
    EXPECT_EQ(L"D:\\To", Stored(L"S", kDestinationKey));
    EXPECT_EQ(only.CopyType, Stored(L"S", kCopyTypeKey));
    EXPECT_EQ(L"Set my own", Stored(L"S", kSchemeKey));
}

// The same for what the user does: each click is stored under its own key and no other.
TEST_P(PropertiesRoundTripTest, StoresEachClickUnderItsOwnKey) {
    const Box& only = GetParam();
    frmProperties form(Context);
    form.Load(nullptr);
    At(form, IDC_TXT_SET).SetText(L"S");
    At(form, IDC_CHK_RECURSIVE).Click();
    for (const auto& [option, copyType] : {std::pair(IDC_OPT_ARCHIVE, kCopyTypeArchiveBit),
                                           std::pair(IDC_OPT_READ_ONLY, kCopyTypeReadOnly)}) {
        if (std::wstring(copyType) == only.CopyType) {
            At(form, option).Click();
        }
    }
    At(form, only.Control).Click();
    At(form, IDOK).Click();
    for (const Box& box : kBoxes) {
        EXPECT_EQ(YesNo(box.Control == only.Control), Stored(L"S", box.WrittenKey)) << box.Name;
    }
    EXPECT_EQ(only.CopyType, Stored(L"S", kCopyTypeKey));
}

INSTANTIATE_TEST_SUITE_P(OfEachBox, PropertiesRoundTripTest, testing::ValuesIn(kBoxes),
                         [](const auto& box) { return std::string(box.param.Name); });

TEST_F(FormRoundTripTest, EachSchemeIsShownAndStored) {
    for (const Scheme& known : kSchemes) {
        const wchar_t* scheme = known.Name;
        Put(L"S", kSchemeKey, scheme);
        Context.CurrentSetName = L"S";
        frmProperties form(Context);
        form.Load(nullptr);
        EXPECT_EQ(scheme, At(form, IDC_LST_SCHEME).Text());
        Put(L"S", kSchemeKey, L"");
        At(form, IDOK).Click();
        EXPECT_EQ(scheme, Stored(L"S", kSchemeKey));
    }
}

TEST_F(FormRoundTripTest, TheGeneralOptionsAreKeptApart) {
    for (const wchar_t* saver : {L"Moons", L"Stars"}) {
        Files.WriteFile(GetWindowsFolder() + L"\\" + saver + L".scr");
    }
    Put(kGeneralSection, kSetsKey, L"B,A");
    Put(L"B", kSelectedKey, L"True");
    Put(L"A", kSelectedKey, L"False");
    for (const bool onlyErrors : {true, false}) {
        const std::wstring saver = onlyErrors ? L"Stars" : L"Moons";
        Put(kGeneralSection, kLogOnlyErrorsKey, YesNo(onlyErrors));
        Put(kGeneralSection, kClearLogDailyKey, YesNo(!onlyErrors));
        Put(kGeneralSection, kSecondarySaverKey, saver);
        frmConfiguration form(Context);
        form.Load(nullptr);
        EXPECT_EQ(onlyErrors, At(form, IDC_CHK_LOG_ONLY_ERRORS).IsTicked());
        EXPECT_EQ(!onlyErrors, At(form, IDC_CHK_CLEAR_LOG_DAILY).IsTicked());
        EXPECT_EQ(saver, At(form, IDC_CBO_SS).Text());
        Store.Values.clear();
        At(form, IDOK).Click();
        EXPECT_EQ(YesNo(onlyErrors), Stored(kGeneralSection, kLogOnlyErrorsKey));
        EXPECT_EQ(YesNo(!onlyErrors), Stored(kGeneralSection, kClearLogDailyKey));
        EXPECT_EQ(saver, Stored(kGeneralSection, kSecondarySaverKey));
        EXPECT_EQ(L"B,A", Stored(kGeneralSection, kSetsKey));
        EXPECT_EQ(L"True", Stored(L"B", kSelectedKey));
        EXPECT_EQ(L"False", Stored(L"A", kSelectedKey));
    }
}

}  // namespace
}  // namespace ambrio
