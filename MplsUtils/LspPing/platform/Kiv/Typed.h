#pragma once

#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace Kiv {

/// What a registered class T derives from, so that it tells its type; nodes do so by
/// `Orlo::Node::fwkType()`, with whatever they are at run time. It adds no byte: T is laid out as
/// if it derived from Base itself.
template < class T, class Base = void >
class Typed : public Base {
 public:
   TypeRef fwkType() const noexcept { return typeOf< T >(); }
};

template < class T >
class Typed< T, void > {
 public:
   TypeRef fwkType() const noexcept { return typeOf< T >(); }
};

} // namespace Kiv
