// SPDX-License-Identifier: BSL-1.0
/// @file
/// Results as JSON, for other programs.

#ifndef CALCULATIONS_APPS_COMMON_EXCHANGE_JSON_H
#define CALCULATIONS_APPS_COMMON_EXCHANGE_JSON_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace Exchange {

/// A JSON value. The library that writes it takes long to compile and is therefore included in one
/// source alone. Copies are deep.
///
///   Json point = Json::object();
///   point.set("id", "P1").set("east", 600000.0);
///   Json points = Json::list();
///   points.add(point);
class Json {
 public:
  Json();               ///< null
  Json(double number);  ///< null when it is not finite
  Json(std::size_t number);
  Json(bool truth);
  Json(const char* text);
  Json(const std::string& text);  ///< bytes that are no UTF-8 are shown as U+FFFD
  Json(const std::vector<double>& numbers);
  Json(const Json& other);
  Json(Json&& other) noexcept;
  Json& operator=(const Json&) = delete;
  ~Json();

  static Json object();
  static Json list();

  /// Members stay in the order in which they were set.
  Json& set(const std::string& name, const Json& value);
  Json& add(const Json& value);

  /// Indented, with a line break at the end. Numbers come back to the bit.
  std::string text() const;

 private:
  struct Value;

  std::unique_ptr<Value> m_value;
};

}  // namespace Exchange

#endif
