#include "tests/e2e/support/RunningProgram.h"

#include "tests/e2e/support/ModuleLoader.h"

namespace ambrio::e2e {

namespace {

UniqueHandle MakeJob() {
    UniqueHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (!job || SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                        sizeof limits) == 0) {
        ThrowWin32Error("making a job for the program");
    }
    return job;
}

}  // namespace

RunningProgram::RunningProgram(const std::wstring& program, const std::wstring& arguments,
                               const std::wstring& module, std::wstring desktop)
    : job_(MakeJob()) {
    std::wstring line = L"\"" + program + L"\"";
    if (!arguments.empty()) {
        line += L" " + arguments;
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.lpDesktop = desktop.empty() ? nullptr : desktop.data();
    PROCESS_INFORMATION started{};
    // Suspended, so that it cannot start anything before the job holds it; and not with the error
    // mode that the tests run in.
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE,
                       CREATE_SUSPENDED | CREATE_DEFAULT_ERROR_MODE, nullptr, nullptr, &startup,
                       &started) == 0) {
        ThrowWin32Error("starting the program");
    }
    process_.reset(started.hProcess);
    processId_ = started.dwProcessId;
    const UniqueHandle thread(started.hThread);
    if (AssignProcessToJobObject(job_.get(), process_.get()) == 0) {
        const DWORD error = GetLastError();
        TerminateProcess(process_.get(), 1);
        ThrowWin32Error("putting the program into its job", error);
    }
    if (!module.empty()) {
        LoadModuleInto(process_.get(), module);
    }
    ResumeThread(thread.get());
}

RunningProgram::~RunningProgram() {
    Kill();
}

bool RunningProgram::WaitForEnd(Milliseconds limit) const {
    return WaitForSingleObject(process_.get(), static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

bool RunningProgram::WaitForInputIdle(Milliseconds limit) const {
    return ::WaitForInputIdle(process_.get(), static_cast<DWORD>(limit.count())) == 0;
}

DWORD RunningProgram::ExitCode() const {
    DWORD code = 0;
    if (GetExitCodeProcess(process_.get(), &code) == 0) {
        ThrowWin32Error("reading the program's exit code");
    }
    return code;
}

DWORD RunningProgram::ProcessCount() const {
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION counts{};
    if (QueryInformationJobObject(job_.get(), JobObjectBasicAccountingInformation, &counts,
                                  sizeof counts, nullptr) == 0) {
        ThrowWin32Error("counting the program's processes");
    }
    return counts.ActiveProcesses;
}

std::vector<DWORD> RunningProgram::StartedProcessIds() const {
    // Not from the job's own list, which Wine leaves empty.
    std::vector<DWORD> ids(4096);
    DWORD bytes = 0;
    if (EnumProcesses(ids.data(), static_cast<DWORD>(ids.size() * sizeof(DWORD)), &bytes) == 0) {
        ThrowWin32Error("listing processes");
    }
    ids.resize(bytes / sizeof(DWORD));
    std::erase_if(ids, [this](DWORD id) {
        const UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, id));
        BOOL isInJob = FALSE;
        return id == processId_ || !process ||
               IsProcessInJob(process.get(), job_.get(), &isInJob) == 0 || isInJob == FALSE;
    });
    return ids;
}

void RunningProgram::Kill() {
    TerminateJobObject(job_.get(), 1);
    WaitForSingleObject(process_.get(), static_cast<DWORD>(kSoon.count()));
}

}  // namespace ambrio::e2e
