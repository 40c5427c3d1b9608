#include "controls/ProgressDialog.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "core/platform/Processes.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace quorvane::controls {
namespace {

constexpr qint64 kPatience = 300;  // ms before the dialog appears
constexpr qint64 kBreath = 40;     // ms between two updates of the screen
constexpr int kScale = 1000;
constexpr int kMinimumWidth = 360;

}  // namespace

class ProgressDialog::Window final : public QDialog {
 public:
  explicit Window(QWidget* parent) : QDialog(parent) {
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(Tr("ProgressDialog", "Please wait"));
    setMinimumWidth(kMinimumWidth);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    rows->addWidget(&label);
    rows->addWidget(&bar);
    rows->addWidget(&cancel, 0, Qt::AlignRight);
    label.setTextFormat(Qt::PlainText);
    QObject::connect(&cancel, &QAbstractButton::clicked, this, &Window::reject);
  }

  // Esc and the close box ask for the same; the window stays until the work has stopped.
  void reject() override {
    cancelled = true;
    cancel.setEnabled(false);
    label.setText(Tr("ProgressDialog", "Stopping..."));
  }

  QLabel label;
  QProgressBar bar;
  ZENButton cancel{QStringLiteral("cmdCancel"), Tr("ProgressDialog", "&Cancel")};
  bool cancelled = false;
};

ProgressDialog::ProgressDialog(QWidget* parent) : window_(std::make_unique<Window>(parent)) {
  since_begin_.start();
  since_breath_.start();
}

ProgressDialog::~ProgressDialog() = default;

void ProgressDialog::Begin(const QString& what, std::int64_t total) {
  total_ = total;
  window_->label.setText(what);
  window_->bar.setRange(0, total > 0 ? kScale : 0);
  window_->bar.setValue(0);
}

void ProgressDialog::Step(std::int64_t done) {
  if (since_breath_.elapsed() < kBreath || since_begin_.elapsed() < kPatience) {
    return;
  }
  if (total_ > 0) {
    const double share = static_cast<double>(done) / static_cast<double>(total_);
    window_->bar.setValue(static_cast<int>(share * kScale));
  }
  Breathe();
}

void ProgressDialog::Breathe() {
  if (!window_->isVisible()) {
    window_->show();
  }
  QCoreApplication::processEvents(QEventLoop::AllEvents, static_cast<int>(kBreath));
  since_breath_.restart();
}

bool ProgressDialog::Cancelled() const {
  return window_->cancelled || platform::EndRequested();
}

}  // namespace quorvane::controls
