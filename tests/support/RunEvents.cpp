#include "tests/support/RunEvents.h"

#include <algorithm>
#include <utility>

namespace ambrio {
namespace {

// Tells of each line and of its own end.
class TellingStream : public ForwardingTextStream {
  public:
    TellingStream(std::unique_ptr<TextStream> target, RunEvents& events)
        : ForwardingTextStream(std::move(target)), events_(events) {}
    ~TellingStream() override { events_.Note(L"log closed"); }
    TellingStream(const TellingStream&) = delete;
    TellingStream& operator=(const TellingStream&) = delete;

    void WriteLine(const std::wstring& text) override {
        ForwardingTextStream::WriteLine(text);
        events_.Note(L"log " + text);
    }
    void Flush() override {
        ForwardingTextStream::Flush();
        events_.Note(L"log flushed");
    }

  private:
    RunEvents& events_;
};

}  // namespace

RunEvents::RunEvents(EngineBench& bench)
    : ObservedFileSystem(bench.Files), ForwardingSettingsStore(bench.Settings), bench_(bench) {
    bench.Panel.OnEvent = [this](const std::wstring& event) { Note(event); };
    bench.Host.OnAction = [this](const std::wstring& action) { Note(action); };
    bench.Host.OnDoEvents = [this, former = bench.Host.OnDoEvents](int count) {
        Note(L"events");
        if (former) {
            former(count);
        }
    };
}

RunEvents::~RunEvents() {
    bench_.Panel.OnEvent = nullptr;
    bench_.Host.OnAction = nullptr;
    bench_.Host.OnDoEvents = nullptr;
}

void RunEvents::Note(const std::wstring& event) {
    Events.push_back(event);
}

std::vector<std::wstring> RunEvents::Between(const std::wstring& from,
                                             const std::wstring& to) const {
    const auto first = std::find(Events.begin(), Events.end(), from);
    const auto last = std::find(first, Events.end(), to);
    return last == Events.end() ? std::vector<std::wstring>() : std::vector(first, last + 1);
}

bool RunEvents::Before(const FileCall& call) {
    const std::wstring inProgress = bench_.Signals.CopyInProgress ? L" in progress" : L"";
    if (call.Operation == FileOperation::CopyFile) {
        Note(L"copy " + call.Path + inProgress);
    } else if (call.Operation == FileOperation::DeleteFile) {
        Note(L"remove " + call.Path + inProgress);
    } else if (call.Operation == FileOperation::SetAttributes) {
        Note(L"attributes " + call.Path + inProgress);
    }
    return true;
}

std::unique_ptr<TextStream> RunEvents::OpenForAppending(const std::wstring& path) {
    return std::make_unique<TellingStream>(ObservedFileSystem::OpenForAppending(path), *this);
}

std::wstring RunEvents::GetSetting(const std::wstring& section, const std::wstring& key,
                                   const std::wstring& fallback) {
    Note(L"read " + section + L"." + key);
    return ForwardingSettingsStore::GetSetting(section, key, fallback);
}

void RunEvents::SaveSetting(const std::wstring& section, const std::wstring& key,
                            const std::wstring& value) {
    Note(L"save " + section + L"." + key);
    ForwardingSettingsStore::SaveSetting(section, key, value);
}

}  // namespace ambrio
