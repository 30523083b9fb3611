#include "imaging/base/tasks.h"

#include "imaging/base/hand_over.h"

#include <oneapi/tbb/parallel_pipeline.h>
#include <oneapi/tbb/task.h>
#include <oneapi/tbb/task_arena.h>
#include <oneapi/tbb/task_group.h>

#include <cstddef>
#include <vector>

namespace quarlin::tasks {

namespace {

/// Calls `work`, which starts tasks and waits for them. A thread that waits runs other tasks meanwhile.
/// Inside a task these may only be the ones it waits for: any other could take long (a whole set of a batch),
/// or need a lock that this thread holds. The outermost call may run all: each of them is part of it.
template <typename Work>
void runTasks(const Work& work) {
    if (tbb::task::current_context() != nullptr) {
        tbb::this_task_arena::isolate(work);
    } else {
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

void runInStep(std::int64_t ahead, const std::function<bool(std::int64_t)>& first,
               const std::function<void(std::int64_t)>& second) {
    // What a turn leaves to the next one, and what the two functions leave to each other in the buffer of a
    // turn.
    HandOver begin;
    HandOver firstDone;
    HandOver secondDone;
    std::vector<HandOver> buffers(static_cast<std::size_t>(ahead));
    const auto bufferOf = [&](std::int64_t turn) -> HandOver& {
        return buffers[static_cast<std::size_t>(turn % ahead)];
    };

    std::int64_t next = 0;
    const auto runFirst = [&](tbb::flow_control& control) {
        const std::int64_t turn = next++;
        begin.take();
        firstDone.take();
        bufferOf(turn).take();
        if (!first(turn)) {
            control.stop();
        }
        bufferOf(turn).give();
        firstDone.give();
        return turn;
    };
    const auto runSecond = [&](std::int64_t turn) {
        secondDone.take();
        bufferOf(turn).take();
        second(turn);
        bufferOf(turn).give();
        secondDone.give();
    };
    begin.give();
    runTasks([&] {
        constexpr auto inOrder = tbb::filter_mode::serial_in_order;
        tbb::parallel_pipeline(static_cast<std::size_t>(ahead),
                               tbb::make_filter<void, std::int64_t>(inOrder, runFirst) &
                                   tbb::make_filter<std::int64_t, void>(inOrder, runSecond));
    });
    firstDone.take();
    secondDone.take();
}

}  // namespace quarlin::tasks
