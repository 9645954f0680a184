#include "platform/win32/system/RandomNumber.h"

#include "platform/RuntimeError.h"
#include "platform/win32/WindowsHeaders.h"

// The system's RtlGenRandom goes by this name and is in no header that can be included alone.
extern "C" BOOLEAN NTAPI SystemFunction036(PVOID buffer, ULONG bytes);

namespace ambrio {

std::uint64_t RandomNumber() {
    std::uint64_t number = 0;
    if (SystemFunction036(&number, sizeof(number)) == FALSE) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    return number;
}

}  // namespace ambrio
