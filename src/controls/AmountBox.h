#pragma once

#include "controls/TextBox.h"

namespace quorvane::controls {

/// A number of the "###0.00" kind (or "###0.000" for a percentage). It is typed plainly and brought
/// into its form when the box is left. An empty box stays empty and counts as 0.
class AmountBox : public TextBox {
  Q_OBJECT

 public:
  enum class Form { kAmount, kPercent };

  explicit AmountBox(QWidget* parent = nullptr, Form form = Form::kAmount);

  /// Grouping commas are passed over; a text without a number is 0.
  double Amount() const;
  void SetAmount(double value);

 protected:
  void Leave() override;

 private:
  Form form_;
};

}  // namespace quorvane::controls
