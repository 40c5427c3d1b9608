#include "core/rates/MoverTable.h"

#include "core/files/HtmlDocument.h"
#include "core/lookups/Directory.h"
#include "core/rates/PriceText.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <unordered_set>

namespace quorvane::rates {
namespace {

using Names = std::initializer_list<std::string_view>;

constexpr std::array kTables{"grd1", "grd2"};

struct MoverColumns {
  int code = -1;
  int name = -1;
  int price = -1;

  bool AreThere() const { return code >= 0 && price >= 0; }
};

int ColumnOf(const files::TextRow& headings, Names names) {
  for (const std::string_view name : names) {
    const auto found = std::ranges::find_if(headings.cells, [&](const std::string& heading) {
      return lookups::Folded(heading) == lookups::Folded(name);
    });
    if (found != headings.cells.end()) {
      return static_cast<int>(found - headings.cells.begin());
    }
  }
  return -1;
}

MoverColumns ColumnsOf(const files::TextRow& headings) {
  return {.code = ColumnOf(headings, {"SC_Code", "Scrip Code", "Security Code", "Code"}),
          .name = ColumnOf(headings, {"SC_Name", "Scrip Name", "Security Name", "Company Name",
                                      "Company", "Name"}),
          .price = ColumnOf(headings,
                            {"SC_Rate", "Close Price", "Close", "LTP", "LTP (Rs.)", "Last Price",
                             "Last", "Current Price", "Current", "Price", "Rate"})};
}

std::string CellAt(const files::TextRow& row, int column) {
  const auto place = static_cast<std::size_t>(column);
  return column >= 0 && place < row.cells.size() ? row.cells[place] : std::string();
}

void AddRows(const files::TextTable& table, std::size_t headings, const MoverColumns& columns,
             PriceFile& file) {
  std::unordered_set<std::string> known;
  for (const PriceRow& row : file.rows) {
    known.insert(lookups::Folded(row.code));
  }
  for (std::size_t place = headings + 1; place < table.rows.size(); ++place) {
    const files::TextRow& row = table.rows[place];
    PriceRow mover{.line = row.line,
                   .code = CellAt(row, columns.code),
                   .name = CellAt(row, columns.name),
                   .rate = PriceOf(CellAt(row, columns.price))};
    if (!mover.code.empty() && mover.rate > 0 && known.insert(lookups::Folded(mover.code)).second) {
      file.rows.push_back(std::move(mover));
    }
  }
}

bool AddTable(const files::TextTable& table, PriceFile& file) {
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    const MoverColumns columns = ColumnsOf(table.rows[row]);
    if (columns.AreThere()) {
      AddRows(table, row, columns, file);
      return true;
    }
  }
  return false;
}

}  // namespace

bool AddMovers(std::string_view html, PriceFile& file) {
  file.exchange = Exchange::kBse;
  file.has_names = true;
  file.has_rates = true;
  bool any = false;
  try {
    const files::HtmlDocument page(html);
    for (const char* id : kTables) {
      const auto table = page.TableAt(id);
      any = (table && AddTable(*table, file)) || any;
    }
  } catch (const files::TableError&) {
    return false;
  }
  return any;
}

}  // namespace quorvane::rates
