#pragma once

#include "MplsUtils/LspPing/ext/LspPingTail.h"
#include "MplsUtils/LspPing/ext/fec/LspPingMldpFec.h"

// Opaque values of a multipoint LDP FEC, beside those of fec/LspPingP2mpFec.h. As there, type and
// length are no attributes.
namespace LspPing {

// A route distinguisher behind other fields.
template < class Before >
class LspPingWithRd : public Before {
 public:
   /// The route distinguisher as one number, whatever its own type and parts.
   constexpr U64 rd() const noexcept { return rd_.value(); }
   constexpr void rdIs( U64 rd ) noexcept { rd_.valueIs( rd ); }

   static constexpr auto rdRow() {
      return Kiv::field< &LspPingWithRd::rd, &LspPingWithRd::rdIs >( "rd" );
   }

 private:
   Velnet::NetU64 rd_;
};

// The shape of a transit source, RFC 6826 sections 3.1 and 3.2: source and group.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-------------------------------+---------------+
// |     type      |            length             |               |
// +---------------+-------------------------------+               |
// |                 sourceAddr (4 or 16 bytes)    +---------------+
// |                                               |               |
// +-----------------------------------------------+               |
// |                 groupAddr (4 or 16 bytes)     +---------------+
// |                                               |
// +-----------------------------------------------+
template < class Address >
class LspPingTransitSource : public LspPingOpaqueValSubTlv {
 public:
   constexpr Address sourceAddr() const noexcept { return sourceAddr_; }
   constexpr void sourceAddrIs( Address address ) noexcept { sourceAddr_ = address; }
   constexpr Address groupAddr() const noexcept { return groupAddr_; }
   constexpr void groupAddrIs( Address address ) noexcept { groupAddr_ = address; }

 protected:
   static constexpr std::size_t valueLength = 2 * sizeof( Address );
   static constexpr bool isWellFormed() noexcept { return true; }

   /// \param behind  The rows of what follows.
   template < class View, class... Rows >
   static constexpr auto attributesOf( Rows... behind ) {
      using Self = LspPingTransitSource;
      return Kiv::attributes( Kiv::field< &Self::sourceAddr, &Self::sourceAddrIs >( "sourceAddr" ),
                              Kiv::field< &Self::groupAddr, &Self::groupAddrIs >( "groupAddr" ),
                              behind..., Kiv::computed< &View::valid >( "valid" ),
                              Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Address sourceAddr_;
   Address groupAddr_;
};

// The shape of a transit bidirectional tree, RFC 6826 sections 3.3 and 3.4: the groups of a
// rendezvous point.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-------------------------------+---------------+
// |     type      |            length             |    maskLen    |
// +---------------+-------------------------------+---------------+
// |                   rpAddr (4 or 16 bytes)                      |
// |                   groupAddr (4 or 16 bytes)                   |
// +---------------------------------------------------------------+
template < class Address >
class LspPingTransitBidir : public LspPingOpaqueValSubTlv {
 public:
   /// Of the group, in bits.
   constexpr U8 maskLen() const noexcept { return maskLen_; }
   constexpr void maskLenIs( U8 bits ) noexcept { maskLen_ = bits; }
   /// The rendezvous point.
   constexpr Address rpAddr() const noexcept { return rpAddr_; }
   constexpr void rpAddrIs( Address address ) noexcept { rpAddr_ = address; }
   constexpr Address groupAddr() const noexcept { return groupAddr_; }
   constexpr void groupAddrIs( Address address ) noexcept { groupAddr_ = address; }

 protected:
   static constexpr std::size_t valueLength = 1 + 2 * sizeof( Address );
   constexpr bool isWellFormed() const noexcept { return maskLen() <= 8 * sizeof( Address ); }

   /// \param behind  The rows of what follows.
   template < class View, class... Rows >
   static constexpr auto attributesOf( Rows... behind ) {
      using Self = LspPingTransitBidir;
      return Kiv::attributes( Kiv::field< &Self::maskLen, &Self::maskLenIs >( "maskLen" ),
                              Kiv::field< &Self::rpAddr, &Self::rpAddrIs >( "rpAddr" ),
                              Kiv::field< &Self::groupAddr, &Self::groupAddrIs >( "groupAddr" ),
                              behind..., Kiv::computed< &View::valid >( "valid" ),
                              Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   U8 maskLen_ = 0;
   Address rpAddr_;
   Address groupAddr_;
};

// The same inside a VPN, RFC 7246 section 3: the eight bytes of the route distinguisher follow.
template < class Transit >
class LspPingTransitVpn : public LspPingWithRd< Transit > {
 protected:
   static constexpr std::size_t valueLength = Transit::valueLength + 8;

   template < class View >
   static constexpr auto attributesOf() {
      return Transit::template attributesOf< View >( LspPingTransitVpn::rdRow() );
   }
};

// Transit IPv6 Source, RFC 6826 section 3.2.
class LSPPING_EXT_EXPORT LspPingOpaqueValSGIpv6SubTlv
   : public Kiv::Typed< LspPingOpaqueValSGIpv6SubTlv, LspPingTransitSource< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = LspPingElement::opaqueValue( LspPingExtOpaqueValueType::SGIpv6 )
                                      .length( valueLength )
                                      .inWords( "Transit IPv6 Source" )
                                      .definedIn( "RFC 6826 section 3.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValSGIpv6( source: '2001:db8::1', group: 'ff3e::1' )", or
   /// "Invalid OpaqueValSGIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingOpaqueValSGIpv6SubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValSGIpv6SubTlv, 35 > );

// Transit IPv4 Bidir, RFC 6826 section 3.3.
class LSPPING_EXT_EXPORT LspPingOpaqueValBidirIpv4SubTlv
   : public Kiv::Typed< LspPingOpaqueValBidirIpv4SubTlv, LspPingTransitBidir< Velnet::IpAddr > > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::BidirIpv4 )
         .length( valueLength )
         .inWords( "Transit IPv4 Bidir" )
         .definedIn( "RFC 6826 section 3.3" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValBidirIpv4( group: '225.0.0.0/8', RP: '10.0.0.1' )", or
   /// "Invalid OpaqueValBidirIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValBidirIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValBidirIpv4SubTlv, 12 > );

// Transit IPv6 Bidir, RFC 6826 section 3.4.
class LSPPING_EXT_EXPORT LspPingOpaqueValBidirIpv6SubTlv
   : public Kiv::Typed< LspPingOpaqueValBidirIpv6SubTlv, LspPingTransitBidir< Velnet::Ip6Addr > > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::BidirIpv6 )
         .length( valueLength )
         .inWords( "Transit IPv6 Bidir" )
         .definedIn( "RFC 6826 section 3.4" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValBidirIpv6( group: 'ff0e::/16', RP: '2001:db8::1' )", or
   /// "Invalid OpaqueValBidirIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValBidirIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValBidirIpv6SubTlv, 36 > );

// Transit VPNv4 Source, RFC 7246 section 3.1.
class LSPPING_EXT_EXPORT LspPingOpaqueValVpnSGIpv4SubTlv
   : public Kiv::Typed< LspPingOpaqueValVpnSGIpv4SubTlv,
                        LspPingTransitVpn< LspPingTransitSource< Velnet::IpAddr > > > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::VpnSGIpv4 )
         .length( valueLength )
         .inWords( "Transit VPNv4 Source" )
         .definedIn( "RFC 7246 section 3.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValVpnSGIpv4( source: '10.0.0.1', group: '232.0.0.1', RD: 7 )", or
   /// "Invalid OpaqueValVpnSGIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValVpnSGIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValVpnSGIpv4SubTlv, 19 > );

// Transit VPNv6 Source, RFC 7246 section 3.2.
class LSPPING_EXT_EXPORT LspPingOpaqueValVpnSGIpv6SubTlv
   : public Kiv::Typed< LspPingOpaqueValVpnSGIpv6SubTlv,
                        LspPingTransitVpn< LspPingTransitSource< Velnet::Ip6Addr > > > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::VpnSGIpv6 )
         .length( valueLength )
         .inWords( "Transit VPNv6 Source" )
         .definedIn( "RFC 7246 section 3.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValVpnSGIpv6( source: '2001:db8::1', group: 'ff3e::1', RD: 7 )", or
   /// "Invalid OpaqueValVpnSGIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValVpnSGIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValVpnSGIpv6SubTlv, 43 > );

// Transit VPNv4 Bidir, RFC 7246 section 3.3.
class LSPPING_EXT_EXPORT LspPingOpaqueValVpnBidirIpv4SubTlv
   : public Kiv::Typed< LspPingOpaqueValVpnBidirIpv4SubTlv,
                        LspPingTransitVpn< LspPingTransitBidir< Velnet::IpAddr > > > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::VpnBidirIpv4 )
         .length( valueLength )
         .inWords( "Transit VPNv4 Bidir" )
         .definedIn( "RFC 7246 section 3.3" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValVpnBidirIpv4( group: '225.0.0.0/8', RP: '10.0.0.1', RD: 7 )", or
   /// "Invalid OpaqueValVpnBidirIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValVpnBidirIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValVpnBidirIpv4SubTlv, 20 > );

// Transit VPNv6 Bidir, RFC 7246 section 3.4.
class LSPPING_EXT_EXPORT LspPingOpaqueValVpnBidirIpv6SubTlv
   : public Kiv::Typed< LspPingOpaqueValVpnBidirIpv6SubTlv,
                        LspPingTransitVpn< LspPingTransitBidir< Velnet::Ip6Addr > > > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::VpnBidirIpv6 )
         .length( valueLength )
         .inWords( "Transit VPNv6 Bidir" )
         .definedIn( "RFC 7246 section 3.4" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValVpnBidirIpv6( group: 'ff0e::/16', RP: '2001:db8::1', RD: 7 )", or
   /// "Invalid OpaqueValVpnBidirIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValVpnBidirIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValVpnBidirIpv6SubTlv, 44 > );

// What stands before the root of a recursive opaque value, RFC 6512 section 2.1: the type of the
// multipoint LDP FEC element inside. In a VPN a route distinguisher comes first, section 3.1.
template < class Before >
class LspPingMldpFecHdr : public Before {
 public:
   /// LspPingMldpFecType.
   constexpr U8 fecType() const noexcept { return fecType_; }
   constexpr void fecTypeIs( U8 type ) noexcept { fecType_ = type; }

 private:
   U8 fecType_ = 0;
};
using LspPingRecursiveHdr = LspPingMldpFecHdr< LspPingOpaqueValSubTlv >;
using LspPingVpnRecursiveHdr = LspPingMldpFecHdr< LspPingWithRd< LspPingOpaqueValSubTlv > >;

// The shape of both: a multipoint LDP FEC element inside, RFC 6388 sections 2.2 and 3.2, whose
// opaque values follow.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-------------------------------+---------------+
// |  type = 7, 8  |            length             |               |
// +---------------+-------------------------------+               |
// |               rd (8 bytes, of type 8 only)    +---------------+
// |                                               | fecType = 6.. |
// +-------------------------------+---------------+---------------+
// |            family             | addrLen = 4,16|               |
// +-------------------------------+---------------+               |
// |                  rootAddr (4 or 16 bytes)     +---------------+
// |                                               |   opaqueLen   |
// +---------------+-------------------------------+---------------+
// |  continued    |  opaque values ...
// +---------------+----
template < class Header, class Address >
class LspPingRecursiveOpaqueVal : public LspPingMldpRoot< Header, Address > {
 protected:
   using Root = LspPingMldpRoot< Header, Address >;

   static constexpr auto elementOf( LspPingExtOpaqueValueType code ) {
      return Root::elementOf( LspPingElement::opaqueValue( code ), sizeof( Header ) );
   }
   constexpr bool isWellFormed() const noexcept {
      U8 const type = this->fecType();
      return type >= Kiv::numberOf( LspPingMldpFecType::P2MP ) &&
             type <= Kiv::numberOf( LspPingMldpFecType::MP2MPDownstream ) && this->hasRoot();
   }

   template < class View >
   static constexpr auto attributesOf() {
      auto const fecType = Kiv::field< &Header::fecType, &Header::fecTypeIs >( "fecType" );
      if constexpr( requires( Header const & header ) { header.rd(); } )
         return Root::template attributesOf< View, void >( Header::rdRow(), fecType );
      else
         return Root::template attributesOf< View, void >( fecType );
   }
};

// Recursive Opaque Value with a root of IPv4, RFC 6512 section 2.1.
class LSPPING_EXT_EXPORT LspPingOpaqueValRecursiveIpv4SubTlv
   : public Kiv::Typed< LspPingOpaqueValRecursiveIpv4SubTlv,
                        LspPingRecursiveOpaqueVal< LspPingRecursiveHdr, Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtOpaqueValueType::Recursive )
                                      .inWords( "Recursive Opaque Value" )
                                      .definedIn( "RFC 6512 section 2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValRecursiveIpv4( P2MP, root: '10.0.0.1' )", or
   /// "Invalid OpaqueValRecursiveIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValRecursiveIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValRecursiveIpv4SubTlv, 13 > );

// Recursive Opaque Value with a root of IPv6, RFC 6512 section 2.1.
class LSPPING_EXT_EXPORT LspPingOpaqueValRecursiveIpv6SubTlv
   : public Kiv::Typed< LspPingOpaqueValRecursiveIpv6SubTlv,
                        LspPingRecursiveOpaqueVal< LspPingRecursiveHdr, Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtOpaqueValueType::Recursive )
                                      .inWords( "Recursive Opaque Value" )
                                      .definedIn( "RFC 6512 section 2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValRecursiveIpv6( P2MP, root: '2001:db8::1' )", or
   /// "Invalid OpaqueValRecursiveIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValRecursiveIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValRecursiveIpv6SubTlv, 25 > );

// VPN-Recursive Opaque Value with a root of IPv4, RFC 6512 section 3.1.
class LSPPING_EXT_EXPORT LspPingOpaqueValVpnRecursiveIpv4SubTlv
   : public Kiv::Typed< LspPingOpaqueValVpnRecursiveIpv4SubTlv,
                        LspPingRecursiveOpaqueVal< LspPingVpnRecursiveHdr, Velnet::IpAddr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtOpaqueValueType::VpnRecursive )
                                      .inWords( "VPN-Recursive Opaque Value" )
                                      .definedIn( "RFC 6512 section 3.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValVpnRecursiveIpv4( P2MP, root: '10.0.0.1', RD: 7 )", or
   /// "Invalid OpaqueValVpnRecursiveIpv4SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValVpnRecursiveIpv4SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValVpnRecursiveIpv4SubTlv, 21 > );

// VPN-Recursive Opaque Value with a root of IPv6, RFC 6512 section 3.1.
class LSPPING_EXT_EXPORT LspPingOpaqueValVpnRecursiveIpv6SubTlv
   : public Kiv::Typed< LspPingOpaqueValVpnRecursiveIpv6SubTlv,
                        LspPingRecursiveOpaqueVal< LspPingVpnRecursiveHdr, Velnet::Ip6Addr > > {
 public:
   static constexpr auto element = elementOf( LspPingExtOpaqueValueType::VpnRecursive )
                                      .inWords( "VPN-Recursive Opaque Value" )
                                      .definedIn( "RFC 6512 section 3.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) && isWellFormed();
   }
   /// "OpaqueValVpnRecursiveIpv6( P2MP, root: '2001:db8::1', RD: 7 )", or
   /// "Invalid OpaqueValVpnRecursiveIpv6SubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      return attributesOf< LspPingOpaqueValVpnRecursiveIpv6SubTlv >();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValVpnRecursiveIpv6SubTlv, 33 > );

// Extended type, RFC 6388 section 2.3. The length stands behind the rest of the type.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-------------------------------+---------------+
// |  type = 255   |         extendedType          |    length     |
// +---------------+-------------------------------+---------------+
// |  continued    |  data ...
// +---------------+----
class LSPPING_EXT_EXPORT LspPingOpaqueValExtendedSubTlv
   : public Kiv::Typed< LspPingOpaqueValExtendedSubTlv, Kiv::NrcPtrInterface > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingExtOpaqueValueType::Extended )
         .extendedCode( 2 )
         .followedBy( LspPingBehind::tail )
         .inWords( "extended type" )
         .definedIn( "RFC 6388 section 2.3" );

   constexpr U8 type() const noexcept { return type_; }
   constexpr void typeIs( U8 type ) noexcept { type_ = type; }
   constexpr U16 extendedType() const noexcept { return extendedType_.value(); }
   constexpr void extendedTypeIs( U16 type ) noexcept { extendedType_.valueIs( type ); }
   /// Of the data, in bytes.
   constexpr U16 length() const noexcept { return length_.value(); }
   constexpr void lengthIs( U16 length ) noexcept { length_.valueIs( length ); }
   std::span< U8 const > data() const noexcept { return lspPingTail( *this ); }

   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "OpaqueValExtended( type: 1, data: 0102 )", or "Invalid OpaqueValExtendedSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingOpaqueValExtendedSubTlv;
      return Kiv::attributes(
         Kiv::field< &Self::extendedType, &Self::extendedTypeIs >( "extendedType" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// With the data.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept {
      return lspPingExtent< LspPingOpaqueValExtendedSubTlv >( bytes );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 type_ = 0;
   Velnet::NetU16 extendedType_;
   Velnet::NetU16 length_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValExtendedSubTlv, 5 > );

} // namespace LspPing
