#pragma once

#include "controls/Grid.h"
#include "controls/Guard.h"
#include "controls/TextBox.h"

#include <QWidget>

#include <functional>
#include <vector>

namespace quorvane::controls {

/// A search: a code box and a name box over the list of the records that begin so.
class ClGrd : public QWidget {
  Q_OBJECT

 public:
  struct Record {
    int id = 0;
    QString code = {};
    QString name = {};
  };

  /// Gives the records whose code and name begin with the two upper-cased texts (empty: any), in
  /// the order in which they are to stand.
  using Source =
      std::function<std::vector<Record>(const QString& code_prefix, const QString& name_prefix)>;

  ClGrd(const QString& name, const QString& purpose, const Guard& guard, QWidget* parent = nullptr);

  /// Sets where records come from and fills the list.
  void SetSource(Source source);

  /// Asks the source again. A failure is reported by the guard and leaves the list as it was.
  void Refresh();

  int CurrentId() const { return grid_->CurrentId(); }
  QString CurrentName() const;
  void SelectId(int id) { grid_->SelectId(id); }

  TextBox* CodeBox() { return code_; }
  TextBox* NameBox() { return name_; }
  Grid* List() { return grid_; }

 Q_SIGNALS:
  void CurrentChanged(int id);

  /// Enter or a double click on a record.
  void Chosen(int id);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildLayout();

  const Guard& guard_;
  Source source_;
  TextBox* code_;
  TextBox* name_;
  Grid* grid_;
};

/// A source over records in memory; it keeps their order.
ClGrd::Source SourceOf(std::vector<ClGrd::Record> records);

}  // namespace quorvane::controls
