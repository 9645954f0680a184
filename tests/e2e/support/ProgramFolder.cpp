#include "tests/e2e/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <system_error>

#include "tests/e2e/support/Environment.h"

namespace ambrio::e2e {

namespace {

std::wstring ProgramToTest() {
    const std::wstring named = TextFromEnvironment(L"AMBRIO_PROGRAM");
    if (named.find(L'\\') != std::wstring::npos) {
        return named;
    }
    return TestProgramFolder() + L"\\" + (named.empty() ? L"Ambrio.scr" : named);
}

void CopyPlainFile(const std::wstring& from, const std::wstring& to) {
    if (CopyFileW(from.c_str(), to.c_str(), TRUE) == 0) {
        ThrowWin32Error("copying the program into a folder of its own");
    }
}

std::wstring NewFolder(const std::wstring& parent) {
    for (int number = 0;; ++number) {
        std::wstring path = parent + L"\\Ambrio" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                            std::to_wstring(number);
        if (CreateDirectoryW(path.c_str(), nullptr) != 0) {
            return path;
        }
        if (GetLastError() != ERROR_ALREADY_EXISTS) {
            ThrowWin32Error("making a folder for the program");
        }
    }
}

}  // namespace

ProgramFolder::ProgramFolder(const std::wstring& programName, const std::wstring& parent)
    : path_(NewFolder(parent)), program_(path_ + L"\\" + programName) {
    const std::wstring source = ProgramToTest();
    const std::wstring clip = source.substr(0, source.find_last_of(L'\\')) + L"\\filecopy.avi";
    try {
        CopyPlainFile(source, program_);
        CopyPlainFile(clip, Below(L"filecopy.avi"));
    } catch (const std::system_error&) {
        RemoveTree(path_);
        throw;
    }
}

ProgramFolder::~ProgramFolder() {
    try {
        RemoveTree(path_);
    } catch (const std::system_error& error) {
        ADD_FAILURE() << "the program's folder stays behind: " << error.what();
    }
}

}  // namespace ambrio::e2e
