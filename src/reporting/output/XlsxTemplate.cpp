#include "reporting/output/XlsxTemplate.h"

#include "core/app/Ini.h"
#include "core/platform/PrivateFile.h"
#include "core/text/Tr.h"
#include "reporting/output/package/WorkbookPackage.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace quorvane::reporting {

namespace {

constexpr std::size_t kStepLines = 1000;

[[noreturn]] void Fail(const QString& text) {
  throw std::runtime_error(text.toStdString());
}

WorkbookPackage Open(const QString& path) {
  if (!QFileInfo(path).isFile()) {
    Fail(Tr("XlsxTemplate", "The template %1 is not there.").arg(path));
  }
  try {
    return WorkbookPackage(ZipPackage::Read(path));
  } catch (const std::runtime_error& error) {
    Fail(Tr("XlsxTemplate", "The template %1 is no workbook that can be read (%2).")
             .arg(path, QString::fromUtf8(error.what())));
  }
}

/// True for the name of a pattern's cell: the pattern and a number.
bool IsFieldOf(const QString& pattern, const QString& name) {
  const QString number = name.mid(pattern.size());
  return name.startsWith(pattern, Qt::CaseInsensitive) && !number.isEmpty() &&
         std::ranges::all_of(number, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace

class XlsxTemplate::Book {
 public:
  explicit Book(const QString& path) : path_(path), package_(Open(path)) {}

  const WorkbookPackage::NamedCell* Find(const QString& name) const {
    const auto found = package_.Names().find(name.toLower().toStdString());
    return found == package_.Names().end() ? nullptr : &found->second;
  }

  const WorkbookPackage::NamedCell& Named(const QString& name) const {
    const WorkbookPackage::NamedCell* cell = Find(name);
    if (cell == nullptr) {
      Fail(Tr("XlsxTemplate", "The template %1 has no cell named \"%2\".").arg(path_, name));
    }
    return *cell;
  }

  void Set(const QString& name, const Cell& value) {
    const WorkbookPackage::NamedCell& cell = Named(name);
    package_.Sheet(cell.sheet).SetCell(cell.place, value, package_.Styles());
  }

  void Repeat(const QStringList& patterns, const std::vector<TemplateLine>& lines,
              Progress& progress) {
    ReadFields(patterns);
    CheckFields(patterns, lines);
    const std::size_t sheet = fields_.front().sheet;
    std::vector<RowPattern> rows;
    BlockShift shift{std::numeric_limits<int>::max(), 0, static_cast<int>(lines.size())};
    for (const Fields& fields : fields_) {
      const Fields& used = fields.columns.empty() ? fields_.front() : fields;
      rows.push_back(package_.Sheet(sheet).MakePattern(used.row, used.columns, package_.Styles()));
      shift.first = std::min(shift.first, used.row);
      shift.last = std::max(shift.last, used.row);
    }
    progress.Begin(Tr("XlsxTemplate", "Writing the workbook"), shift.count);
    package_.Sheet(sheet).ReplaceBlock(
        shift,
        [&](std::size_t index) -> const RowPattern& {
          return rows[PatternOf(patterns, lines[index])];
        },
        [&](std::size_t index) -> const std::vector<Cell>& {
          if (index % kStepLines == 0) {
            progress.Step(static_cast<std::int64_t>(index));
            progress.ThrowIfCancelled();
          }
          return lines[index].cells;
        });
    package_.Shift(sheet, shift, [&](const std::string& name) {
      const QString text = QString::fromStdString(name);
      return std::ranges::any_of(patterns,
                                 [&](const QString& pattern) { return IsFieldOf(pattern, text); });
    });
  }

  void RemoveSheetOf(const QString& name) { package_.RemoveSheet(Named(name).sheet); }

  void Save(const QString& path) const {
    QSaveFile file(path);
    platform::OpenPrivate(file);
    package_.Finish().Write(file);
    platform::Commit(file);
  }

 private:
  /// The cells of a pattern: value numbers by column.
  struct Fields {
    std::size_t sheet = 0;
    int row = 0;
    std::map<int, std::size_t> columns;
  };

  static std::size_t PatternOf(const QStringList& patterns, const TemplateLine& line) {
    const qsizetype index = patterns.indexOf(line.pattern);
    if (index < 0) {
      throw std::logic_error("a line of no pattern");
    }
    return static_cast<std::size_t>(index);
  }

  void ReadFields(const QStringList& patterns) {
    fields_.clear();
    for (const QString& pattern : patterns) {
      Fields fields;
      for (const auto& [name, cell] : package_.Names()) {
        const QString text = QString::fromStdString(name);
        if (!IsFieldOf(pattern, text)) {
          continue;
        }
        if (!fields.columns.empty() &&
            (cell.sheet != fields.sheet || cell.place.row != fields.row)) {
          Fail(Tr("XlsxTemplate",
                  "The cells named \"%2...\" of the template %1 do not stand in one row.")
                   .arg(path_, pattern));
        }
        fields.sheet = cell.sheet;
        fields.row = cell.place.row;
        fields.columns[cell.place.column] = text.mid(pattern.size()).toUInt() - 1;
      }
      fields_.push_back(std::move(fields));
    }
    Named(patterns.front() + QLatin1Char('1'));
    for (const Fields& fields : fields_) {
      if (!fields.columns.empty() && fields.sheet != fields_.front().sheet) {
        Fail(Tr("XlsxTemplate", "The rows of the template %1 do not stand on one sheet.")
                 .arg(path_));
      }
    }
  }

  /// Nothing may be lost because its cell has no name.
  void CheckFields(const QStringList& patterns, const std::vector<TemplateLine>& lines) const {
    for (const TemplateLine& line : lines) {
      const std::size_t index = PatternOf(patterns, line);
      const bool own = !fields_[index].columns.empty();
      const Fields& used = own ? fields_[index] : fields_.front();
      for (std::size_t i = 0; i < line.cells.size(); ++i) {
        const bool empty = std::holds_alternative<std::monostate>(line.cells[i]);
        const bool named = std::ranges::any_of(
            used.columns, [&](const auto& column) { return column.second == i; });
        if (!empty && !named) {
          const QString name = (own ? line.pattern : patterns.front()) + QString::number(i + 1);
          Fail(Tr("XlsxTemplate", "The template %1 has no cell of its own named \"%2\".")
                   .arg(path_, name));
        }
      }
    }
  }

  QString path_;
  WorkbookPackage package_;
  std::vector<Fields> fields_;
};

XlsxTemplate::XlsxTemplate(const QString& path) : book_(std::make_unique<Book>(path)) {}
XlsxTemplate::~XlsxTemplate() = default;
XlsxTemplate::XlsxTemplate(XlsxTemplate&&) noexcept = default;

void XlsxTemplate::Set(const QString& name, const Cell& value) {
  book_->Set(name, value);
}

void XlsxTemplate::Repeat(const QStringList& patterns, const std::vector<TemplateLine>& lines,
                          Progress& progress) {
  book_->Repeat(patterns, lines, progress);
}

void XlsxTemplate::RemoveSheetOf(const QString& name) {
  book_->RemoveSheetOf(name);
}

void XlsxTemplate::Save(const QString& path) const {
  book_->Save(path);
}

QString TemplatePath(const app::Folders& folders, const QString& file_name) {
  const app::IniFile settings(folders.config_file);
  const QString folder =
      settings.Read(QStringLiteral("Paths"), QStringLiteral("Reports"), folders.data);
  return QDir(folder).filePath(file_name);
}

MaybeRefusal RefuseWithoutTemplate(const QString& path) {
  if (QFileInfo(path).isFile()) {
    return std::nullopt;
  }
  return Refusal{Tr("TemplateFolder",
                    "The template %1 is not there. Put it back, or name "
                    "its folder in the settings.")
                     .arg(QDir::toNativeSeparators(path)),
                 Field::kNone};
}

}  // namespace quorvane::reporting
