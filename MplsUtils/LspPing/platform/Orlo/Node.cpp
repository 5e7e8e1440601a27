#include "MplsUtils/LspPing/platform/Orlo/Node.h"

namespace Orlo {

void Node::lastUserGone() {
   beingDestroyedIs();
   delete this;
}

Node * Node::publisher() const {
   return nullptr;
}

Kiv::TypeRef Node::typeData() const {
   return Kiv::TypeRef();
}

} // namespace Orlo
