#pragma once

#include <lcms2.h>

#include <memory>

namespace quarlin {

struct ProfileCloser {
    using pointer = cmsHPROFILE;
    void operator()(cmsHPROFILE profile) const { cmsCloseProfile(profile); }
};
/// An open ICC profile.
using Profile = std::unique_ptr<void, ProfileCloser>;

struct TransformDeleter {
    using pointer = cmsHTRANSFORM;
    void operator()(cmsHTRANSFORM transform) const { cmsDeleteTransform(transform); }
};
/// A conversion from the samples of one profile to those of another.
using Transform = std::unique_ptr<void, TransformDeleter>;

struct CurveDeleter {
    void operator()(cmsToneCurve* curve) const { cmsFreeToneCurve(curve); }
};
using Curve = std::unique_ptr<cmsToneCurve, CurveDeleter>;

}  // namespace quarlin
