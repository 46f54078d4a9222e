// SPDX-License-Identifier: BSL-1.0
#include "common/drawing/PdfFile.h"

#include "common/drawing/CairoRenderer.h"
#include "common/drawing/PrintableText.h"

#include <cairo-pdf.h>

#include <stdexcept>

namespace Drawing {

namespace {

constexpr double kPointsPerMillimetre = 72.0 / 25.4;

cairo_status_t append(void* text, const unsigned char* bytes, unsigned int count) {
  static_cast<std::string*>(text)->append(bytes, bytes + count);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

struct PdfFile::Impl {
  std::string bytes;
  Surface surface;
  int pages = 0;
  int chapter = CAIRO_PDF_OUTLINE_ROOT;  // the last bookmark of level 0
};

PdfFile::PdfFile(const std::string& title) : m_impl(std::make_unique<Impl>()) {
  constexpr double kPageSize = 100.0;  // each page has its own
  m_impl->surface.reset(
      cairo_pdf_surface_create_for_stream(append, &m_impl->bytes, kPageSize, kPageSize));
  cairo_pdf_surface_set_metadata(m_impl->surface.get(), CAIRO_PDF_METADATA_TITLE,
                                 printable(title).c_str());
}

PdfFile::~PdfFile() = default;

void PdfFile::addBookmark(const std::string& name, int level) {
  const std::string place = "page=" + std::to_string(m_impl->pages + 1);
  const int parent = level == 0 ? CAIRO_PDF_OUTLINE_ROOT : m_impl->chapter;
  const int added =
      cairo_pdf_surface_add_outline(m_impl->surface.get(), parent, printable(name).c_str(),
                                    place.c_str(), cairo_pdf_outline_flags_t{});
  if (level == 0) m_impl->chapter = added;
}

void PdfFile::addPage(const Picture& picture) {
  cairo_surface_t* surface = m_impl->surface.get();
  cairo_pdf_surface_set_size(surface, picture.width * kPointsPerMillimetre,
                             picture.height * kPointsPerMillimetre);
  paint(picture, surface, kPointsPerMillimetre);
  cairo_surface_show_page(surface);
  ++m_impl->pages;
}

std::string PdfFile::finish() {
  cairo_surface_finish(m_impl->surface.get());
  const cairo_status_t status = cairo_surface_status(m_impl->surface.get());
  if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
  return std::move(m_impl->bytes);
}

}  // namespace Drawing
