#pragma once

#include <QString>

class QWidget;

namespace quarlin::fixtures {

/// Compares what `widget` looks like, drawn at `scale` device pixels per pixel, with the baseline picture
/// `name`. A picture that differs fails the test and is kept in the build tree, next to the baseline and the
/// difference. With QUARLIN_UPDATE_BASELINES=1 in the environment the picture becomes the baseline instead.
void expectPicture(QWidget& widget, const QString& name, double scale = 1);

/// The same in light, in dark and at twice the scale, as NAME_light, NAME_dark and NAME_2x.
void expectPictures(QWidget& widget, const QString& name);

}  // namespace quarlin::fixtures
