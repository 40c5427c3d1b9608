#include "cli/Command.h"
#include "cli/Statement.h"
#include "portfolio/Import.h"

#include <QCoreApplication>
#include <QDir>

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

constexpr int kFirstYear = 2011;
constexpr int kYears = 3;

void ImportSample(Context& context) {
  const QString sample =
      app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("sample"));
  if (sample.isEmpty()) {
    throw std::runtime_error("the sample portfolio is not installed");
  }
  const auto progress = context.MakeProgress();
  const auto result = portfolio::ImportPortfolio(context.Connection(), sample, false, *progress);
  if (!result.errors.empty()) {
    throw std::runtime_error("the sample portfolio is damaged: " + result.errors.front().Text());
  }
}

/// Writes each client's statements of a year and prints the capital-gain statement.
void WriteStatements(Context& context, const lookups::Directory& directory,
                     const std::string& folder, text::FinancialYear year) {
  const auto query = profit::StatementQuery::OfYear(std::nullopt, year);
  const auto progress = context.MakeProgress();
  profit::BuildStatement(
      context.Connection(), query, *progress,
      [&](ClientId client, std::span<const profit::StatementRow> rows) {
        for (const auto& [mode, name] :
             {std::pair{profit::StatementMode::kCapitalGain, "capital-gain"},
              std::pair{profit::StatementMode::kProfit, "profit"}}) {
          for (const OutputFormat format : {OutputFormat::kText, OutputFormat::kCsv}) {
            const std::string text = FormatStatement(format, mode, profit::Layout::kDetail, query,
                                                     client, rows, directory);
            WriteFile(fmt::format("{}/{}-{}-{}{}", folder, directory.Client(client).code,
                                  year.Utf8(), name, Extension(format)),
                      text);
            if (mode == profit::StatementMode::kCapitalGain && format == OutputFormat::kText) {
              Print(text + "\n");
            }
          }
        }
      });
}

void Demo(Context& context, const std::string& out) {
  const QDir folder(QString::fromStdString(out));
  const QString data = folder.filePath(QStringLiteral("data"));
  if (QFileInfo::exists(data)) {
    throw Refused("there is a demonstration in " + out + " already; name another folder");
  }
  QDir().mkpath(folder.path());
  context.UseFolder(data.toStdString());
  ImportSample(context);
  const lookups::Directory directory(context.Connection());
  for (int year = kFirstYear; year < kFirstYear + kYears; ++year) {
    WriteStatements(context, directory, folder.absolutePath().toStdString(),
                    text::FinancialYear(year));
  }
  Print(
      fmt::format("The statements lie in {}\nThe portfolio itself lies in {}; look into it with "
                  "quorvanectl --data {} ...\n",
                  folder.absolutePath().toStdString(), data.toStdString(), data.toStdString()));
}

}  // namespace

void AddDemoCommand(CLI::App& app, Context& context) {
  auto out = std::make_shared<std::string>();
  CLI::App* demo = app.add_subcommand("demo", "A sample portfolio and every statement of it");
  demo->add_option("--out", *out, "Folder to make")->required();
  demo->callback([&context, out] { Demo(context, *out); });
}

}  // namespace quorvane::cli
