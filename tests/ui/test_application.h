#pragma once

namespace quarlin::fixtures {

/// Runs every test of the program under an application that looks alike on every machine: no display, or the
/// given platform plugin of Qt, the program's style and light palette, DejaVu Sans at 13 pixels and the C
/// locale. Returns the program's exit status.
int runTestsInApplication(int argc, char** argv, const char* platform = "offscreen");

/// Switches to one of the program's palettes.
void useLightPalette();
void useDarkPalette();

}  // namespace quarlin::fixtures
