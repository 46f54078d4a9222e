// SPDX-License-Identifier: BSL-1.0
// Draws the pictures of the documentation into a folder: convention_pictures docs/images

#include "pictures/Pictures.h"

#include "common/drawing/SvgWriter.h"

#include <array>
#include <fstream>
#include <iostream>
#include <string>

namespace {

struct Picture {
  const char* name;
  Drawing::Sheet (*sheet)();
};

constexpr std::array<Picture, 7> kPictures{{
    {"plan", ConventionPictures::planPicture},
    {"profile", ConventionPictures::axisProfilePicture},
    {"section", ConventionPictures::sectionPicture},
    {"shaft", ConventionPictures::shaftPicture},
    {"morph", ConventionPictures::morphPicture},
    {"outline", ConventionPictures::outlinePicture},
    {"station", ConventionPictures::stationPicture},
}};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: convention_pictures <folder>\n";
    return 2;
  }
  const std::string folder = argv[1];
  for (const Picture& picture : kPictures) {
    const std::string path = folder + '/' + picture.name + ".svg";
    std::ofstream file(path, std::ios::binary);
    file << Drawing::svgOf(Drawing::pictureOf(picture.sheet()));
    if (!file.flush()) {
      std::cerr << path << " cannot be written\n";
      return 1;
    }
  }
  return 0;
}
