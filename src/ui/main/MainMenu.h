#pragma once

#include "ui/Features.h"

#include <functional>

class QHBoxLayout;
class QMainWindow;

namespace quorvane::ui {

/// Builds the menu table into a window's menu bar. Every item is an action under its own name.
/// `chosen` is called with the item that the user chose.
void BuildMenu(QMainWindow& window, const std::function<void(const Feature&)>& chosen);

/// The buttons "ZENButton1_0" and so on for the items that are used daily. Each does what its item
/// in the window's menu does.
void BuildButtonRow(QMainWindow& window, QHBoxLayout& row);

/// Writes the captions of menu and buttons anew, in the language in force.
void ShowCaptions(QMainWindow& window);

}  // namespace quorvane::ui
