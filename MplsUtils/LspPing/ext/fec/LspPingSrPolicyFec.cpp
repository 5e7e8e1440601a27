#include "MplsUtils/LspPing/ext/fec/LspPingSrPolicyFec.h"

#include "MplsUtils/LspPing/platform/Kiv/Fmt.h"

#include <algorithm>
#include <span>

namespace LspPing {

constinit Kiv::AllocationTracker LspPingSrP2mpPolicyIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrP2mpPolicyIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingSrP2mpPolicyIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrP2mpPolicyIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingSrPolicyIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrPolicyIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingSrCandidatePathIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrCandidatePathIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingSrSegmentListIpv4SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrSegmentListIpv4SubTlv >();
constinit Kiv::AllocationTracker LspPingSrPolicyIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrPolicyIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingSrCandidatePathIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrCandidatePathIpv6SubTlv >();
constinit Kiv::AllocationTracker LspPingSrSegmentListIpv6SubTlv::memAllocationTracker_ =
   Kiv::trackerOf< LspPingSrSegmentListIpv6SubTlv >();

namespace {

// Of IPv4 behind zeros, as RFC 9256 section 2.4 puts it into the size of IPv6.
void appendNode( Orlo::StringBuilder & out, Velnet::Ip6Addr const & node ) {
   constexpr std::size_t before = sizeof( Velnet::Ip6Addr ) - sizeof( Velnet::IpAddr );
   std::span< U8 const > const bytes( node.bytes() );
   std::span< U8 const > const last = bytes.subspan( before );
   auto const isZero = []( U8 byte ) { return byte == 0; };
   if( std::all_of( bytes.begin(), last.begin(), isZero ) )
      appendText( out, Velnet::IpAddr( last[0], last[1], last[2], last[3] ) );
   else
      appendText( out, node );
}

} // namespace

template < class Address >
Orlo::String LspPingSrP2mpPolicySubTlv< Address >::text() const {
   return Kiv::_fmt( "SrP2mpPolicy( root: '%s', tree: %lu, instance: %d )", root(), U64{ treeId() },
                     instanceId() );
}

template < class Address >
void LspPingSrPolicySubTlv< Address >::appendFields( Orlo::StringBuilder & out ) const {
   out.append( Kiv::_fmt( "( headend: '%s', color: %lu, endpoint: '%s'", headend(), U64{ color() },
                          endpoint() ) );
}

template < class Address >
void LspPingSrCandidatePathSubTlv< Address >::appendFields( Orlo::StringBuilder & out ) const {
   Policy::appendFields( out );
   out.append( ", origin: " );
   out.appendDecimal( protocolOrigin() );
   out.append( ", originator: " );
   out.appendDecimal( originatorAs() );
   out.append( " '" );
   appendNode( out, originatorNode() );
   out.append( "', discriminator: " );
   out.appendDecimal( discriminator() );
}

template < class Address >
void LspPingSrSegmentListSubTlv< Address >::appendFields( Orlo::StringBuilder & out ) const {
   Path::appendFields( out );
   out.append( ", segment list: " );
   out.appendDecimal( segmentListId() );
}

namespace {

Orlo::String textOf( auto const & view, std::string_view name, auto appendFields ) {
   if( !view.valid() )
      return Kiv::_fmt( "Invalid %sSubTlv", name );
   Orlo::StringBuilder out;
   out.append( name );
   appendFields( out );
   out.append( " )" );
   return std::move( out ).string();
}

} // namespace

Orlo::String LspPingSrP2mpPolicyIpv4SubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid SrP2mpPolicyIpv4SubTlv" );
}

Orlo::String LspPingSrP2mpPolicyIpv6SubTlv::stringValue() const {
   return valid() ? text() : Orlo::stringOf( "Invalid SrP2mpPolicyIpv6SubTlv" );
}

Orlo::String LspPingSrPolicyIpv4SubTlv::stringValue() const {
   return textOf(
      *this, "SrPolicyIpv4", [this]( auto & out ) { appendFields( out ); } );
}

Orlo::String LspPingSrCandidatePathIpv4SubTlv::stringValue() const {
   return textOf(
      *this, "SrCandidatePathIpv4", [this]( auto & out ) { appendFields( out ); } );
}

Orlo::String LspPingSrSegmentListIpv4SubTlv::stringValue() const {
   return textOf(
      *this, "SrSegmentListIpv4", [this]( auto & out ) { appendFields( out ); } );
}

Orlo::String LspPingSrPolicyIpv6SubTlv::stringValue() const {
   return textOf(
      *this, "SrPolicyIpv6", [this]( auto & out ) { appendFields( out ); } );
}

Orlo::String LspPingSrCandidatePathIpv6SubTlv::stringValue() const {
   return textOf(
      *this, "SrCandidatePathIpv6", [this]( auto & out ) { appendFields( out ); } );
}

Orlo::String LspPingSrSegmentListIpv6SubTlv::stringValue() const {
   return textOf(
      *this, "SrSegmentListIpv6", [this]( auto & out ) { appendFields( out ); } );
}

} // namespace LspPing
