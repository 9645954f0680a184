#include "tests/e2e/support/ModuleLoader.h"

#include <stdexcept>

#include "tests/e2e/support/RemoteCall.h"

namespace ambrio::e2e {

void LoadModuleInto(HANDLE process, const std::wstring& module) {
    if (CallIn(process, "LoadLibraryW", WriteInto(process, module)) == 0) {
        throw std::runtime_error("the module cannot be loaded into the program");
    }
}

}  // namespace ambrio::e2e
