#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"

namespace LspPing {

// The shape of the tree instances of a point-to-multipoint policy, RFC 9961 section 3.2.1.1. Two
// bytes of padding follow.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 41           |        length = 14, 26        |
// +-------------------------------+---------------+---------------+
// |         addressFamily         | addressLength |   reserved    |
// +-------------------------------+---------------+---------------+
// |                     root (4 or 16 bytes)                      |
// |                            treeId                             |
// +-------------------------------+-------------------------------+
// |          instanceId           |
// +-------------------------------+
template < class Address >
class LspPingSrP2mpPolicySubTlv : public LspPingTlvHdr {
 public:
   /// Of the root: 1 for IPv4, 2 for IPv6.
   constexpr U16 addressFamily() const noexcept { return addressFamily_.value(); }
   constexpr void addressFamilyIs( U16 number ) noexcept { addressFamily_.valueIs( number ); }
   constexpr U8 addressLength() const noexcept { return addressLength_; }
   constexpr void addressLengthIs( U8 bytes ) noexcept { addressLength_ = bytes; }
   constexpr U8 reserved() const noexcept { return reserved_; }
   constexpr void reservedIs( U8 value ) noexcept { reserved_ = value; }
   constexpr Address root() const noexcept { return root_; }
   constexpr void rootIs( Address address ) noexcept { root_ = address; }
   constexpr U32 treeId() const noexcept { return treeId_.value(); }
   constexpr void treeIdIs( U32 id ) noexcept { treeId_.valueIs( id ); }
   constexpr U16 instanceId() const noexcept { return instanceId_.value(); }
   constexpr void instanceIdIs( U16 id ) noexcept { instanceId_.valueIs( id ); }

 protected:
   static constexpr U16 family = sizeof( Address ) == 4 ? 1 : 2;

   static constexpr auto elementOf() {
      return LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::SrP2mpPolicy )
         .when( 6, sizeof( Address ) )
         .length( 10 + sizeof( Address ) )
         .inWords( "SR MPLS P2MP Policy Tree Instance" );
   }
   constexpr bool isOf( LspPingElement const & element ) const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             addressFamily() == family && addressLength() == sizeof( Address );
   }
   Orlo::String text() const;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingSrP2mpPolicySubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::addressFamily, &Self::addressFamilyIs >( "addressFamily" ),
         Kiv::field< &Self::addressLength, &Self::addressLengthIs >( "addressLength" ),
         Kiv::field< &Self::reserved, &Self::reservedIs >( "reserved" ),
         Kiv::field< &Self::root, &Self::rootIs >( "root" ),
         Kiv::field< &Self::treeId, &Self::treeIdIs >( "treeId" ),
         Kiv::field< &Self::instanceId, &Self::instanceIdIs >( "instanceId" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU16 addressFamily_;
   U8 addressLength_ = 0;
   U8 reserved_ = 0;
   Address root_;
   Velnet::NetU32 treeId_;
   Velnet::NetU16 instanceId_;
};

class LSPPING_EXT_EXPORT LspPingSrP2mpPolicyIpv4SubTlv
   : public Kiv::Typed< LspPingSrP2mpPolicyIpv4SubTlv,
                        LspPingSrP2mpPolicySubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 9961 section 3.2.1.1" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrP2mpPolicy( root: '10.0.0.1', tree: 7, instance: 3 )", or "Invalid
   /// SrP2mpPolicyIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSrP2mpPolicyIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrP2mpPolicyIpv4SubTlv, 18 > );

class LSPPING_EXT_EXPORT LspPingSrP2mpPolicyIpv6SubTlv
   : public Kiv::Typed< LspPingSrP2mpPolicyIpv6SubTlv,
                        LspPingSrP2mpPolicySubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf().definedIn( "RFC 9961 section 3.2.1.1" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrP2mpPolicy( root: '2001:db8::1', tree: 7, instance: 3 )", or "Invalid
   /// SrP2mpPolicyIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSrP2mpPolicyIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrP2mpPolicyIpv6SubTlv, 30 > );

// The shape of the policies, and of what the identifiers of their paths begin with: RFC 9884
// sections 3.1 to 3.6. Headend, color and endpoint name a policy, RFC 9256 section 2.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 49, 52         |        length = 12, 36        |
// +-------------------------------+-------------------------------+
// |                    headend (4 or 16 bytes)                    |
// |                             color                             |
// |                   endpoint (4 or 16 bytes)                    |
// +---------------------------------------------------------------+
template < class Address >
class LspPingSrPolicySubTlv : public LspPingTlvHdr {
 public:
   constexpr Address headend() const noexcept { return headend_; }
   constexpr void headendIs( Address address ) noexcept { headend_ = address; }
   constexpr U32 color() const noexcept { return color_.value(); }
   constexpr void colorIs( U32 color ) noexcept { color_.valueIs( color ); }
   constexpr Address endpoint() const noexcept { return endpoint_; }
   constexpr void endpointIs( Address address ) noexcept { endpoint_ = address; }

 protected:
   static constexpr std::size_t policyLength = 2 * sizeof( Address ) + 4;

   static constexpr auto elementOf( LspPingExtTargetFecSubTlvType code,
                                    std::size_t length = policyLength ) {
      return LspPingElement::targetFec( code ).length( length );
   }
   constexpr bool isOf( LspPingElement const & element ) const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// Appends "( headend: '10.0.0.1', color: 100, endpoint: '10.0.0.2'".
   void appendFields( Orlo::StringBuilder & out ) const;

   template < class View >
   static constexpr auto attributesOf( auto... more ) {
      using Self = LspPingSrPolicySubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::headend, &Self::headendIs >( "headend" ),
         Kiv::field< &Self::color, &Self::colorIs >( "color" ),
         Kiv::field< &Self::endpoint, &Self::endpointIs >( "endpoint" ), more...,
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address headend_;
   Velnet::NetU32 color_;
   Address endpoint_;
};

// The shape of the candidate paths, RFC 9884 sections 3.2 and 3.5. The originator is a number of
// 160 bits in two parts, RFC 9256 section 2.4.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 50, 53         |        length = 40, 64        |
// +-------------------------------+-------------------------------+
// |        headend, color, endpoint as in the policy              |
// +---------------+---------------+-------------------------------+
// |protocolOrigin |   reserved0   |           reserved1           |
// +---------------+---------------+-------------------------------+
// |                         originatorAs                          |
// |                   originatorNode (16 bytes)                   |
// |                         discriminator                         |
// +---------------------------------------------------------------+
template < class Address >
class LspPingSrCandidatePathSubTlv : public LspPingSrPolicySubTlv< Address > {
   using Policy = LspPingSrPolicySubTlv< Address >;

 public:
   /// What told the headend of the path, RFC 9256 section 2.3.
   constexpr U8 protocolOrigin() const noexcept { return protocolOrigin_; }
   constexpr void protocolOriginIs( U8 protocol ) noexcept { protocolOrigin_ = protocol; }
   constexpr U8 reserved0() const noexcept { return reserved0_; }
   constexpr void reserved0Is( U8 value ) noexcept { reserved0_ = value; }
   constexpr U16 reserved1() const noexcept { return reserved1_.value(); }
   constexpr void reserved1Is( U16 value ) noexcept { reserved1_.valueIs( value ); }
   constexpr U32 originatorAs() const noexcept { return originatorAs_.value(); }
   constexpr void originatorAsIs( U32 number ) noexcept { originatorAs_.valueIs( number ); }
   /// An address of IPv4 stands in the last four bytes, behind zeros.
   constexpr Velnet::Ip6Addr originatorNode() const noexcept { return originatorNode_; }
   constexpr void originatorNodeIs( Velnet::Ip6Addr node ) noexcept { originatorNode_ = node; }
   constexpr U32 discriminator() const noexcept { return discriminator_.value(); }
   constexpr void discriminatorIs( U32 number ) noexcept { discriminator_.valueIs( number ); }

 protected:
   static constexpr std::size_t pathLength = Policy::policyLength + 28;

   /// Appends that of the policy and ", origin: 30, originator: 65001 '10.0.0.1', discriminator:
   /// 5".
   void appendFields( Orlo::StringBuilder & out ) const;

   template < class View >
   static constexpr auto attributesOf( auto... more ) {
      using Self = LspPingSrCandidatePathSubTlv;
      return Policy::template attributesOf< View >(
         Kiv::field< &Self::protocolOrigin, &Self::protocolOriginIs >( "protocolOrigin" ),
         Kiv::field< &Self::reserved0, &Self::reserved0Is >( "reserved0" ),
         Kiv::field< &Self::reserved1, &Self::reserved1Is >( "reserved1" ),
         Kiv::field< &Self::originatorAs, &Self::originatorAsIs >( "originatorAs" ),
         Kiv::field< &Self::originatorNode, &Self::originatorNodeIs >( "originatorNode" ),
         Kiv::field< &Self::discriminator, &Self::discriminatorIs >( "discriminator" ), more... );
   }

 private:
   U8 protocolOrigin_ = 0;
   U8 reserved0_ = 0;
   Velnet::NetU16 reserved1_;
   Velnet::NetU32 originatorAs_;
   Velnet::Ip6Addr originatorNode_;
   Velnet::NetU32 discriminator_;
};

// The shape of the segment lists of a candidate path, RFC 9884 sections 3.3 and 3.6.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 51, 54         |        length = 44, 68        |
// +-------------------------------+-------------------------------+
// |        headend to discriminator as in the candidate path      |
// |                         segmentListId                         |
// +---------------------------------------------------------------+
template < class Address >
class LspPingSrSegmentListSubTlv : public LspPingSrCandidatePathSubTlv< Address > {
   using Path = LspPingSrCandidatePathSubTlv< Address >;

 public:
   constexpr U32 segmentListId() const noexcept { return segmentListId_.value(); }
   constexpr void segmentListIdIs( U32 id ) noexcept { segmentListId_.valueIs( id ); }

 protected:
   static constexpr std::size_t listLength = Path::pathLength + 4;

   /// Appends that of the path and ", segment list: 6".
   void appendFields( Orlo::StringBuilder & out ) const;

   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingSrSegmentListSubTlv;
      return Path::template attributesOf< View >(
         Kiv::field< &Self::segmentListId, &Self::segmentListIdIs >( "segmentListId" ) );
   }

 private:
   Velnet::NetU32 segmentListId_;
};

class LSPPING_EXT_EXPORT LspPingSrPolicyIpv4SubTlv
   : public Kiv::Typed< LspPingSrPolicyIpv4SubTlv, LspPingSrPolicySubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtTargetFecSubTlvType::SrPolicyIpv4 )
                                      .inWords( "SR Policy Associated PSID - IPv4" )
                                      .definedIn( "RFC 9884 section 3.1" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrPolicyIpv4( headend: '10.0.0.1', color: 100, endpoint: '10.0.0.2' )", or "Invalid
   /// SrPolicyIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSrPolicyIpv4SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrPolicyIpv4SubTlv, 16 > );

class LSPPING_EXT_EXPORT LspPingSrCandidatePathIpv4SubTlv
   : public Kiv::Typed< LspPingSrCandidatePathIpv4SubTlv,
                        LspPingSrCandidatePathSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtTargetFecSubTlvType::SrCandidatePathIpv4, pathLength )
         .inWords( "SR Candidate Path Associated PSID - IPv4" )
         .definedIn( "RFC 9884 section 3.2" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrCandidatePathIpv4( headend: '10.0.0.1', color: 100, endpoint: '10.0.0.2', origin: 30,
   /// originator: 65001 '10.0.0.1', discriminator: 5 )", or "Invalid SrCandidatePathIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingSrCandidatePathIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrCandidatePathIpv4SubTlv, 44 > );

class LSPPING_EXT_EXPORT LspPingSrSegmentListIpv4SubTlv
   : public Kiv::Typed< LspPingSrSegmentListIpv4SubTlv,
                        LspPingSrSegmentListSubTlv< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtTargetFecSubTlvType::SrSegmentListIpv4, listLength )
         .inWords( "SR Segment List Associated PSID - IPv4" )
         .definedIn( "RFC 9884 section 3.3" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrSegmentListIpv4( headend: '10.0.0.1', color: 100, endpoint: '10.0.0.2', origin: 30,
   /// originator: 65001 '10.0.0.1', discriminator: 5, segment list: 6 )", or "Invalid
   /// SrSegmentListIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingSrSegmentListIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrSegmentListIpv4SubTlv, 48 > );

class LSPPING_EXT_EXPORT LspPingSrPolicyIpv6SubTlv
   : public Kiv::Typed< LspPingSrPolicyIpv6SubTlv, LspPingSrPolicySubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtTargetFecSubTlvType::SrPolicyIpv6 )
                                      .inWords( "SR Policy Associated PSID - IPv6" )
                                      .definedIn( "RFC 9884 section 3.4" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrPolicyIpv6( .. )" as over IPv4, or "Invalid SrPolicyIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSrPolicyIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrPolicyIpv6SubTlv, 40 > );

class LSPPING_EXT_EXPORT LspPingSrCandidatePathIpv6SubTlv
   : public Kiv::Typed< LspPingSrCandidatePathIpv6SubTlv,
                        LspPingSrCandidatePathSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtTargetFecSubTlvType::SrCandidatePathIpv6, pathLength )
         .inWords( "SR Candidate Path Associated PSID - IPv6" )
         .definedIn( "RFC 9884 section 3.5" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrCandidatePathIpv6( .. )" as over IPv4, or "Invalid SrCandidatePathIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingSrCandidatePathIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrCandidatePathIpv6SubTlv, 68 > );

class LSPPING_EXT_EXPORT LspPingSrSegmentListIpv6SubTlv
   : public Kiv::Typed< LspPingSrSegmentListIpv6SubTlv,
                        LspPingSrSegmentListSubTlv< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      elementOf( LspPingExtTargetFecSubTlvType::SrSegmentListIpv6, listLength )
         .inWords( "SR Segment List Associated PSID - IPv6" )
         .definedIn( "RFC 9884 section 3.6" );

   constexpr bool valid() const noexcept { return isOf( element ); }
   /// "SrSegmentListIpv6( .. )" as over IPv4, or "Invalid SrSegmentListIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingSrSegmentListIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSrSegmentListIpv6SubTlv, 72 > );

} // namespace LspPing
