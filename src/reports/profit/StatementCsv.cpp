#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "reports/profit/ProfitDocument.h"

#include <array>

namespace quorvane::profit {
namespace {

/// One row after the other; the texts of an account and a scrip are looked up when they change.
class CsvRows {
 public:
  CsvRows(std::string& out, const lookups::Directory& directory)
      : out_(out), directory_(directory) {}

  void Write(const StatementRow& row) {
    const bool bought = row.HasPurchase();
    const bool sold = row.HasSale();
    const bool total = row.kind == LineKind::kTotal || row.kind == LineKind::kNetTotal;
    out_ += Name(row.kind);
    out_ += ',';
    Places(row);
    PurchaseSide(row, bought, total);
    SaleSide(row, sold, total);
    Gains(row, (bought && sold) || total, sold || total);
  }

 private:
  static std::string_view Name(LineKind kind) {
    static constexpr std::array<std::string_view, 6> kNames{"match",  "unmatched", "transfer",
                                                            "unsold", "total",     "net_total"};
    return kNames[static_cast<std::size_t>(kind)];
  }

  void Places(const StatementRow& row) {
    if (row.account != account_) {
      account_ = row.account;
      account_text_.clear();
      text::AppendCsvField(account_text_, directory_.Account(account_).number);
    }
    if (row.scrip != scrip_) {
      scrip_ = row.scrip;
      scrip_text_.clear();
      text::AppendCsvField(scrip_text_, directory_.Scrip(scrip_).code);
    }
    out_.append(account_text_).append(1, ',').append(scrip_text_).append(1, ',');
  }

  void PurchaseSide(const StatementRow& row, bool bought, bool total) {
    if (bought) {
      text::AppendDmy(out_, row.purchase_date);
    }
    out_ += ',';
    if (bought || row.kind == LineKind::kTotal) {
      text::AppendNumber(out_, row.quantity);
    }
    out_ += ',';
    if (bought) {
      text::AppendNumber(out_, row.purchase_net);
    }
    out_ += ',';
    Money(row.purchase_amount, bought || total);
  }

  void SaleSide(const StatementRow& row, bool sold, bool total) {
    if (sold) {
      text::AppendDmy(out_, row.sale_date);
    }
    out_ += ',';
    if (sold || row.kind == LineKind::kTotal) {
      text::AppendNumber(out_, row.sale_quantity);
    }
    out_ += ',';
    if (sold) {
      text::AppendNumber(out_, row.sale_net);
    }
    out_ += ',';
    Money(row.sale_amount, sold || total);
  }

  void Gains(const StatementRow& row, bool gains, bool stt) {
    Money(row.purchase_cost, gains);
    Money(row.long_term, gains);
    Money(row.short_term, gains);
    Money(row.speculation, gains);
    if (stt) {
      text::AppendPaise(out_, row.stt_paid);
    }
    out_ += '\n';
  }

  void Money(std::int64_t paise, bool applies) {
    if (applies) {
      text::AppendPaise(out_, paise);
    }
    out_ += ',';
  }

  std::string& out_;
  const lookups::Directory& directory_;
  AccountId account_;
  ScripId scrip_;
  std::string account_text_;
  std::string scrip_text_;
};

}  // namespace

void AppendStatementCsvHeader(std::string& out) {
  out +=
      "row,account_no,scrip_code,purchase_date,quantity,purchase_net,purchase_amount,sale_date,"
      "sale_quantity,sale_net,sale_amount,purchase_cost,long_term,short_term,speculation,"
      "stt_paid\n";
}

void AppendStatementCsv(std::string& out, std::span<const StatementRow> rows,
                        const lookups::Directory& directory) {
  CsvRows writer(out, directory);
  for (const StatementRow& row : rows) {
    writer.Write(row);
  }
}

}  // namespace quorvane::profit
