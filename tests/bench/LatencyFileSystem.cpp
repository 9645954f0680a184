#include "tests/bench/LatencyFileSystem.h"

#include <utility>

namespace ambrio {

LatencyFileSystem::LatencyFileSystem(FileSystem& target, std::wstring folder, unsigned latency)
    : ObservedFileSystem(target), folder_(std::move(folder)), latency_(latency) {}

bool LatencyFileSystem::Before(const FileCall& call) {
    const bool concernsFolder =
        call.Path.starts_with(folder_) || call.Destination.starts_with(folder_);
    if (concernsFolder && call.Operation != FileOperation::Next) {
        ++calls_;
        listings_ += call.Operation == FileOperation::GetFolder ? 1 : 0;
    }
    return true;
}

}  // namespace ambrio
