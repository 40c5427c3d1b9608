#pragma once

#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "documents/DocumentStore.h"
#include "documents/window/FrmSign.h"

#include <vector>

namespace quorvane::documents {

/// "Documents": the scanned documents of all clients in a list, and the chosen one beside it.
class frmdocuments : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit frmdocuments(controls::Desk& desk, documents::DocumentDialogs dialogs = {});

 private:
  QLayout* Buttons();
  void FillList();
  const ListedDocument* Current() const;
  void VSF_RowColChange(int row);
  void Viewer_Failed(const QString& text);
  void cmdOpen_Click();
  void cmdRefresh_Click();
  void cmdexit_Click();

  std::vector<ListedDocument> documents_;
  controls::Grid* VSF = nullptr;
  documents::FrmSign* sign_ = nullptr;
  controls::ZENButton* cmdOpen = nullptr;
};

}  // namespace quorvane::documents
