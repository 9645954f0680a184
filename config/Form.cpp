#include "config/Form.h"

#include "config/WebLink.h"
#include "config/model/CentreForm.h"
#include "config/model/HelpPages.h"
#include "platform/Twips.h"
#include "platform/win32/system/SystemFolders.h"
#include "platform/win32/system/SystemRedirection.h"
#include "platform/win32/windows/ResourceText.h"
#include "platform/win32/windows/ScreenTwips.h"
#include "resources/ResourceIds.h"

namespace ambrio {
namespace {

constexpr int kTooltipUnits = 200;

FormPlace PlaceOf(HWND window, const ScreenTwips& twips) {
    RECT place = {};
    GetWindowRect(window, &place);
    return {static_cast<float>(place.left * twips.X), static_cast<float>(place.top * twips.Y),
            static_cast<float>((place.right - place.left) * twips.X),
            static_cast<float>((place.bottom - place.top) * twips.Y)};
}

}  // namespace

void Form::OnFailure(const RuntimeError& error) {
    Ask(error.LogText(), context_.App.Title, MB_OK | MB_ICONEXCLAMATION);
}

void Form::OnSize() {
    stretch_.OnSize();
    tooltips_.Follow();
}

void Form::SetTooltip(int control, const std::wstring& text) {
    tooltips_.Set(Control(control), text, PixelsOfUnits(kTooltipUnits, 0).cx);
}

void Form::SetTooltips(std::span<const Tip> tips) {
    for (const Tip& tip : tips) {
        SetTooltip(tip.Control, ResourceText(tip.TextId));
    }
}

void Form::CentreOver(HWND parent) {
    const ScreenTwips twips = ReadScreenTwips();
    FormPlace place = PlaceOf(Handle(), twips);
    CentreForm(place, PlaceOf(parent, twips));
    SetWindowPos(Handle(), nullptr, PixelsFromTwips(place.Left, twips.X),
                 PixelsFromTwips(place.Top, twips.Y), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::ShowHelp() {
    if (!HasHelpViewer(context_.Files, GetWindowsFolder())) {
        ShowPage(context_.App.HelpPage);
        return;
    }
    hasCalledViewer_ = true;
    // What shows the help is a program of 32 bits too.
    WinHelpW(Handle(), WithoutRedirection(context_.App.HelpFile).c_str(), HELP_CONTENTS, 0);
}

void Form::EndHelp() {
    if (hasCalledViewer_) {
        hasCalledViewer_ = false;
        WinHelpW(Handle(), WithoutRedirection(context_.App.HelpFile).c_str(), HELP_QUIT, 0);
    }
}

bool Form::ShowPage(const std::wstring& page) {
    if (IsFile(page)) {
        try {
            static_cast<void>(context_.Files.GetFile(page));
        } catch (const RuntimeError& error) {
            Ask(page + L"\r\n" + error.Description(), context_.App.Title,
                MB_OK | MB_ICONEXCLAMATION);
            return true;
        }
    }
    return OpenURL(AddressOf(page), Handle());
}

int Form::Ask(const std::wstring& text, const std::wstring& title, UINT style) {
    return MessageBoxW(Handle(), text.c_str(), title.c_str(), style);
}

HANDLE Form::ProgramIcon(int metric) const {
    const int size = GetSystemMetrics(metric);
    return LoadImageW(Instance(), MAKEINTRESOURCEW(IDI_AMBRIO), IMAGE_ICON, size, size, LR_SHARED);
}

}  // namespace ambrio
