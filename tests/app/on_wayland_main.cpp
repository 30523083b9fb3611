#include "test_application.h"

#ifdef __SANITIZE_ADDRESS__
/// What Qt's plugin for Wayland leaves behind. Not in leaks.supp, which is not in use when the tests are
/// listed.
extern "C" const char* __lsan_default_suppressions() { return "leak:libwayland-client"; }
#endif

int main(int argc, char** argv) { return quarlin::fixtures::runTestsInApplication(argc, argv, "wayland"); }
