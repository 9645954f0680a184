#include "platform/BooleanText.h"

#include "platform/win32/text/Automation.h"

namespace ambrio {

bool BooleanFromText(const std::wstring& text) {
    VARIANT_BOOL value = VARIANT_FALSE;
    RequireConverted(VarBoolFromStr(AutomationText(text), LOCALE_USER_DEFAULT, 0, &value));
    return value != VARIANT_FALSE;
}

}  // namespace ambrio
