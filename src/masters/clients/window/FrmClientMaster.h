#pragma once

#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "documents/window/FrmSign.h"
#include "masters/clients/ClientBook.h"
#include "masters/clients/window/AccountsPane.h"

#include <array>

namespace quorvane::clients {

/// "Client Master": the clients with their demat accounts and a scanned document each. The list,
/// the details and the document have a tab each.
class FrmClientMaster : public controls::RecordWindow {
  Q_OBJECT

 public:
  explicit FrmClientMaster(controls::Desk& desk, documents::DocumentDialogs dialogs = {});

 protected:
  std::string_view RecordTable() const override { return "ClientInfo"; }
  void FillList() override;
  bool ReadRecords(std::span<const int> keys) override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  QString DeleteQuestion() const override;
  bool ChecksItsDates() const override { return true; }
  void StateChanged() override;

 private:
  enum Box {
    Code,
    GroupCode,
    Name,
    Address,
    City,
    Pin,
    Std,
    Phone,
    Mobile,
    Fax,
    Email,
    Pan,
    Document,
    kBoxes
  };

  controls::TextBox* AddBox(controls::FieldLayout& fields, Box box, const QString& label,
                            int span = 1);
  controls::ComboBox* AddChoice(controls::FieldLayout& fields, const QString& name,
                                const QString& label, const QStringList& texts);
  QLayout* Fields();
  void AddContact(controls::FieldLayout& fields);
  void AddPerson(controls::FieldLayout& fields);
  void AddDocument(controls::FieldLayout& fields);
  void AddButtons();
  void Complete();
  void Connect();

  void ShowClients();
  void ShowClient(const Client& client);
  Client Entered() const;
  masters::Contact EnteredContact() const;
  QString DocumentPath() const;
  void ShowDocumentName(const QString& name);

  void Text1_Pan_Left();
  void CmdSource_Click();
  void CmdClr_Click();
  void CmdView_Click();
  void CmdDepPart_Click();
  void CmdDocuments_Click();
  void mnuexit_Click();
  void Viewer_Failed(const QString& text);

  ClientBook book_;
  std::vector<ClientRow> listed_;
  documents::DocumentDialogs dialogs_;
  QString new_document_;  ///< path of a document that was chosen and is not saved yet
  QString warned_pan_;    ///< the number that the user was warned of last
  QString stored_pan_;    ///< of the record that is shown
  std::array<controls::TextBox*, kBoxes> Text1{};  ///< none for the address
  controls::LinesBox* address_ = nullptr;
  controls::DateBox* MaskEdBox1 = nullptr;
  controls::ComboBox* Combo1 = nullptr;
  controls::ComboBox* Combo2 = nullptr;
  controls::ComboBox* Combo3 = nullptr;
  AccountsPane* accounts_ = nullptr;
  controls::ZENButton* CmdSource = nullptr;
  controls::ZENButton* CmdClr = nullptr;
  controls::ZENButton* CmdView = nullptr;
  controls::ZENButton* CmdDepPart = nullptr;
  controls::ZENButton* CmdDocuments = nullptr;
  controls::ZENButton* mnuexit = nullptr;
  documents::FrmSign* sign_ = nullptr;
};

}  // namespace quorvane::clients
