// SPDX-License-Identifier: BSL-1.0
/// @file
/// What the morph engine reports.

#ifndef CALCULATIONS_PROFILES_MORPHING_MORPH_STATUS_H
#define CALCULATIONS_PROFILES_MORPHING_MORPH_STATUS_H

namespace Ruv {
namespace Calculations {

enum class MorphStatus {
  MissingProfiles = 0,
  ResetNeeded = 1,
  ProfileGeneration = 2,
  HalfCircle = 3,
  ShiftNotFound = 4,
  BaseSegment = 5,
  LinesMatch = 6,
  SegmentsMatch = 7,
  SideProfile = 8,
  BottomSegments = 9,
  BottomSteps = 10,
  BottomPolyline = 11,
  Silhouette = 12,
  OutlinePolyline = 13,
  NicheSidePolyline = 14,
  NicheInteriorPolyline = 15,
  Segments = 16,
  NicheInteriorSegments = 17,
  TestResult = 18,
  Morphed = 101
};

/// @param isEnd chooses between the texts of the start and of the end profile, where a code has two
/// @return never null
const char16_t* textOf(int code, bool isEnd);

}  // namespace Calculations
}  // namespace Ruv

#endif
