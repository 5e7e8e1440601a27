#include "MplsUtils/LspPing/platform/Velnet/MplsLabelStack.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

#include <utility>

namespace Velnet {

Orlo::String MplsLabelStack::stringValue() const {
   return Kiv::_fmt( "%s", *this );
}

void appendText( Orlo::StringBuilder & out, MplsLabelStack const & stack ) noexcept {
   out.append( '{' );
   for( bool first = true; MplsLabelEntry const & entry : stack ) {
      if( !first )
         out.append( ", " );
      first = false;
      appendText( out, entry );
   }
   out.append( '}' );
}

void sequenceToValue( Kiv::CharRange & text, MplsLabelStack * stack ) {
   MplsLabelStack read;
   if( !text.take( '{' ) )
      text.fail( "", "{" );
   if( !text.take( '}' ) ) {
      do {
         MplsLabelEntry entry;
         sequenceToValue( text, &entry );
         read.entryAdd( entry );
      } while( text.take( ',' ) );
      if( !text.take( '}' ) )
         text.fail( "", "}" );
   }
   *stack = std::move( read );
}

} // namespace Velnet
