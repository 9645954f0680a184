#include "platform/TextConversion.h"

namespace ambrio {

std::wstring BooleanText(bool value) {
    return value ? L"True" : L"False";
}

}  // namespace ambrio
