#include "tests/support/win32/ReplacedImport.h"

#include <array>
#include <stdexcept>

#include "platform/win32/WindowsHeaders.h"
#include "tests/support/win32/ImportTable.h"

namespace ambrio {
namespace {

void Direct(const char* name, void* function) {
    const std::array replacements = {Replacement{name, function}};
    static_cast<void>(ReplaceImports(replacements, {}));
}

}  // namespace

ReplacedImport::ReplacedImport(const wchar_t* library, const char* name, void* replacement)
    : name_(name), original_(ImportedFunction(name)) {
    if (GetProcAddress(GetModuleHandleW(library), name) == nullptr || original_ == nullptr) {
        throw std::runtime_error("there is no function to replace");
    }
    Direct(name_, replacement);
}

ReplacedImport::~ReplacedImport() {
    Direct(name_, original_);
}

}  // namespace ambrio
