#pragma once

#include "controls/Messages.h"
#include "controls/ZENButton.h"
#include "core/app/Ini.h"
#include "documents/window/DocumentViewer.h"

#include <QWidget>

#include <functional>

namespace quorvane::documents {

/// The desktop's own dialogs that a client's document needs. Each is modal over `parent`.
struct DocumentDialogs {
  DocumentDialogs();

  /// The chosen colour; not valid when none was chosen.
  std::function<QColor(QWidget* parent, const QColor& before)> choose_color;

  /// Sets a printer of `pages` pages up (0: they are not counted); false when the user cancelled.
  std::function<bool(QWidget* parent, QPrinter& printer, int pages)> set_up_printer;
};

/// The panel with the client's document and the buttons to turn, fit, print and colour it.
class FrmSign : public QWidget {
  Q_OBJECT

 public:
  /// `settings` name the printer and the paper that printing begins with.
  FrmSign(const controls::Guard& guard, DocumentDialogs dialogs, app::IniFile settings);

  DocumentViewer& Viewer() { return *viewer_; }

 private:
  QLayout* Buttons();
  void Connect(const controls::Guard& guard);
  void Enable();
  void cmd_Rotate_Click();
  void cmdpicview_Click();
  void CmdPrint_Click();
  void CmdBGClr_Click();

  DocumentDialogs dialogs_;
  app::IniFile settings_;
  DocumentViewer* viewer_;
  controls::ZENButton* cmd_Rotate;
  controls::ZENButton* cmdpicview;
  controls::ZENButton* CmdPrint;
  controls::ZENButton* CmdBGClr;
};

}  // namespace quorvane::documents
