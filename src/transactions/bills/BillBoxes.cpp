#include "transactions/bills/BillBoxes.h"

#include "core/text/Amounts.h"

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

QString InForm(Form form, const QString& typed) {
  const double number = text::Val(typed);
  switch (form) {
    case Form::kPositiveNumber:
      return text::NumberText(std::abs(number));
    case Form::kPositiveAmount:
      return text::FormatAmount(std::abs(number));
    case Form::kAmount:
      return text::FormatAmount(number);
    case Form::kAsTyped:
      break;
  }
  return typed;
}

bool MovesTheAmount(BillBox box) {
  return box >= BillBox::kQuantity && box <= BillBox::kServiceTax;
}

}  // namespace

double BillBoxes::Number(BillBox box) const {
  return text::Val((*this)[box]);
}

QString ControlName(BillBox box) {
  return QStringLiteral("Text1_%1").arg(static_cast<int>(box));
}

void RecomputeLine(Side side, BillBoxes& boxes) {
  const double net = text::RoundAmount(
      NetRate(side, boxes.Number(BillBox::kRate), boxes.Number(BillBox::kBrokerage)));
  boxes[BillBox::kNet] = net == 0 ? QString() : text::FormatAmount(net);
  boxes[BillBox::kAmount] = text::FormatAmount(net * boxes.Number(BillBox::kQuantity));
}

void LeaveBox(BillBox box, Side side, BillBoxes& boxes) {
  boxes[box] = InForm(FormOf(box), boxes[box]);
  if (MovesTheAmount(box)) {
    RecomputeLine(side, boxes);
  }
}

}  // namespace quorvane::bills
