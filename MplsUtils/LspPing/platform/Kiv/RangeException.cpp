#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <utility>

namespace Kiv {

RangeException::RangeException( Orlo::String subject, Orlo::String problem )
   : subject_{ std::move( subject ) },
     problem_{ std::move( problem ) },
     what_{ subject_.empty() ? problem_ : subject_ + ": " + problem_ } {}

RangeException::~RangeException() = default;

char const * RangeException::what() const noexcept {
   return what_.c_str();
}

RangeException RangeException::within( std::string_view attribute ) const {
   Orlo::String subject{ attribute };
   if( !subject_.empty() )
      subject.append( "." ).append( subject_ );
   return { std::move( subject ), problem_ };
}

UnhashableException::UnhashableException( std::string_view typeName ) : what_{ typeName } {
   what_ += " cannot be hashed";
}

UnhashableException::~UnhashableException() = default;

char const * UnhashableException::what() const noexcept {
   return what_.c_str();
}

} // namespace Kiv
