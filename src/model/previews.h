#pragma once

#include "model/generated_set.h"
#include "model/material_set.h"

#include <QImage>

#include <map>

namespace quarlin {

/// The images of the preview tiles that there are.
using OutputPreviews = std::map<MaterialImage, QImage>;
using NormalPreviews = std::map<GeneratedMap, QImage>;

}  // namespace quarlin
