#include "engine/RunLog.h"

#include "engine/EngineTexts.h"
#include "engine/LogPath.h"

namespace ambrio {

RunLog::RunLog(FileSystem& fileSystem, const Application& application, const RunState& state)
    : fileSystem_(fileSystem), application_(application), state_(state) {}

const std::wstring& RunLog::Path() {
    if (!path_) {
        path_ = LogPath(application_, fileSystem_);
    }
    return *path_;
}

void RunLog::WriteLog(const std::wstring& rsText, bool rbKeepOpen) {
    const std::wstring& path = Path();
    const bool isEndOfBlock = LogStream_ && !rbKeepOpen;
    try {
        if (!LogStream_) {
            LogStream_ = fileSystem_.OpenForAppending(path);
        }
        WriteLines(rsText);
        if (isEndOfBlock) {
            LogStream_->Flush();
        }
    } catch (const RuntimeError& failure) {
        LogStream_.reset();
        throw LogFailure(failure.Number(), LogNotWritten(failure, path));
    }
    // Closed around each single line, so that the file is whole when the program is killed.
    if (!rbKeepOpen) {
        LogStream_.reset();
    }
}

void RunLog::WriteLines(const std::wstring& rsText) {
    if (!HeaderWritten_) {
        LogStream_->WriteLine(kSeparatorLine);
        LogStream_->WriteLine(state_.RunStartLine);
        HeaderWritten_ = true;
    }
    LogStream_->WriteLine(rsText);
}

void RunLog::DeleteLog() {
    const std::wstring& path = Path();
    try {
        if (fileSystem_.FileExists(path)) {
            fileSystem_.DeleteFile(path, false);
        }
    } catch (const RuntimeError& failure) {
        throw LogFailure(failure.Number(), LogNotDeleted(failure, path));
    }
}

}  // namespace ambrio
