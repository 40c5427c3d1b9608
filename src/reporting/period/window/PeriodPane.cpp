#include "reporting/period/window/PeriodPane.h"

#include "controls/Style.h"
#include "reporting/period/window/MonthsPane.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRegularExpression>

#include <stdexcept>

namespace quorvane::reporting {
namespace {

constexpr int kDateWidth = 110;

QLabel* LabelFor(const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

PeriodPane::PeriodPane(const controls::Guard& guard, std::optional<text::FinancialYear> year,
                       Form form)
    : guard_(guard) {
  MakeBoxes();
  if (form == Form::kFrame) {
    ArrangeInFrame();
  } else {
    ArrangeInRow();
  }
  if (form == Form::kRowWithMonths) {
    AddMonths(year);
  }
  if (year) {
    Set(Period::Of(*year));
  }
}

void PeriodPane::MakeBoxes() {
  for (std::size_t i = 0; i < boxes_.size(); ++i) {
    boxes_[i] = new controls::DateBox;
    boxes_[i]->setObjectName(QStringLiteral("Text1_%1").arg(i));
    boxes_[i]->setAccessibleName(i == 0 ? tr("From") : tr("To"));
    boxes_[i]->setFixedWidth(kDateWidth);
    guard_.Connect(boxes_[i], &controls::DateBox::Left, this, &PeriodPane::Text1_Validate,
                   QStringLiteral("Text1_Validate"));
  }
}

void PeriodPane::ArrangeInRow() {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(LabelFor(tr("&From"), boxes_[0]));
  row->addWidget(boxes_[0]);
  row->addWidget(LabelFor(tr("&To"), boxes_[1]));
  row->addWidget(boxes_[1]);
}

void PeriodPane::ArrangeInFrame() {
  auto* frame = new QGroupBox(tr("Period"));
  frame->setObjectName(QStringLiteral("FrmPeriod"));
  auto* boxes = new QGridLayout(frame);
  boxes->setContentsMargins(controls::kSpacing, controls::kTightSpacing, controls::kSpacing,
                            controls::kTightSpacing);
  boxes->addWidget(LabelFor(tr("&From"), boxes_[0]), 0, 0);
  boxes->addWidget(boxes_[0], 0, 1);
  boxes->addWidget(LabelFor(tr("&To"), boxes_[1]), 1, 0);
  boxes->addWidget(boxes_[1], 1, 1);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(frame);
}

void PeriodPane::AddMonths(std::optional<text::FinancialYear> year) {
  if (!year) {
    throw std::logic_error("months are those of a chosen financial year");
  }
  months_ = new MonthsPane(*year);
  layout()->addWidget(months_);
  guard_.Connect(months_->Names(0), &QComboBox::currentIndexChanged, this,
                 &PeriodPane::CmbFromMth_Click, QStringLiteral("CmbFromMth_Click"));
  guard_.Connect(months_->Names(1), &QComboBox::currentIndexChanged, this,
                 &PeriodPane::CmbToMth_Click, QStringLiteral("CmbToMth_Click"));
}

void PeriodPane::SetYear(text::FinancialYear year) {
  Set(Period::Of(year));
  if (months_ != nullptr) {
    months_->SetYear(year);
  }
}

void PeriodPane::Set(const Period& period) {
  boxes_[0]->SetDate(text::FormatDmy(period.from));
  boxes_[1]->SetDate(text::FormatDmy(period.to));
}

Result<Period> PeriodPane::Read() const {
  return ReadPeriod(boxes_[0]->text(), boxes_[1]->text());
}

// A language without Latin letters names the key in brackets behind the word.
void PeriodPane::FreeKeys() {
  static const QRegularExpression kKey(QStringLiteral("\\s*\\(&\\w\\)|&"));
  for (QLabel* label : findChildren<QLabel*>()) {
    label->setText(label->text().remove(kKey));
  }
}

void PeriodPane::CmbFromMth_Click() {
  TakeMonth(0);
}

void PeriodPane::CmbToMth_Click() {
  TakeMonth(1);
}

void PeriodPane::TakeMonth(std::size_t end) {
  const std::optional<Result<Period>> chosen = months_->Chosen(end);
  if (!chosen) {
    return;
  }
  const Result<Period>& month = *chosen;
  if (!month) {
    Q_EMIT MonthRefused(month.Why().text, months_->Names(end));
    return;
  }
  boxes_[end]->SetDate(text::FormatDmy(end == 0 ? month->from : month->to));
}

// A date that was typed in belongs to no chosen month any more.
void PeriodPane::Text1_Validate() {
  for (std::size_t end = 0; months_ != nullptr && end < boxes_.size(); ++end) {
    months_->KeepOnly(end, boxes_[end]->Date());
  }
}

}  // namespace quorvane::reporting
