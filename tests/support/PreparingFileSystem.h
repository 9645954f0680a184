#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/CountingFileSystem.h"

namespace ambrio {

// Counts what is prepared and what gets its name that way.
class PreparingFileSystem : public CountingFileSystem {
  public:
    using CountingFileSystem::CountingFileSystem;
    using Names = std::vector<std::wstring>;

    std::unique_ptr<PreparedCopy> PrepareCopy(const ExpectedCopy& what,
                                              const std::function<bool()>& isWanted) override {
        class Counted : public PreparedCopy {
          public:
            Counted(std::unique_ptr<PreparedCopy> copy, int& finished)
                : copy_(std::move(copy)), finished_(finished) {}
            [[nodiscard]] bool Finish(bool overwrite) override {
                const bool done = copy_->Finish(overwrite);
                finished_ += done ? 1 : 0;
                return done;
            }

          private:
            std::unique_ptr<PreparedCopy> copy_;
            int& finished_;
        };
        Prepared.push_back(what.Source);
        SeemedNew += what.SeemsNew ? 1 : 0;
        if (BeforePreparing) {
            BeforePreparing();
        }
        Unwanted += isWanted() ? 0 : 1;
        auto copy = CountingFileSystem::PrepareCopy(what, isWanted);
        return copy ? std::make_unique<Counted>(std::move(copy), Finished) : nullptr;
    }

    Names Prepared;
    int Finished = 0;
    int SeemedNew = 0;
    int Unwanted = 0;  // of which nobody wanted to know any more when they were to be made
    std::function<void()> BeforePreparing;
};

}  // namespace ambrio
