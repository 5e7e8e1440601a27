#pragma once

#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/platform/Kiv/Module.h"

// A module whose types the test lists, and a class to take members of.
namespace Probe {

inline constexpr U16 moduleNumber = 40;

template < class T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, 0 };
}

template < class... Types >
inline constexpr Kiv::ModuleTable
   table = Kiv::Module< Kiv::TypeList< Types... >, moduleNumber >::table( "Probe" );

struct Other {
   U32 mark() const { return mark_; }
   void markIs( U32 mark ) { mark_ = mark; }
   bool readable() const { return true; }
   U32 add( U32 more ) { return mark_ += more; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::field< &Other::mark, &Other::markIs >( "mark" ) );
   }

   U32 mark_ = 0;
   Kiv::DynArray< U16 > list_;
};

} // namespace Probe
