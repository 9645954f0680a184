#pragma once

#include <utility>

#include "platform/WorkerPool.h"

namespace ambrio {

// Has no threads: whatever there is to do is done at once, by who says so. What it does is the same
// in each run.
class AtOncePool : public WorkerPool {
  public:
    void Begin(std::size_t, const Step& step) override {
        if (!step_) {
            step_ = step;
        }
    }
    void Wake() override {
        if (isAtWork_ || !step_ || IsAsleep) {
            return;
        }
        isAtWork_ = true;
        while (step_()) {
            ++Steps;
        }
        isAtWork_ = false;
    }
    bool End(std::chrono::milliseconds) override {
        step_ = nullptr;
        return true;
    }
    // Whether it has begun and not ended.
    [[nodiscard]] bool IsOpen() const { return static_cast<bool>(step_); }
    void lock() override {}
    void unlock() override {}
    void WaitForNews(std::chrono::milliseconds) override {}
    void TellNews() override {}

    int Steps = 0;
    bool IsAsleep = false;  // does nothing until it is woken after that

  private:
    Step step_;
    bool isAtWork_ = false;
};

}  // namespace ambrio
