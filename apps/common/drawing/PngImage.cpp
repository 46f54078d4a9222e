// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/PngImage.h"

#include "common/drawing/CairoRenderer.h"

#include <png.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <stdexcept>
#include <tuple>
#include <vector>

namespace Drawing {

namespace {

std::vector<png_byte> rgbBytesOf(cairo_surface_t* image) {
  const auto columns = static_cast<std::size_t>(cairo_image_surface_get_width(image));
  const auto rows = static_cast<std::size_t>(cairo_image_surface_get_height(image));
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image));
  const unsigned char* data = cairo_image_surface_get_data(image);
  std::vector<png_byte> bytes(3 * columns * rows);
  png_byte* byte = bytes.data();
  for (std::size_t row = 0; row < rows; ++row) {
    const unsigned char* place = data + row * stride;
    for (std::size_t column = 0; column < columns; ++column) {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, place, sizeof pixel);
      place += sizeof pixel;
      *byte++ = static_cast<png_byte>(pixel >> 16U & 0xFFU);
      *byte++ = static_cast<png_byte>(pixel >> 8U & 0xFFU);
      *byte++ = static_cast<png_byte>(pixel & 0xFFU);
    }
  }
  return bytes;
}

png_image imageOf(std::size_t columns, std::size_t rows, png_uint_32 format) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(columns);
  image.height = static_cast<png_uint_32>(rows);
  image.format = format;
  return image;
}

/// @param colours of a palette; null for an image of colours
std::string written(png_image image, const std::vector<png_byte>& pixels, const void* colours) {
  std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  png_alloc_size_t size = bytes.size();
  if (png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, colours) == 0) {
    throw std::runtime_error(static_cast<const char*>(image.message));
  }
  bytes.resize(size);
  return bytes;
}

png_byte levelOf(double component) {
  return static_cast<png_byte>(std::lround(std::clamp(255.0 * component, 0.0, 255.0)));
}

}  // namespace

std::string pngOf(const Picture& picture, double pixelsPerMillimetre) {
  const auto pixels = [pixelsPerMillimetre](double millimetres) {
    return static_cast<int>(std::lround(millimetres * pixelsPerMillimetre));
  };
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(picture.width),
                                                   pixels(picture.height)));
  paint(picture, surface.get(), pixelsPerMillimetre);
  cairo_surface_flush(surface.get());
  png_image image = imageOf(static_cast<std::size_t>(pixels(picture.width)),
                            static_cast<std::size_t>(pixels(picture.height)), PNG_FORMAT_RGB);
  // Without the filters that cairo's own writer tries: on line drawings they cost three quarters
  // of the time and save nothing.
  image.flags = PNG_IMAGE_FLAG_FAST;
  return written(image, rgbBytesOf(surface.get()), nullptr);
}

std::string pngOf(const Raster& raster) {
  constexpr std::size_t kMostColours = 256;
  using Level = std::tuple<png_byte, png_byte, png_byte, png_byte>;
  std::map<Level, png_byte> places;  // in the palette
  std::vector<png_byte> palette;
  std::vector<png_byte> pixels;
  pixels.reserve(raster.cells.size());
  for (const std::optional<Colour>& cell : raster.cells) {
    const Level level =
        cell ? Level(levelOf(cell->red), levelOf(cell->green), levelOf(cell->blue), 255)
             : Level(0, 0, 0, 0);
    const auto [place, isNew] = places.emplace(level, static_cast<png_byte>(places.size()));
    if (isNew) {
      const auto& [red, green, blue, alpha] = level;
      palette.insert(palette.end(), {red, green, blue, alpha});
    }
    pixels.push_back(place->second);
  }
  if (places.size() > kMostColours) throw std::runtime_error("a map of more than 256 colours");
  const auto columns = static_cast<std::size_t>(raster.columns);
  png_image image = imageOf(columns, raster.cells.size() / columns, PNG_FORMAT_RGBA_COLORMAP);
  image.colormap_entries = static_cast<png_uint_32>(places.size());
  return written(image, pixels, palette.data());
}

}  // namespace Drawing
