#pragma once

#include "controls/ChildWindow.h"
#include "controls/Grid.h"

namespace quorvane::ui {

/// "Miscellaneous Information": the release, where the data is, the database and its tables.
class MiscInfo : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit MiscInfo(controls::Desk& desk);

 private:
  std::vector<controls::Row> Facts() const;
};

}  // namespace quorvane::ui
