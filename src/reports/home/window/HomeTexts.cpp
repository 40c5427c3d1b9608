#include "reports/home/window/HomeTexts.h"

#include "core/text/Tr.h"

#include <QLocale>

namespace quorvane::home {
namespace {

const QLocale& Indian() {
  static const QLocale kIndian(QLocale::English, QLocale::India);
  return kIndian;
}

}  // namespace

QString Rupees(Paise amount) {
  return Indian().toString(amount.Rupees(), 'f', 2);
}

QString Quantity(Shares shares) {
  return Indian().toString(shares.Number(), 'f', 2);
}

bool IsGain(FigureLine::Kind kind) {
  return kind >= FigureLine::Kind::kLongTerm;
}

std::vector<FigureLine> FigureLines(const Figures& figures, const Scope& scope) {
  using enum FigureLine::Kind;
  const QString day = figures.market_day
                          ? Tr("Home", "rates up to %1").arg(text::FormatDmy(*figures.market_day))
                          : Tr("Home", "no rates are recorded");
  const QString year = Tr("Home", "sales of %1").arg(scope.year.Text());
  return {{kValue, Tr("Home", "Value"), figures.value, day},
          {kChange, Tr("Home", "Day's change"), figures.change, day},
          {kCost, Tr("Home", "Cost"), figures.cost, Tr("Home", "all that is held")},
          {kUnrealised, Tr("Home", "Value less cost"), figures.unrealised,
           Tr("Home", "what has a rate")},
          {kLongTerm, Tr("Home", "Long-term gain"), figures.gains.long_term, year},
          {kShortTerm, Tr("Home", "Short-term gain"), figures.gains.short_term, year},
          {kSpeculation, Tr("Home", "Speculation"), figures.gains.speculation, year}};
}

QString StateText(const std::optional<Shown>& shown, const QString& failure) {
  if (!failure.isEmpty()) {
    return Tr("Home", "The figures could not be read: %1").arg(failure.simplified());
  }
  if (!shown) {
    return Tr("Home", "The figures are being read ...");
  }
  const QString checked = shown->checked
                              ? shown->checked->toString(QStringLiteral("dd/MM/yyyy hh:mm"))
                              : Tr("Home", "never");
  if (shown->figures.computed < shown->figures.clients) {
    return Tr("Home", "Figures of %1 of %2 clients; the others are being computed ...")
        .arg(shown->figures.computed)
        .arg(shown->figures.clients);
  }
  return (shown->checking ? Tr("Home", "Figures as checked on %1; being checked again ...")
                          : Tr("Home", "Figures as checked on %1"))
      .arg(checked);
}

QString StateOf(const ComingDividend& dividend) {
  if (dividend.of) {
    return Tr("Home", "recorded, to be received");
  }
  return dividend.amount ? Tr("Home", "announced") : Tr("Home", "not recorded yet");
}

std::vector<std::pair<CheckState, QString>> StatementLines(const StatementCounts& counts) {
  std::vector<std::pair<CheckState, QString>> lines;
  const auto add = [&](CheckState state, int count, const QString& text) {
    if (count > 0) {
      lines.emplace_back(state, text.arg(count));
    }
  };
  add(CheckState::kDiffers, counts.differing,
      Tr("Home", "%1 demat accounts do not agree with their last statement."));
  add(CheckState::kNever, counts.never,
      Tr("Home", "%1 demat accounts were never compared with a statement."));
  add(CheckState::kOld, counts.old,
      Tr("Home", "%1 demat accounts have no statement of the last six months."));
  return lines;
}

QString NameOf(CheckState state) {
  switch (state) {
    case CheckState::kNever:
      return Tr("Home", "never compared");
    case CheckState::kDiffers:
      return Tr("Home", "does not agree");
    case CheckState::kOld:
      return Tr("Home", "older than six months");
    case CheckState::kAgrees:
      return Tr("Home", "agrees");
  }
  return {};
}

QString NameOf(LastRecord::Kind kind) {
  switch (kind) {
    case LastRecord::Kind::kBill:
      return Tr("Home", "Bill");
    case LastRecord::Kind::kPayment:
      return Tr("Home", "Payment");
    case LastRecord::Kind::kReceipt:
      return Tr("Home", "Receipt");
    case LastRecord::Kind::kTransfer:
      return Tr("Home", "Transfer");
  }
  return {};
}

const char* WindowOf(LastRecord::Kind kind) {
  switch (kind) {
    case LastRecord::Kind::kBill:
      return "FrmSalePurchase";
    case LastRecord::Kind::kPayment:
      return "FrmBrPayment";
    case LastRecord::Kind::kReceipt:
      return "FrmBrRec";
    case LastRecord::Kind::kTransfer:
      return "FrmScriptTransfer";
  }
  return "";
}

}  // namespace quorvane::home
