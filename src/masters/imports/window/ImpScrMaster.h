#pragma once

#include "masters/imports/ScripImport.h"
#include "masters/imports/window/ImpScrWindow.h"

namespace quorvane::imports {

/// Takes a list of scrips, or the scrips of a daily price file, into the masters: from a file or
/// from the exchange. What would change is shown first; it is saved as a whole or not at all.
class ImpScrMaster final : public ImpScrWindow {
  Q_OBJECT

 public:
  explicit ImpScrMaster(controls::Desk& desk);

 protected:
  void Fill() override;
  void Update() override;
  bool MayClose() override;

 private:
  void CmdImport_Click();
  void CmdFetch_Click();
  bool Load(const QString& path);
  void Plan();

  rates::PriceFile file_;
  std::vector<ImportedScrip> plan_;
  controls::Grid* VSF;
};

}  // namespace quorvane::imports
