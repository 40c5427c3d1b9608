#pragma once

#include "controls/DateBox.h"
#include "controls/Desk.h"
#include "controls/Messages.h"
#include "controls/ZENButton.h"
#include "core/Result.h"
#include "core/changes/Touched.h"

#include <QWidget>

#include <map>
#include <vector>

class QKeySequence;
class QMdiArea;
class QMdiSubWindow;

namespace quorvane::controls {

/// The name of the control in which a window holds a value.
struct FieldControl {
  Field field;
  QString control;
};

/// The base of every window that opens inside the main window. Enter moves to the next control, Esc
/// closes, F1 asks for help. The window deletes itself when it is closed. In the area of the main
/// window it opens where the user last left it, with the widths that its grids' columns had.
class ChildWindow : public QWidget {
  Q_OBJECT

 public:
  /// `name` is the window's name ("FrmBroker"), `designed` its size for a screen of 800 by 600.
  ChildWindow(Desk& desk, const QString& name, const QString& title, QSize designed);

  /// Shows the window in the area of the main window, or by itself in front of all others.
  void OpenIn(QMdiArea& area);
  void OpenModal(QWidget* parent);

  /// Asks whether the window may close, as closing it does, and leaves it open. After a yes it
  /// closes without another question, until StayOpen.
  bool AgreeToClose();
  void StayOpen() { agreed_ = false; }

  /// Called about once a second while the window is open, with what this and other programs changed
  /// since; mostly nothing.
  virtual void LookAround(const changes::Novelties& news) { static_cast<void>(news); }

  /// The menu asked for the window, which is open already.
  virtual void AskedAgain() {}

  /// Chooses a record, by its key, in a window of records, or what the key stands for elsewhere;
  /// false when it is not there.
  virtual bool GoTo(int record) { return record == 0; }

  /// Does what the access key of one of the window's own buttons, labels or choices does; false
  /// when none that is visible has that key.
  bool PressKey(const QKeySequence& key);

  /// Gives the focus to the control that a new window starts with, unless another one has it.
  void FocusFirst();

  /// The designed size times the screen factors, at most what there is room for.
  QSize sizeHint() const override;

  /// Shows the text with the critical icon and focuses the control of what was entered wrong.
  /// Without a text, because the user was asked and said no, it only focuses.
  void Show(const Refusal& refusal);

 Q_SIGNALS:
  void Closed();
  void HelpRequested(const QString& window_name);

 protected:
  Desk& TheDesk() const { return desk_; }
  app::Session& Session() const { return desk_.session; }
  Messages& Say() const { return desk_.messages; }
  const Guard& TheGuard() const { return guard_; }

  /// `OnClick(cmdAdd, &FrmBroker::cmdAdd_Click)`: a guarded handler named after button and event.
  template <class Owner>
  void OnClick(const QAbstractButton* button, void (Owner::*handler)()) {
    On(button, &QAbstractButton::clicked, handler, button->objectName() + QLatin1String("_Click"));
  }

  /// `On(text, &TextBox::Left, &FrmBroker::Text1_Validate, "Text1_Validate")`.
  template <class Sender, class Signal, class Owner, class... Args>
  void On(const Sender* sender, Signal signal, void (Owner::*handler)(Args...),
          const QString& name) {
    guard_.Connect(sender, signal, static_cast<Owner*>(this), handler, name);
  }

  /// A key of the whole window for a button. The button takes the focus first, so that the box left
  /// behind is settled before the click; a box that refuses takes the focus back, and there is no
  /// click.
  void PressOn(const QKeySequence& keys, QAbstractButton* button);
  static void Press(QAbstractButton& button);

  /// Completes the box from texts that are asked for each time it is entered; a failure of the
  /// source is reported and leaves the box without completions.
  void CompleteFrom(TextBox* box, TextBox::Completions source);

  /// True while the focus goes to a button that cancels or the window closes: no message about what
  /// a box holds is shown then.
  bool IsCancelling() const;

  /// Says "Enter Proper Date." when the box is left with a text that is no date, and gives it the
  /// focus again. Short years are completed by the desk's calendar.
  void Watch(DateBox* box);

  /// Says which control holds which value, for the refusals of the window's model. Several calls
  /// add up.
  void Hold(const std::vector<FieldControl>& controls);

  /// The same as Show for a control that no refusal of a model names, or for none.
  void ShowAt(const QString& text, QWidget* control);

  /// Brings a control of the window on the screen before it gets the focus.
  virtual void Reveal(QWidget* field) { static_cast<void>(field); }

  /// Called once, after the window has come on the screen: the place for a question on opening.
  virtual void FirstShown() {}

  /// Called when the user comes to the window, also from another program.
  virtual void Activated() {}

  /// False keeps the window open.
  virtual bool MayClose() { return true; }
  virtual void EscapePressed() { close(); }

  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ScaleForm();
  bool IsFrontChild() const;
  QRect PlaceIn(const QMdiArea& area, const QMdiSubWindow& frame) const;
  void RestoreColumns();
  void Remember() const;
  void DateRefused(DateBox* box, const QString& text);

  Desk& desk_;
  Guard guard_;
  QSize designed_;
  bool scaled_ = false;
  bool was_shown_ = false;
  bool closing_ = false;
  bool agreed_ = false;  ///< that it closes
  std::map<Field, QString> controls_;
  QRect opened_at_;  ///< place of its frame, before the user moved it
};

}  // namespace quorvane::controls
