#pragma once

#include <string>
#include <vector>

#include "tests/support/EngineBench.h"
#include "tests/support/ForwardingSettingsStore.h"
#include "tests/support/ObservedFileSystem.h"

namespace ambrio {

// Stands before a bench's files and settings and keeps in one list, in their order, what a run does
// with panel, host, log, files and settings: "lblSet=S", "events", "log 'S' start", "log closed",
// "copy C:\Data\a", "read S.Source", ... To be made after the bench and to go before it.
class RunEvents : public ObservedFileSystem, public ForwardingSettingsStore {
  public:
    explicit RunEvents(EngineBench& bench);
    ~RunEvents() override;
    RunEvents(const RunEvents&) = delete;
    RunEvents& operator=(const RunEvents&) = delete;

    void Run() { bench_.Run(*this, *this); }
    void Note(const std::wstring& event);

    // The events from the first that is `from` to the first after it that is `to`, both included;
    // none when there is no such stretch.
    [[nodiscard]] std::vector<std::wstring> Between(const std::wstring& from,
                                                    const std::wstring& to) const;

    bool Before(const FileCall& call) override;
    std::unique_ptr<TextStream> OpenForAppending(const std::wstring& path) override;
    std::wstring GetSetting(const std::wstring& section, const std::wstring& key,
                            const std::wstring& fallback) override;
    void SaveSetting(const std::wstring& section, const std::wstring& key,
                     const std::wstring& value) override;

    std::vector<std::wstring> Events;

  private:
    EngineBench& bench_;
};

}  // namespace ambrio
