#include "platform/win32/windows/RuntimeErrorBox.h"

#include <string>

#include "platform/Application.h"
#include "platform/DecimalText.h"
#include "platform/win32/WindowsHeaders.h"

namespace ambrio {

void EndWithRuntimeError(const RuntimeError& error) {
    const std::wstring text = L"Run-time error '" + DecimalText(static_cast<int>(error.Number())) +
                              L"':\n\n" + error.Description();
    MessageBoxW(nullptr, text.c_str(), kApplicationTitle, MB_OK | MB_ICONSTOP | MB_SETFOREGROUND);
    ExitProcess(static_cast<UINT>(error.Number()));
}

}  // namespace ambrio
