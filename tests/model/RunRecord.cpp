#include "tests/model/RunRecord.h"

namespace ambrio {

std::wstring ErrorText(ErrorNumber number) {
    return L"Error " + std::to_wstring(static_cast<int>(number)) + L" - " + DescriptionOf(number);
}

std::wstring PathText(const std::wstring& path) {
    return L"\r\n      <" + path + L">";
}

std::wstring BothPathsText(const std::wstring& source, const std::wstring& copy) {
    return PathText(source) + L"\r\n   to <" + copy + L">";
}

RunRecord::RunRecord(const ModelWorld& world, const FaultPlan& fails)
    : World(world), Disk(world.Disk), fails_(fails) {
    Out.Captions = world.Captions;
    Out.Settings = world.Settings;
    Out.Interrupted = world.Interrupted;
}

std::wstring RunRecord::Setting(const std::wstring& section, const std::wstring& key,
                                const std::wstring& fallback) const {
    const auto value = World.Settings.find({section, key});
    return value == World.Settings.end() ? fallback : value->second;
}

void RunRecord::Show(const std::wstring& label, const std::wstring& caption) {
    std::wstring& shown = Out.Captions[label];
    if (shown != caption) {
        shown = caption;
        ChangeDisplay(label + L"=" + caption);
    }
}

// A log of before may be read-only, as whoever may write to everything has left it.
bool RunRecord::MayBeWritten(const std::wstring& log) const {
    const ModelNode* old = Disk.File(log);
    return old == nullptr ? Disk.Folder(log) == nullptr
                          : (old->Attributes & kAttributeReadOnly) == 0;
}

const std::wstring& RunRecord::LogFile() {
    if (logFile_.empty()) {
        const std::wstring beside = PathBelow(World.ProgramFolder, L"Ambrio.log");
        if (!Fails(Stage::TryLogFolder, World.ProgramFolder) && MayBeWritten(beside)) {
            logFile_ = beside;
        } else {
            const std::wstring folder = PathBelow(World.LocalDataFolder, L"Ambrio");
            Disk.MakeFolder(folder);
            logFile_ = PathBelow(folder, L"Ambrio.log");
        }
    }
    return logFile_;
}

void RunRecord::Log(const std::wstring& text, bool keepOpen) {
    const std::wstring& path = LogFile();
    const bool endsBlock = isLogOpen_ && !keepOpen;
    try {
        if (!isLogOpen_) {
            const auto fault = Fails(Stage::OpenLog, path);
            if (const auto result = fault ? fault : Disk.Open(path, World.Now)) {
                throw ModelFailure{*result};
            }
        }
        if (!hasHeader_) {
            WriteLine(L"~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~");
            WriteLine(L"Ambrio start " + World.NowText);
            hasHeader_ = true;
        }
        WriteLine(text);
        if (const auto fault = endsBlock ? Fails(Stage::FlushLog, path) : std::nullopt) {
            throw ModelFailure{*fault};
        }
        isLogOpen_ = keepOpen;
    } catch (const ModelFailure& failure) {
        isLogOpen_ = false;
        throw LogTrouble{ErrorText(failure.Number) + L" while writing " + PathText(path),
                         failure.Number == ErrorNumber::PermissionDenied};
    }
}

void RunRecord::WriteLine(const std::wstring& text) {
    if (const auto fault = Fails(Stage::WriteLogLine, logFile_)) {
        throw ModelFailure{*fault};
    }
    Disk.Append(logFile_, std::string(text.begin(), text.end()) + "\r\n", World.Now);
}

void RunRecord::DeleteLog() {
    const std::wstring& path = LogFile();
    if (Fails(Stage::TestOldLog, path) || Disk.File(path) == nullptr) {
        return;
    }
    const auto fault = Fails(Stage::DeleteOldLog, path);
    if (const auto result = fault ? fault : Disk.Remove(path, false)) {
        throw LogTrouble{ErrorText(*result) + L" while deleting " + PathText(path),
                         *result == ErrorNumber::PermissionDenied};
    }
}

void RunRecord::AddFatalError(const std::wstring& text) {
    std::wstring& all = Out.FatalErrorText;
    if (all.find(text) == std::wstring::npos) {
        all += (all.empty() ? L"" : L"\r\n") + text;
    }
}

}  // namespace ambrio
