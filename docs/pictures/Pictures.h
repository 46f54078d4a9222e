// SPDX-License-Identifier: BSL-1.0
/// @file
/// The pictures of the documentation. What the library can compute in them, it computes, so that
/// a picture shows the signs that callers get.

#ifndef CALCULATIONS_DOCS_PICTURES_PICTURES_H
#define CALCULATIONS_DOCS_PICTURES_PICTURES_H

#include "common/drawing/Canvas.h"

namespace ConventionPictures {

Drawing::Sheet planPicture();         ///< azimuth, offset, radius
Drawing::Sheet axisProfilePicture();  ///< grade, roundings, tunnel meter
Drawing::Sheet sectionPicture();      ///< offset and height, transverse slope, the two planes
Drawing::Sheet shaftPicture();        ///< axes of both kinds of shaft
Drawing::Sheet morphPicture();        ///< profiles between two profiles
Drawing::Sheet outlinePicture();      ///< sense, radius, distance, derolment
Drawing::Sheet stationPicture();      ///< polar measurement, guidance angles

}  // namespace ConventionPictures

#endif
