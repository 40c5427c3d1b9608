#include "reporting/period/window/MonthsPane.h"

#include "controls/FieldLayout.h"
#include "controls/Style.h"

#include <QHBoxLayout>
#include <QLabel>

namespace quorvane::reporting {
namespace {

constexpr int kMonthWidth = 120;
constexpr std::array kNames{"CmbFromMth", "CmbToMth"};

QStringList Numbers() {
  QStringList numbers;
  for (const QString& name : MonthNames()) {
    numbers << QString::number(MonthNumber(name));
  }
  return numbers;
}

}  // namespace

MonthsPane::MonthsPane(text::FinancialYear year, QWidget* parent) : QWidget(parent), year_(year) {
  const std::array labels{tr("From &Month :"), tr("To Mo&nth :")};
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(controls::kSpacing, 0, 0, 0);
  for (End end = 0; end < names_.size(); ++end) {
    auto* label = new QLabel(labels[end]);
    names_[end] = new controls::ComboBox;
    names_[end]->setObjectName(QLatin1String(kNames[end]));
    names_[end]->setAccessibleName(controls::PlainLabel(labels[end]));
    names_[end]->setFixedWidth(kMonthWidth);
    names_[end]->SetTexts(MonthNames());
    numbers_[end] = new controls::ComboBox(this);
    numbers_[end]->setObjectName(QLatin1String(kNames[end]) + QLatin1String("Id"));
    numbers_[end]->SetTexts(Numbers());
    numbers_[end]->hide();
    label->setBuddy(names_[end]);
    row->addWidget(label);
    row->addWidget(names_[end]);
    connect(names_[end], &QComboBox::currentIndexChanged, numbers_[end],
            &QComboBox::setCurrentIndex);
  }
}

void MonthsPane::SetYear(text::FinancialYear year) {
  year_ = year;
  for (controls::ComboBox* names : names_) {
    names->Clear();
  }
}

std::optional<Result<Period>> MonthsPane::Chosen(End end) const {
  if (!names_[end]->HasChoice()) {
    return std::nullopt;
  }
  return MonthPeriod(year_, numbers_[end]->currentText().toInt());
}

void MonthsPane::KeepOnly(End end, std::optional<text::Date> day) {
  const std::optional<Result<Period>> chosen = Chosen(end);
  if (chosen && (!*chosen || day != (end == 0 ? (*chosen)->from : (*chosen)->to))) {
    names_[end]->Clear();
  }
}

}  // namespace quorvane::reporting
