#pragma once

#include "model/normal_preview_kind.h"
#include "model/output_preview_kind.h"

#include <QImage>

#include <map>

namespace quarlin {

/// The images of the preview tiles that there are.
using OutputPreviews = std::map<OutputPreviewKind, QImage>;
using NormalPreviews = std::map<NormalPreviewKind, QImage>;

}  // namespace quarlin
