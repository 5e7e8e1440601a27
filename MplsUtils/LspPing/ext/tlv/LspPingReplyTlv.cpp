#include "MplsUtils/LspPing/ext/tlv/LspPingReplyTlv.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/ext/LspPingNames.h"
#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"
#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"

#include <bitset>

namespace LspPing {

constinit Kiv::AllocationTracker LspPingReplyPathTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReplyPathTlv >();
constinit Kiv::AllocationTracker LspPingTimeToLiveTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingTimeToLiveTlv >();
constinit Kiv::AllocationTracker LspPingReplyModeOrderTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingReplyModeOrderTlv >();
constinit Kiv::AllocationTracker LspPingEgressIpv4Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEgressIpv4Tlv >();
constinit Kiv::AllocationTracker LspPingEgressIpv6Tlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingEgressIpv6Tlv >();

Orlo::String LspPingReplyPathTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ReplyPathTlv" );
   return Kiv::_fmt( "ReplyPath( return code: %s, flags: %s )",
                     LspPingReplyPathReturnCode{ returnCode() },
                     LspPingFlagText< LspPingReplyPathFlags >{ flags() } );
}

Orlo::String LspPingTimeToLiveTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid TimeToLiveTlv" );
   return Kiv::_fmt( "TimeToLive( %d, flags: %s )", value(),
                     LspPingFlagText< LspPingTimeToLiveFlags >{ flags() } );
}

bool LspPingReplyModeOrderTlv::valid() const noexcept {
   if( !element.hasCode( type() ) || !element.hasLength( length() ) )
      return false;
   std::bitset< 256 > met;
   met.set( Kiv::numberOf( LspPingReplyMode::DontReply ) );
   for( U8 const mode : modes() ) {
      if( met.test( mode ) )
         return false;
      if( mode != Kiv::numberOf( LspPingExtReplyMode::ReplyViaSpecifiedPath ) )
         met.set( mode );
   }
   return true;
}

Orlo::String LspPingReplyModeOrderTlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid ReplyModeOrderTlv" );
   Orlo::StringBuilder text;
   std::string_view before = "ReplyModeOrder( ";
   for( U8 const mode : modes() ) {
      Kiv::_fmtTo( text, "%s%s", before,
                   LspPingCodeName< LspPingReplyMode, LspPingExtReplyMode >{ mode } );
      before = ", ";
   }
   text.append( " )" );
   return std::move( text ).string();
}

Orlo::String LspPingEgressIpv4Tlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid EgressIpv4Tlv" );
   return Kiv::_fmt( "EgressIpv4( '%s' )", address() );
}

Orlo::String LspPingEgressIpv6Tlv::stringValue() const {
   if( !valid() )
      return Orlo::stringOf( "Invalid EgressIpv6Tlv" );
   return Kiv::_fmt( "EgressIpv6( '%s' )", address() );
}

} // namespace LspPing
