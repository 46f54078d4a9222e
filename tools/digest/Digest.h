// SPDX-License-Identifier: BSL-1.0
/// @file
/// Results of every calculator, so that those of two machines, or of two versions, can be compared.

#ifndef CALCULATIONS_TOOLS_DIGEST_DIGEST_H
#define CALCULATIONS_TOOLS_DIGEST_DIGEST_H

#include <Calculations/Points.h>

#include <string>
#include <vector>

namespace Digest {

/// One line of results. Counts and truth values go in as numbers. Whoever makes a digest says what
/// becomes of the line: the program prints it, the tests compare what was recorded.
/// @param scale magnitude of the coordinates behind the values; differences are relative to it
void record(const std::string& group, double scale, const std::vector<double>& values);
/// Coordinates, with the largest of them as scale.
void record(const std::string& group, const std::vector<Ruv::Calculations::Point2D>& points);

double largest(const Ruv::Calculations::ENHPoint& point);

/// A coordinate or reading to a decimal place. What the mathematical functions of two machines
/// tell differently in the last bit becomes the same input again.
double rounded(double value, double perUnit = 1e4);

/// The inputs are the same numbers on every machine: files, seeded random numbers, and what
/// addition, multiplication and square roots make of them. Several random numbers stand in braces,
/// which have an order; the arguments of a call have none.
/// @{
void axes();
void enteredAxes();
void profiles();
void outlines();
void morphing();
void morphedShapes();
void morphedFeet();
void fits();
void fitsOfFewPoints();
void stations();
void tiltedStations();
void angles();
/// @}

struct Scene {
  const char* name;
  void (*record)();
};

std::vector<Scene> scenes();

}  // namespace Digest

#endif
