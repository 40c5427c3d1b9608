#include "admin/documents/window/frmdocuments.h"

#include "controls/Style.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::documents {

using controls::ZENButton;

frmdocuments::frmdocuments(controls::Desk& desk, documents::DocumentDialogs dialogs)
    : ChildWindow(desk, QStringLiteral("frmdocuments"), tr("Documents"), {720, 440}) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("Documents of the clients"));
  VSF->SetFilterable(true);
  VSF->SetColumns({{.heading = tr("Code")},
                   {.heading = tr("Client")},
                   {.heading = tr("Document")},
                   {.heading = tr("Kept on"), .mask = controls::Mask::kDate},
                   {.heading = tr("Size"), .alignment = controls::Alignment::kRight}});
  sign_ = new documents::FrmSign(TheGuard(), std::move(dialogs),
                                 app::IniFile(Session().folders.config_file));
  auto* both = new QSplitter();
  both->addWidget(VSF);
  both->addWidget(sign_);
  both->setSizes({1000, 1000});
  both->setChildrenCollapsible(false);
  rows->addWidget(both, 1);
  rows->addLayout(Buttons());
  On(VSF, &controls::Grid::CurrentRowChanged, &frmdocuments::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  On(&sign_->Viewer(), &documents::DocumentViewer::Failed, &frmdocuments::Viewer_Failed,
     QStringLiteral("VSF_RowColChange"));
  FillList();
}

QLayout* frmdocuments::Buttons() {
  auto* row = new QHBoxLayout();
  cmdOpen = new ZENButton(QStringLiteral("cmdOpen"), tr("&Open with the Desktop"));
  auto* refresh = new ZENButton(QStringLiteral("cmdRefresh"), tr("Re&fresh"));
  auto* exit = new ZENButton(QStringLiteral("cmdexit"), tr("E&xit"));
  exit->SetCancels(true);
  row->addWidget(cmdOpen);
  row->addWidget(refresh);
  row->addStretch(1);
  row->addWidget(exit);
  OnClick(cmdOpen, &frmdocuments::cmdOpen_Click);
  OnClick(refresh, &frmdocuments::cmdRefresh_Click);
  OnClick(exit, &frmdocuments::cmdexit_Click);
  return row;
}

void frmdocuments::FillList() {
  documents_ =
      ListDocuments(*Session().connection, documents::DocumentStore(Session().folders.documents));
  const QLocale english(QLocale::English);
  std::vector<controls::Row> rows;
  for (const ListedDocument& document : documents_) {
    const bool there = !document.path.isEmpty();
    rows.push_back(
        {.id = document.client.value,
         .cells = {document.code, document.name, document.file,
                   there ? document.kept.toString(QStringLiteral("dd/MM/yyyy")) : QString(),
                   there ? english.formattedDataSize(document.bytes) : tr("missing")}});
  }
  VSF->SetRows(std::move(rows));
  VSF_RowColChange(VSF->CurrentRow());
}

const ListedDocument* frmdocuments::Current() const {
  const auto found = std::find_if(
      documents_.begin(), documents_.end(),
      [this](const ListedDocument& document) { return document.client.value == VSF->CurrentId(); });
  return found == documents_.end() ? nullptr : &*found;
}

void frmdocuments::VSF_RowColChange(int row) {
  const ListedDocument* document = row < 0 ? nullptr : Current();
  cmdOpen->setEnabled(document != nullptr && !document->path.isEmpty());
  if (document != nullptr) {
    sign_->Viewer().Open(document->path);
  } else {
    sign_->Viewer().Clear(documents_.empty() ? tr("No client has a document.")
                                             : tr("Choose a document."));
  }
}

void frmdocuments::Viewer_Failed(const QString& text) {
  sign_->Viewer().Clear(text);
}

void frmdocuments::cmdOpen_Click() {
  if (const ListedDocument* document = Current();
      document != nullptr && !TheDesk().open_file(document->path)) {
    Say().Inform(tr("The desktop has no program for this document."));
  }
}

void frmdocuments::cmdRefresh_Click() {
  FillList();
}

void frmdocuments::cmdexit_Click() {
  close();
}

}  // namespace quorvane::documents
