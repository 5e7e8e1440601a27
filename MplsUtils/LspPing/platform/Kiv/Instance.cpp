#include "MplsUtils/LspPing/platform/Kiv/Instance.h"

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"

#include <new>

namespace Kiv {

Instance::Instance( TypeRef type, void const * from ) : type_( type ), place_( bytes_ ) {
   TypeRecord const & record = type.record();
   KIV_ASSERT( record.operations->construct != nullptr );
   if( record.size > room ) {
      place_ = ::operator new( record.size );
      if( record.tracker != nullptr )
         record.tracker->allocated();
   }
   try {
      record.operations->construct( place_, from );
   } catch( ... ) {
      if( place_ != bytes_ ) {
         ::operator delete( place_ );
         if( record.tracker != nullptr )
            record.tracker->released();
      }
      throw;
   }
}

Instance::~Instance() {
   TypeRecord const & record = type_.record();
   record.operations->destruct( place_ );
   if( place_ != bytes_ ) {
      ::operator delete( place_ );
      if( record.tracker != nullptr )
         record.tracker->released();
   }
}

} // namespace Kiv
