#include "tests/model/ReferenceRun.h"

#include <array>
#include <sstream>
#include <vector>

#include "tests/model/ReferenceWalk.h"
#include "tests/model/RunRecord.h"

namespace ambrio {
namespace {

using Date = std::array<int, 3>;  // year, month, day

// Of "11/21/2026 3:49:46 PM"; any other text is a day long past.
Date DateOf(const std::wstring& text) {
    Date date{};
    wchar_t slash = 0;
    std::wistringstream(text) >> date[1] >> slash >> date[2] >> slash >> date[0];
    return date;
}

std::wstring Trimmed(const std::wstring& text) {
    const std::size_t start = text.find_first_not_of(L' ');
    return start == std::wstring::npos
               ? L""
               : text.substr(start, text.find_last_not_of(L' ') - start + 1);
}

std::vector<std::wstring> NamesIn(const std::wstring& list) {
    std::vector<std::wstring> names;
    std::wistringstream pieces(list + L",");
    for (std::wstring piece; std::getline(pieces, piece, L',');) {
        names.push_back(Trimmed(piece));
    }
    return names;
}

// The whole of a run, around the Sets.
class Story {
  public:
    Story(const ModelWorld& world, const FaultPlan& fails) : run_(world, fails), walk_(run_) {}

    RunOutcome Tell() {
        RunSetsAndWhatComesBefore();
        try {
            WriteClosingBlock();
        } catch (const LogTrouble& trouble) {
            run_.AddFatalError(trouble.Text);
            isLogRefused_ |= trouble.IsRefusal;
            hasCompleted_ = false;  // nobody can read that it has
        }
        run_.ChangeDisplay(L"close");
        Act(L"show pointer");
        Act(L"leave topmost");
        if (!HandOver()) {
            ShowTroubleAndUnload();
        }
        run_.Out.FailureSummary = FailureSummary();
        run_.Out.Disk = run_.Disk.Facts();
        return run_.Out;
    }

  private:
    void Act(const std::wstring& action) { run_.Out.Actions.push_back(action); }
    [[nodiscard]] bool IsYes(const std::wstring& section, const std::wstring& key) const {
        return run_.Setting(section, key, L"") == L"Yes";
    }

    void RunSetsAndWhatComesBefore() {
        try {
            Prepare();
            RunSets();
        } catch (const LogTrouble& trouble) {
            isLogRefused_ = trouble.IsRefusal;
            EndSets(trouble.Text);
        } catch (const ModelFailure& failure) {
            EndSets(ErrorText(failure.Number) +
                    (set_.empty() ? L"" : L" while processing Set " + PathText(set_)));
        }
    }

    void EndSets(const std::wstring& text) {
        run_.AddFatalError(text);
        run_.Out.Interrupted = true;
        try {
            run_.Log(text);
        } catch (const LogTrouble&) {
            return;  // the box says it anyway
        }
    }

    void Prepare() {
        const ModelWorld& world = run_.World;
        run_.ChangeDisplay(L"title=Ambrio v" + world.Version);
        run_.LogsOnlyErrors = IsYes(L"General", L"LogOnlyErrors");
        run_.ChangeDisplay(L"open " + world.ProgramFolder + L"\\filecopy.avi");
        const std::wstring lastRun = run_.Setting(L"General", L"LastRun", L"0");
        if (const auto fault = run_.Fails(Stage::SaveLastRun, L"LastRun")) {
            throw ModelFailure{*fault};
        }
        run_.Out.Settings[{L"General", L"LastRun"}] = world.NowText;
        if (DateOf(lastRun) < DateOf(world.NowText)) {
            run_.DeleteLog();
        }
    }

    void RunSets() {
        const std::wstring list = run_.Setting(L"General", L"Sets", L"");
        if (run_.Out.Interrupted) {
            return;
        }
        if (list.empty()) {
            run_.Log(L"No Sets to process");
            return;
        }
        const std::vector<std::wstring> names = NamesIn(list);
        for (std::size_t i = 0; i < names.size(); ++i) {
            set_ = names[i];
            RunSet();
            set_.clear();
            if (run_.Out.Interrupted && i + 1 < names.size()) {
                return;
            }
        }
        run_.Show(
            L"lblSet",
            L"<All sets processed>" +
                (run_.Out.HasFailures() ? L"<ERRORS reported>\r\nsee " + run_.LogFile() : L""));
        run_.Show(L"lblFile", L"");
    }

    void RunSet() {
        run_.Show(L"lblSet", set_);
        const std::wstring selected = run_.Setting(set_, L"Selected", L"True");
        if (selected != L"True" && selected != L"False") {
            throw ModelFailure{ErrorNumber::TypeMismatch};
        }
        if (selected == L"True") {
            LogOfSet(L"' start");
            walk_.RunSet(LoadSet());
            LogOfSet(L"' complete");
        } else {
            LogOfSet(L"' not selected");
        }
        for (const wchar_t* label : {L"lblSet", L"lblSource", L"lblDest"}) {
            run_.Show(label, L"");
        }
    }

    void LogOfSet(const wchar_t* words) {
        if (!run_.LogsOnlyErrors) {
            run_.Log(L"'" + set_ + words);
        }
    }

    [[nodiscard]] ModelSet LoadSet() const {
        ModelSet set;
        set.Source = run_.Setting(set_, L"Source", L"");
        set.Destination = run_.Setting(set_, L"Destination", L"");
        set.IsRecursive = IsYes(set_, L"Recursive");
        set.CopyType = run_.Setting(set_, L"CopyType", L"Date/Time");
        set.OverwritesReadOnly = IsYes(set_, L"OverwriteReadOnly");
        set.ClearsArchiveBit = set.CopyType == L"ArchiveBit" && IsYes(set_, L"ClearArchiveBit");
        set.RemovesCopies =
            (set.CopyType == L"ArchiveBit" && IsYes(set_, L"DeleteCopyArchiveBit")) ||
            (set.CopyType == L"ReadOnly" && IsYes(set_, L"DeleteCopyReadOnly"));
        return set;
    }

    void WriteClosingBlock() {
        const RunOutcome& out = run_.Out;
        if (run_.LogsOnlyErrors && !out.HasFailures()) {
            return;
        }
        const auto clause = [](int count, const wchar_t* words) {
            return count > 0 ? L" and " + std::to_wstring(count) + words : L"";
        };
        run_.Log(L"Of " + std::to_wstring(out.FilesChecked) + L" files checked, " +
                     std::to_wstring(out.FilesCopied - out.CopyErrors) + L" were copied" +
                     clause(out.CopyErrors, L" failed to copy") + L"; " +
                     std::to_wstring(out.CopiesRemoved - out.RemoveErrors) +
                     L" copies were removed" + clause(out.RemoveErrors, L" could not be removed") +
                     L".",
                 true);
        if (out.FolderErrors > 0) {
            run_.Log(std::to_wstring(out.FolderErrors) +
                         L" folders (and their sub-folders) were unprocessable.",
                     true);
        }
        hasCompleted_ = !out.Interrupted && !out.HasFailures();
        const wchar_t* word = out.Interrupted ? L" interrupted "
                              : hasCompleted_ ? L" completed "
                                              : L" ended ";
        run_.Log(L"Ambrio" + (word + run_.World.NowText), true);
        run_.Log(L"~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~");
    }

    // True when the program ends here.
    bool HandOver() {
        const std::wstring saver = run_.Setting(L"General", L"Secondary SS", L"");
        if (!hasCompleted_ || saver.empty()) {
            return false;
        }
        const auto isIn = [&](const std::wstring& folder) {
            const std::wstring path = PathBelow(folder, saver + L".scr");
            return !run_.Fails(Stage::FindSecondSaver, path) && run_.Disk.File(path) != nullptr;
        };
        if (isIn(L"C:\\Windows")) {
            Act(L"start hidden " + saver + L".scr /S");
        } else if (isIn(L"C:\\Windows\\System32")) {
            Act(L"start normal " + saver + L".scr /s");
        } else {
            Act(L"box Trying to start secondary screen-saver\r\nCan't find " + saver);
            Act(L"unload");
            return false;
        }
        Act(L"box  completed ");
        Act(L"end");
        return true;
    }

    void ShowTroubleAndUnload() {
        if (!run_.Out.FatalErrorText.empty()) {
            Act(L"stop box " + run_.Out.FatalErrorText +
                (isLogRefused_ ? L"\r\n\r\nAnother program may have this file open, or it may be "
                                 L"read-only. Close that program or remove the file; until then "
                                 L"nothing is backed up."
                               : L""));
        }
        if (run_.Out.Interrupted) {
            Act(L"unload");
        }
    }

    std::wstring FailureSummary() {
        const RunOutcome& out = run_.Out;
        if (!out.HasFailures()) {
            return L"";
        }
        const auto line = [](int count, const wchar_t* words) {
            return count > 0 ? std::to_wstring(count) + words + L"\r\n" : L"";
        };
        return line(out.CopyErrors, L" files failed to copy.") +
               line(out.RemoveErrors, L" files could not be removed.") +
               line(out.FolderErrors, L" folders (and their sub-folders) were unprocessable.") +
               L"\r\n\r\nSee " + run_.LogFile() + L" for details.";
    }

    RunRecord run_;
    ReferenceWalk walk_;
    std::wstring set_;  // the one being run
    bool hasCompleted_ = false;
    bool isLogRefused_ = false;
};

}  // namespace

RunOutcome Foretell(const ModelWorld& world, const FaultPlan& fails) {
    return Story(world, fails).Tell();
}

}  // namespace ambrio
