#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "platform/ForwardingFileSystem.h"
#include "platform/WorkerPool.h"

namespace ambrio {

// A file system that makes small copies ahead of their turn, several at once, so that they do not
// wait for each other: what it is told to expect it copies under temporary names. Whoever asks
// finds no difference but the time that it takes: a copy gets its name when it is asked for, is
// made anew when source or destination have changed since, and a failure on the way is met again
// then.
class CopyAhead : public ForwardingFileSystem {
  public:
    // Both must live longer. A first hint that names no more than `few` is not worth the threads;
    // the end waits so long at most until what was made in vain is gone.
    CopyAhead(FileSystem& target, WorkerPool& pool, std::size_t few = kFew,
              std::chrono::milliseconds patienceAtTheEnd = kPatienceAtTheEnd);
    ~CopyAhead() override;
    CopyAhead(const CopyAhead&) = delete;
    CopyAhead& operator=(const CopyAhead&) = delete;

    void CopyFile(const std::wstring& source, const std::wstring& destination, bool overwrite,
                  const Yield& yield) override;
    void ExpectCopies(const std::vector<ExpectedCopy>& copies) override;
    void ExpectNothing() override;
    void EndExpecting() override;

    // The bounds: files that are large have nothing to gain; threads; what waits for its turn.
    static constexpr std::uint64_t kLarge = 1 << 20;            // bytes
    static constexpr std::size_t kMostUnderWay = 3;             // files; more gain little
    static constexpr std::uint64_t kMostWaiting = 32ULL << 20;  // bytes
    static constexpr std::uint64_t kShareOfFreeSpace = 4;  // the waiting take a quarter at most
    static constexpr std::size_t kFew = 2;
    // What another program has copied first is left over at the end, perhaps a folder full.
    static constexpr std::chrono::milliseconds kPatienceAtTheEnd{2000};

  private:
    class Work;

    // Whether the copy was made ahead and has its name now.
    bool FinishCopy(const std::wstring& source, const std::wstring& destination, bool overwrite,
                    const Yield& yield);

    WorkerPool& pool_;
    const std::size_t few_;
    const std::chrono::milliseconds patienceAtTheEnd_;
    std::shared_ptr<Work> work_;
    bool hasBegun_ = false;
};

}  // namespace ambrio
