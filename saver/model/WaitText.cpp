#include "saver/model/WaitText.h"

namespace ambrio {

std::wstring WaitText(const std::wstring& file, int percentDone) {
    return L"Please wait while the current file is copied...\n" + file + L"\n" +
           std::to_wstring(percentDone) + L" %";
}

}  // namespace ambrio
