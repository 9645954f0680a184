#include "tests/support/WatchedRun.h"

#include "ProductVersion.h"
#include "platform/GeneralDate.h"

namespace ambrio {
namespace {

ModelNode NodeOf(const MemoryNode& node) {
    ModelNode read{node.Name, node.IsFolder()};
    if (!read.IsFolder) {
        read.Content = node.Content();
        read.Attributes = node.Attributes;
        read.Time = node.DateLastModified;
    }
    for (const auto& [order, child] : node.ByOrder()) {
        read.Children.push_back(NodeOf(*child));
    }
    return read;
}

ModelDisk DiskOf(EngineBench& bench) {
    return ModelDisk(NodeOf(bench.Files.Node(L"C:\\")).Children);
}

ModelCaptions CaptionsOf(const RecordingPanel& panel) {
    ModelCaptions captions;
    for (const auto& [label, caption] : panel.Captions) {
        captions[RecordingPanel::NameOf(label)] = caption;
    }
    return captions;
}

// The events of a panel that change what it shows.
std::vector<std::wstring> Changes(const std::vector<std::wstring>& events, ModelCaptions captions) {
    std::vector<std::wstring> changes;
    for (const std::wstring& event : events) {
        const std::size_t equals = event.find(L'=');
        const auto shown = captions.find(event.substr(0, equals));
        if (shown != captions.end()) {
            const std::wstring caption = event.substr(equals + 1);
            if (shown->second == caption) {
                continue;
            }
            shown->second = caption;
        }
        changes.push_back(event);
    }
    return changes;
}

}  // namespace

WatchedRun::WatchedRun(EngineBench& bench) : bench_(bench) {
    bench.Panel.Events.clear();
    bench.Host.Actions.clear();
    world_.Settings = bench.Settings.Values;
    world_.Disk = DiskOf(bench);
    world_.Captions = CaptionsOf(bench.Panel);
    world_.Version =
        std::to_wstring(AMBRIO_VERSION_MAJOR) + L"." + std::to_wstring(AMBRIO_VERSION_MINOR);
    world_.ProgramFolder = bench.App.ProgramFolder;
    world_.LocalDataFolder = bench.App.LocalDataFolder;
    world_.Now = bench.Files.Now;
    world_.NowText = GeneralDateText(bench.Time.Time);
    world_.Interrupted = bench.Signals.Interrupted;
}

RunOutcome WatchedRun::Outcome() const {
    const RunState& state = bench_.State;
    RunOutcome outcome;
    outcome.FilesChecked = state.FilesChecked;
    outcome.FilesCopied = state.FilesCopied;
    outcome.CopyErrors = state.CopyErrors;
    outcome.CopiesRemoved = state.CopiesRemoved;
    outcome.RemoveErrors = state.RemoveErrors;
    outcome.FolderErrors = state.FolderErrors;
    outcome.Interrupted = bench_.Signals.Interrupted;
    outcome.FatalErrorText = state.FatalErrorText;
    outcome.FailureSummary = bench_.FailureSummary;
    outcome.Captions = CaptionsOf(bench_.Panel);
    outcome.Display = Changes(bench_.Panel.Events, world_.Captions);
    outcome.Actions = bench_.Host.Actions;
    outcome.Settings = bench_.Settings.Values;
    outcome.Disk = DiskOf(bench_).Facts();
    return outcome;
}

std::string WatchedRun::Trouble(const FaultPlan& fails) const {
    std::string trouble = Differences(Outcome(), Foretell(world_, fails));
    if (bench_.Files.OpenHandles() != 0 || bench_.Signals.CopyInProgress) {
        trouble += "something is still open\n";
    }
    return trouble;
}

}  // namespace ambrio
