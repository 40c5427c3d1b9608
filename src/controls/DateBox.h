#pragma once

#include "controls/TextBox.h"
#include "core/text/Dates.h"

#include <functional>
#include <optional>

namespace quorvane::controls {

/// A date, "dd/mm/yyyy". Only digits, "/" and "." are taken; after two digits of the day and of the
/// month the "/" comes by itself. On leaving, a short form ("1.4.11", "010411") is completed. A
/// text that is no date stays, is marked, and is refused with "Enter Proper Date."; a text of an
/// older record that is not changed is accepted. Empty is allowed.
class DateBox : public TextBox {
  Q_OBJECT

 public:
  explicit DateBox(QWidget* parent = nullptr);

  /// The day from which short years are completed; today unless set.
  void SetToday(std::function<text::Date()> today) { today_ = std::move(today); }

  /// The date as stored; empty when the box is empty or holds no date.
  QString DateText() const;
  std::optional<text::Date> Date() const;
  void SetDate(const QString& dmy);

  /// False when the box holds a text that is no date.
  bool IsProper() const;

  /// True while the box holds a text that was refused.
  bool IsRefused() const;

 Q_SIGNALS:
  /// The box was left with a text that is no date. Sent before Left.
  void Refused(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void Leave() override;

 private:
  std::optional<QString> Completed() const;
  void Mark();
  void Unmark();

  std::function<text::Date()> today_ = text::Today;
  QAction* mark_ = nullptr;
  QString given_;  ///< by SetDate
};

}  // namespace quorvane::controls
