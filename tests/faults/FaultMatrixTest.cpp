#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"
#include "tests/faults/FaultScene.h"
#include "tests/faults/FaultStage.h"
#include "tests/support/ForwardingSettingsStore.h"
#include "tests/support/WatchedRun.h"

namespace ambrio {
namespace {

struct ErrorClass {
    const char* Name;
    std::uint32_t Win32Code;
};

constexpr std::array<ErrorClass, 10> kErrorClasses{{
    {"not found", 2},
    {"no path", 3},
    {"denied", 5},
    {"shared", 32},
    {"disk full", 112},
    {"not ready", 21},
    {"net gone", 64},
    {"bad name", 123},
    {"too long", 206},
    {"unknown", 31},
}};

// Fails one call, the how-manyth of its stage, and keeps what it was; counts the calls of each
// stage.
class FaultyServices : public ObservedFileSystem, public ForwardingSettingsStore {
  public:
    FaultyServices(EngineBench& bench, FileSystem& files, Stage stage, int occurrence,
                   ErrorNumber number)
        : ObservedFileSystem(files), ForwardingSettingsStore(bench.Settings) {
        fault_.At = stage;
        fault_.Occurrence = occurrence;
        fault_.Number = number;
    }

    bool Before(const FileCall& call) override {
        // One look at a copy can overlook it as well as fail.
        if (call.Operation == FileOperation::FindFile &&
            IsTheOne(Stage::TestCopyToReplace, call.Path)) {
            return false;
        }
        const Stage stage = finder_.StageOf(call);
        if (!IsTheOne(stage, call.Path)) {
            return true;
        }
        switch (call.Operation) {
            case FileOperation::FileExists:
            case FileOperation::FolderExists:
            case FileOperation::IdentityOf:
            case FileOperation::IsWritableFolder:
            case FileOperation::MayFollow:
                return false;
            default:
                throw RuntimeError(fault_.Number);
        }
    }
    void SaveSetting(const std::wstring& section, const std::wstring& key,
                     const std::wstring& value) override {
        if (IsTheOne(Stage::SaveLastRun, key)) {
            throw RuntimeError(fault_.Number);
        }
        ForwardingSettingsStore::SaveSetting(section, key, value);
    }

    [[nodiscard]] const std::map<Stage, int>& Calls() const { return calls_; }
    [[nodiscard]] bool HasFailed() const { return hasFailed_; }
    [[nodiscard]] const StageFault& Fault() const { return fault_; }

  private:
    bool IsTheOne(Stage stage, const std::wstring& path) {
        const int callsBefore = callsWith_[{stage, path}]++;
        if (++calls_[stage] != fault_.Occurrence || stage != fault_.At) {
            return false;
        }
        fault_.Path = path;
        fault_.CallsBefore = callsBefore;
        hasFailed_ = true;
        return true;
    }

    StageFinder finder_;
    StageFault fault_;
    bool hasFailed_ = false;
    std::map<Stage, int> calls_;
    std::map<std::pair<Stage, std::wstring>, int> callsWith_;
};

// True when a run with this fault is exactly what it must be, and leaves nothing open.
bool CellPasses(Stage stage, int occurrence, const ErrorClass& error, bool ahead) {
    FaultScene scene;
    FaultyServices services(scene.Bench, ahead ? scene.Bench.FilesAhead() : scene.Bench.Files,
                            stage, occurrence, NumberOfWin32Code(error.Win32Code));
    const WatchedRun run(scene.Bench);
    scene.Bench.Run(services, services);
    std::string trouble = run.Trouble(PlanOf(services.Fault()));
    if (!services.HasFailed()) {
        trouble += "the call was not made\n";
    }
    if (!trouble.empty()) {
        ADD_FAILURE() << NameOf(stage) << ", call " << occurrence << ", " << error.Name
                      << (ahead ? ", with copies made ahead:\n" : ":\n") << trouble;
    }
    return trouble.empty();
}

std::string Cell(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return "| " + text + " ";
}

// The calls of each stage in a run without a fault.
std::map<Stage, int> CallsOfAWholeRun() {
    FaultScene scene;
    FaultyServices services(scene.Bench, scene.Bench.Files, Stage::End, 0,
                            ErrorNumber::PermissionDenied);
    scene.Bench.Run(services, services);
    return services.Calls();
}

int CountOf(Plan plan) {
    return static_cast<int>(
        std::count_if(kPlannedFiles.begin(), kPlannedFiles.end(),
                      [&](const PlannedFile& file) { return file.What == plan; }));
}

TEST(FaultMatrix, TheRunWithoutAFaultIsAsPlanned) {
    FaultScene scene;
    const WatchedRun run(scene.Bench);
    scene.Bench.Run();
    EXPECT_EQ(run.Trouble(NoFaults()), "");
    const RunState& state = scene.Bench.State;
    EXPECT_FALSE(state.HasFailures());
    EXPECT_EQ(state.FilesChecked, static_cast<int>(kPlannedFiles.size()));
    EXPECT_EQ(state.CopiesRemoved, CountOf(Plan::RemoveCopy) + CountOf(Plan::RemoveReadOnlyCopy));
    EXPECT_EQ(state.FilesCopied, state.FilesChecked - state.CopiesRemoved - CountOf(Plan::Leave));
}

// Every stage of a run, each class of error, at the first, a middle and the last call, and all that
// again with copies made ahead. The table shows passed cells of all cells.
TEST(FaultMatrix, EveryFaultHasExactlyItsConsequences) {
    const std::map<Stage, int> calls = CallsOfAWholeRun();
    int all = 0;
    int passed = 0;
    std::string table = Cell("faults with just their consequences", 37);
    for (const ErrorClass& error : kErrorClasses) {
        table += Cell(error.Name, 9);
    }
    for (int i = 0; i < static_cast<int>(Stage::End); ++i) {
        const auto stage = static_cast<Stage>(i);
        const auto count = calls.find(stage);
        ASSERT_NE(count, calls.end()) << NameOf(stage);
        const std::set<int> occurrences = {1, (count->second + 1) / 2, count->second};
        table += "|\n" + Cell(NameOf(stage), 37);
        for (const ErrorClass& error : kErrorClasses) {
            const auto good =
                std::count_if(occurrences.begin(), occurrences.end(), [&](int occurrence) {
                    return CellPasses(stage, occurrence, error, false) &&
                           CellPasses(stage, occurrence, error, true);
                });
            table += Cell(std::to_string(good) + "/" + std::to_string(occurrences.size()), 9);
            all += static_cast<int>(occurrences.size());
            passed += static_cast<int>(good);
        }
    }
    std::printf("%s|\n| %d of %d cells passed\n", table.c_str(), passed, all);
    EXPECT_EQ(passed, all);
}

// What cannot be read of the settings counts as missing, so a run in which the store withholds a
// value is the run of a store that never had it.
TEST(FaultMatrix, ASettingThatCannotBeReadCountsAsMissing) {
    FaultScene whole;
    whole.Bench.Run();
    const auto reads = whole.Bench.Settings.Reads;
    ASSERT_GT(reads.size(), 20U);
    for (const auto& address : reads) {
        class Withholding : public ForwardingSettingsStore {
          public:
            Withholding(SettingsStore& target, MemorySettingsStore::Address address)
                : ForwardingSettingsStore(target), address_(std::move(address)) {}
            std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                                    const std::wstring& fallback) override {
                return std::pair(section, key) == address_
                           ? fallback
                           : ForwardingSettingsStore::GetSetting(section, key, fallback);
            }

          private:
            MemorySettingsStore::Address address_;
        };
        FaultScene scene;
        Withholding settings(scene.Bench.Settings, address);
        WatchedRun run(scene.Bench);
        scene.Bench.Run(scene.Bench.Files, settings);
        run.World().Settings.erase(address);
        RunOutcome outcome = run.Outcome();
        RunOutcome foretold = Foretell(run.World(), NoFaults());
        outcome.Settings.erase(address);
        foretold.Settings.erase(address);
        EXPECT_EQ(Differences(outcome, foretold), "") << testing::PrintToString(address);
    }
}

}  // namespace
}  // namespace ambrio
