#include "MplsUtils/LspPing/ext/oam/LspPingOamFunctionsTlv.h"

#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"

namespace LspPing {

constinit Kiv::AllocationTracker LspPingOamFunctionsTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingOamFunctionsTlv >();

Orlo::String LspPingOamFunctionsTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid OamFunctionsTlv" );
   constexpr std::string_view flagWord = "Flag";
   Orlo::StringBuilder text;
   text.append( "OamFunctions( flags: " );
   U32 rest = functionFlags();
   std::string_view separator;
   for( Kiv::Enumerator const & flag : Kiv::EnumerationOf< LspPingOamFunctionFlags >::rows ) {
      if( ( rest & flag.value ) == 0 )
         continue;
      rest &= ~flag.value;
      text.append( separator );
      text.append( flag.name().substr( 0, flag.name().size() - flagWord.size() ) );
      separator = "+";
   }
   if( rest != 0 ) {
      text.append( separator );
      text.append( "0x" );
      text.appendHex( rest, false );
   } else if( separator.empty() ) {
      text.append( "none" );
   }
   text.append( " )" );
   return std::move( text ).string();
}

} // namespace LspPing
