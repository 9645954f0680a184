#include "platform/CopyAhead.h"

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"

namespace ambrio {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kYieldInterval = 50ms;
constexpr std::chrono::milliseconds kPatience = 100ms;

// Holds a pool's lock but where it is let go for a while. (The standard library's can fail, with
// all that the words of such a failure bring into the program.)
class Lock {
  public:
    explicit Lock(WorkerPool& pool) : pool_(pool) { pool_.lock(); }
    ~Lock() {
        if (isHeld_) {
            pool_.unlock();
        }
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    void LetGo() {
        pool_.unlock();
        isHeld_ = false;
    }
    void TakeBack() {
        pool_.lock();
        isHeld_ = true;
    }

  private:
    WorkerPool& pool_;
    bool isHeld_ = true;
};

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L"\\/"));
}

}  // namespace

// What the threads share. A thread that does not come to its end keeps it.
class CopyAhead::Work {
  public:
    Work(FileSystem& files, WorkerPool& pool) : files_(files), pool_(pool) {}

    void Add(const std::vector<ExpectedCopy>& copies) {
        const Lock lock(pool_);
        for (const ExpectedCopy& copy : copies) {
            if (copy.Size < kLarge) {
                jobs_.push_back(std::make_shared<Job>(copy));
            }
        }
        isLimitKnown_ = false;
    }

    // The copy that was made ahead, waited for where it is under way; nothing where none was begun,
    // or it failed. It is nobody's afterwards.
    std::unique_ptr<PreparedCopy> Take(const std::wstring& source, const std::wstring& destination,
                                       const Yield& yield) {
        Lock lock(pool_);
        const std::shared_ptr<Job> job = Remove(source, destination);
        if (!job || job->At == State::Expected) {
            return nullptr;
        }
        while (job->At == State::UnderWay) {
            pool_.WaitForNews(kYieldInterval);
            if (yield && job->At == State::UnderWay) {
                lock.LetGo();
                yield();
                lock.TakeBack();
            }
        }
        waiting_ -= job->What.Size;
        lock.LetGo();
        pool_.Wake();  // there is room again
        return std::move(job->Copy);
    }

    // A copy that is not good any more; a thread removes it.
    void Discard(std::unique_ptr<PreparedCopy> copy) {
        const Lock lock(pool_);
        unwanted_.push_back(std::move(copy));
    }

    // Whether there was anything to drop.
    bool Drop() {
        const Lock lock(pool_);
        const bool hadAny = waiting_ > 0 || !unwanted_.empty();
        for (const std::shared_ptr<Job>& job : jobs_) {
            job->IsWanted = false;
            if (job->At == State::Made) {
                waiting_ -= job->What.Size;
                unwanted_.push_back(std::move(job->Copy));
            }
        }
        jobs_.clear();
        return hadAny;
    }

    // Whether nothing is left of what was dropped, or soon.
    void WaitUntilIdle(std::chrono::milliseconds limit) {
        Lock lock(pool_);
        const auto end = std::chrono::steady_clock::now() + limit;
        while ((atWork_ > 0 || !unwanted_.empty()) && std::chrono::steady_clock::now() < end) {
            pool_.WaitForNews(10ms);
        }
    }

    // Of a thread: one step, false when there is nothing to do.
    bool Step() {
        Lock lock(pool_);
        ++atWork_;
        const bool hasWorked = RemoveOne(lock) || MakeOne(lock);
        --atWork_;
        pool_.TellNews();
        return hasWorked;
    }

  private:
    enum class State { Expected, UnderWay, Made };
    struct Job {
        explicit Job(ExpectedCopy what) : What(std::move(what)) {}

        ExpectedCopy What;
        State At = State::Expected;
        std::unique_ptr<PreparedCopy> Copy;  // of one that is made; nothing when that failed
        std::atomic<bool> IsWanted = true;
    };

    // Takes a job out of the list; nothing where there is no such job.
    std::shared_ptr<Job> Remove(const std::wstring& source, const std::wstring& destination) {
        for (auto place = jobs_.begin(); place != jobs_.end(); ++place) {
            if ((*place)->What.Source == source && (*place)->What.Destination == destination) {
                std::shared_ptr<Job> job = std::move(*place);
                jobs_.erase(place);
                return job;
            }
        }
        return nullptr;
    }

    // The next one that nobody has begun with; nothing where there is none.
    std::shared_ptr<Job> NextExpected() const {
        for (const std::shared_ptr<Job>& job : jobs_) {
            if (job->At == State::Expected) {
                return job;
            }
        }
        return nullptr;
    }

    bool RemoveOne(Lock& lock) {
        if (unwanted_.empty()) {
            return false;
        }
        std::unique_ptr<PreparedCopy> copy = std::move(unwanted_.back());
        unwanted_.pop_back();
        lock.LetGo();
        copy.reset();
        lock.TakeBack();
        return true;
    }

    bool MakeOne(Lock& lock) {
        const std::shared_ptr<Job> job = NextExpected();
        if (!job) {
            return false;
        }
        if (!isLimitKnown_ && !LearnLimit(lock, FolderOf(job->What.Destination))) {
            return false;
        }
        if (job->At != State::Expected || !job->IsWanted) {
            return true;  // meanwhile
        }
        if (waiting_ + job->What.Size > limit_) {
            return false;
        }
        waiting_ += job->What.Size;
        job->At = State::UnderWay;
        lock.LetGo();
        std::unique_ptr<PreparedCopy> copy = Prepare(*job);
        lock.TakeBack();
        if (!job->IsWanted) {
            waiting_ -= job->What.Size;
            lock.LetGo();
            copy.reset();
            lock.TakeBack();
        }
        job->Copy = std::move(copy);
        job->At = State::Made;
        return true;
    }

    std::unique_ptr<PreparedCopy> Prepare(Job& job) {
        try {
            return files_.PrepareCopy(job.What, [&job] { return job.IsWanted.load(); });
        } catch (const RuntimeError&) {
            return nullptr;  // met again at its turn
        }
    }

    // One thread asks for the room, the others have nothing to do meanwhile.
    bool LearnLimit(Lock& lock, const std::wstring& folder) {
        if (isLimitBeingAsked_) {
            return false;
        }
        isLimitBeingAsked_ = true;
        lock.LetGo();
        const std::optional<std::uint64_t> free = files_.FreeBytes(folder);
        lock.TakeBack();
        isLimitBeingAsked_ = false;
        isLimitKnown_ = true;
        // What waits has its room already.
        limit_ = free ? std::min(kMostWaiting, *free / kShareOfFreeSpace) : kMostWaiting;
        lock.LetGo();
        pool_.Wake();
        lock.TakeBack();
        return true;
    }

    FileSystem& files_;
    WorkerPool& pool_;
    // In the order of their turns, until they are asked for or dropped.
    std::vector<std::shared_ptr<Job>> jobs_;
    std::vector<std::unique_ptr<PreparedCopy>> unwanted_;  // to be removed
    std::uint64_t waiting_ = 0;                            // bytes, of those under way and made
    std::uint64_t limit_ = 0;                              // of them
    bool isLimitKnown_ = false;
    bool isLimitBeingAsked_ = false;
    std::size_t atWork_ = 0;  // threads
};

CopyAhead::CopyAhead(FileSystem& target, WorkerPool& pool, std::size_t few,
                     std::chrono::milliseconds patienceAtTheEnd)
    : ForwardingFileSystem(target),
      pool_(pool),
      few_(few),
      patienceAtTheEnd_(patienceAtTheEnd),
      work_(std::make_shared<Work>(target, pool)) {}

CopyAhead::~CopyAhead() {
    EndExpecting();
}

void CopyAhead::CopyFile(const std::wstring& source, const std::wstring& destination,
                         bool overwrite, const Yield& yield) {
    if (hasBegun_ && FinishCopy(source, destination, overwrite, yield)) {
        return;
    }
    try {
        Target().CopyFile(source, destination, overwrite, yield);
    } catch (const RuntimeError& failure) {
        // What waits for its turn must not be in the way.
        if (!hasBegun_ || failure.Number() != ErrorNumber::DiskFull || !work_->Drop()) {
            throw;
        }
        pool_.Wake();
        work_->WaitUntilIdle(kPatience);
        Target().CopyFile(source, destination, overwrite, yield);
    }
}

bool CopyAhead::FinishCopy(const std::wstring& source, const std::wstring& destination,
                           bool overwrite, const Yield& yield) {
    std::unique_ptr<PreparedCopy> copy = work_->Take(source, destination, yield);
    if (!copy || copy->Finish(overwrite)) {
        return static_cast<bool>(copy);
    }
    work_->Discard(std::move(copy));
    pool_.Wake();
    return false;
}

void CopyAhead::ExpectCopies(const std::vector<ExpectedCopy>& copies) {
    if (!hasBegun_) {
        if (copies.size() <= few_) {
            return;
        }
        pool_.Begin(kMostUnderWay, [work = work_] { return work->Step(); });
        hasBegun_ = true;
    }
    work_->Add(copies);
    pool_.Wake();
}

void CopyAhead::ExpectNothing() {
    if (hasBegun_) {
        work_->Drop();
        pool_.Wake();
    }
}

void CopyAhead::EndExpecting() {
    if (!hasBegun_) {
        return;
    }
    ExpectNothing();
    work_->WaitUntilIdle(patienceAtTheEnd_);
    hasBegun_ = false;
    if (!pool_.End(kPatience)) {
        work_ = std::make_shared<Work>(Target(), pool_);  // the old one is theirs
    }
}

}  // namespace ambrio
