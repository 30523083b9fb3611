#include "test_application.h"

int main(int argc, char** argv) { return quarlin::fixtures::runTestsInApplication(argc, argv, "xcb"); }
