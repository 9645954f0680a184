#include "platform/win32/text/Automation.h"

#include "platform/RuntimeError.h"

namespace ambrio {

void RequireConverted(HRESULT result) {
    if (result == DISP_E_OVERFLOW) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    if (result == E_OUTOFMEMORY) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    if (FAILED(result)) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
}

OLECHAR* AutomationText(const std::wstring& text) {
    return const_cast<OLECHAR*>(text.c_str());
}

}  // namespace ambrio
