#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"

namespace Velnet {

namespace {

constinit MplsLabelEntry sharedDefault;

/// Reads a number of up to `most`.
U32 readField( Kiv::CharRange & text, U32 most ) {
   text.skip();
   Kiv::CharRange ahead{ text };
   U32 value = 0;
   Kiv::sequenceToValue( ahead, &value );
   if( value > most )
      text.failWords( "", Kiv::_fmt( "a number of up to %d", most ) );
   text = ahead;
   return value;
}

/// The same behind a slash.
U32 readNextField( Kiv::CharRange & text, U32 most ) {
   if( !text.take( '/' ) )
      text.fail( "", "/" );
   return readField( text, most );
}

} // namespace

MplsLabelEntry const & MplsLabelEntry::defaultEntry() noexcept {
   return sharedDefault;
}

void MplsLabelEntry::defaultEntryIs( U32 word ) noexcept {
   sharedDefault.wordIs( word );
}

Orlo::String MplsLabelEntry::stringValue() const {
   return Kiv::_fmt( "%s", *this );
}

void appendText( Orlo::StringBuilder & out, MplsLabelEntry const & entry ) noexcept {
   out.appendDecimal( entry.label() );
   out.append( '/' );
   out.appendDecimal( entry.trafficClass() );
   out.append( entry.bottomOfStack() ? "/1/" : "/0/" );
   out.appendDecimal( entry.ttl() );
}

void sequenceToValue( Kiv::CharRange & text, MplsLabelEntry * entry ) {
   MplsLabelEntry read;
   read.labelIs( readField( text, 0xFFFFF ) );
   read.trafficClassIs( static_cast< U8 >( readNextField( text, 7 ) ) );
   read.bottomOfStackIs( readNextField( text, 1 ) == 1 );
   read.ttlIs( static_cast< U8 >( readNextField( text, 255 ) ) );
   *entry = read;
}

} // namespace Velnet
