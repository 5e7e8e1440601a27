#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireAttachmentIdentifier.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/Kiv/ScalarText.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace Pseudowire {

namespace {

/// Takes a number in that base off the front of the text, if it has one that fits.
std::optional< U8 > takeNumber( std::string_view & text, std::size_t most, int base ) noexcept {
   U8 number = 0;
   char const * const end = text.data() + ( text.size() < most ? text.size() : most );
   auto const [behind, error] = std::from_chars( text.data(), end, number, base );
   if( error != std::errc{} )
      return std::nullopt;
   text.remove_prefix( static_cast< std::size_t >( behind - text.data() ) );
   return number;
}

bool takeCharacter( std::string_view & text, char expected ) noexcept {
   if( !text.starts_with( expected ) )
      return false;
   text.remove_prefix( 1 );
   return true;
}

std::optional< PseudowireAttachmentIdentifier > fromText( std::string_view text ) noexcept {
   std::optional< U8 > const type = takeNumber( text, 3, 10 );
   if( !type || !takeCharacter( text, ':' ) )
      return std::nullopt;
   PseudowireAttachmentIdentifier id{ *type, 0 };
   while( !text.empty() && id.length() < PseudowireAttachmentIdentifier::maxLength ) {
      std::size_t const before = text.size();
      std::optional< U8 > const byte = takeNumber( text, 2, 16 );
      if( !byte || before - text.size() != 2 )
         return std::nullopt;
      id.valueIs( id.length(), *byte );
      id.lengthIs( static_cast< U8 >( id.length() + 1 ) );
   }
   if( text.empty() )
      return id;
   if( !takeCharacter( text, '+' ) )
      return std::nullopt;
   std::optional< U8 > const excess = takeNumber( text, 3, 10 );
   if( !excess || !text.empty() || *excess == 0 || *excess > 255 - id.length() )
      return std::nullopt;
   id.lengthIs( static_cast< U8 >( id.length() + *excess ) );
   return id;
}

} // namespace

void PseudowireAttachmentIdentifierIndex::rangeError() {
   throw Kiv::RangeException{ "", "Pseudowire::PseudowireAttachmentIdentifierIndex::value < "
                                  "Pseudowire::PseudowireAttachmentIdentifierIndex::min or > "
                                  "Pseudowire::PseudowireAttachmentIdentifierIndex::max "
                                  "not allowed" };
}

Orlo::String PseudowireAttachmentIdentifier::stringValue() const {
   return Kiv::_fmt( "%s", *this );
}

void appendText( Orlo::StringBuilder & out, PseudowireAttachmentIdentifierIndex index ) noexcept {
   out.appendDecimal( index.value() );
}

void appendText( Orlo::StringBuilder & out, PseudowireAttachmentIdentifier const & id ) noexcept {
   out.appendDecimal( id.type() );
   out.append( ':' );
   for( U8 index = 0; index < id.bytesInUse(); ++index )
      out.advanceTo( Orlo::putHexByte( out.room( 2 ), id.value( index ) ) );
   if( id.length() > PseudowireAttachmentIdentifier::maxLength ) {
      out.append( '+' );
      out.appendDecimal( id.length() - U64{ PseudowireAttachmentIdentifier::maxLength } );
   }
}

void sequenceToValue( Kiv::CharRange & text, PseudowireAttachmentIdentifierIndex * index ) {
   Kiv::CharRange ahead{ text };
   U32 value = 0;
   Kiv::sequenceToValue( ahead, &value );
   *index = value;
   text = ahead;
}

void sequenceToValue( Kiv::CharRange & text, PseudowireAttachmentIdentifier * id ) {
   text.skip();
   std::string_view const token = Kiv::CharRange{ text.rest() }.token();
   std::optional< PseudowireAttachmentIdentifier > const read = fromText( token );
   if( !read )
      text.failWords( "", "an attachment identifier such as 1:0a000001" );
   text.take( token );
   *id = *read;
}

} // namespace Pseudowire
