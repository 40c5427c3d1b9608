#include "controls/AmountBox.h"

#include "core/text/Amounts.h"

#include <QRegularExpressionValidator>

namespace quorvane::controls {

AmountBox::AmountBox(QWidget* parent, Form form) : TextBox(parent), form_(form) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  static const QRegularExpression kTypable(QStringLiteral("-?[0-9,]*\\.?[0-9]*"));
  setValidator(new QRegularExpressionValidator(kTypable, this));
}

double AmountBox::Amount() const {
  return text::Val(QLineEdit::text().remove(QLatin1Char(',')));
}

void AmountBox::SetAmount(double value) {
  setText(form_ == Form::kPercent ? text::FormatPercent(value) : text::FormatAmount(value));
}

void AmountBox::Leave() {
  if (!QLineEdit::text().isEmpty()) {
    SetAmount(Amount());
  }
}

}  // namespace quorvane::controls
