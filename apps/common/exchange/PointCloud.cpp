// SPDX-License-Identifier: BSL-1.0
#include "common/exchange/PointCloud.h"

#include "common/exchange/LasCloud.h"
#include "common/exchange/NumberParsing.h"
#include "common/exchange/Table.h"

#include <optional>
#include <string_view>
#include <utility>

namespace Exchange {

namespace {

class TextCloud : public PointCloud {
 public:
  TextCloud(std::istream& in, const TableFormat& format) : m_stream(in, scanColumns(), format) {}

  Remark open() {
    Remark problem = m_stream.open();
    m_description = m_stream.layout().description;
    return problem;
  }

  bool next(std::vector<CloudPoint>& points) override {
    points.clear();
    while (points.size() < kPointsAtOnce) {
      Remark remark;
      const auto found = m_stream.next(m_row, remark);
      if (found == TableStream::Found::Row) {
        points.push_back({m_row.line, {m_row.numbers[0], m_row.numbers[1], m_row.numbers[2]}});
      } else if (found == TableStream::Found::BadRow) {
        reject(remark);
      } else {
        m_problem = remark;
        break;
      }
      ++m_rows;
    }
    if (points.empty() && m_problem.message.empty() && m_rows < m_stream.declaredRows()) {
      m_problem = {0, "the file ends after " + std::to_string(m_rows) + " of its " +
                          std::to_string(m_stream.declaredRows()) + " points"};
    }
    return !points.empty();
  }

  std::uint64_t bytesRead() const override { return m_stream.bytesRead(); }

 private:
  TableStream m_stream;
  TableRow m_row;
  std::uint64_t m_rows = 0;
};

bool hasLasSignature(std::istream& in) {
  constexpr std::string_view kSignature = "LASF";
  std::size_t same = 0;
  while (same < kSignature.size() && in.peek() == kSignature[same]) {
    in.get();
    ++same;
  }
  for (std::size_t i = 0; i < same; ++i) {
    in.unget();
  }
  in.clear(in.rdstate() & ~std::ios::eofbit);
  return same == kSignature.size();
}

}  // namespace

void PointCloud::reject(const Remark& remark) {
  constexpr std::size_t kMostKept = 20;
  if (m_firstRejected.size() < kMostKept) m_firstRejected.push_back(remark);
  ++m_rejected;
}

const TableSchema& scanColumns() {
  static const TableSchema schema = {
      {{"east"}, {"north"}, {"height"}}, {"east", "north", "height"}, AngleUnit::Gon, true};
  return schema;
}

Outcome<std::unique_ptr<PointCloud>> openPointCloud(std::istream& in, const TableFormat& format) {
  using Result = Outcome<std::unique_ptr<PointCloud>>;
  if (hasLasSignature(in)) return openLas(in);
  auto cloud = std::make_unique<TextCloud>(in, format);
  const Remark problem = cloud->open();
  if (!problem.message.empty()) return Result::failure(problem);
  return Result::success(std::move(cloud));
}

}  // namespace Exchange
