#pragma once

#include "controls/ChildWindow.h"

namespace quorvane::masters {

/// The name of a window's numbered box.
inline QString BoxName(int number) {
  return QStringLiteral("Text1_%1").arg(number);
}

/// The controls of a contact whose address is in the box of that number: what follows the address
/// has the next numbers, and the state is in "Combo1".
inline std::vector<controls::FieldControl> ContactControls(int address) {
  return {{Field::kCity, BoxName(address + 1)},  {Field::kState, QStringLiteral("Combo1")},
          {Field::kPin, BoxName(address + 2)},   {Field::kStdCode, BoxName(address + 3)},
          {Field::kPhone, BoxName(address + 4)}, {Field::kMobile, BoxName(address + 5)},
          {Field::kFax, BoxName(address + 6)},   {Field::kEmail, BoxName(address + 7)}};
}

}  // namespace quorvane::masters
