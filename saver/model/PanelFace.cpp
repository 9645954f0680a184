#include "saver/model/PanelFace.h"

namespace ambrio {

const wchar_t* PanelFace(const std::function<bool(const wchar_t*)>& isThere) {
    constexpr const wchar_t* kNames[] = {L"Segoe UI", L"Tahoma", L"DejaVu Sans Condensed",
                                         L"Arial"};
    for (const wchar_t* name : kNames) {
        if (isThere(name)) {
            return name;
        }
    }
    return kNames[0];
}

}  // namespace ambrio
