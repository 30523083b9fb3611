#pragma once

namespace quarlin {

/// Lets assistive technology read and set the value of every `Slider` and `Stepper`, in the units that the
/// user sees. Further calls do nothing.
void installRangeAccessibility();

}  // namespace quarlin
