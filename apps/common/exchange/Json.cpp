// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/Json.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace Exchange {

struct Json::Value {
  nlohmann::ordered_json json;
};

Json::Json() : m_value(new Value{nullptr}) {}
Json::Json(double number) : m_value(new Value{number}) {}
Json::Json(std::size_t number) : m_value(new Value{number}) {}
Json::Json(bool truth) : m_value(new Value{truth}) {}
Json::Json(const char* text) : m_value(new Value{text}) {}
Json::Json(const std::string& text) : m_value(new Value{text}) {}
Json::Json(const std::vector<double>& numbers) : m_value(new Value{numbers}) {}
Json::Json(const Json& other) : m_value(new Value(*other.m_value)) {}
Json::Json(Json&& other) noexcept = default;
Json::~Json() = default;

Json Json::object() {
  Json json;
  json.m_value->json = nlohmann::ordered_json::object();
  return json;
}

Json Json::list() {
  Json json;
  json.m_value->json = nlohmann::ordered_json::array();
  return json;
}

Json& Json::set(const std::string& name, const Json& value) {
  m_value->json[name] = value.m_value->json;
  return *this;
}

Json& Json::add(const Json& value) {
  m_value->json.push_back(value.m_value->json);
  return *this;
}

std::string Json::text() const {
  constexpr int kIndent = 2;
  using Handler = nlohmann::ordered_json::error_handler_t;
  return m_value->json.dump(kIndent, ' ', false, Handler::replace) + '\n';
}

}  // namespace Exchange
