#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

#include <algorithm>

namespace Orlo {

void StringBuilder::grow( std::size_t count ) noexcept {
   std::size_t const used = size();
   bool const first = begin_ == inline_;
   std::size_t const capacity = first ? inlineCapacity : heap_.size();
   Kiv::orOutOfMemory( "Orlo::String",
                       [&] { heap_.resize( std::max( used + count, 2 * capacity ) ); } );
   if( first )
      std::memcpy( heap_.data(), inline_, used );
   begin_ = heap_.data();
   end_ = begin_ + used;
   limit_ = begin_ + heap_.size();
}

} // namespace Orlo
