#include "common/console/CommandLine.h"

#include "common/exchange/NumberParsing.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace Console {

namespace {

std::string rangeText(double lowest, double highest) {
  constexpr int kEveryDigit = 12;
  std::ostringstream text;
  text.precision(kEveryDigit);
  text << lowest << " to " << highest;
  return text.str();
}

/// Unlike CLI::Range it refuses not-a-number.
CLI::Validator rangeCheck(double lowest, double highest) {
  const std::string range = rangeText(lowest, highest);
  const auto complaint = [=](const std::string& text) {
    const auto number = Exchange::parseNumber(text);
    const bool fits = number && *number >= lowest && *number <= highest;
    return fits ? std::string() : text + " is not a number from " + range;
  };
  return CLI::Validator(complaint, range);
}

}  // namespace

Option& Option::required() {
  m_option->required();
  return *this;
}

Option& Option::between(double lowest, double highest) {
  m_option->check(rangeCheck(lowest, highest));
  return *this;
}

Option& Option::tellDefault() {
  m_option->capture_default_str();
  return *this;
}

Option& Option::list() {
  m_option->delimiter(',');
  return *this;
}

Option& Option::list(int count) {
  m_option->delimiter(',')->expected(count);
  return *this;
}

Option& Option::needs(const Option& other) {
  m_option->needs(other.m_option);
  return *this;
}

Option& Option::excludes(const Option& other) {
  m_option->excludes(other.m_option);
  return *this;
}

Option OptionGroup::add(const std::string& name, std::string& target, const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose));
}

Option OptionGroup::add(const std::string& name, double& target, const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose));
}

Option OptionGroup::add(const std::string& name, std::optional<double>& target,
                        const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose));
}

Option OptionGroup::add(const std::string& name, std::vector<double>& target,
                        const std::string& purpose) {
  return Option(m_app->add_option(name, target, purpose));
}

Option OptionGroup::addFlag(const std::string& name, bool& target, const std::string& purpose) {
  return Option(m_app->add_flag(name, target, purpose));
}

OptionGroup OptionGroup::group(const std::string& heading) {
  return OptionGroup(m_app->add_option_group(heading));
}

CommandLine::CommandLine(const std::string& purpose) : m_app(std::make_unique<CLI::App>(purpose)) {}

CommandLine::~CommandLine() = default;

std::optional<int> CommandLine::read(int argc, char** argv) {
  try {
    m_app->parse(argc, argv);
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    return m_app->exit(error) == 0 ? 0 : 1;
  }
}

}  // namespace Console
