#pragma once

namespace quarlin {

/// Lets assistive technology read and set the value of every `RangeControl`. Further calls do nothing.
void installRangeControlAccessibility();

}  // namespace quarlin
