#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>

#include <functional>

namespace quorvane::controls {

/// A line of text as this program's windows have it: letters turn to upper case as they are typed,
/// the whole text is selected on entry, and Enter moves to the next control as Tab does.
class TextBox : public QLineEdit {
  Q_OBJECT

 public:
  using Completions = std::function<QStringList()>;

  explicit TextBox(QWidget* parent = nullptr);

  /// On unless switched off, as for an e-mail address.
  void SetUpperCase(bool on) { upper_case_ = on; }

  /// On unless switched off.
  void SetSelectOnEntry(bool on) { select_on_entry_ = on; }

  /// A typed prefix is completed from these texts, the first that fits in upper case; the completed
  /// remainder is selected, so that typing on overwrites it.
  void SetCompletions(const QStringList& texts);

  /// The same from texts that are asked for each time the box is entered ("the PINs of this city").
  /// The source must not throw; ChildWindow::CompleteFrom guards one.
  void SetCompletionSource(Completions source) { completion_source_ = std::move(source); }

 Q_SIGNALS:
  /// The box got the focus; what a handler puts into it is selected as well.
  void Entered();

  /// The box lost the focus to another control (not to a menu or another program).
  void Left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

  /// Called before Left is sent: the place to bring the text into its form.
  virtual void Leave() {}

 private:
  void TurnToUpperCase(const QString& text);
  void ShowBeginning();
  void Complete();

  bool upper_case_ = true;
  bool select_on_entry_ = true;
  bool entered_by_mouse_ = false;
  QStringList completions_;
  Completions completion_source_;
};

/// True when the key is Enter without a modifier.
bool IsEnter(const QKeyEvent& event);

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

/// A number that keeps the decimals with which it is typed: a quantity, a ratio, a rate.
class NumberBox : public TextBox {
  Q_OBJECT

 public:
  enum class Sign { kPositive, kAny };

  explicit NumberBox(Sign sign = Sign::kPositive, QWidget* parent = nullptr);
};

/// A text of several lines, such as an address: letters turn to upper case as they are typed, Enter
/// begins another line and Tab moves to the next control.
class LinesBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit LinesBox(QWidget* parent = nullptr);

  /// The lines with a line break between them.
  QString text() const { return toPlainText(); }
  void setText(const QString& text) { setPlainText(text); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
};

}  // namespace quorvane::controls
