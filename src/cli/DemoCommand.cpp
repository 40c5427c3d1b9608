#include "cli/Command.h"
#include "core/platform/PrivateFile.h"
#include "portfolio/Import.h"
#include "reporting/output/WriteReport.h"
#include "reports/Reports.h"

#include <QCoreApplication>
#include <QDir>

#include <fmt/format.h>

namespace quorvane::cli {
namespace {

constexpr int kFirstYear = 2011;
constexpr int kYears = 3;
constexpr std::string_view kPrinted = "capital-gain";

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

/// Writes a report in every format and prints the capital-gain statement.
void WriteDemoReport(std::string_view name, const reports::SampleReport& report,
                     const std::string& stem) {
  Progress progress;
  for (const reporting::OutputFormatEntry& entry : reporting::OutputFormats()) {
    const std::string path = stem + entry.extension;
    if (entry.format == reporting::OutputFormat::kCsv && report.csv) {
      WriteFile(path, *report.csv);
    } else {
      reporting::WriteReport(report.document, entry.format, QString::fromStdString(path), progress);
    }
  }
  if (name == kPrinted) {
    Print(reporting::WriteText(report.document) + "\n");
  }
}

std::vector<reports::Sample> AllSamples() {
  std::vector<reports::Sample> samples;
  for (const reports::Report& report : reports::Reports()) {
    samples.insert(samples.end(), report.samples.begin(), report.samples.end());
  }
  return samples;
}

void WriteReports(Context& context, const std::string& folder) {
  const lookups::Directory directory(context.Connection());
  const auto progress = context.MakeProgress();
  const std::vector<reports::Sample> samples = AllSamples();
  progress->Begin(QStringLiteral("Writing reports"),
                  kYears * static_cast<std::int64_t>(samples.size()));
  std::int64_t done = 0;
  for (int first = kFirstYear; first < kFirstYear + kYears; ++first) {
    const text::FinancialYear year(first);
    for (const reports::Sample& sample : samples) {
      const auto write = [&](const reports::SampleReport& report) {
        const std::string whose = report.client ? directory.Client(report.client).code : "all";
        const QString stem = reporting::FileStem(
            {QString::fromStdString(fmt::format("{}-{}-{}", whose, year.Utf8(), sample.name))});
        WriteDemoReport(sample.name, report, folder + "/" + stem.toStdString());
      };
      InformOf(context,
               sample.make({context.Connection(), directory, year, context.Session().folders.data},
                           write));
      progress->Step(++done);
    }
  }
}

MaybeRefusal Demo(Context& context, const std::string& out) {
  const QDir folder(QString::fromStdString(out));
  const QString data = folder.filePath(QStringLiteral("data"));
  if (QFileInfo::exists(data)) {
    return RefusalOf("there is a demonstration in " + out + " already; name another folder");
  }
  platform::MakeOutputFolder(folder.path());
  context.UseFolder(data.toStdString());
  ImportSample(context);
  WriteReports(context, folder.absolutePath().toStdString());
  Print(
      fmt::format("The reports lie in {}\nThe portfolio itself lies in {}; look into it with "
                  "quorvanectl --data {} ...\n",
                  folder.absolutePath().toStdString(), data.toStdString(), data.toStdString()));
  return std::nullopt;
}

}  // namespace

void AddDemoCommand(CLI::App& app, Context& context) {
  auto out = std::make_shared<std::string>();
  CLI::App* demo = app.add_subcommand("demo", "A sample portfolio and every report of it");
  demo->add_option("--out", *out, "Folder to make")->required();
  SetWork(*demo, context, [&context, out] { return Demo(context, *out); });
}

}  // namespace quorvane::cli
