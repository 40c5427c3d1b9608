#include "reports/mis/window/RateList.h"

#include "core/text/Amounts.h"

#include <utility>

namespace quorvane::mis {
namespace {

using controls::Mask;

enum Column { kName, kType, kNcode, kRate, kScrCls };

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

RateList::RateList() : Grid(QStringLiteral("VSF"), tr("Rates of the date")) {
  SetColumns({{.heading = tr("Name")},
              {.heading = tr("Type")},
              {.heading = tr("Ncode")},
              {.heading = tr("Rate"), .mask = Mask::kAmount, .editable = true},
              {.heading = tr("ScrCls")}});
  connect(&Model(), &controls::GridModel::CellEdited, this, &RateList::RoundEntered);
}

void RateList::SetEditing(bool editing) {
  editing_ = editing;
  setEditTriggers(editing ? EditKeyPressed | AnyKeyPressed | DoubleClicked : NoEditTriggers);
}

void RateList::ShowRates(Rates recorded) {
  recorded_ = std::move(recorded);
  std::vector<controls::Row> rows;
  rows.reserve(editing_ ? scrips_.size() : recorded_.size());
  for (const rates::ListedScrip& scrip : scrips_) {
    const double rate = RecordedOf(scrip.id);
    if (editing_ || rate != 0) {
      rows.push_back({.id = scrip.id.value,
                      .cells = {Utf8(scrip.name), Utf8(scrip.type), Utf8(scrip.symbol),
                                rate != 0 ? QVariant(rate) : QVariant(), Utf8(scrip.scrip_class)}});
    }
  }
  SetRows(std::move(rows));
}

double RateList::RecordedOf(ScripId scrip) const {
  const auto found = recorded_.find(scrip);
  return found == recorded_.end() ? 0 : found->second;
}

void RateList::ChangeRecorded(Rates recorded) {
  for (int row = 0; row < Model().RowCount(); ++row) {
    const ScripId scrip{Model().IdOf(row)};
    if (Model().Number(row, kRate) != RecordedOf(scrip)) {
      continue;
    }
    const auto rate = recorded.find(scrip);
    Model().SetValue(row, kRate, rate == recorded.end() ? QVariant() : QVariant(rate->second));
  }
  recorded_ = std::move(recorded);
}

void RateList::SetRates(const Rates& rates) {
  for (int row = 0; row < Model().RowCount(); ++row) {
    if (const auto rate = rates.find(ScripId{Model().IdOf(row)}); rate != rates.end()) {
      Model().SetValue(row, kRate, rate->second);
    }
  }
}

bool RateList::SetRate(ScripId scrip, double rate) {
  const int row = Model().RowOf(scrip.value);
  if (row < 0) {
    return false;
  }
  Model().SetValue(row, kRate, rate);
  return true;
}

void RateList::FocusFirstRate() {
  if (Model().RowCount() > 0) {
    setFocus(Qt::OtherFocusReason);
    setCurrentIndex(model()->index(0, kRate));
  }
}

std::vector<rates::ScripRate> RateList::Changed() const {
  std::vector<rates::ScripRate> changed;
  for (int row = 0; row < Model().RowCount(); ++row) {
    const ScripId scrip{Model().IdOf(row)};
    const double rate = Model().Number(row, kRate);
    if (rate != RecordedOf(scrip)) {
      changed.push_back({scrip, rate});
    }
  }
  return changed;
}

std::vector<rates::ListedScrip> RateList::Chosen() const {
  std::vector<rates::ListedScrip> chosen;
  for (const rates::ListedScrip& scrip : scrips_) {
    const int row = Model().RowOf(scrip.id.value);
    if (row >= 0 && selectionModel()->isRowSelected(row)) {
      chosen.push_back(scrip);
    }
  }
  return chosen;
}

// What is shown is what is kept.
void RateList::RoundEntered(int row, int column) {
  if (column == kRate && !Model().Value(row, kRate).isNull()) {
    Model().SetValue(row, kRate, text::RoundAmount(Model().Number(row, kRate)));
  }
}

}  // namespace quorvane::mis
