#pragma once

namespace quarlin::fixtures {

/// Runs every test of the program under an application that looks alike on every machine: no display, the
/// Fusion style, DejaVu Sans at 13 pixels, a fixed palette and the C locale. Returns the program's exit
/// status.
int runTestsInApplication(int argc, char** argv);

/// The palettes of the tests.
void useLightPalette();
void useDarkPalette();

}  // namespace quarlin::fixtures
