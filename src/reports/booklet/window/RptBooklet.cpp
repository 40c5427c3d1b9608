#include "reports/booklet/window/RptBooklet.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/app/Session.h"
#include "core/platform/PrivateFile.h"
#include "core/text/Tr.h"
#include "reporting/output/WriteReport.h"
#include "reports/booklet/YearBooklet.h"

#include <QBuffer>
#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::booklet {

using controls::ZENButton;

RptBooklet::RptBooklet(reporting::ReportDesk& desk)
    : ChildWindow(desk, QStringLiteral("RptBooklet"),
                  app::ClientTitle(tr("Family Booklet"), desk.session), {520, 420}),
      desk_(desk),
      of_(app::CurrentOf(desk.session)),
      client_name_(desk.session.current_client_name) {
  Build();
  std::vector<lookups::Item> parts;
  for (const PartEntry& entry : Parts()) {
    parts.push_back({static_cast<int>(entry.part) + 1, Tr("Booklet", entry.title)});
  }
  VSF->Fill(parts);
  Hold({{Field::kRecord, QStringLiteral("VSF")}});
  OnClick(CmdPreview, &RptBooklet::CmdPreview_Click);
  OnClick(CmdPdf, &RptBooklet::CmdPdf_Click);
  OnClick(CmdExit, &RptBooklet::CmdExit_Click);
}

void RptBooklet::Build() {
  optW_0 = new QRadioButton(tr("&Client"));
  optW_0->setObjectName(QStringLiteral("optW_0"));
  optW_0->setChecked(true);
  optW_1 = new QRadioButton(tr("&Family"));
  optW_1->setObjectName(QStringLiteral("optW_1"));
  auto* whose = new QGroupBox(tr("Whose"));
  whose->setObjectName(QStringLiteral("Frame1"));
  auto* choices = new QHBoxLayout(whose);
  choices->addWidget(optW_0);
  choices->addWidget(optW_1);
  choices->addStretch(1);
  VSF = new reporting::TickGrid(QStringLiteral("VSF"), tr("Parts of the booklet"),
                                {{.heading = tr("Part")}});
  VSF->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
  const text::Date day =
      LastDayOf({.of = of_, .parts = {}, .today = desk_.today(), .data_folder = {}});
  auto* note = new QLabel(
      tr("The booklet reports the year up to %1. Each part begins on a page of its own, after a "
         "cover and the contents.")
          .arg(text::FormatDmy(day)));
  note->setWordWrap(true);
  CmdPreview = new ZENButton(QStringLiteral("CmdPreview"), tr("&Preview and Print"));
  CmdPdf = new ZENButton(QStringLiteral("CmdPdf"), tr("&Write and Open PDF"));
  CmdPdf->setToolTip(tr("Into the folder of reports"));
  CmdExit = new ZENButton(QStringLiteral("CmdExit"), tr("E&xit"));
  CmdExit->SetCancels(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(CmdPreview);
  buttons->addWidget(CmdPdf);
  buttons->addWidget(CmdExit);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  rows->addWidget(whose);
  rows->addWidget(VSF, 1);
  rows->addWidget(note);
  rows->addLayout(buttons);
}

std::optional<reporting::Booklet> RptBooklet::Make(Progress& progress) {
  std::set<Part> parts;
  for (const int id : VSF->Model().TickedIds()) {
    parts.insert(static_cast<Part>(id - 1));
  }
  Result<reporting::Booklet> made = MakeBooklet(*Session().connection,
                                                {.of = of_,
                                                 .family = optW_1->isChecked(),
                                                 .parts = std::move(parts),
                                                 .today = desk_.today(),
                                                 .data_folder = Session().folders.data},
                                                progress);
  if (!made) {
    Show(made.Why());
    return std::nullopt;
  }
  return std::move(*made);
}

/// What the file is called after: other choices are another file.
QStringList RptBooklet::FileWords() const {
  constexpr qsizetype kLongestClient = 40;
  QStringList words{tr("Booklet"), client_name_.left(kLongestClient), of_.year.Text()};
  if (optW_1->isChecked()) {
    words << tr("Family");
  }
  return words;
}

void RptBooklet::CmdPreview_Click() {
  QByteArray pages;
  {
    controls::ProgressDialog progress(this);
    const auto booklet = Make(progress);
    if (!booklet) {
      return;
    }
    QBuffer buffer(&pages);
    buffer.open(QIODevice::WriteOnly);
    reporting::WriteBooklet(*booklet, buffer, progress);
  }
  desk_.show_pages(FileWords(), pages, this);
}

void RptBooklet::CmdPdf_Click() {
  const QDir folder(Session().folders.application + QStringLiteral("/Reports"));
  const QString path = folder.filePath(reporting::FileStem(FileWords()) +
                                       reporting::ExtensionOf(reporting::OutputFormat::kPdf));
  {
    controls::ProgressDialog progress(this);
    const auto booklet = Make(progress);
    if (!booklet) {
      return;
    }
    platform::MakeOutputFolder(folder.path());
    reporting::WriteBooklet(*booklet, path, progress);
  }
  if (!desk_.open_file(path)) {
    Say().Inform(tr("The booklet lies in %1. No program that opens it was found.").arg(path));
  }
}

void RptBooklet::CmdExit_Click() {
  close();
}

}  // namespace quorvane::booklet
