#include <new>

#include "app/Main.h"
#include "platform/win32/system/ProcessHardening.h"
#include "platform/win32/windows/RuntimeErrorBox.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int) {
    ambrio::HardenProcess();
    // A slow disk or network can hold the form's thread for seconds, with a listing or a small
    // file; the system must not cover the screen with a bleached picture that says so.
    DisableProcessWindowsGhosting();
    try {
        ambrio::Main(instance, commandLine);
    } catch (const ambrio::RuntimeError& error) {
        ambrio::EndWithRuntimeError(error);
    } catch (const std::bad_alloc&) {
        ambrio::EndWithRuntimeError(ambrio::RuntimeError(ambrio::ErrorNumber::OutOfMemory));
    }
    return 0;
}
