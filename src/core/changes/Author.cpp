#include "core/changes/Author.h"

#include "core/platform/Processes.h"

#include <QSysInfo>

namespace quorvane::changes {

Author SystemAuthor() {
  return {platform::UserName(), QSysInfo::machineHostName()};
}

}  // namespace quorvane::changes
