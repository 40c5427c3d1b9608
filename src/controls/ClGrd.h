#pragma once

#include "controls/Grid.h"
#include "controls/Messages.h"
#include "controls/TextBox.h"

#include <QWidget>

#include <vector>

namespace quorvane::controls {

/// A search: a box over the list of the records whose code or name begins with the text in it. The
/// keyboard stays in the box: Up and Down move the chosen record, Enter takes it.
class ClGrd : public QWidget {
  Q_OBJECT

 public:
  struct Record {
    int id = 0;
    QString code = {};
    QString name = {};
  };

  /// The box is `TxtSearch`, the list has the name given; `purpose` is what a screen reader calls
  /// it, `name_heading` is the heading of the names.
  ClGrd(const QString& list_name, const QString& purpose, const QString& name_heading,
        const Guard& guard, QWidget* parent = nullptr);

  /// The records to search, in the order in which they are shown. The first one is chosen.
  void SetRecords(std::vector<Record> records);

  /// 0 and empty when no record is chosen.
  int CurrentId() const { return CVS->CurrentId(); }
  QString CurrentName() const;

  /// Chooses a record; one that is not there leaves the choice as it is.
  void Choose(int id);

  void FocusSearch() { TxtSearch->setFocus(Qt::OtherFocusReason); }

 Q_SIGNALS:
  /// Enter, or a double click on a record.
  void Taken();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Arrange();
  void TxtSearch_Change();
  bool SearchKey(const QKeyEvent& event);

  std::vector<Record> records_;
  TextBox* TxtSearch;
  Grid* CVS;
};

}  // namespace quorvane::controls
