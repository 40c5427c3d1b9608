#include "masters/clients/window/FrmClientMaster.h"

#include "core/lookups/Choices.h"
#include "core/lookups/Patch.h"
#include "masters/Completions.h"
#include "masters/Questions.h"
#include "masters/window/BoxName.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <stdexcept>
#include <utility>

namespace quorvane::clients {
namespace {

using controls::ComboBox;
using controls::FieldLayout;
using controls::Row;
using controls::TextBox;
using controls::ZENButton;

constexpr int kColumns = 3;  // of labelled boxes
constexpr int kTwoColumns = 2;

}  // namespace

FrmClientMaster::FrmClientMaster(controls::Desk& desk, documents::DocumentDialogs dialogs)
    : RecordWindow(desk, QStringLiteral("FrmClientMaster"), tr("Client Master"), {780, 500},
                   QStringLiteral("CVS")),
      book_(*desk.session.connection, documents::DocumentStore(desk.session.folders.documents)),
      dialogs_(std::move(dialogs)) {
  auto* rows = new QVBoxLayout(Details());
  rows->addLayout(Fields());
  accounts_ = new AccountsPane(TheGuard(), *Session().connection, Say());
  rows->addWidget(accounts_, 1);
  Details()->setObjectName(QStringLiteral("Frame1"));
  sign_ = new documents::FrmSign(TheGuard(), dialogs_, app::IniFile(Session().folders.config_file));
  AddPanel(tr("Document"), sign_);
  AddButtons();
  List().SetColumns({{.heading = tr("Client Code")}, {.heading = tr("Client Name")}});
  Hold({{Field::kCode, masters::BoxName(Code)},
        {Field::kGroupCode, masters::BoxName(GroupCode)},
        {Field::kName, masters::BoxName(Name)},
        {Field::kDateOfBirth, MaskEdBox1->objectName()},
        {Field::kPan, masters::BoxName(Pan)},
        {Field::kDocument, masters::BoxName(Document)},
        {Field::kAccounts, QStringLiteral("VS")}});
  Hold(masters::ContactControls(Address));
  Complete();
  Connect();
  Start();
}

TextBox* FrmClientMaster::AddBox(FieldLayout& fields, Box box, const QString& label, int span) {
  return Text1[box] = fields.Add(label, masters::BoxName(box), new TextBox(), span);
}

ComboBox* FrmClientMaster::AddChoice(FieldLayout& fields, const QString& name, const QString& label,
                                     const QStringList& texts) {
  auto* box = fields.Add(label, name, new ComboBox());
  box->SetTexts(texts);
  return box;
}

QLayout* FrmClientMaster::Fields() {
  auto* fields = new FieldLayout(kColumns);
  AddBox(*fields, Code, tr("&Client Code"));
  AddBox(*fields, GroupCode, tr("&Group Code"), kTwoColumns);
  AddBox(*fields, Name, tr("Client Na&me"), kColumns);
  AddContact(*fields);
  AddPerson(*fields);
  AddDocument(*fields);
  return fields;
}

void FrmClientMaster::AddContact(FieldLayout& fields) {
  address_ =
      fields.Add(tr("Add&ress"), masters::BoxName(Address), new controls::LinesBox(), kColumns);
  AddBox(fields, City, tr("Ci&ty"));
  Combo1 = fields.Add(tr("Stat&e"), QStringLiteral("Combo1"),
                      new ComboBox(nullptr, ComboBox::Entry::kFreeText));
  Combo1->SetTexts(
      lookups::FillStateList(Session().folders.data + QStringLiteral("/statelist.txt")));
  AddBox(fields, Pin, tr("P&IN"));
  AddBox(fields, Std, tr("STD Code"));
  AddBox(fields, Phone, tr("P&hone"));
  AddBox(fields, Mobile, tr("Mo&bile"));
  AddBox(fields, Fax, tr("&Fax"));
  AddBox(fields, Email, tr("E-Mai&l"), kTwoColumns)->SetUpperCase(false);
}

void FrmClientMaster::AddPerson(FieldLayout& fields) {
  MaskEdBox1 =
      fields.Add(tr("Date &of Birth"), QStringLiteral("MaskEdBox1"), new controls::DateBox());
  Watch(MaskEdBox1);
  AddBox(fields, Pan, tr("PAN"));
  Combo2 = AddChoice(fields, QStringLiteral("Combo2"), tr("&Sex"), SexItems());
  Combo3 = AddChoice(fields, QStringLiteral("Combo3"), tr("Marital Stat&us"), MaritalStatusItems());
}

void FrmClientMaster::AddDocument(FieldLayout& fields) {
  auto* row = fields.Add(tr("Document"), QStringLiteral("DocumentRow"), new QWidget(), kTwoColumns);
  auto* columns = new QHBoxLayout(row);
  columns->setContentsMargins(0, 0, 0, 0);
  Text1[Document] = new TextBox();
  Text1[Document]->setObjectName(masters::BoxName(Document));
  Text1[Document]->setAccessibleName(tr("Document"));
  Text1[Document]->setReadOnly(true);
  Text1[Document]->SetUpperCase(false);
  Text1[Document]->SetSelectOnEntry(false);
  CmdSource = new ZENButton(QStringLiteral("CmdSource"), tr("Pic&k..."));
  CmdClr = new ZENButton(QStringLiteral("CmdClr"), tr("Clear"));
  columns->addWidget(Text1[Document], 1);
  columns->addWidget(CmdSource);
  columns->addWidget(CmdClr);
}

void FrmClientMaster::AddButtons() {
  CmdDepPart = new ZENButton(QStringLiteral("CmdDepPart"), tr("Participants..."));
  CmdView = new ZENButton(QStringLiteral("CmdView"), tr("&View Document"));
  CmdDocuments = new ZENButton(QStringLiteral("CmdDocuments"), tr("Documents..."));
  CmdDocuments->setToolTip(tr("The documents of all clients"));
  mnuexit = new ZENButton(QStringLiteral("mnuexit"), tr("E&xit"));
  mnuexit->SetCancels(true);
  for (ZENButton* button : {CmdDepPart, CmdView, CmdDocuments, mnuexit}) {
    Buttons()->addWidget(button);
  }
}

void FrmClientMaster::Complete() {
  using masters::AddressBook;
  database::Connection& connection = *Session().connection;
  CompleteFrom(Text1[GroupCode], [&connection] { return masters::GroupCodes(connection); });
  CompleteFrom(Text1[City],
               [&connection] { return masters::Cities(connection, AddressBook::kClients); });
  CompleteFrom(Text1[Pin], [this, &connection] {
    return masters::PinsOf(connection, AddressBook::kClients, Text1[City]->text());
  });
  CompleteFrom(Text1[Std], [this, &connection] {
    return masters::StdCodesOf(connection, AddressBook::kClients, Text1[City]->text());
  });
}

void FrmClientMaster::Connect() {
  On(Text1[Pan], &TextBox::Left, &FrmClientMaster::Text1_Pan_Left,
     QStringLiteral("Text1_Validate"));
  OnClick(CmdSource, &FrmClientMaster::CmdSource_Click);
  OnClick(CmdClr, &FrmClientMaster::CmdClr_Click);
  OnClick(CmdView, &FrmClientMaster::CmdView_Click);
  OnClick(CmdDepPart, &FrmClientMaster::CmdDepPart_Click);
  OnClick(CmdDocuments, &FrmClientMaster::CmdDocuments_Click);
  OnClick(mnuexit, &FrmClientMaster::mnuexit_Click);
  On(&sign_->Viewer(), &documents::DocumentViewer::Failed, &FrmClientMaster::Viewer_Failed,
     QStringLiteral("CmdView_Click"));
}

void FrmClientMaster::FillList() {
  listed_ = book_.List();
  ShowClients();
}

bool FrmClientMaster::ReadRecords(std::span<const int> keys) {
  const auto order = [](const ClientRow& client) {
    return std::pair(lookups::OrderOf(client.code), client.id);
  };
  lookups::Patch(
      listed_, keys, book_.List(keys), [](const ClientRow& client) { return client.id.value; },
      [&](const ClientRow& one, const ClientRow& other) { return order(one) < order(other); });
  ShowClients();
  return true;
}

void FrmClientMaster::ShowClients() {
  std::vector<Row> rows;
  rows.reserve(listed_.size());
  for (const ClientRow& client : listed_) {
    rows.push_back({.id = client.id.value, .cells = {client.code, client.name}});
  }
  List().SetRows(std::move(rows));
}

void FrmClientMaster::Clear() {
  for (TextBox* box : Text1) {
    if (box != nullptr) {
      box->clear();
    }
  }
  address_->clear();
  for (ComboBox* box : {Combo1, Combo2, Combo3}) {
    box->Clear();
  }
  MaskEdBox1->SetDate({});
  accounts_->Show({});
  new_document_.clear();
  warned_pan_.clear();
  stored_pan_.clear();
  ShowDocumentName({});
}

void FrmClientMaster::Load(int id) {
  const std::optional<Client> client = book_.Load(ClientId{id});
  if (!client) {
    throw std::runtime_error(tr("This Client was Deleted in the Meantime.").toStdString());
  }
  ShowClient(*client);
}

void FrmClientMaster::ShowClient(const Client& client) {
  const masters::Contact& contact = client.contact;
  const std::array<QString, kBoxes> texts{
      client.code,   client.group_code, client.name,    contact.address, contact.city,
      contact.pin,   contact.std_code,  contact.phone,  contact.mobile,  contact.fax,
      contact.email, client.pan,        client.document};
  for (std::size_t field = 0; field < texts.size(); ++field) {
    if (Text1[field] != nullptr) {
      Text1[field]->setText(texts[field]);
    }
  }
  address_->setText(contact.address);
  Combo1->ByText(contact.state);
  MaskEdBox1->SetDate(client.date_of_birth);
  Combo2->ById(client.sex);
  Combo3->ById(client.marital_status);
  warned_pan_ = client.pan;
  stored_pan_ = client.pan;
  accounts_->Show(client.accounts);
  ShowDocumentName(client.document);
}

MaybeRefusal FrmClientMaster::Save() {
  try {
    return Saved(book_.Save(Entered(), new_document_));
  } catch (const DocumentNotFiled& failure) {
    SetCurrentId(failure.Client().value);
    throw;
  }
}

Client FrmClientMaster::Entered() const {
  Client client;
  client.id = ClientId{CurrentId()};
  client.code = Text1[Code]->text();
  client.group_code = Text1[GroupCode]->text();
  client.name = Text1[Name]->text();
  client.contact = EnteredContact();
  client.date_of_birth = MaskEdBox1->IsProper() ? MaskEdBox1->DateText() : MaskEdBox1->text();
  client.pan = Text1[Pan]->text();
  client.sex = Combo2->CurrentPosition();
  client.marital_status = Combo3->CurrentPosition();
  client.document = Text1[Document]->text();
  client.accounts = accounts_->Entered();
  return client;
}

masters::Contact FrmClientMaster::EnteredContact() const {
  return {.address = address_->text(),
          .city = Text1[City]->text(),
          .state = Combo1->currentText(),
          .pin = Text1[Pin]->text(),
          .std_code = Text1[Std]->text(),
          .phone = Text1[Phone]->text(),
          .mobile = Text1[Mobile]->text(),
          .fax = Text1[Fax]->text(),
          .email = Text1[Email]->text()};
}

void FrmClientMaster::Remove(int id) {
  book_.Delete(ClientId{id});
}

QString FrmClientMaster::DeleteQuestion() const {
  return masters::AskDeleteClient();
}

void FrmClientMaster::StateChanged() {
  if (IsEditing()) {
    accounts_->RefreshChoices();
  }
}

void FrmClientMaster::Text1_Pan_Left() {
  const QString pan = Text1[Pan]->text();
  if (IsCancelling() || pan == warned_pan_ || pan == stored_pan_) {
    return;
  }
  if (const MaybeRefusal refusal = CheckPan(pan)) {
    Show(*refusal);
    return;
  }
  warned_pan_ = pan;
  if (const QString warning = PanWarning(pan); !warning.isEmpty()) {
    Say().Inform(warning);
  }
}

void FrmClientMaster::CmdSource_Click() {
  const QString path = TheDesk().ask_open_path(
      this, QString(),
      tr("Documents (*.bmp *.gif *.jpg *.jpeg *.tif *.pdf *.rtf *.doc *.txt *.htm *.html);;"
         "All files (*)"));
  if (!path.isEmpty()) {
    new_document_ = path;
    ShowDocumentName(QFileInfo(path).fileName());
  }
}

void FrmClientMaster::CmdClr_Click() {
  new_document_.clear();
  ShowDocumentName({});
}

void FrmClientMaster::ShowDocumentName(const QString& name) {
  Text1[Document]->setText(name);
  Text1[Document]->setToolTip(name);
  CmdView->setEnabled(!name.isEmpty());
  sign_->Viewer().Clear(name.isEmpty() ? tr("The client has no document.")
                                       : tr("Press \"View Document\" to see %1.").arg(name));
}

QString FrmClientMaster::DocumentPath() const {
  if (!new_document_.isEmpty() || CurrentId() == 0) {
    return new_document_;
  }
  return book_.Documents().Path(ClientId{CurrentId()}, Text1[Document]->text()).value_or(QString());
}

void FrmClientMaster::CmdView_Click() {
  Reveal(&sign_->Viewer());
  sign_->Viewer().Open(DocumentPath());
}

void FrmClientMaster::Viewer_Failed(const QString& text) {
  Say().Inform(text);
}

void FrmClientMaster::CmdDepPart_Click() {
  TheDesk().open(QStringLiteral("FrmDepPart"));
}

void FrmClientMaster::CmdDocuments_Click() {
  TheDesk().open(QStringLiteral("frmdocuments"));
}

void FrmClientMaster::mnuexit_Click() {
  close();
}

}  // namespace quorvane::clients
