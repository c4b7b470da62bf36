#include "hosts/x11/qt/X11StatusItems.h"

#include "hosts/x11/qt/X11StatusItem.h"

namespace haloric {

std::unique_ptr<StatusItem> X11StatusItems::make(double) { return std::make_unique<X11StatusItem>(m_hosts); }

} // namespace haloric
