#pragma once

#include "controls/Messages.h"
#include "core/ClientYear.h"
#include "core/app/Session.h"
#include "core/records/Action.h"
#include "core/text/Dates.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QWidget;

namespace quorvane::controls {

/// A record, and the window that shows it.
struct RecordPlace {
  QString window;                               ///< its name ("FrmSalePurchase")
  int record = 0;                               ///< its key; 0 for the window alone
  std::optional<ClientYear> of = std::nullopt;  ///< none: the current client and year stay
  QString client_name = {};                     ///< of that client
};

/// What every window is given: what the program shares, messages to the user, today's date and the
/// opening of other windows. It outlives the windows.
struct Desk {
  app::Session& session;
  Messages& messages;
  std::function<text::Date()> today = text::Today;

  /// Opens a window by its name ("FrmDepPart") as a child of the main window.
  std::function<void(const QString& name)> open = [](const QString&) {};

  /// Whether `open` knows a window of that name.
  std::function<bool(const QString& name)> has_window = [](const QString&) { return false; };
  /// Opens the window of a record for its client and year, and chooses the record there.
  std::function<void(const RecordPlace& place)> open_record = [](const RecordPlace&) {};

  /// Shows the chapter of the user guide about a window, in front of `over`.
  std::function<void(const QString& window_name, QWidget* over)> help = [](const QString&,
                                                                           QWidget*) {};

  /// Asks where a file is to be saved; empty when the user cancels.
  std::function<QString(QWidget* over, const QString& suggested_path)> ask_save_path =
      [](QWidget*, const QString& suggested_path) { return suggested_path; };

  /// Asks for a file to read; empty when the user cancels. `filters` is of the form
  /// "Comma separated (*.csv);;All files (*)".
  std::function<QString(QWidget* over, const QString& folder, const QString& filters)>
      ask_open_path = [](QWidget*, const QString&, const QString&) { return QString(); };

  /// The same for one or several files; empty when the user cancels.
  std::function<QStringList(QWidget* over, const QString& filters)> ask_open_paths =
      [](QWidget*, const QString&) { return QStringList(); };

  /// Asks for a folder, starting with one; empty when the user cancels.
  std::function<QString(QWidget* over, const QString& start)> ask_folder =
      [](QWidget*, const QString& start) { return start; };

  /// Opens a finished file with the desktop's own program; false when there is none for it.
  std::function<bool(const QString& path)> open_file = [](const QString&) { return true; };

  /// A corporate action for the window "FrmCorpAction", which takes it when it opens or is asked
  /// for again: a recorded one is shown, one without a key is begun as a new one.
  std::optional<records::Action> proposed_action = std::nullopt;
};

/// Opens a file with the program that the desktop has for its kind; false when there is none.
bool OpenWithDesktop(const QString& path);

/// Lets the desk ask for files and folders with the desktop's dialogs. A dialog opens in the folder
/// that the user chose last; one for a folder opens in `start` when that is given.
void AskWithDialogs(Desk& desk);

}  // namespace quorvane::controls
