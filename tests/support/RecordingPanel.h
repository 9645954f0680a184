#pragma once

#include <algorithm>
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
        Events.push_back(NameOf(label) + L"=" + caption);
    }
    [[nodiscard]] const std::wstring& Caption(PanelLabel label) const { return Captions.at(label); }
    void SetTitle(const std::wstring& caption) override { Events.push_back(L"title=" + caption); }
    void OpenClip(const std::wstring& path) override { Events.push_back(L"open " + path); }
    void PlayClip() override { Events.emplace_back(L"play"); }
    void StopClip() override { Events.emplace_back(L"stop"); }
    void CloseClip() override { Events.emplace_back(L"close"); }
    void ShowCopyFrame(bool visible) override { Events.emplace_back(visible ? L"show" : L"hide"); }
    void MatchCopyFrameColour() override { Events.emplace_back(L"colour"); }

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

    std::map<PanelLabel, std::wstring> Captions;
    std::vector<std::wstring> Events;  // "lblSet=Letters", "play", "show", ...
};

}  // namespace ambrio
