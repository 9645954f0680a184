#include "platform/win32/windows/CommonControls.h"

namespace ambrio {
namespace {

constexpr UINT_PTR kSubclass = 0;  // no window has two of the same procedure

// Not linked, as it would bring other libraries along before HardenProcess has said where they may
// come from. By its bare name, because that is what the manifest speaks of.
template <typename FunctionPointer>
FunctionPointer Function(const char* name) {
    static const HMODULE library = LoadLibraryW(L"comctl32.dll");
    return library == nullptr ? nullptr
                              : reinterpret_cast<FunctionPointer>(
                                    reinterpret_cast<void*>(GetProcAddress(library, name)));
}

}  // namespace

void CommonControls::InitClasses(DWORD classes) {
    static const auto init = Function<decltype(&InitCommonControlsEx)>("InitCommonControlsEx");
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, classes};
    if (init != nullptr) {
        init(&wanted);
    }
}

bool CommonControls::SetSubclass(HWND window, SUBCLASSPROC procedure, DWORD_PTR data) {
    static const auto set = Function<decltype(&SetWindowSubclass)>("SetWindowSubclass");
    return set != nullptr && set(window, procedure, kSubclass, data) != FALSE;
}

void CommonControls::RemoveSubclass(HWND window, SUBCLASSPROC procedure) {
    static const auto remove = Function<decltype(&RemoveWindowSubclass)>("RemoveWindowSubclass");
    if (remove != nullptr) {
        remove(window, procedure, kSubclass);
    }
}

LRESULT CommonControls::PassOn(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const auto passOn = Function<decltype(&DefSubclassProc)>("DefSubclassProc");
    return passOn != nullptr ? passOn(window, message, wParam, lParam) : 0;
}

}  // namespace ambrio
