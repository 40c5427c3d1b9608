#pragma once

#include <QButtonGroup>
#include <QRadioButton>
#include <QWidget>

namespace quorvane::mis {

/// A choice of one of two, side by side.
class OptionPairView : public QWidget {
  Q_OBJECT

 public:
  /// The buttons are "Option1_N" and "Option1_N+1", N being `first`; the first one is chosen.
  OptionPairView(int first, const QString& one, const QString& other, const QString& purpose);

  bool IsFirst() const { return group_->checkedId() == 0; }
  QString Text() const { return group_->checkedButton()->text(); }  ///< of the choice, with its key
  void ChooseFirst(bool on) { group_->button(on ? 0 : 1)->setChecked(true); }

 Q_SIGNALS:
  /// The user chose; setting the choice from the program does not send it.
  void Clicked();

 private:
  QButtonGroup* group_;
};

}  // namespace quorvane::mis
