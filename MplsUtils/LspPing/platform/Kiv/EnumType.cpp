#include "MplsUtils/LspPing/platform/Kiv/EnumType.h"

#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"

#include <ostream>

namespace Kiv {

void enumerationRangeError( EnumerationTable const & table, std::string_view met ) {
   throw RangeException( Orlo::String( table.typeName ),
                         quoted( met ) + " is no name or number of it" );
}

void enumerationRangeError( EnumerationTable const & table, U64 met ) {
   throw RangeException( Orlo::String( table.typeName ),
                         std::to_string( met ) + " does not fit its underlying type" );
}

std::ostream & writeTo( std::ostream & out, std::string_view text ) {
   return out << text;
}

} // namespace Kiv
