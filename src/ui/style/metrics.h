#pragma once

// Lengths that more than one panel is built from, in device-independent pixels.
namespace quarlin::metrics {

/// Between the edge of a panel and what it holds.
inline constexpr int standardPadding = 16;
/// Under the heading of a panel whose contents scroll.
inline constexpr int headerBottom = 8;
/// Height of a panel's heading, with or without a button next to it.
inline constexpr int headerRowHeight = 24;
/// Corner of cards, tiles and boxes.
inline constexpr int cornerRadius = 8;
/// Corner of buttons and fields.
inline constexpr int controlRadius = 6;
/// Edge of a symbol next to text.
inline constexpr int symbolSize = 16;
/// Height of buttons and of the size picker.
inline constexpr int controlHeight = 28;
/// Edge of a slider's knob together with the focus ring around it.
inline constexpr int sliderHandleSize = 22;
inline constexpr int scrollBarThickness = 12;
/// Between a text without a frame and the focus ring around it.
inline constexpr int focusFrameMargin = 5;

}  // namespace quarlin::metrics
