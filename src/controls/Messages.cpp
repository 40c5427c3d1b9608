#include "controls/Messages.h"

#include "core/Progress.h"
#include "core/app/AppInfo.h"
#include "core/database/DatabaseError.h"
#include "core/text/Tr.h"

#include <QApplication>
#include <QMessageBox>

#include <exception>

namespace quorvane::controls {
namespace {

QMessageBox::Icon BoxIcon(Icon icon) {
  return icon == Icon::kCritical ? QMessageBox::Critical : QMessageBox::Information;
}

int Show(const QString& text, QMessageBox::Icon icon, QMessageBox::StandardButtons buttons,
         QMessageBox::StandardButton preset) {
  QMessageBox box(icon, app::TitleText(), text, buttons, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(preset);
  return box.exec();
}

}  // namespace

void MessageBoxes::Inform(const QString& text) {
  Show(text, QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok);
}

void MessageBoxes::Refuse(const QString& text) {
  Show(text, QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok);
}

bool MessageBoxes::Ask(const QString& text, Answer preset, Icon icon) {
  return Show(text, BoxIcon(icon), QMessageBox::Yes | QMessageBox::No,
              preset == Answer::kYes ? QMessageBox::Yes : QMessageBox::No) == QMessageBox::Yes;
}

namespace {

QString HintFor(const database::DatabaseError& error) {
  if (error.IsConnectionLost()) {
    return Tr("Guard",
              "The connection to the database was lost. Check whether the last record was saved, "
              "then try again.");
  }
  if (error.IsTransient()) {
    return Tr("Guard",
              "The database was busy with other work. Nothing was changed. Please try again.");
  }
  return Tr("Guard",
            "What was not yet saved is still in the window. Mend the cause and try again.");
}

QString TextOf(const database::DatabaseError& error) {
  return QString::fromUtf8(error.what()) + QStringLiteral("\n\n") + HintFor(error);
}

}  // namespace

void Guard::Report(const QString& handler, const std::optional<QString>& failure) const {
  if (!failure) {
    messages_.Inform(Tr("Guard", "Cancelled. Nothing was changed."));
  } else {
    messages_.Refuse(handler + QStringLiteral(": ") + *failure);
  }
}

bool Guard::Run(const QString& handler, const std::function<void()>& work) const {
  // The box is opened outside of the catch clauses: while it is open, other handlers may run.
  std::optional<QString> failure;
  try {
    work();
    return true;
  } catch (const Cancellation&) {
    failure.reset();
  } catch (const database::DatabaseError& error) {
    failure = TextOf(error);
  } catch (const std::exception& error) {
    failure = QString::fromUtf8(error.what());
  } catch (...) {
    failure = Tr("Guard", "An unknown failure.");
  }
  Report(handler, failure);
  return false;
}

}  // namespace quorvane::controls
