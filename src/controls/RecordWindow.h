#pragma once

#include "controls/ChildWindow.h"
#include "controls/EditWatch.h"
#include "controls/FormPanel.h"
#include "controls/Grid.h"
#include "core/changes/Touched.h"

#include <QElapsedTimer>

#include <optional>
#include <span>
#include <string_view>

class QButtonGroup;
class QHBoxLayout;
class QStackedWidget;
class QVBoxLayout;

namespace quorvane::controls {

/// A window that keeps the records of one kind: a list of them, the details of one, and the buttons
/// to add, modify, save, cancel and delete. It browses (the list takes input, the details are
/// shown) or edits (the details take input, the list does not). Rows of the list carry the record's
/// key. While there is any record, one row is chosen: the saved one after saving. Esc asks before
/// it drops what was changed.
///
/// A window derives from it, builds its controls into Details(), sets the list's columns, and calls
/// Start() at the end of its constructor. The hooks below may throw: the failure is reported and
/// form and state stay as they were.
class RecordWindow : public ChildWindow {
  Q_OBJECT

 public:
  enum class Panels { kTabs, kTogether };

  int CurrentId() const { return current_; }
  bool IsEditing() const { return editing_; }

  /// Reads the list again when others changed a record of its kind; what is being edited stays as
  /// it is, with a notice.
  void LookAround(const changes::Novelties& news) override;
  Grid& List() { return *list_; }

  /// Chooses the record in the list, also where the filter does not show it. A record under entry
  /// is left as it is, and the user is told.
  bool GoTo(int record) override;

 protected:
  /// `list_name` is the control name of the list ("VSF").
  RecordWindow(Desk& desk, const QString& name, const QString& title, QSize designed,
               const QString& list_name, Panels panels = Panels::kTabs);

  QWidget* Details() { return details_; }

  /// Another panel behind a tab of its own ("FrmSign"), which takes input in both states.
  void AddPanel(const QString& title, QWidget* panel);

  /// The row of buttons, for a window's own ones.
  QHBoxLayout* Buttons() { return buttons_; }

  void Start();

  /// The table of the window's records, by which the log of changes knows them. While one is
  /// edited, its save is refused when another program changed it meanwhile. Empty for records that
  /// are not in the database.
  virtual std::string_view RecordTable() const = 0;

  /// The client whose records the window shows; nothing when they are of no client.
  virtual std::optional<ClientId> RecordClient() const { return std::nullopt; }

  /// Puts all records into List().
  virtual void FillList() = 0;

  /// Reads only those records again that others or this window changed, added or deleted, and
  /// shows them at their places in List(). False when FillList is to read all.
  virtual bool ReadRecords(std::span<const int> keys) {
    static_cast<void>(keys);
    return false;
  }

  /// Empties the form.
  virtual void Clear() = 0;

  /// Shows a record in the form, which is empty.
  virtual void Load(int id) = 0;

  /// The record in the form, CurrentId(), is about to be edited. When it throws, the window keeps
  /// browsing.
  virtual void BeginEditing() {}

  /// Checks the form and saves it as record CurrentId(), 0 being a new one; the key of what was
  /// saved becomes the current one. When it is refused, nothing was changed.
  virtual MaybeRefusal Save() = 0;

  /// What Save returns for the outcome of saving in a book: a key, or a record with its key.
  template <class T>
  MaybeRefusal Saved(const Result<T>& saved) {
    if (saved) {
      SetCurrentId(KeyOf(*saved));
    }
    return saved.Refused();
  }

  /// Deletes the record; the user has agreed to it.
  virtual void Remove(int id) = 0;

  virtual QString DeleteQuestion() const;

  /// True when Save checks the date boxes itself, in an order of its own. Otherwise a text that is
  /// no date is refused before Save.
  virtual bool ChecksItsDates() const { return false; }

  /// Asked by Esc when something was changed.
  virtual QString GiveUpQuestion() const;

  /// The state changed: the place to enable controls beyond the usual ones.
  virtual void StateChanged() {}

  void SetCurrentId(int id) { current_ = id; }

  /// Fills the list again, after something else than this window's own buttons changed it.
  void Refill() { Refill(current_); }
  void ShowDetails();
  void ShowList();

  /// Brings a panel to the front: 0 the details, 1 the list, then those of AddPanel.
  void ShowPanel(int panel);

  /// True when a record is edited and something in its form was changed since that began.
  bool IsChanged() const;

  void FirstShown() override;
  void Reveal(QWidget* field) override;
  bool MayClose() override;
  void EscapePressed() override;

  /// Others may have saved meanwhile: the list is read again unless a record is edited. The chosen
  /// row and the order stay; the details of another row are shown when the chosen one changed.
  void Activated() override;

  ZENButton* cmdAdd;
  ZENButton* cmdModify;
  ZENButton* cmdUpdate;
  ZENButton* cmdCancel;
  ZENButton* CmdDelete;

 private:
  void cmdAdd_Click();
  void cmdModify_Click();
  void cmdUpdate_Click();
  void cmdCancel_Click();
  void CmdDelete_Click();
  void List_RowChanged(int row);
  void List_RowActivated(int row);
  void ImgBack_Click(int panel);

  template <class T>
  static int KeyOf(const T& saved) {
    if constexpr (requires { saved.id; }) {
      return KeyOf(saved.id);
    } else if constexpr (requires { saved.value; }) {
      return saved.value;
    } else {
      return saved;
    }
  }

  void BuildTabs(QVBoxLayout& rows);
  void BuildTogether(QVBoxLayout& rows);
  void BuildButtons();
  bool RefusesDate();
  void SetEditing(bool editing);
  void Enable();
  void Rest();
  void ShowRecord(int id);
  void Refill(int id, std::span<const int> changed = {});
  bool FillAgain(int id, std::span<const int> changed);
  void ReadAgain(std::span<const int> changed = {}, bool shows_chosen = false);
  std::int64_t LastEntry() const;
  bool May(changes::Right right) const;
  bool IsOfClient(const changes::Entry& entry) const;
  changes::Touched TouchedBy(const changes::Novelties& news) const;
  void WatchFor(const changes::Novelties& news);

  Panels panels_;
  QWidget* details_;
  Grid* list_;
  QStackedWidget* stack_ = nullptr;
  QButtonGroup* tabs_ = nullptr;
  QHBoxLayout* tab_row_ = nullptr;
  QHBoxLayout* buttons_;
  int current_ = 0;
  bool editing_ = false;
  bool filling_ = false;
  QElapsedTimer since_filled_;
  std::int64_t shows_up_to_ = 0;  ///< the last entry of the log before it read everything
  bool reading_again_ = false;    ///< also after it failed
  FormContents begun_with_;       ///< when editing began
  EditWatch* watch_;
};

}  // namespace quorvane::controls
