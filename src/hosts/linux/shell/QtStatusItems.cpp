#include "hosts/linux/shell/QtStatusItems.h"

#include "hosts/linux/shell/QtStatusItem.h"

namespace haloric {

std::unique_ptr<StatusItem> QtStatusItems::make(double) { return std::make_unique<QtStatusItem>(m_hosts); }

} // namespace haloric
