#include "tests/conformance/AheadWorld.h"
#include "tests/conformance/AnsweringWorld.h"
#include "tests/conformance/FileSystemWorld.h"
#include "tests/conformance/MemoryWorld.h"
#include "tests/support/AtOncePool.h"
#ifdef _WIN32
#include "platform/win32/system/Win32WorkerPool.h"
#include "platform/win32/system/WorkerThread.h"
#include "tests/conformance/win32/Win32World.h"
#endif

namespace ambrio {
namespace {

#ifdef _WIN32
using Win32Answering = AnsweringWorld<WorkerThread>;
#else
class WorkerHere : public Worker {
  public:
    void Do(const std::function<void()>& work, const Yield&) override { work(); }
};
using MemoryAnswering = AnsweringWorld<WorkerHere>;
#endif

}  // namespace

std::vector<FileSystemWorldMaker> FileSystemWorlds() {
    return {
        {"Memory",
         [] { return std::unique_ptr<FileSystemWorld>(std::make_unique<MemoryWorld>()); }},
#ifdef _WIN32
        {"Win32", [] { return std::unique_ptr<FileSystemWorld>(std::make_unique<Win32World>()); }},
        {"Win32Ahead",
         [] {
             return std::unique_ptr<FileSystemWorld>(
                 std::make_unique<AheadWorld<AtOncePool>>(std::make_unique<Win32World>()));
         }},
        {"Win32AheadByThreads",
         [] {
             return std::unique_ptr<FileSystemWorld>(
                 std::make_unique<AheadWorld<Win32WorkerPool>>(std::make_unique<Win32World>()));
         }},
        {"Win32Answering",
         [] {
             return std::unique_ptr<FileSystemWorld>(
                 std::make_unique<Win32Answering>(std::make_unique<Win32World>()));
         }},
#else
        {"MemoryAhead",
         [] {
             return std::unique_ptr<FileSystemWorld>(
                 std::make_unique<AheadWorld<AtOncePool>>(std::make_unique<MemoryWorld>()));
         }},
        {"MemoryAnswering",
         [] {
             return std::unique_ptr<FileSystemWorld>(
                 std::make_unique<MemoryAnswering>(std::make_unique<MemoryWorld>()));
         }},
#endif
    };
}

}  // namespace ambrio
