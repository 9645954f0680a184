#include "platform/win32/files/NetworkLibrary.h"

#include <array>

namespace ambrio {

NetworkConnection ConnectionOf(wchar_t letter, const NetworkCalls& calls) {
    if (calls.GetConnection == nullptr) {
        return {};
    }
    const std::wstring name = {letter, L':'};
    std::array<wchar_t, MAX_PATH + 1> share = {};
    DWORD size = static_cast<DWORD>(share.size());
    const DWORD code = calls.GetConnection(name.c_str(), share.data(), &size);
    return {code, code == NO_ERROR || code == ERROR_CONNECTION_UNAVAIL ? share.data() : L""};
}

}  // namespace ambrio
