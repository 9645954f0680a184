#pragma once

#include <string>

#include "tests/e2e/support/SaverTest.h"

namespace ambrio::e2e {

// A test of the copy rules that look at attributes: one Set, run as often as the test likes, on
// files as Windows shows them.
class RuleTest : public SaverTest {
  protected:
    RuleTest();

    // What the log says of a run without failures over the Set "Documents".
    struct Counts {
        int Checked = 0;
        int Copied = 0;
        int Removed = 0;
    };
    // Runs the saver to its end, which must log these counts and no failure.
    void RunAndExpect(const Counts& counts);
    // Runs the saver to its end, which must log that `name` could not be copied, with the number of
    // a refusal, and the line that `summary` is.
    void RunAndExpectCopyFailure(const std::wstring& name, const std::wstring& summary);

    // Writes the one Set; source and destination are filled in.
    void WriteRules(SetValues rules);

    [[nodiscard]] std::wstring CopyOf(const std::wstring& name) const {
        return Destination() + L"\\" + name;
    }
    // True when the source file of that name is marked as changed since it was last backed up.
    [[nodiscard]] bool HasArchiveBit(const std::wstring& name) const;
    // Marks the source file of that name as backed up, as another backup program does.
    void ClearArchiveBit(const std::wstring& name) const;
};

}  // namespace ambrio::e2e
