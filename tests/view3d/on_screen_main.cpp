#include "test_application.h"

#ifdef __SANITIZE_ADDRESS__
#include <gtest/gtest.h>
#include <sanitizer/lsan_interface.h>

namespace {

/// Looks for leaked memory while the OpenGL driver is still loaded. The driver is unloaded with the
/// application, and what it leaks could then neither be reached nor be named in leaks.supp.
class LeakCheck : public testing::Environment {
    void TearDown() override { __lsan_do_leak_check(); }
};

const testing::Environment* const leakCheck = testing::AddGlobalTestEnvironment(new LeakCheck);

}  // namespace
#endif

int main(int argc, char** argv) { return quarlin::fixtures::runTestsInApplication(argc, argv, "xcb"); }
