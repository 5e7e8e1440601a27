#include "MplsUtils/LspPing/framing/LspPingParser.h"

namespace LspPing {

void LspPingParser::handlePlace() noexcept {
   // Nobody may take the packet away while its data start is looked up.
   Orlo::Ptr< Velnet::Pkt > const held = pkt_;
   header_ = held->data() + offset_;
}

} // namespace LspPing
