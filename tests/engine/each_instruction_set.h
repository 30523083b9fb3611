#pragma once

#include <hwy/targets.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace quarlin {

/// Calls `work` once for every instruction set that this machine has and the vector code is compiled for, the
/// one without vectors included, with the code's choice forced to it.
template <typename Work>
void forEachInstructionSet(const Work& work) {
    for (std::int64_t left = hwy::SupportedTargets() & (HWY_TARGETS); left != 0; left &= left - 1) {
        const std::int64_t target = left & -left;
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().Update(hwy::SupportedTargets());
        SCOPED_TRACE(hwy::TargetName(target));
        work();
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

}  // namespace quarlin
