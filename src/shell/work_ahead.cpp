#include "shell/work_ahead.h"

#include <algorithm>

namespace {

// Large enough that a long item does not block the others, small enough to limit the memory of waiting results.
constexpr std::size_t kAheadOfEach = 4;

}  // namespace

std::size_t AheadThreads::UsualHelpers() {
    static const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
    return processors - 1;
}

AheadThreads::AheadThreads(std::size_t count, std::size_t helpers, Work work)
    : work_(std::move(work)), items_(count), ahead_((helpers + 1) * kAheadOfEach), end_(count) {
    helpers = count == 0 ? 0 : std::min(helpers, count - 1);
    try {
        for (std::size_t worker = 1; worker <= helpers; ++worker)
            helpers_.emplace_back([this, worker] { Help(worker); });
    } catch (const std::system_error&) {
        // If the system grants no more threads, the existing ones do the work.
    }
}

AheadThreads::~AheadThreads() {
    {
        const std::lock_guard lock(mutex_);
        stopped_ = true;
    }
    somethingChanged_.notify_all();
    for (std::thread& helper : helpers_)
        helper.join();
}

void AheadThreads::DoNext(std::unique_lock<std::mutex>& lock, std::size_t worker) {
    const std::size_t nr = next_++;
    Item& item = items_[nr];
    lock.unlock();
    {
        const HeldErrors held(item.errors);
        try {
            work_(nr, worker);
        } catch (...) {
            item.thrown = std::current_exception();
        }
    }
    lock.lock();
    item.done = true;
}

void AheadThreads::Help(std::size_t worker) {
    std::unique_lock lock(mutex_);
    while (true) {
        somethingChanged_.wait(lock, [this] { return stopped_ || MayClaim(); });
        if (stopped_)
            return;
        DoNext(lock, worker);
        somethingChanged_.notify_all();
    }
}

std::size_t AheadThreads::Stop() {
    const std::lock_guard lock(mutex_);
    return end_ = next_;
}

void AheadThreads::Await(std::size_t nr) {
    Item& item = items_[nr];
    {
        std::unique_lock lock(mutex_);
        taken_ = nr;
        somethingChanged_.notify_all();
        while (!item.done) {
            if (MayClaim())
                DoNext(lock, 0);
            else
                somethingChanged_.wait(lock, [&] { return item.done; });
        }
    }
    HeldErrors::Tell(item.errors);
    if (item.thrown)
        std::rethrow_exception(item.thrown);
}
