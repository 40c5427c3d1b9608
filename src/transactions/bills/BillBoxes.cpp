#include "transactions/bills/BillBoxes.h"

#include "core/text/Amounts.h"
#include "core/text/Shares.h"

#include <cmath>

namespace quorvane::bills {
namespace {

enum class Form : std::uint8_t { kAsTyped, kPositiveNumber, kPositiveAmount, kAmount };

Form FormOf(BillBox box) {
  switch (box) {
    case BillBox::kNumber:
    case BillBox::kDate:
    case BillBox::kBroker:
    case BillBox::kSettlementNumber:
      return Form::kAsTyped;
    case BillBox::kQuantity:
      return Form::kPositiveNumber;
    case BillBox::kOtherCharges:
    case BillBox::kStt:
    case BillBox::kTransactionCharges:
      return Form::kAmount;
    default:
      return Form::kPositiveAmount;
  }
}

double ReadNumber(QString text) {
  return text::Val(text.remove(QLatin1Char(',')));
}

QString InForm(Form form, const QString& typed) {
  const double number = ReadNumber(typed);
  switch (form) {
    case Form::kPositiveNumber:
      return text::NumberText(text::Shares(std::abs(number)).Number());
    case Form::kPositiveAmount:
      return text::FormatAmount(std::abs(number));
    case Form::kAmount:
      return text::FormatAmount(number);
    case Form::kAsTyped:
      break;
  }
  return typed;
}

QString ShownText(BillBox box, double number) {
  if (box == BillBox::kNet && number == 0) {
    return {};
  }
  return FormOf(box) == Form::kPositiveNumber ? text::NumberText(number)
                                              : text::FormatAmount(number);
}

bool MovesTheAmount(BillBox box) {
  return box >= BillBox::kQuantity && box <= BillBox::kServiceTax;
}

}  // namespace

void BillBoxes::Type(BillBox box, const QString& text) {
  (*this)[box] = text;
  shown_[static_cast<std::size_t>(box)] = {};
}

void BillBoxes::Show(BillBox box, double number) {
  (*this)[box] = ShownText(box, number);
  shown_[static_cast<std::size_t>(box)] = {(*this)[box], number};
}

double BillBoxes::Number(BillBox box) const {
  const Shown& shown = shown_[static_cast<std::size_t>(box)];
  const QString& text = (*this)[box];
  return !text.isEmpty() && text == shown.text ? shown.number : ReadNumber(text);
}

void RecomputeLine(Side side, BillBoxes& boxes) {
  const double net =
      records::NetRate(side, boxes.Number(BillBox::kRate), boxes.Number(BillBox::kBrokerage));
  boxes.Show(BillBox::kNet, net);
  boxes.Show(BillBox::kAmount, text::RoundAmount(net * boxes.Number(BillBox::kQuantity)));
}

void LeaveBox(BillBox box, Side side, BillBoxes& boxes) {
  boxes[box] = InForm(FormOf(box), boxes[box]);
  if (MovesTheAmount(box)) {
    RecomputeLine(side, boxes);
  }
}

}  // namespace quorvane::bills
