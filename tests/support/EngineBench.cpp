#include "tests/support/EngineBench.h"

#include <algorithm>

#include "settings/SettingKeys.h"

namespace ambrio {

EngineBench::EngineBench() {
    App.Title = L"Ambrio";
    App.ProgramFolder = L"C:\\Ambrio";
    App.LocalDataFolder = L"C:\\Users\\me\\Local";
    Files.MakeFolder(App.ProgramFolder);
    Files.MakeFolder(App.LocalDataFolder);
}

void EngineBench::AddSet(const std::wstring& name, const std::wstring& source,
                         const std::wstring& destination) {
    std::wstring& sets = Settings.Values[{kGeneralSection, kSetsKey}];
    sets += (sets.empty() ? L"" : L",") + name;
    Set(name, kSourceKey, source);
    Set(name, kDestinationKey, destination);
    Set(name, kRecursiveKey, kYes);
}

void EngineBench::Set(const std::wstring& section, const std::wstring& key,
                      const std::wstring& value) {
    Settings.Values[{section, key}] = value;
}

void EngineBench::Run(FileSystem& fileSystem, SettingsStore& settings) {
    Signals = {.Interrupted = Signals.Interrupted};
    RunDriver driver(App, fileSystem, settings, Time, Panel, Host, Signals);
    driver.DoTheBiz();
    State = driver.State();
    FailureSummary = driver.FailureSummary();
}

std::vector<std::wstring> EngineBench::Log() {
    std::vector<std::wstring> lines;
    const std::wstring otherPlace = App.LocalDataFolder + L"\\Ambrio\\Ambrio.log";
    const std::wstring path = Files.FileExists(otherPlace) ? otherPlace : LogFile();
    if (!Files.FileExists(path)) {
        return lines;
    }
    const std::string content = Files.Content(path);
    for (std::size_t start = 0; start < content.size();) {
        const std::size_t end = content.find("\r\n", start);
        const std::size_t stop = end == std::string::npos ? content.size() : end;
        std::wstring& line = lines.emplace_back();
        for (const char byte : content.substr(start, stop - start)) {
            line += static_cast<unsigned char>(byte);
        }
        start = stop + 2;
    }
    return lines;
}

bool EngineBench::HasLog(const std::vector<std::wstring>& lines) {
    const std::vector<std::wstring> log = Log();
    return std::search(log.begin(), log.end(), lines.begin(), lines.end()) != log.end();
}

void EngineBench::InterruptAtEvent(int n) {
    Host.OnDoEvents = [this, n](int count) {
        if (count == n) {
            Signals.Interrupted = true;
        }
    };
}

}  // namespace ambrio
