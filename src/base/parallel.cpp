#include "base/parallel.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

namespace {

constexpr std::chrono::milliseconds progressPeriod{20};

/// The state that the workers and the calling thread share.
struct Run {
    explicit Run(const std::vector<std::function<void()>>& work)
        : tasks(work)
    {
    }

    const std::vector<std::function<void()>>& tasks;
    std::atomic<size_t> next{0};
    std::atomic<size_t> ended{0};
    std::atomic<bool> stop{false};
    size_t working = 0; // threads not yet done; guarded by mutex
    std::exception_ptr failure; // the first; guarded by mutex
    std::mutex mutex;
    std::condition_variable done;

    void fail(std::exception_ptr what)
    {
        const std::lock_guard lock(mutex);
        if (!failure)
            failure = std::move(what);
        stop = true;
    }

    void work()
    {
        while (!stop) {
            const size_t index = next++;
            if (index >= tasks.size())
                break;
            try {
                tasks[index]();
            } catch (...) {
                fail(std::current_exception());
            }
            ++ended;
        }
        const std::lock_guard lock(mutex);
        --working;
        done.notify_one();
    }
};

} // namespace

bool runTasks(const std::vector<std::function<void()>>& tasks, const std::function<bool(double)>& progress)
{
    if (tasks.empty())
        return true;
    Run run(tasks);
    const size_t count = std::min<size_t>(tasks.size(), std::max(1U, std::thread::hardware_concurrency()));
    std::vector<std::thread> threads;
    threads.reserve(count);
    run.working = count;
    for (size_t i = 0; i < count; ++i) {
        try {
            threads.emplace_back([&run] { run.work(); });
        } catch (...) { // the system gives no more threads: those that began do the work, or this one does
            {
                const std::lock_guard lock(run.mutex);
                run.working -= count - i;
                if (i == 0)
                    run.working = 1;
            }
            if (i == 0)
                run.work();
            break;
        }
    }
    {
        std::unique_lock lock(run.mutex);
        while (!run.done.wait_for(lock, progressPeriod, [&run] { return run.working == 0; })) {
            lock.unlock();
            try {
                if (progress && !progress(double(run.ended) / double(tasks.size())))
                    run.stop = true;
            } catch (...) {
                run.fail(std::current_exception());
            }
            lock.lock();
        }
    }
    for (std::thread& thread : threads)
        thread.join();
    if (run.failure)
        std::rethrow_exception(run.failure);
    if (run.stop)
        return false;
    return !progress || progress(1.0);
}
