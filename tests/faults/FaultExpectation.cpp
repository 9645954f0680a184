#include "tests/faults/FaultExpectation.h"

#include <algorithm>
#include <vector>

namespace ambrio {
namespace {

constexpr const wchar_t* kNow = L"11/21/2026 3:49:46 PM";
constexpr const wchar_t* kSeparator = L"~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~";
constexpr const wchar_t* kOtherLog = L"C:\\Users\\me\\Local\\Ambrio\\Ambrio.log";

std::wstring ErrorText(ErrorNumber number) {
    return L"Error " + std::to_wstring(static_cast<int>(number)) + L" - " + DescriptionOf(number);
}

std::wstring PathText(const std::wstring& path) {
    return L"\r\n      <" + path + L">";
}

std::wstring BothPaths(const PlannedFile& file) {
    return PathText(file.Source()) + L"\r\n   to <" + file.Copy() + L">";
}

// Ends the Sets; the text goes into the log and into a box.
struct Fatal {
    std::wstring Text;
};

// The run as its users know it, step by step.
class Story {
  public:
    explicit Story(const StageFault& fault) : fault_(fault) {
        for (const PlannedFile& file : kPlannedFiles) {
            out_.Sources[file.Source()] = Facts(NewContent(file), SourceAttributes(file));
            if (file.What == Plan::Leave) {
                out_.Copies[file.Copy()] = Facts(NewContent(file), 0);
            } else if (file.What != Plan::CopyNew) {
                out_.Copies[file.Copy()] = Facts(kOldContent, CopyAttributes(file));
            }
        }
        for (const wchar_t* set : {L"B", L"C"}) {
            for (const wchar_t* folder : kFoldersOfASet) {
                out_.Leftovers.insert(LeftoverIn(std::wstring(set) + folder));
            }
        }
        using enum PanelLabel;
        out_.Captions = {{lblSet, L"-"},     {lblSource, L"-"},        {lblDest, L"-"},
                         {lblFile, L"-"},    {lblChecked, L"0"},       {lblcopied, L"0"},
                         {lblRemoved, L"0"}, {lblfsoStatus, L"Label3"}};
    }

    RunOutcome Tell() {
        try {
            Prepare();
            RunSets();
        } catch (const Fatal& fatal) {
            out_.State.FatalErrorText = fatal.Text;
            out_.Interrupted = true;
            Log(fatal.Text);
        }
        std::wstring endWord = EndLog();
        HandOver(endWord);
        return out_;
    }

  private:
    [[nodiscard]] bool Meets(Stage stage, const std::wstring& path) const {
        return fault_.Is(stage, path);
    }
    [[nodiscard]] std::wstring LogFile() const {
        return out_.LogIsElsewhere ? kOtherLog : EngineBench::LogFile();
    }

    // The log, as it grows.
    void FailLog(Stage stage, int& count, const wchar_t* action) {
        ++count;
        if (fault_.At == stage && fault_.Occurrence == count) {
            isOpen_ = false;
            throw Fatal{ErrorText(fault_.Number) + action + PathText(LogFile())};
        }
    }
    void WriteLine(const std::wstring& text) {
        FailLog(Stage::WriteLogLine, linesWritten_, L" while writing ");
        std::size_t start = 0;
        for (std::size_t end = 0; end != std::wstring::npos; start = end + 2) {
            end = text.find(L"\r\n", start);
            out_.Log.push_back(text.substr(start, end == std::wstring::npos ? end : end - start));
        }
    }
    void Log(const std::wstring& text, bool keepOpen = false) {
        if (!isOpen_) {
            FailLog(Stage::OpenLog, timesOpened_, L" while writing ");
            isOpen_ = true;
        }
        if (!hasHeader_) {
            WriteLine(kSeparator);
            WriteLine(std::wstring(L"Ambrio start ") + kNow);
            hasHeader_ = true;
        }
        WriteLine(text);
        isOpen_ = keepOpen;
    }

    void Prepare() {
        out_.LogIsElsewhere = fault_.At == Stage::TryLogFolder;
        const bool keepsOldLog = fault_.At == Stage::SaveLastRun ||
                                 fault_.At == Stage::TestOldLog || fault_.At == Stage::DeleteOldLog;
        if (keepsOldLog) {
            out_.Log = {L"yesterday"};
        }
        if (fault_.At == Stage::SaveLastRun) {
            throw Fatal{ErrorText(fault_.Number)};
        }
        if (fault_.At == Stage::DeleteOldLog) {
            throw Fatal{ErrorText(fault_.Number) + L" while deleting " + PathText(LogFile())};
        }
    }

    void RunSets() {
        using enum PanelLabel;
        for (const std::wstring set : kFaultSets) {
            out_.Captions[lblSet] = set;
            Log(L"'" + set + L"' start");
            WalkFolder(set);
            Log(L"'" + set + L"' complete");
            out_.Captions[lblSet] = out_.Captions[lblSource] = out_.Captions[lblDest] = L"";
            if (out_.Interrupted && set != kFaultSets.back()) {
                return;
            }
        }
        out_.Captions[lblSet] = L"<All sets processed>";
        if (out_.State.HasFailures()) {
            out_.Captions[lblSet] += L"<ERRORS reported>\r\nsee " + LogFile();
        }
        out_.Captions[lblFile] = L"";
    }

    void FailFolder(const std::wstring& entry) {
        ++out_.State.FolderErrors;
        Log(entry);
    }
    void FailFolder(ErrorNumber number, const wchar_t* action, const std::wstring& folder) {
        FailFolder(ErrorText(number) + L" while " + action + L" folder " + PathText(folder));
    }

    void WalkFolder(const std::wstring& folder) {
        using enum PanelLabel;
        const std::wstring source = SourceFolder(folder);
        out_.Captions[lblSource] = source;
        out_.Captions[lblDest] = CopyFolder(folder);
        out_.Captions[lblFile] = L"";
        if (Meets(Stage::TestSourceFolder, source)) {
            FailFolder(L"Error <" + source + L"> does not exist.");
            return;
        }
        if (!MakeDestination(folder)) {
            return;
        }
        out_.Captions[lblfsoStatus] = L"";
        if (Meets(Stage::ListSource, source)) {
            FailFolder(fault_.Number, L"accessing", source);
            return;
        }
        SweepLeftover(folder);
        const bool breaksOff = Meets(Stage::WalkSource, source);
        if (!HandOverFiles(folder, breaksOff ? fault_.CallsBefore : 2)) {
            return;
        }
        if (breaksOff) {
            FailFolder(fault_.Number, L"accessing", source);
            return;
        }
        out_.Captions[lblFile] = L"";
        if (folder.size() == 1) {
            WalkFolder(folder + L"\\s1");
            WalkFolder(folder + L"\\s2");
        }
    }

    bool MakeDestination(const std::wstring& folder) {
        const std::wstring destination = CopyFolder(folder);
        const bool isNew = folder[0] == L'A';
        if (Meets(Stage::TestDestinationFolder, destination)) {
            if (isNew && fault_.CallsBefore == 0) {
                return true;  // and so it was
            }
            FailFolder(isNew ? ErrorNumber::PathFileAccessError : ErrorNumber::FileAlreadyExists,
                       L"creating", destination);
            return false;
        }
        if (Meets(Stage::MakeDestinationFolder, destination)) {
            // A parent that seems to be missing is tried next, and is there.
            FailFolder(fault_.Number == ErrorNumber::PathNotFound ? ErrorNumber::FileAlreadyExists
                                                                  : fault_.Number,
                       L"creating", destination);
            return false;
        }
        return true;
    }

    void SweepLeftover(const std::wstring& folder) {
        const std::wstring destination = CopyFolder(folder);
        if (!out_.Interrupted && !Meets(Stage::ListDestination, destination) &&
            !Meets(Stage::WalkDestination, destination) &&
            !Meets(Stage::RemoveLeftover, LeftoverIn(folder))) {
            out_.Leftovers.erase(LeftoverIn(folder));
        }
    }

    // False when the run was interrupted, or the folder failed, on the way.
    bool HandOverFiles(const std::wstring& folder, int count) {
        for (const PlannedFile& file : kPlannedFiles) {
            if (file.Folder != folder || count-- <= 0) {
                continue;
            }
            if (!HandOverFile(file)) {
                FailFolder(fault_.Number, L"accessing", SourceFolder(folder));
                return false;
            }
            if (out_.Interrupted) {
                return false;
            }
        }
        return true;
    }

    void Interrupt(const PlannedFile& file) {
        const std::wstring text = ErrorText(fault_.Number) + L" in CopyFile " + BothPaths(file);
        out_.State.FatalErrorText = text;
        out_.Interrupted = true;
        Log(text);
    }

    // False when the failure belongs to the folder.
    bool HandOverFile(const PlannedFile& file) {
        if (Meets(Stage::ReadSource, file.Source()) || Meets(Stage::ReadCopy, file.Copy()) ||
            Meets(Stage::MakeCopyWritable, file.Copy())) {
            Interrupt(file);
            return true;
        }
        const bool isRemoval =
            file.What == Plan::RemoveCopy || file.What == Plan::RemoveReadOnlyCopy;
        if (isRemoval && !Meets(Stage::TestCopyToRemove, file.Copy())) {
            Remove(file);
            if (Meets(Stage::ReadSourceAgain, file.Source())) {
                return false;
            }
        }
        ++out_.State.FilesChecked;
        out_.Captions[PanelLabel::lblChecked] = std::to_wstring(out_.State.FilesChecked);
        if (!isRemoval && file.What != Plan::Leave) {
            Copy(file);
        }
        return true;
    }

    void Remove(const PlannedFile& file) {
        RunState& state = out_.State;
        ++state.CopiesRemoved;
        out_.Captions[PanelLabel::lblFile] = file.Name + std::wstring(L" - removing copy");
        if (Meets(Stage::RemoveCopy, file.Copy())) {
            ++state.RemoveErrors;
            Log(ErrorText(fault_.Number) + L" while removing " + PathText(file.Copy()));
        } else {
            out_.Copies.erase(file.Copy());
        }
        out_.Captions[PanelLabel::lblRemoved] =
            std::to_wstring(state.CopiesRemoved - state.RemoveErrors);
    }

    void Copy(const PlannedFile& file) {
        RunState& state = out_.State;
        ++state.FilesCopied;
        if (Meets(Stage::CopyFile, file.Source())) {
            FailCopy(file, fault_.Number);
            if (file.What == Plan::ReplaceReadOnly) {
                out_.Copies[file.Copy()] = Facts(kOldContent, 0);
            }
        } else if (file.What == Plan::ReplaceReadOnly &&
                   Meets(Stage::TestCopyToReplace, file.Copy())) {
            FailCopy(file, ErrorNumber::PermissionDenied);  // it is still read-only
        } else {
            out_.Copies[file.Copy()] = Facts(NewContent(file), kAttributeArchive);
        }
        if (file.SetName() == L"B") {
            ClearArchiveBit(file);
        }
        out_.Captions[PanelLabel::lblFile] = file.Name + std::wstring(L" - done");
        out_.Captions[PanelLabel::lblcopied] =
            std::to_wstring(state.FilesCopied - state.CopyErrors);
    }

    void FailCopy(const PlannedFile& file, ErrorNumber number) {
        ++out_.State.CopyErrors;
        Log(ErrorText(number) + L" while copying " + BothPaths(file));
    }

    void ClearArchiveBit(const PlannedFile& file) {
        if (Meets(Stage::ClearArchiveBit, file.Source()) ||
            Meets(Stage::ReadSourceForArchiveBit, file.Source())) {
            Log(ErrorText(fault_.Number) + L" while clearing archive bit on " +
                PathText(file.Source()));
        } else {
            out_.Sources[file.Source()] = Facts(NewContent(file), 0);
        }
    }

    // Returns the end word.
    std::wstring EndLog() {
        const RunState& state = out_.State;
        const auto clause = [](int count, const wchar_t* words) {
            return count == 0 ? L"" : L" and " + std::to_wstring(count) + words;
        };
        std::wstring word = out_.Interrupted ? L" interrupted "
                                             : (state.HasFailures() ? L" ended " : L" completed ");
        try {
            Log(L"Of " + std::to_wstring(state.FilesChecked) + L" files checked, " +
                    std::to_wstring(state.FilesCopied - state.CopyErrors) + L" were copied" +
                    clause(state.CopyErrors, L" failed to copy") + L"; " +
                    std::to_wstring(state.CopiesRemoved - state.RemoveErrors) +
                    L" copies were removed" + clause(state.RemoveErrors, L" could not be removed") +
                    L".",
                true);
            if (state.FolderErrors > 0) {
                Log(std::to_wstring(state.FolderErrors) +
                        L" folders (and their sub-folders) were unprocessable.",
                    true);
            }
            Log(L"Ambrio" + word + kNow, true);
            Log(kSeparator);
        } catch (const Fatal& fatal) {
            out_.State.FatalErrorText = fatal.Text;
            return {};  // nobody can read that it completed
        }
        return word;
    }

    void HandOver(const std::wstring& endWord) {
        std::vector<std::wstring>& actions = out_.Actions;
        actions = {L"show pointer", L"leave topmost"};
        if (endWord == L" completed ") {
            if (fault_.Is(Stage::FindSecondSaver, L"C:\\Windows\\System32\\Stars.scr")) {
                actions.emplace_back(
                    L"box Trying to start secondary screen-saver\r\nCan't find Stars");
                actions.emplace_back(L"unload");
            } else {
                actions.insert(actions.end(),
                               {L"start normal Stars.scr /s", L"box  completed ", L"end"});
            }
        }
        if (!out_.State.FatalErrorText.empty()) {
            actions.push_back(L"stop box " + out_.State.FatalErrorText);
        }
        if (out_.Interrupted) {
            actions.emplace_back(L"unload");
        }
    }

    const StageFault& fault_;
    RunOutcome out_;
    int timesOpened_ = 0;
    int linesWritten_ = 0;
    bool isOpen_ = false;
    bool hasHeader_ = false;
};

}  // namespace

RunOutcome ExpectedOutcome(const StageFault& fault) {
    return Story(fault).Tell();
}

}  // namespace ambrio
