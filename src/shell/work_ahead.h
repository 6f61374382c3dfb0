// Processes many items on all processors; one thread takes the results in order.
//
// Everything visible happens in the order of a single thread: a result is taken after all earlier ones, and what its
// work reported is reported then. The taking thread works too, so a single processor loses nothing.
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
    /// Processes item `nr`. Runs on any thread beside other items, so it changes nothing that they or the taking thread
    /// see. `worker` counts from 0 and is the same for one item at a time only.
    using Work = std::function<void(std::size_t nr, std::size_t worker)>;

    /// @param helpers  threads besides the taking one
    AheadThreads(std::size_t count, std::size_t helpers, Work work);
    /// Waits for the items in progress and skips all that have not begun.
    ~AheadThreads();
    AheadThreads(const AheadThreads&) = delete;
    AheadThreads& operator=(const AheadThreads&) = delete;

    /// Returns once the item is done, and reports what its work held back. One thread awaits all items, in rising
    /// order. Throws what the work threw.
    void Await(std::size_t nr);

    /// Begins no further item; returns the number of items that can be awaited in total.
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
    std::size_t ahead_;  // limit of items in progress or waiting to be taken
    std::mutex mutex_;   // guards all below, and `done` of the items
    std::condition_variable somethingChanged_;
    std::size_t end_;        // items from here on are not begun
    std::size_t next_ = 0;   // first item not begun
    std::size_t taken_ = 0;  // the item awaited
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

    /// The result of the next item; at most `count` times.
    [[nodiscard]] Result Next() {
        threads_.Await(next_);
        return std::move(results_[next_++]);
    }

    /// Begins no further item; returns the number of results in total, including those taken.
    std::size_t Stop() { return threads_.Stop(); }

private:
    std::vector<Result> results_;
    std::size_t next_ = 0;
    AheadThreads threads_;  // last, so that its threads end first
};
