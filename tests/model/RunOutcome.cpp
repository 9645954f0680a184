#include "tests/model/RunOutcome.h"

#include <optional>
#include <set>

namespace ambrio {
namespace {

using Facts = std::map<std::wstring, std::wstring>;

void AddList(const std::wstring& name, const std::vector<std::wstring>& list, Facts& facts) {
    facts[L"number of " + name + L"s"] = std::to_wstring(list.size());
    for (std::size_t i = 0; i < list.size(); ++i) {
        facts[name + L" " + std::to_wstring(i + 1)] = list[i];
    }
}

Facts FactsOf(const RunOutcome& outcome) {
    Facts facts = {{L"FilesChecked", std::to_wstring(outcome.FilesChecked)},
                   {L"FilesCopied", std::to_wstring(outcome.FilesCopied)},
                   {L"CopyErrors", std::to_wstring(outcome.CopyErrors)},
                   {L"CopiesRemoved", std::to_wstring(outcome.CopiesRemoved)},
                   {L"RemoveErrors", std::to_wstring(outcome.RemoveErrors)},
                   {L"FolderErrors", std::to_wstring(outcome.FolderErrors)},
                   {L"Interrupted", outcome.Interrupted ? L"yes" : L"no"},
                   {L"FatalErrorText", outcome.FatalErrorText},
                   {L"FailureSummary", outcome.FailureSummary}};
    for (const auto& [label, caption] : outcome.Captions) {
        facts[L"caption of " + label] = caption;
    }
    AddList(L"change of the panel", outcome.Display, facts);
    AddList(L"action", outcome.Actions, facts);
    for (const auto& [address, value] : outcome.Settings) {
        facts[L"setting " + address.first + L"/" + address.second] = value;
    }
    for (const auto& [path, text] : outcome.Disk) {
        facts[L"disk " + path] = text;
    }
    return facts;
}

// What is no plain character becomes "?".
std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t unit : text) {
        narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return narrow;
}

std::optional<std::wstring> ValueIn(const Facts& facts, const std::wstring& name) {
    const auto found = facts.find(name);
    return found == facts.end() ? std::nullopt : std::optional(found->second);
}

std::string Shown(const std::optional<std::wstring>& value) {
    return value ? std::string("[").append(Narrow(*value)).append("]") : "nothing";
}

}  // namespace

std::string Differences(const RunOutcome& actual, const RunOutcome& expected) {
    const Facts is = FactsOf(actual);
    const Facts shall = FactsOf(expected);
    std::set<std::wstring> names;
    for (const Facts* facts : {&is, &shall}) {
        for (const auto& [name, value] : *facts) {
            names.insert(name);
        }
    }
    std::string text;
    for (const std::wstring& name : names) {
        const auto actualValue = ValueIn(is, name);
        const auto expectedValue = ValueIn(shall, name);
        if (actualValue != expectedValue) {
            text += Narrow(name) + "\n  is    " + Shown(actualValue) + "\n  shall " +
                    Shown(expectedValue) + "\n";
        }
    }
    return text;
}

}  // namespace ambrio
