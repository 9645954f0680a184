#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "engine/StatusPanel.h"

namespace ambrio {

// A panel that keeps everything it is told, in order.
class RecordingPanel : public StatusPanel {
  public:
    RecordingPanel() {
        using enum PanelLabel;
        Captions = {{lblSet, L"-"},     {lblSource, L"-"},        {lblDest, L"-"},
                    {lblFile, L"-"},    {lblChecked, L"0"},       {lblcopied, L"0"},
                    {lblRemoved, L"0"}, {lblfsoStatus, L"Label3"}};
    }

    void SetCaption(PanelLabel label, const std::wstring& caption) override {
        Captions[label] = caption;
        Note(NameOf(label) + L"=" + caption);
    }
    [[nodiscard]] const std::wstring& Caption(PanelLabel label) const { return Captions.at(label); }
    void SetTitle(const std::wstring& caption) override { Note(L"title=" + caption); }
    void OpenClip(const std::wstring& path) override { Note(L"open " + path); }
    void PlayClip() override { Note(L"play"); }
    void StopClip() override { Note(L"stop"); }
    void CloseClip() override { Note(L"close"); }
    void ShowCopyFrame(bool visible) override { Note(visible ? L"show" : L"hide"); }
    void MatchCopyFrameColour() override { Note(L"colour"); }

    [[nodiscard]] auto Count(const std::wstring& event) const {
        return std::count(Events.begin(), Events.end(), event);
    }

    static std::wstring NameOf(PanelLabel label) {
        static const std::map<PanelLabel, std::wstring> names = {
            {PanelLabel::lblSet, L"lblSet"},         {PanelLabel::lblSource, L"lblSource"},
            {PanelLabel::lblDest, L"lblDest"},       {PanelLabel::lblFile, L"lblFile"},
            {PanelLabel::lblChecked, L"lblChecked"}, {PanelLabel::lblcopied, L"lblcopied"},
            {PanelLabel::lblRemoved, L"lblRemoved"}, {PanelLabel::lblfsoStatus, L"lblfsoStatus"}};
        return names.at(label);
    }

    void Note(const std::wstring& event) {
        Events.push_back(event);
        if (OnEvent) {
            OnEvent(event);
        }
    }

    std::map<PanelLabel, std::wstring> Captions;
    std::vector<std::wstring> Events;                  // "lblSet=Letters", "play", "show", ...
    std::function<void(const std::wstring&)> OnEvent;  // gets each of them as it comes
};

}  // namespace ambrio
