// Work on many items that is done on all processors ahead of its turn, and taken in order by one thread.
//
// The order of everything that others see stays what it would be on one thread: a result is taken when all before it
// have been, and what its work reported is told then. The thread that takes works too, so nothing is lost where there
// is one processor only.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "shell/errors.h"

/// Threads that work on items 0 .. count - 1, each once.
class AheadThreads {
public:
    /// Does item `nr`. Runs on any thread beside other items, so it changes nothing that they or the thread that
    /// takes could see. `worker` counts from 0 and is the same for one item at a time only.
    using Work = std::function<void(std::size_t nr, std::size_t worker)>;

    /// @param helpers  threads besides the one that takes
    AheadThreads(std::size_t count, std::size_t helpers, Work work);
    /// Leaves out what has not been begun.
    ~AheadThreads();
    AheadThreads(const AheadThreads&) = delete;
    AheadThreads& operator=(const AheadThreads&) = delete;

    /// Returns once the item is done, and tells what it reported. Items are asked for in rising order, all by one
    /// thread. What the work threw, it throws.
    void Await(std::size_t nr);

    /// Begins nothing more; returns how many items can still be awaited, in all.
    std::size_t Stop();

    /// One for each processor besides the first, within reason.
    [[nodiscard]] static std::size_t UsualHelpers();

private:
    struct Item {
        std::vector<HeldErrors::Held> errors;
        std::exception_ptr thrown;
        bool done = false;
    };
    [[nodiscard]] bool MayClaim() const { return next_ < end_ && next_ < taken_ + ahead_; }
    void DoNext(std::unique_lock<std::mutex>& lock, std::size_t worker);
    void Help(std::size_t worker);

    Work work_;
    std::vector<Item> items_;
    std::size_t ahead_;  // items that may be under way or waiting to be taken
    std::mutex mutex_;   // guards all below, and `done` of the items
    std::condition_variable somethingChanged_;
    std::size_t end_;        // items from here on are not begun
    std::size_t next_ = 0;   // first item not begun
    std::size_t taken_ = 0;  // the item that is waited for
    bool stopped_ = false;
    std::vector<std::thread> helpers_;
};

/// The same with a result for each item.
template <class Result>
class WorkAhead {
public:
    using Work = std::function<Result(std::size_t nr, std::size_t worker)>;

    WorkAhead(std::size_t count, Work work, std::size_t helpers = AheadThreads::UsualHelpers())
        : results_(count), threads_(count, helpers, [this, work = std::move(work)](std::size_t nr, std::size_t worker) {
              results_[nr] = work(nr, worker);
          }) {}

    /// Numbers of workers are below this.
    [[nodiscard]] static std::size_t Workers(std::size_t helpers = AheadThreads::UsualHelpers()) { return helpers + 1; }

    /// The result of the item behind the one taken last; at most `count` times.
    [[nodiscard]] Result Next() {
        threads_.Await(next_);
        return std::move(results_[next_++]);
    }

    /// Begins nothing more; returns how many results there are in all, those taken included.
    std::size_t Stop() { return threads_.Stop(); }

private:
    std::vector<Result> results_;
    std::size_t next_ = 0;
    AheadThreads threads_;  // last, so that its threads end first
};
