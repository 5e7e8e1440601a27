#include "tools/lspping/decode/Pieces.h"

#include "MplsUtils/LspPing/ext/types/LspPingExtMappingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "tools/lspping/generic/AttributeText.h"

#include <array>
#include <cstring>

namespace LspPingTool {

// The address types have no alignment, and their size was looked at.
void appendAddress( Orlo::StringBuilder & out, std::span< U8 const > address ) {
   if( address.size() == 16 )
      appendText( out, *reinterpret_cast< Velnet::Ip6Addr const * >( address.data() ) );
   else if( address.size() == 4 )
      appendText( out, *reinterpret_cast< Velnet::IpAddr const * >( address.data() ) );
}

ElementObject::ElementObject( LspPing::LspPingElementRef element )
   : element_( element ),
     object_( element.view() ),
     copy_( nullptr, nullptr ) {
   if( object_ == nullptr ) {
      Kiv::CopyOperations const & copies = *element.type().operations().copies;
      copy_ = { copies.copyOf( element.bytes() ), copies.destroy };
      object_ = copy_.get();
   }
}

void ElementObject::appendText( Orlo::StringBuilder & out ) const {
   if( copy_ )
      out.append( Kiv::read< Orlo::String >( element_.type(), object_, "stringValue" ) );
   else if( !element_.appendText( out ) )
      appendFields( out, element_.type(), Kiv::typeOf< LspPing::LspPingTlvHdr >(), object_ );
}

bool showsBytes( LspPing::LspPingElementRef element ) noexcept {
   if( element.hidesBytes() )
      return true;
   if( element.isDescribed() )
      return !element.isValid();
   return element.row() == nullptr || element.row()->isDescribed() ||
          element.row()->facts.behind == LspPing::LspPingBehind::nothing;
}

void appendCodeName( Orlo::StringBuilder & out, LspPing::LspPingElementRef element ) {
   if( std::string_view const name = element.name(); !name.empty() )
      out.append( name );
   else
      out.appendDecimal( element.code() );
}

void appendMultipathType( Orlo::StringBuilder & out, LspPing::LspPingMultipathType type ) {
   std::string_view const added =
      Kiv::enumType< LspPing::LspPingExtMultipathType >.name( Kiv::numberOf( type ) );
   if( added.empty() )
      appendText( out, type );
   else
      out.append( added );
}

void appendProtocol( Orlo::StringBuilder & out, U8 protocol ) {
   appendText( out, static_cast< LspPing::LspPingDownstreamSignalingProtocol >( protocol ) );
}

} // namespace LspPingTool
