#include "tools/lspping/inspect/Subject.h"

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "tools/lspping/inspect/Arguments.h"

#include <algorithm>
#include <string>
#include <vector>

namespace LspPingTool {

namespace {

bool isLaidOverBytes( Kiv::TypeRef type ) {
   return type.kind() == Kiv::Kind::pointerInterface && type.record().alignment == 1;
}

// Raises InputError when what the type reads of the element is not all there.
void needBytes( std::string_view name, Kiv::TypeRef type, std::span< U8 const > element ) {
   auto const extent = type.operations().extent;
   std::size_t const needed = extent != nullptr ? extent( element ) : type.record().size;
   if( element.size() < needed )
      throw InputError( std::string( name ) + " needs " + std::to_string( needed ) +
                        " bytes, there are " + std::to_string( element.size() ) );
}

} // namespace

Subject::Subject( Kiv::TypeRef type, std::span< U8 const > bytes, U32 offset )
   : type_( type ),
     offset_( offset ),
     copy_( nullptr, nullptr ) {
   if( offset > bytes.size() )
      throw InputError( "offset " + std::to_string( offset ) + " is behind the " +
                        std::to_string( bytes.size() ) + " bytes" );
   packetIs( bytes );
   if( isLaidOverBytes( type ) ) {
      object_ = bytes_.data() + offset;
      checkBytes();
   } else if( type.operations().create != nullptr ) {
      parserIs( type );
   } else if( type.operations().copies != nullptr ) {
      std::span< U8 const > const element = bytes_.subspan( offset );
      needBytes( type.name(), type, element );
      copyIs( type, type.operations().copies->copyOf( element ) );
      object_ = copy_.get();
   } else if( type.operations().createEmpty != nullptr ) {
      containerIs();
   } else {
      throw UsageError( std::string( type.name() ) + " is no view, parser or container" );
   }
}

Subject::~Subject() = default;

void Subject::checkBytes() const {
   if( isLaidOverBytes( type_ ) )
      needBytes( type_.name(), type_, bytes_.subspan( offset_ ) );
}

// The heap gives even addresses, so one byte in front makes the element's odd. Nothing is behind
// the bytes, so that a sanitizer sees the first one too far.
void Subject::packetIs( std::span< U8 const > bytes ) {
   std::size_t const front = ( offset_ & 1u ) ^ 1u;
   std::vector< U8 > buffer( front + bytes.size() );
   std::copy( bytes.begin(), bytes.end(), buffer.begin() + static_cast< std::ptrdiff_t >( front ) );
   pkt_ = Velnet::pktFactory( std::move( buffer ) );
   pkt_->dataStartIs( static_cast< U32 >( front ) );
   bytes_ = { pkt_->data(), bytes.size() };
}

void Subject::copyIs( Kiv::TypeRef type, void * copy ) {
   copy_ = { copy, type.operations().copies->destroy };
}

void Subject::parserIs( Kiv::TypeRef parser ) {
   std::span< U8 const > const element = bytes_.subspan( offset_ );
   Kiv::FoundAttribute const header = Kiv::attributeNamed( parser, "header" );
   KIV_ASSERT( header ); // every parser has one
   needBytes( parser.name(), header.attribute->type(), element );
   node_ = parser.operations().create( pkt_, offset_ );
   object_ = node_.get();
   // A copy of the packet's bytes is left to whoever uses the parser.
   Kiv::TypeRef const view = header.attribute->type();
   if( view.operations().copies != nullptr ) {
      void * copy = nullptr;
      Kiv::attributeAccess( parser, object_, header.field(), Kiv::OpCode::read, &copy );
      copyIs( view, copy );
   }
}

void Subject::containerIs() {
   node_ = type_.operations().createEmpty();
   object_ = node_.get();
   U8 * const value = bytes_.data() + offset_;
   Kiv::call( *node_, "tryCastToTlv", value, static_cast< U32 >( bytes_.size() - offset_ ) );
}

} // namespace LspPingTool
