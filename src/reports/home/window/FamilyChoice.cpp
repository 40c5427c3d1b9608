#include "reports/home/window/FamilyChoice.h"

#include "controls/WindowMemory.h"
#include "core/text/Tr.h"
#include "reports/home/Figures.h"

#include <QLabel>

namespace quorvane::home {
namespace {

constexpr QLatin1String kMemory("Home");
constexpr QLatin1String kFamilyKey("Family");

}  // namespace

void OfferFamilies(controls::ComboBox& box, const app::Session& session) {
  QStringList families{Tr("Home", "All clients")};
  families += Families(*session.connection);
  box.SetTexts(families);
  const controls::WindowMemory memory(session.folders);
  if (!box.ByText(memory.Text(kMemory, kFamilyKey))) {
    box.setCurrentIndex(0);
  }
}

QString ChosenFamily(const controls::ComboBox& box) {
  return box.CurrentPosition() > 0 ? box.currentText() : QString();
}

void KeepFamily(const app::Session& session, const QString& family) {
  controls::WindowMemory(session.folders).Keep(kMemory, kFamilyKey, family);
}

void AddLabelled(QLayout& line, const QString& text, QWidget* box) {
  auto* label = new QLabel(text);
  label->setBuddy(box);
  line.addWidget(label);
  line.addWidget(box);
}

}  // namespace quorvane::home
