#pragma once

#include "controls/ComboBox.h"
#include "core/app/Session.h"

#include <QLayout>
#include <QString>

namespace quorvane::home {

// The choice of a family, which home and the windows of its figures share.

/// Offers all clients and each family, and chooses the one that was chosen last. Throws
/// DatabaseError.
void OfferFamilies(controls::ComboBox& box, const app::Session& session);

/// The chosen family; empty for all clients.
QString ChosenFamily(const controls::ComboBox& box);

/// The family is the one that was chosen last from now on, in every window.
void KeepFamily(const app::Session& session, const QString& family);

/// Puts a box behind its label.
void AddLabelled(QLayout& line, const QString& text, QWidget* box);

}  // namespace quorvane::home
