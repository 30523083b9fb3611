#include "imaging/base/tasks.h"

#include "imaging/base/hand_over.h"

#include <oneapi/tbb/global_control.h>
#include <oneapi/tbb/info.h>
#include <oneapi/tbb/parallel_pipeline.h>
#include <oneapi/tbb/task.h>
#include <oneapi/tbb/task_arena.h>
#include <oneapi/tbb/task_group.h>

#include <cstddef>
#include <latch>
#include <memory>
#include <system_error>
#include <thread>
#include <vector>

namespace quarlin::tasks {

namespace {

/// How many threads the system lets this process run besides those it has, at most `wanted`.
std::size_t startableThreads(std::size_t wanted) {
    std::latch end(1);
    std::vector<std::thread> threads;
    threads.reserve(wanted);
    try {
        while (threads.size() < wanted) {
            threads.emplace_back([&end] { end.wait(); });
        }
    } catch (const std::system_error&) {
        // There is a limit, and it is reached.
    }
    end.count_down();
    for (std::thread& thread : threads) {
        thread.join();
    }
    return threads.size();
}

/// Keeps to the limit that the system sets for threads. oneTBB throws where a worker can't be started, also
/// in other workers, and that would end the process.
void limitWorkers() {
    // Never destroyed: without the limit oneTBB would start workers while the process ends.
    [[maybe_unused]] static const tbb::global_control* const limit = [] {
        const auto most = static_cast<std::size_t>(tbb::info::default_concurrency());
        const std::size_t possible = 1 + startableThreads(most - 1);
        return possible == most ? nullptr
                                : std::make_unique<tbb::global_control>(
                                      tbb::global_control::max_allowed_parallelism, possible)
                                      .release();
    }();
}

/// Calls `work`, which starts tasks and waits for them. A thread that waits runs other tasks meanwhile.
/// Inside a task these may only be the ones it waits for: any other could take long (a whole set of a batch),
/// or need a lock that this thread holds. The outermost call may run all: each of them is part of it.
template <typename Work>
void runTasks(const Work& work) {
    if (tbb::task::current_context() != nullptr) {
        tbb::this_task_arena::isolate(work);
    } else {
        limitWorkers();
        work();
    }
}

}  // namespace

void runSideBySide(std::int64_t times, const std::function<void()>& work) {
    if (times <= 1) {
        // Not a task, so that a parallel call inside it is an outermost one.
        if (times == 1) {
            work();
        }
        return;
    }
    HandOver begin;
    HandOver end;
    const auto task = [&] {
        begin.take();
        work();
        end.give();
    };
    begin.give();
    runTasks([&] {
        tbb::task_group group;
        for (std::int64_t other = 1; other < times; ++other) {
            group.run(task);
        }
        group.run_and_wait(task);
    });
    end.take();
}

namespace {

/// The functions of a pipeline, with the marks for what they leave to each other: a serial one to its next
/// turn, and those of the same turn in its buffer.
class MarkedSteps {
public:
    using Step = std::function<void(std::int64_t)>;

    MarkedSteps(std::int64_t ahead, const std::function<bool(std::int64_t)>& first, const Step& last)
        : m_first(first), m_last(last), m_buffers(static_cast<std::size_t>(ahead)) {
        m_begin.give();
    }

    std::int64_t runFirst(tbb::flow_control& control) {
        const std::int64_t turn = m_next++;
        m_begin.take();
        m_firstDone.take();
        bufferOf(turn).take();
        if (!m_first(turn)) {
            control.stop();
        }
        bufferOf(turn).give();
        m_firstDone.give();
        return turn;
    }
    std::int64_t runMiddle(const Step& middle, std::int64_t turn) {
        m_begin.take();
        bufferOf(turn).take();
        middle(turn);
        bufferOf(turn).give();
        return turn;
    }
    void runLast(std::int64_t turn) {
        m_lastDone.take();
        bufferOf(turn).take();
        m_last(turn);
        bufferOf(turn).give();
        m_lastDone.give();
    }
    void end() {
        m_firstDone.take();
        m_lastDone.take();
    }

private:
    HandOver& bufferOf(std::int64_t turn) {
        return m_buffers[static_cast<std::size_t>(turn) % m_buffers.size()];
    }

    const std::function<bool(std::int64_t)>& m_first;
    const Step& m_last;
    std::int64_t m_next = 0;
    HandOver m_begin;
    HandOver m_firstDone;
    HandOver m_lastDone;
    std::vector<HandOver> m_buffers;
};

constexpr auto inOrder = tbb::filter_mode::serial_in_order;

}  // namespace

void runInStep(std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
               const std::function<void(std::int64_t)>& second) {
    MarkedSteps steps(ahead, first, second);
    runTasks([&] {
        tbb::parallel_pipeline(static_cast<std::size_t>(ahead),
                               tbb::make_filter<void, std::int64_t>(inOrder, [&](tbb::flow_control& control) {
                                   return steps.runFirst(control);
                               }) & tbb::make_filter<std::int64_t, void>(inOrder, [&](std::int64_t turn) {
                                   steps.runLast(turn);
                               }));
    });
    steps.end();
}

void runInThreeSteps(std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
                     const std::function<void(std::int64_t)>& middle,
                     const std::function<void(std::int64_t)>& last) {
    MarkedSteps steps(ahead, first, last);
    runTasks([&] {
        tbb::parallel_pipeline(
            static_cast<std::size_t>(ahead),
            tbb::make_filter<void, std::int64_t>(
                inOrder, [&](tbb::flow_control& control) { return steps.runFirst(control); }) &
                tbb::make_filter<std::int64_t, std::int64_t>(
                    tbb::filter_mode::parallel,
                    [&](std::int64_t turn) { return steps.runMiddle(middle, turn); }) &
                tbb::make_filter<std::int64_t, void>(inOrder,
                                                     [&](std::int64_t turn) { steps.runLast(turn); }));
    });
    steps.end();
}

}  // namespace quarlin::tasks
