#include "tools/lspping/inspect/Subject.h"

#include "MplsUtils/LspPing/framing/LspPingParsers.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Assert.h"
#include "MplsUtils/LspPing/tlv/LspPingPadTlv.h"
#include "tools/lspping/inspect/Arguments.h"

#include <algorithm>
#include <string>
#include <vector>

namespace LspPingTool {

namespace {

bool isLaidOverBytes( Kiv::TypeRef type ) {
   return type.kind() == Kiv::Kind::pointerInterface && type.record().alignment == 1;
}

void needBytes( std::string_view name, std::size_t needed, std::size_t had ) {
   if( had < needed )
      throw InputError( std::string( name ) + " needs " + std::to_string( needed ) +
                        " bytes, there are " + std::to_string( had ) );
}

// The bytes that the Pad TLV's parser reads: header and pad type, and as many as the length tells.
std::size_t padBytes( std::span< U8 const > element ) {
   std::size_t const shortest = 5;
   if( element.size() < shortest )
      return shortest;
   auto const length = static_cast< std::size_t >( element[2] << 8 | element[3] );
   return std::max( shortest, 4 + length );
}

} // namespace

Subject::Subject( Kiv::TypeRef type, std::span< U8 const > bytes, U32 offset )
   : type_( type ),
     offset_( offset ) {
   if( offset > bytes.size() )
      throw InputError( "offset " + std::to_string( offset ) + " is behind the " +
                        std::to_string( bytes.size() ) + " bytes" );
   packetIs( bytes );
   if( isLaidOverBytes( type ) ) {
      needBytes( type.name(), type.record().size, bytes_.size() - offset );
      object_ = bytes_.data() + offset;
   } else if( type.operations().create != nullptr ) {
      parserIs( type );
   } else if( type == Kiv::typeOf< LspPing::LspPingPadTlv >() ) {
      // The one element that is copied out of the packet, which its parser does.
      parserIs( Kiv::typeOf< LspPing::LspPingPadTlvParser >() );
      object_ = pad_.get();
   } else if( type.operations().createEmpty != nullptr ) {
      containerIs();
   } else {
      throw UsageError( std::string( type.name() ) + " is no view, parser or container" );
   }
}

Subject::~Subject() = default;

// The heap gives even addresses, so one byte in front makes the element's odd.
void Subject::packetIs( std::span< U8 const > bytes ) {
   std::size_t const front = ( offset_ & 1u ) ^ 1u;
   std::vector< U8 > buffer( front + bytes.size() + slack );
   std::copy( bytes.begin(), bytes.end(), buffer.begin() + static_cast< std::ptrdiff_t >( front ) );
   // The packet ends with the bytes; the zeros stay in the memory behind them.
   buffer.resize( front + bytes.size() );
   pkt_ = Velnet::pktFactory( std::move( buffer ) );
   pkt_->dataStartIs( static_cast< U32 >( front ) );
   bytes_ = { pkt_->data(), bytes.size() };
}

void Subject::parserIs( Kiv::TypeRef parser ) {
   std::span< U8 const > const element = bytes_.subspan( offset_ );
   bool const isPad = parser == Kiv::typeOf< LspPing::LspPingPadTlvParser >();
   Kiv::FoundAttribute const header = Kiv::attributeNamed( parser, "header" );
   KIV_ASSERT( header ); // every parser has one
   needBytes( parser.name(), isPad ? padBytes( element ) : header.attribute->type().record().size,
              element.size() );
   node_ = parser.operations().create( pkt_, offset_ );
   object_ = node_.get();
   if( isPad )
      pad_.reset( Kiv::read< LspPing::LspPingPadTlv * >( *node_, "header" ) );
}

void Subject::containerIs() {
   node_ = type_.operations().createEmpty();
   object_ = node_.get();
   U8 * const value = bytes_.data() + offset_;
   Kiv::call( *node_, "tryCastToTlv", value, static_cast< U32 >( bytes_.size() - offset_ ) );
}

} // namespace LspPingTool
