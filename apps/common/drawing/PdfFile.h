// SPDX-License-Identifier: BSL-1.0
/// @file
/// Pictures as the pages of a PDF file.

#ifndef CALCULATIONS_APPS_COMMON_DRAWING_PDF_FILE_H
#define CALCULATIONS_APPS_COMMON_DRAWING_PDF_FILE_H

#include "common/drawing/Picture.h"

#include <memory>
#include <string>

namespace Drawing {

/// Lines and letters stay such: they print sharp, and the text can be searched, its fonts being in
/// the file.
class PdfFile {
 public:
  explicit PdfFile(const std::string& title);
  ~PdfFile();
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  /// A name under which a reader finds the page that is added next.
  /// @param level 0, or 1 for one below the last of level 0
  void addBookmark(const std::string& name, int level);
  /// A page of the picture's size.
  void addPage(const Picture& picture);

  /// Ends the file and returns its bytes. Throws a std::runtime_error when it could not be made.
  std::string finish();

 private:
  struct Impl;
  std::unique_ptr<Impl> m_impl;
};

}  // namespace Drawing

#endif
