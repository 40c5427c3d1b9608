#pragma once

#include "core/Ids.h"
#include "core/text/FinancialYear.h"

namespace quorvane {

/// The client and the financial year inside which nearly all work happens.
struct ClientYear {
  ClientId client;
  text::FinancialYear year;

  auto operator<=>(const ClientYear&) const = default;
};

}  // namespace quorvane
