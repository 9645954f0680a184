#include "tests/e2e/support/RuleTest.h"

#include <utility>

#include "tests/e2e/support/Files.h"

namespace ambrio::e2e {

RuleTest::RuleTest() {
    SeeFilesAsOnWindows();
}

void RuleTest::RunAndExpect(const Counts& counts) {
    RunToTheEnd();
    EXPECT_EQ(Panel().Number(PanelControl::lblChecked), counts.Checked);
    EXPECT_EQ(Panel().Number(PanelControl::lblcopied), counts.Copied);
    EXPECT_EQ(Panel().Number(PanelControl::lblRemoved), counts.Removed);
    EndByKey();
    EXPECT_EQ(LatestBlock(), Block({L"'Documents' start", L"'Documents' complete",
                                    L"Of " + std::to_wstring(counts.Checked) + L" files checked, " +
                                        std::to_wstring(counts.Copied) + L" were copied; " +
                                        std::to_wstring(counts.Removed) + L" copies were removed."},
                                   L" completed "));
}

void RuleTest::RunAndExpectCopyFailure(const std::wstring& name, const std::wstring& summary) {
    RunToTheEnd();
    EndByKeyAndBox();
    EXPECT_EQ(LatestBlock(),
              Block({L"'Documents' start", L"Error 70 - Permission denied while copying ",
                     L"      <" + Source.PathOf(name) + L">", L"   to <" + CopyOf(name) + L">",
                     L"'Documents' complete", summary},
                    L" ended "));
}

void RuleTest::WriteRules(SetValues rules) {
    rules.Name = L"Documents";
    rules.Source = Source.Root();
    rules.Destination = Destination();
    Settings.WriteSets({std::move(rules)});
}

bool RuleTest::HasArchiveBit(const std::wstring& name) const {
    return (FileAttributesOf(Source.PathOf(name)) & kArchive) != 0;
}

void RuleTest::ClearArchiveBit(const std::wstring& name) const {
    const std::wstring path = Source.PathOf(name);
    SetFileAttributesOf(path, FileAttributesOf(path) & ~kArchive);
}

}  // namespace ambrio::e2e
