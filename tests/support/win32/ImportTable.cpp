#include "tests/support/win32/ImportTable.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/win32/WindowsHeaders.h"

namespace ambrio {
namespace {

char* ImageBase() {
    return reinterpret_cast<char*>(GetModuleHandleW(nullptr));
}

template <typename Type>
Type* InImage(DWORD offset) {
    return reinterpret_cast<Type*>(ImageBase() + offset);
}

// Calls `visit(name, place)` for every function that the program imports by name.
template <typename Visit>
void ForEachImport(const Visit& visit) {
    const auto* dos = InImage<const IMAGE_DOS_HEADER>(0);
    const auto* headers = InImage<const IMAGE_NT_HEADERS>(static_cast<DWORD>(dos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (const auto* module = InImage<const IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress);
         module->Name != 0; ++module) {
        const auto* name = InImage<const IMAGE_THUNK_DATA>(module->OriginalFirstThunk);
        auto* place = InImage<IMAGE_THUNK_DATA>(module->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                const auto offset = static_cast<DWORD>(name->u1.AddressOfData);
                visit(InImage<const IMAGE_IMPORT_BY_NAME>(offset)->Name, *place);
            }
        }
    }
}

void Replace(IMAGE_THUNK_DATA& place, void* function) {
    DWORD protection = 0;
    VirtualProtect(&place, sizeof place, PAGE_READWRITE, &protection);
    place.u1.Function = reinterpret_cast<ULONG_PTR>(function);
    VirtualProtect(&place, sizeof place, protection, &protection);
}

}  // namespace

bool ReplaceImports(std::span<const Replacement> replacements,
                    std::span<const char* const> unknown) {
    bool complete = true;
    ForEachImport([&](const char* name, IMAGE_THUNK_DATA&) {
        const auto same = [name](const char* other) { return std::strcmp(name, other) == 0; };
        if (std::any_of(unknown.begin(), unknown.end(), same)) {
            OutputDebugStringA((std::string("not answered: ") + name + "\n").c_str());
            complete = false;
        }
    });
    if (!complete) {
        return false;
    }
    ForEachImport([&](const char* name, IMAGE_THUNK_DATA& place) {
        const auto replacement = std::find_if(
            replacements.begin(), replacements.end(),
            [name](const Replacement& row) { return std::strcmp(name, row.Name) == 0; });
        if (replacement != replacements.end()) {
            Replace(place, replacement->Function);
        }
    });
    return true;
}

void* ImportedFunction(const char* name) {
    void* function = nullptr;
    ForEachImport([&](const char* imported, const IMAGE_THUNK_DATA& place) {
        if (std::strcmp(imported, name) == 0) {
            function = reinterpret_cast<void*>(place.u1.Function);
        }
    });
    return function;
}

}  // namespace ambrio
