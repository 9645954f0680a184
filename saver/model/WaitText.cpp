#include "saver/model/WaitText.h"

#include "platform/DecimalText.h"

namespace ambrio {

std::wstring WaitText(const std::wstring& file, int percentDone) {
    return L"Please wait while the current file is copied...\n" + file + L"\n" +
           DecimalText(percentDone) + L" %";
}

}  // namespace ambrio
