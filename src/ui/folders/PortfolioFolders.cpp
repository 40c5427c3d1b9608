#include "ui/folders/PortfolioFolders.h"

#include "controls/ProgressDialog.h"
#include "core/app/Folders.h"
#include "core/text/Tr.h"
#include "portfolio/Export.h"
#include "portfolio/Import.h"
#include "ui/folders/FrmImportErrors.h"

#include <QCoreApplication>
#include <QDir>

#include <stdexcept>

namespace quorvane::ui {
namespace {

QString Told(const portfolio::ImportResult& result) {
  QStringList lines{Tr("PortfolioFolders", "The folder was taken in.")};
  for (const portfolio::ImportCount& count : result.counts) {
    if (count.added > 0) {
      lines << QStringLiteral("%1 %2")
                   .arg(static_cast<qulonglong>(count.added))
                   .arg(Tr("Portfolio", count.what.c_str()));
    }
  }
  for (const std::string& note : result.notes) {
    lines << QString::fromStdString(note);
  }
  return lines.join(QLatin1Char('\n'));
}

bool HoldsPortfolio(const QString& folder) {
  return !QDir(folder).entryList({QStringLiteral("*.csv")}, QDir::Files).isEmpty();
}

}  // namespace

void PortfolioFolders::Import() {
  const QString folder = desk_.ask_folder(&over_, QString());
  if (!folder.isEmpty()) {
    TakeIn(folder);
  }
}

void PortfolioFolders::ImportSample() {
  const QString sample =
      app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("sample"));
  if (sample.isEmpty()) {
    throw std::runtime_error(
        Tr("PortfolioFolders", "The sample portfolio is not installed.").toStdString());
  }
  TakeIn(sample);
}

void PortfolioFolders::TakeIn(const QString& folder) {
  portfolio::ImportResult result;
  {
    controls::ProgressDialog progress(&over_);
    result =
        portfolio::ImportPortfolio(*desk_.session.connection, folder, /*dry_run=*/false, progress);
  }
  if (result.errors.empty()) {
    desk_.messages.Inform(Told(result));
  } else {
    (new FrmImportErrors(desk_, result.errors))->OpenModal(&over_);
  }
}

void PortfolioFolders::Export() {
  const QString folder = desk_.ask_folder(&over_, QString());
  if (folder.isEmpty()) {
    return;
  }
  const QString question =
      Tr("PortfolioFolders",
         "%1 holds CSV files already. Files of a portfolio there are replaced. Write into it?");
  if (HoldsPortfolio(folder) &&
      !desk_.messages.Ask(question.arg(QDir::toNativeSeparators(folder)), controls::Answer::kNo,
                          controls::Icon::kInformation)) {
    return;
  }
  {
    controls::ProgressDialog progress(&over_);
    portfolio::ExportPortfolio(*desk_.session.connection, folder, std::nullopt, progress);
  }
  desk_.messages.Inform(
      Tr("PortfolioFolders", "The portfolio lies in %1.").arg(QDir::toNativeSeparators(folder)));
}

}  // namespace quorvane::ui
