#include "admin/settings/window/frmsettings.h"

#include "admin/settings/Settings.h"
#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/Style.h"
#include "core/app/Ini.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPrinterInfo>
#include <QRadioButton>
#include <QScreen>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quorvane::settings {
namespace {

using controls::Answer;
using controls::ComboBox;
using controls::FieldLayout;
using controls::Icon;
using controls::TextBox;
using controls::ZENButton;

constexpr int kTwoColumns = 2;
const QString kYes = QStringLiteral("yes");
const QString kNo = QStringLiteral("no");

QLabel* Hint(const QString& text) {
  auto* hint = new QLabel(text);
  hint->setWordWrap(true);
  hint->setTextFormat(Qt::PlainText);
  return hint;
}

QLabel* PathLabel(const QString& path) {
  auto* label = new QLabel(QDir::toNativeSeparators(path));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setWordWrap(true);
  return label;
}

/// A page of fields, with what stands above and below them.
struct Page {
  QWidget* page = new QWidget();
  QVBoxLayout* rows = new QVBoxLayout(page);
  FieldLayout* fields = nullptr;

  explicit Page(int columns) : fields(new FieldLayout(columns)) {
    rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
    rows->setSpacing(controls::kSpacing);
  }
  QWidget* Done() {
    rows->addLayout(fields);
    rows->addStretch(1);
    return page;
  }
};

}  // namespace

frmsettings::frmsettings(controls::Desk& desk, FolderDialog choose_folder)
    : ChildWindow(desk, QStringLiteral("frmsettings"), tr("Settings"), {560, 420}),
      choose_folder_(std::move(choose_folder)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  pages_ = new QTabWidget();
  pages_->setObjectName(QStringLiteral("Frame1"));
  pages_->setAccessibleName(windowTitle());
  pages_->addTab(DisplayPage(), tr("&Display"));
  pages_->addTab(FoldersPage(), tr("&Folders"));
  pages_->addTab(DatabasePage(), tr("Data&base"));
  pages_->addTab(InternetPage(), tr("&Internet"));
  pages_->addTab(PrinterPage(), tr("&Printer"));
  pages_->addTab(BillsPage(), tr("Bills"));
  rows->addWidget(pages_, 1);
  rows->addLayout(Buttons());
  for (int text = 0; text < kTexts; ++text) {
    Hold({{PlaceOf(static_cast<Text>(text)).field, BoxOf(static_cast<Text>(text))}});
  }
  Connect();
  Put(LoadSettings(Session().folders));
}

QString frmsettings::AskFolder(QWidget* over, const QString& from) {
  return QFileDialog::getExistingDirectory(over, tr("Folder of the Templates"), from);
}

void frmsettings::AddText(FieldLayout& fields, Text text, const QString& label, int span) {
  auto* box = new TextBox();
  box->SetUpperCase(false);
  boxes_[text] = fields.Add(label, BoxOf(text), box, span);
}

void frmsettings::AddChoice(FieldLayout& fields, Text text, const QString& label,
                            const QStringList& values, const QStringList& shown) {
  auto* box = new ComboBox();
  box->SetTexts(shown);
  values_[text] = values;
  boxes_[text] = fields.Add(label, BoxOf(text), box);
}

QWidget* frmsettings::DisplayPage() {
  Page page(kTwoColumns);
  Combo1 = page.fields->Add(tr("&Windows"), QStringLiteral("Combo1"), new ComboBox(), kTwoColumns);
  Combo1->SetTexts({tr("Stretched to the screen"), tr("Stretched to a resolution"),
                    tr("In their designed size")});
  AddText(*page.fields, Width, tr("Hori&zontal pixels"));
  AddText(*page.fields, Height, tr("&Vertical pixels"));
  AddChoice(*page.fields, Theme, tr("&Theme"), {"system", "light", "dark"},
            {tr("As the desktop"), tr("Light"), tr("Dark")});
  AddChoice(*page.fields, Language, tr("&Language"), {"en", "hi"},
            {QStringLiteral("English"), QStringLiteral("हिन्दी")});
  QWidget* done = page.Done();
  page.rows->insertWidget(1, Hint(tr("Theme and language hold as soon as they are saved. Windows "
                                     "that are open keep their texts and sizes until they are "
                                     "opened again. Reports are always in English.")));
  return done;
}

QWidget* frmsettings::ReportsFolder() {
  auto* row = new QWidget();
  auto* columns = new QHBoxLayout(row);
  columns->setContentsMargins(0, 0, 0, 0);
  auto* box = new TextBox();
  box->SetUpperCase(false);
  box->setObjectName(BoxOf(Reports));
  box->setAccessibleName(tr("Report templates"));
  box->setPlaceholderText(QDir::toNativeSeparators(Session().folders.data));
  boxes_[Reports] = box;
  cmdFolder = new ZENButton(QStringLiteral("cmdFolder"), tr("Pic&k..."));
  columns->addWidget(box, 1);
  columns->addWidget(cmdFolder);
  row->setFocusProxy(box);
  return row;
}

QWidget* frmsettings::FoldersPage() {
  Page page(1);
  const app::Folders& folders = Session().folders;
  page.fields->Add(tr("Report &templates"), QStringLiteral("ReportsRow"), ReportsFolder());
  page.fields->Add(tr("Application"), QStringLiteral("lblApplication"),
                   PathLabel(folders.application));
  page.fields->Add(tr("Documents of clients"), QStringLiteral("lblDocuments"),
                   PathLabel(folders.documents));
  page.fields->Add(tr("Settings"), QStringLiteral("lblConfig"), PathLabel(folders.config_file));
  page.fields->Add(tr("Screen settings"), QStringLiteral("lblScreen"),
                   PathLabel(folders.screen_ini));
  return page.Done();
}

QLayout* frmsettings::DatabaseChoice() {
  auto* choice = new QHBoxLayout();
  Option1 = new QRadioButton(tr("T&he program's own database"));
  Option1->setObjectName(QStringLiteral("Option1"));
  Option2 = new QRadioButton(tr("Another se&rver"));
  Option2->setObjectName(QStringLiteral("Option2"));
  choice->addWidget(Option1);
  choice->addWidget(Option2);
  choice->addStretch(1);
  return choice;
}

QLayout* frmsettings::TrialRow() {
  auto* row = new QHBoxLayout();
  cmdTest = new ZENButton(QStringLiteral("cmdTest"), tr("&Test Connection"));
  lblTest = Hint({});
  lblTest->setObjectName(QStringLiteral("lblTest"));
  row->addWidget(cmdTest);
  row->addWidget(lblTest, 1);
  return row;
}

QWidget* frmsettings::DatabasePage() {
  Page page(kTwoColumns);
  page.rows->addLayout(DatabaseChoice());
  AddText(*page.fields, Server, tr("Ser&ver"));
  AddText(*page.fields, Port, tr("P&ort"));
  AddText(*page.fields, Socket, tr("Soc&ket"));
  AddText(*page.fields, Database, tr("Database &name"));
  AddText(*page.fields, User, tr("&User"));
  AddText(*page.fields, Password, tr("Pass&word"));
  AddText(*page.fields, Driver, tr("ODB&C driver"));
  AddChoice(*page.fields, TlsVerify, tr("Verify the server"), {kNo, kYes}, {tr("No"), tr("Yes")});
  AddText(*page.fields, TlsCa, tr("TLS authority file"));
  AddText(*page.fields, TlsCertificate, tr("TLS certificate file"));
  AddText(*page.fields, TlsKey, tr("TLS key file"));
  qobject_cast<TextBox*>(boxes_[Password])->setEchoMode(QLineEdit::Password);
  QWidget* done = page.Done();
  page.rows->insertLayout(2, TrialRow());
  return done;
}

QWidget* frmsettings::BillsPage() {
  Page page(1);
  AddChoice(*page.fields, WholeRupeeStt, tr("S.T.T. of a line"), {kNo, kYes},
            {tr("In paise"), tr("In whole rupees, 50 paise up")});
  QWidget* done = page.Done();
  page.rows->insertWidget(1, Hint(tr("How it is proposed in bill windows opened from now on.")));
  return done;
}

QWidget* frmsettings::InternetPage() {
  Page page(1);
  AddText(*page.fields, IndexFeed, tr("Index &headline"));
  AddText(*page.fields, BseHost, tr("Bo&mbay exchange"));
  AddText(*page.fields, ArchiveHost, tr("Its pri&ce files"));
  AddText(*page.fields, NseHost, tr("&National exchange"));
  AddText(*page.fields, NseArchiveHost, tr("NSE &archive"));
  AddText(*page.fields, BseQuoteHost, tr("&Quotes, Bombay"));
  AddText(*page.fields, NseQuoteHost, tr("Quotes, National"));
  QWidget* done = page.Done();
  page.rows->insertWidget(1, Hint(tr("An empty address is never asked.")));
  return done;
}

QWidget* frmsettings::PrinterPage() {
  Page page(1);
  AddChoice(*page.fields, Printer, tr("Default p&rinter"), {QString()}, {tr("The desktop's own")});
  AddChoice(*page.fields, PageSize, tr("Pa&ge size"), {"A4", "A3", "A5", "Letter", "Legal"},
            {"A4", "A3", "A5", "Letter", "Legal"});
  QWidget* done = page.Done();
  page.rows->insertWidget(1, Hint(tr("Every print dialog begins with them.")));
  return done;
}

QLayout* frmsettings::Buttons() {
  auto* row = new QHBoxLayout();
  cmdUpdate = new ZENButton(QStringLiteral("cmdUpdate"), tr("&Save"));
  cmdUpdate->setDefault(true);
  cmdexit = new ZENButton(QStringLiteral("cmdexit"), tr("E&xit"));
  cmdexit->SetCancels(true);
  row->addStretch(1);
  row->addWidget(cmdUpdate);
  row->addWidget(cmdexit);
  return row;
}

void frmsettings::Connect() {
  OnClick(cmdFolder, &frmsettings::cmdFolder_Click);
  OnClick(cmdTest, &frmsettings::cmdTest_Click);
  OnClick(cmdUpdate, &frmsettings::cmdUpdate_Click);
  OnClick(cmdexit, &frmsettings::cmdexit_Click);
  On(&trial_, &DatabaseTrial::Finished, &frmsettings::TestFinished,
     QStringLiteral("cmdTest_Click"));
  On(Option1, &QAbstractButton::toggled, &frmsettings::Enable, QStringLiteral("Option1_Click"));
  On(Combo1, &QComboBox::currentIndexChanged, &frmsettings::Enable, QStringLiteral("Combo1_Click"));
  On(pages_, &QTabWidget::currentChanged, &frmsettings::ListPrinters,
     QStringLiteral("Frame1_Click"));
}

/// Printers are asked for when they are to be seen: it can take a moment.
void frmsettings::ListPrinters(int page) {
  const bool shown = pages_->widget(page)->isAncestorOf(boxes_[Printer]);
  if (!shown || values_[Printer].size() > 1 + (kept_.texts[Printer].isEmpty() ? 0 : 1)) {
    return;
  }
  const QString chosen = TextIn(Printer);
  QStringList names = QPrinterInfo::availablePrinterNames();
  if (!chosen.isEmpty() && !names.contains(chosen)) {
    names.append(chosen);
  }
  auto* box = qobject_cast<ComboBox*>(boxes_[Printer]);
  values_[Printer] = QStringList{QString()} + names;
  box->SetTexts(QStringList{tr("The desktop's own")} + names);
  box->ById(static_cast<int>(values_[Printer].indexOf(chosen)));
}

void frmsettings::Put(const Settings& settings) {
  Combo1->ById(static_cast<int>(settings.screen_mode));
  (settings.own_database ? Option1 : Option2)->setChecked(true);
  if (const QString& printer = settings.texts[Printer]; !printer.isEmpty()) {
    values_[Printer] = {QString(), printer};
    qobject_cast<ComboBox*>(boxes_[Printer])->SetTexts({tr("The desktop's own"), printer});
  }
  for (int text = 0; text < kTexts; ++text) {
    if (auto* list = qobject_cast<ComboBox*>(boxes_[text])) {
      const auto at = values_[text].indexOf(settings.texts[text]);
      list->ById(static_cast<int>(std::max<qsizetype>(at, 0)));
    } else {
      qobject_cast<TextBox*>(boxes_[text])->setText(settings.texts[text]);
    }
  }
  Enable();
  kept_ = Entered();
}

QString frmsettings::TextIn(Text text) const {
  if (const auto* list = qobject_cast<const ComboBox*>(boxes_[text])) {
    return values_[text].value(list->CurrentPosition());
  }
  const QString typed = qobject_cast<const TextBox*>(boxes_[text])->text();
  return text == Password ? typed : typed.trimmed();
}

Settings frmsettings::Entered() const {
  Settings settings;
  settings.screen_mode = static_cast<ScreenMode>(std::max(Combo1->CurrentPosition(), 0));
  settings.own_database = Option1->isChecked();
  for (int text = 0; text < kTexts; ++text) {
    settings.texts[text] = TextIn(static_cast<Text>(text));
  }
  return settings;
}

void frmsettings::Enable() {
  const bool to_resolution =
      Combo1->CurrentPosition() == static_cast<int>(ScreenMode::kToResolution);
  boxes_[Width]->setEnabled(to_resolution);
  boxes_[Height]->setEnabled(to_resolution);
  for (int text = Driver; text <= TlsVerify; ++text) {
    boxes_[text]->setEnabled(Option2->isChecked());
  }
  cmdTest->setEnabled(Option2->isChecked() && !trial_.IsUnderWay());
}

void frmsettings::Reveal(QWidget* field) {
  for (int page = 0; page < pages_->count(); ++page) {
    if (pages_->widget(page)->isAncestorOf(field)) {
      pages_->setCurrentIndex(page);
    }
  }
}

void frmsettings::cmdFolder_Click() {
  const QString before = TextIn(Reports);
  const QString chosen = choose_folder_(this, before.isEmpty() ? Session().folders.data : before);
  if (!chosen.isEmpty()) {
    qobject_cast<TextBox*>(boxes_[Reports])->setText(QDir::toNativeSeparators(chosen));
  }
}

void frmsettings::cmdTest_Click() {
  const Settings settings = Entered();
  if (const MaybeRefusal refusal = CheckSettings(settings)) {
    Show(*refusal);
    return;
  }
  lblTest->setText(tr("The server is being asked ..."));
  trial_.Start(DatabaseOf(settings));
  cmdTest->setEnabled(false);
}

void frmsettings::TestFinished(const QString& failure, const QString& about) {
  lblTest->setText(failure.isEmpty() ? tr("Connected. The server is %1.").arg(about) : failure);
  Enable();
}

void frmsettings::cmdUpdate_Click() {
  const Settings before = kept_;
  const Settings entered = Entered();
  if (const MaybeRefusal refusal = SaveSettings(Session().folders, entered)) {
    Show(*refusal);
    return;
  }
  Put(LoadSettings(Session().folders));
  Apply(before);
}

void frmsettings::Apply(const Settings& before) {
  const app::Folders& folders = Session().folders;
  const QSize size = screen()->size();
  Session().screen_factors =
      app::SetScreenFactors(app::IniFile(folders.screen_ini), size.width(), size.height());
  controls::ApplyAppearance(*qApp, app::IniFile(folders.config_file));
  const bool other_database =
      before.own_database != kept_.own_database ||
      !std::equal(before.texts.begin() + Driver, before.texts.begin() + TlsVerify + 1,
                  kept_.texts.begin() + Driver);
  Say().Inform(other_database
                   ? tr("The settings are saved. The other database is used when the program is "
                        "started the next time.")
                   : tr("The settings are saved."));
}

void frmsettings::cmdexit_Click() {
  close();
}

bool frmsettings::MayClose() {
  return Entered() == kept_ ||
         Say().Ask(tr("The Settings were Changed. Close without Saving them?"), Answer::kNo,
                   Icon::kInformation);
}

}  // namespace quorvane::settings
