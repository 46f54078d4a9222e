// SPDX-License-Identifier: BSL-1.0
/// @file
/// Drawings for CAD programs, in the coordinates of the world.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_DXF_FILE_H
#define CALCULATIONS_APPS_COMMON_DRAWING_DXF_FILE_H

#include <memory>
#include <string>
#include <vector>

namespace Drawing {

/// A point in metres, x to the right or east, y up or north.
struct Point3 {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

struct DxfLayer {
  /// @name Of the usual index
  /// @{
  static constexpr int kRed = 1;
  static constexpr int kGreen = 3;
  static constexpr int kBlue = 5;
  static constexpr int kInk = 7;  ///< black on white paper, white on a black screen
  static constexpr int kGrey = 8;
  static constexpr int kOrange = 30;
  static constexpr int kCyan = 140;
  static constexpr int kViolet = 200;
  /// @}

  std::string name;
  int colour = kInk;
};

/// Writes a DXF file (of release 2000, lengths in metres) entity by entity. Lines and arcs are
/// such; every entity has the colour of its layer. Angles are radians, anticlockwise from x.
class DxfFile {
 public:
  /// @param path of the file; finish() tells whether it could be written
  DxfFile(const std::string& path, const std::vector<DxfLayer>& layers);
  ~DxfFile();
  DxfFile(const DxfFile&) = delete;
  DxfFile& operator=(const DxfFile&) = delete;

  void point(const std::string& layer, const Point3& at);
  void line(const std::string& layer, const Point3& from, const Point3& to);
  /// In a plane parallel to x and y, anticlockwise.
  void arc(const std::string& layer, const Point3& centre, double radius, double startAngle,
           double endAngle);
  void circle(const std::string& layer, const Point3& centre, double radius);
  /// @param rotation of the first, longer semi-axis
  void ellipse(const std::string& layer, const Point3& centre, double semiAxisA, double semiAxisB,
               double rotation);
  /// In a plane parallel to x and y, at the height of its first point.
  void polyline(const std::string& layer, const std::vector<Point3>& points, bool isClosed);
  void spacePolyline(const std::string& layer, const std::vector<Point3>& points, bool isClosed);
  /// One line, its left end at the point.
  void text(const std::string& layer, const Point3& at, double height, const std::string& words,
            double angle = 0.0);

  /// Ends the file.
  /// @return false when it could not be written
  bool finish();

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace Drawing

#endif
