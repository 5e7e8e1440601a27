#include "tools/lspping/inspect/Subject.h"

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "tools/lspping/inspect/Arguments.h"

#include <cstring>
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
      parserIs();
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

void Subject::parserIs() {
   Kiv::TypeRef const view = Kiv::attributeNamed( type_, "header" ).attribute->type();
   std::size_t const had = bytes_.size() - offset_;
   if( isLaidOverBytes( view ) ) {
      needBytes( type_.name(), view.record().size, had );
   } else {
      // The one parser that copies reads the pad type and as much padding as the length says.
      LspPing::LspPingTlvHdr header;
      needBytes( type_.name(), sizeof( header ) + 1, had );
      std::memcpy( &header, bytes_.data() + offset_, sizeof( header ) );
      needBytes( type_.name(), sizeof( header ) + header.length(), had );
   }
   node_ = type_.operations().create( pkt_, offset_ );
   object_ = node_.get();
}

void Subject::containerIs() {
   node_ = type_.operations().createEmpty();
   object_ = node_.get();
   U8 * const value = bytes_.data() + offset_;
   Kiv::call( *node_, "tryCastToTlv", value, static_cast< U32 >( bytes_.size() - offset_ ) );
}

} // namespace LspPingTool
