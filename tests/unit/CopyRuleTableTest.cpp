#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "CopyRuleTable.h"
#include "settings/SettingKeys.h"
#include "tests/support/EngineBench.h"

namespace ambrio {
namespace {

constexpr FileSeconds kSourceTime = 13'400'000'000;
constexpr std::size_t kConditions = 8;
constexpr std::size_t kColumns = 11;
using Cells = std::vector<std::string>;

enum Column { kType, kArchive, kReadOnly, kCopy, kCopyReadOnly, kClear, kDelete, kOverwrite };
enum Result { kOutcome = kConditions, kCopyBit, kArchiveBit };

// Every value of each condition.
const std::array<Cells, kConditions> kValues = {{{"ArchiveBit", "ReadOnly", "Date/Time", "other"},
                                                 {"yes", "no"},
                                                 {"yes", "no"},
                                                 {"none", "older", "same", "newer"},
                                                 {"yes", "no"},
                                                 {"yes", "no"},
                                                 {"yes", "no"},
                                                 {"yes", "no"}}};

std::vector<Cells> Rows() {
    std::vector<Cells> rows;
    std::istringstream text(kCopyRuleTable);
    bool isInTable = false;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("---")) {
            isInTable = !isInTable;
            continue;
        }
        std::istringstream words(line);
        Cells cells;
        for (std::string word; words >> word;) {
            cells.push_back(word);
        }
        if (isInTable && !cells.empty()) {
            rows.push_back(cells);
        }
    }
    return rows;
}

bool CellHolds(const std::string& cell, const std::string& value) {
    return cell == "any" || ("|" + cell + "|").find("|" + value + "|") != std::string::npos;
}

bool Covers(const Cells& row, const Cells& combination) {
    return std::equal(
        combination.begin(), combination.end(), row.begin(),
        [](const std::string& value, const std::string& cell) { return CellHolds(cell, value); });
}

std::vector<Cells> Combinations() {
    std::vector<Cells> all = {{}};
    for (const Cells& values : kValues) {
        std::vector<Cells> longer;
        for (const Cells& start : all) {
            for (const std::string& value : values) {
                longer.push_back(start);
                longer.back().push_back(value);
            }
        }
        all = longer;
    }
    return all;
}

std::string Joined(const Cells& cells) {
    std::string text;
    for (const std::string& cell : cells) {
        text += cell + " ";
    }
    return text;
}

// One file, its copy and the Set as a combination describes them; then a run.
class Trial {
  public:
    Trial(const Cells& combination, const std::string& otherType) {
        const auto is = [&](Column column) { return combination[column] == "yes"; };
        const auto flag = [&](const wchar_t* key, Column column) {
            bench_.Set(L"S", key, YesNo(is(column)));
        };
        bench_.AddSet(L"S", L"C:\\From", L"C:\\To");
        const std::string type = combination[kType] == "other" ? otherType : combination[kType];
        bench_.Set(L"S", kCopyTypeKey, std::wstring(type.begin(), type.end()));
        flag(kClearArchiveBitKey, kClear);
        flag(kDeleteCopyArchiveBitKey, kDelete);
        flag(kDeleteCopyReadOnlyKey, kDelete);
        flag(kOverwriteReadOnlyKey, kOverwrite);
        source_ = kAttributeHidden | (is(kArchive) ? kAttributeArchive : 0) |
                  (is(kReadOnly) ? kAttributeReadOnly : 0);
        bench_.Files.WriteFile(From(), "new", source_, kSourceTime);
        if (combination[kCopy] != "none") {
            const int age = combination[kCopy] == "older" ? -1 : combination[kCopy] == "newer";
            copy_ = is(kCopyReadOnly) ? kAttributeReadOnly : 0;
            bench_.Files.WriteFile(To(), "old", copy_, kSourceTime + age);
        }
        bench_.Run();
    }

    void ExpectOutcome(const std::string& outcome) {
        const bool isCopied = outcome == "copied";
        const bool isFailed = outcome == "failed";
        const bool isRemoved = outcome == "removed";
        EXPECT_TRUE(isCopied || isFailed || isRemoved || outcome == "nothing");
        const RunState& state = bench_.State;
        EXPECT_EQ(state.FilesChecked, 1);
        EXPECT_EQ(state.FilesCopied, isCopied || isFailed ? 1 : 0);
        EXPECT_EQ(state.CopyErrors, isFailed ? 1 : 0);
        EXPECT_EQ(state.CopiesRemoved, isRemoved ? 1 : 0);
        EXPECT_EQ(state.RemoveErrors + state.FolderErrors, 0);
        EXPECT_FALSE(bench_.Signals.Interrupted);
        EXPECT_EQ(bench_.Files.Content(From()), "new");
        if (bench_.Files.FileExists(To())) {
            EXPECT_EQ(bench_.Files.Content(To()), isCopied ? "new" : "old");
        }
    }

    void ExpectCopyBit(const std::string& copyBit) {
        ASSERT_EQ(bench_.Files.FileExists(To()), copyBit != "-");
        if (copyBit == "-") {
            return;
        }
        const FileAttributes expected =
            copyBit == "kept" ? copy_ : (copyBit == "source" ? source_ : 0);
        EXPECT_TRUE(copyBit == "kept" || copyBit == "source" || copyBit == "cleared");
        EXPECT_EQ(bench_.Files.Node(To()).Attributes & kAttributeReadOnly,
                  expected & kAttributeReadOnly);
    }

    // All other bits of the source stay in any case.
    void ExpectArchiveBit(const std::string& archiveBit) {
        EXPECT_TRUE(archiveBit == "kept" || archiveBit == "cleared");
        EXPECT_EQ(bench_.Files.Node(From()).Attributes,
                  archiveBit == "kept" ? source_ : source_ & ~kAttributeArchive);
    }

  private:
    static std::wstring From() { return L"C:\\From\\file.txt"; }
    static std::wstring To() { return L"C:\\To\\file.txt"; }

    EngineBench bench_;
    FileAttributes source_ = 0;
    FileAttributes copy_ = 0;
};

TEST(CopyRuleTable, EveryRowIsWellFormed) {
    const std::vector<Cells> rows = Rows();
    ASSERT_FALSE(rows.empty());
    for (const Cells& row : rows) {
        EXPECT_EQ(row.size(), kColumns) << Joined(row);
    }
}

TEST(CopyRuleTable, HoldsForEveryCombination) {
    const std::vector<Cells> rows = Rows();
    for (const Cells& combination : Combinations()) {
        const auto covers = [&](const Cells& row) { return Covers(row, combination); };
        SCOPED_TRACE("combination " + Joined(combination));
        ASSERT_EQ(std::count_if(rows.begin(), rows.end(), covers), 1);
        const Cells& row = *std::find_if(rows.begin(), rows.end(), covers);
        SCOPED_TRACE("row " + Joined(row));
        const Cells otherTypes =
            combination[kType] == "other" ? Cells{"", "archivebit", "X"} : Cells{""};
        for (const std::string& otherType : otherTypes) {
            Trial trial(combination, otherType);
            trial.ExpectOutcome(row[kOutcome]);
            trial.ExpectCopyBit(row[kCopyBit]);
            trial.ExpectArchiveBit(row[kArchiveBit]);
        }
    }
}

}  // namespace
}  // namespace ambrio
