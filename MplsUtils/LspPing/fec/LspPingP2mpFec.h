#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

// Multicast LDP FEC stack, RFC 6425 section 3.1.2.1: the root of a tree and, behind the view, the
// opaque value of `opaqueLen` bytes that tells the root's trees apart. The root is read as IPv4,
// whatever family and length say.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 19           |            length             |
// +-------------------------------+---------------+---------------+
// |            family             |    addrLen    |   rootAddr    |
// +-------------------------------+---------------+---------------+
// |              rootAddr, continued              |   opaqueLen   |
// +---------------+-------------------------------+---------------+
// |  continued    |  opaque value ...
// +---------------+----
class LSPPING_EXPORT LspPingP2mpFecStackSubTlv
   : public Kiv::Typed< LspPingP2mpFecStackSubTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::P2mpFec )
                                      .atLeast( 9 )
                                      .followedBy( LspPingBehind::opaqueValues )
                                      .definedIn( "RFC 6425 section 3.1.2.1" );

   /// Address family number of the root.
   constexpr U16 family() const noexcept { return family_.value(); }
   constexpr void familyIs( U16 family ) noexcept { family_.valueIs( family ); }
   /// Of the root's address, in bytes.
   constexpr U8 addrLen() const noexcept { return addrLen_; }
   constexpr void addrLenIs( U8 bytes ) noexcept { addrLen_ = bytes; }
   constexpr Velnet::IpAddr rootAddr() const noexcept { return rootAddr_; }
   constexpr void rootAddrIs( Velnet::IpAddr address ) noexcept { rootAddr_ = address; }
   /// Of the opaque value, in bytes.
   constexpr U16 opaqueLen() const noexcept { return opaqueLen_.value(); }
   constexpr void opaqueLenIs( U16 bytes ) noexcept { opaqueLen_.valueIs( bytes ); }

   /// Looks at the type only.
   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "P2mpFecStackSubTlv( RootAddr: '10.0.0.1' )", or "Invalid LspPingP2mpFecStackSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingP2mpFecStackSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::family, &Self::familyIs >( "family" ),
         Kiv::field< &Self::addrLen, &Self::addrLenIs >( "addrLen" ),
         Kiv::field< &Self::rootAddr, &Self::rootAddrIs >( "rootAddr" ),
         Kiv::field< &Self::opaqueLen, &Self::opaqueLenIs >( "opaqueLen" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 family_;
   U8 addrLen_ = 0;
   Velnet::IpAddr rootAddr_;
   Velnet::NetU16 opaqueLen_;
};
static_assert( Kiv::isWireView< LspPingP2mpFecStackSubTlv, 13 > );

// What the opaque values begin with, RFC 6388 section 2.3. Type and length are no attributes of
// the views; only their parsers offer them.
//
//  0                   1                   2
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3
// +---------------+-------------------------------+
// |     type      |            length             |
// +---------------+-------------------------------+
class LspPingOpaqueValSubTlv : public Kiv::NrcPtrInterface {
 public:
   constexpr U8 type() const noexcept { return type_; }
   constexpr void typeIs( U8 type ) noexcept { type_ = type; }
   /// Length of the value in bytes, without type and length.
   constexpr U16 length() const noexcept { return length_.value(); }
   constexpr void lengthIs( U16 length ) noexcept { length_.valueIs( length ); }

   /// Bytes that the whole opaque value takes: type, length and value, the value rounded up so that
   /// the sum is a multiple of four. Kept in 16 bits.
   constexpr U16 totalLength() const noexcept {
      return static_cast< U16 >( lspPingPadded( 3u + length() ) );
   }

   static consteval auto kivAccessors() {
      using Self = LspPingOpaqueValSubTlv;
      return Kiv::attributes( Kiv::computed< &Self::type >( "type" ),
                              Kiv::computed< &Self::length >( "length" ),
                              Kiv::computed< &Self::totalLength >( "totalLength" ) );
   }

 private:
   U8 type_ = 0;
   Velnet::NetU16 length_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValSubTlv, 3 > );

// Generic LSP identifier, RFC 6388 section 2.3.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-------------------------------+---------------+
// |   type = 1    |          length = 4           |     lspId     |
// +---------------+-------------------------------+---------------+
// |               lspId, continued                |
// +-----------------------------------------------+
class LSPPING_EXPORT LspPingOpaqueValGenSubTlv
   : public Kiv::Typed< LspPingOpaqueValGenSubTlv, LspPingOpaqueValSubTlv > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingP2mpFecStackSubTlvType::GenericLsp )
         .length( 4 )
         .inWords( "Generic LSP Identifier" )
         .definedIn( "RFC 6388 section 2.3.1" );

   constexpr U32 lspId() const noexcept { return lspId_.value(); }
   constexpr void lspIdIs( U32 id ) noexcept { lspId_.valueIs( id ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "OpaqueValGenSubTlv( lspId: 7 )", negative from 2^31 on, or
   /// "Invalid LspPingOpaqueValGenSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingOpaqueValGenSubTlv;
      return Kiv::attributes( Kiv::field< &Self::lspId, &Self::lspIdIs >( "lspId" ),
                              Kiv::computed< &Self::valid >( "valid" ),
                              Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 lspId_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValGenSubTlv, 7 > );

// Transit IPv4 source and group, RFC 6826 section 3.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------+-------------------------------+---------------+
// |   type = 3    |          length = 8           |  sourceAddr   |
// +---------------+-------------------------------+---------------+
// |             sourceAddr, continued             |   groupAddr   |
// +-----------------------------------------------+---------------+
// |             groupAddr, continued              |
// +-----------------------------------------------+
class LSPPING_EXPORT LspPingOpaqueValSGSubTlv
   : public Kiv::Typed< LspPingOpaqueValSGSubTlv, LspPingOpaqueValSubTlv > {
 public:
   static constexpr auto element =
      LspPingElement::opaqueValue( LspPingP2mpFecStackSubTlvType::SGIpv4 )
         .length( 8 )
         .inWords( "Transit IPv4 Source" )
         .definedIn( "RFC 6826 section 3.1" );

   constexpr Velnet::IpAddr sourceAddr() const noexcept { return sourceAddr_; }
   constexpr void sourceAddrIs( Velnet::IpAddr address ) noexcept { sourceAddr_ = address; }
   constexpr Velnet::IpAddr groupAddr() const noexcept { return groupAddr_; }
   constexpr void groupAddrIs( Velnet::IpAddr address ) noexcept { groupAddr_ = address; }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "OpaqueValSGSubTlv( SourceAddr: '10.0.0.1' GroupAddr: '232.0.0.1' )", or
   /// "Invalid LspPingOpaqueValSGSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingOpaqueValSGSubTlv;
      return Kiv::attributes( Kiv::field< &Self::sourceAddr, &Self::sourceAddrIs >( "sourceAddr" ),
                              Kiv::field< &Self::groupAddr, &Self::groupAddrIs >( "groupAddr" ),
                              Kiv::computed< &Self::valid >( "valid" ),
                              Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::IpAddr sourceAddr_;
   Velnet::IpAddr groupAddr_;
};
static_assert( Kiv::isWireView< LspPingOpaqueValSGSubTlv, 11 > );

// P2MP Responder Identifier TLV with one IPv4 node address in it, RFC 6425 section 3.2.2: the node
// that shall answer.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 11           |            length             |
// +-------------------------------+-------------------------------+
// |          subType = 3          |        subTypeLen = 4         |
// +-------------------------------+-------------------------------+
// |                             addr                              |
// +---------------------------------------------------------------+
class LSPPING_EXPORT LspPingNodeAddrSubTlv
   : public Kiv::Typed< LspPingNodeAddrSubTlv, LspPingTlvHdr > {
 public:
   /// Among the responders' TLVs, the one that holds just an IPv4 node address.
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::P2mpRespId )
                                      .when( 4, 0 )
                                      .when( 5, LspPingP2mpRespTlvType::NodeAddr4 )
                                      .when( 6, 0 )
                                      .when( 7, 4 )
                                      .atLeast( 8 )
                                      .followedBy( LspPingBehind::responderTlvs )
                                      .definedIn( "RFC 6425 section 3.2.2" );

   /// LspPingP2mpRespTlvType.
   constexpr U16 subType() const noexcept { return subType_.value(); }
   constexpr void subTypeIs( U16 type ) noexcept { subType_.valueIs( type ); }
   /// Of the address, in bytes.
   constexpr U16 subTypeLen() const noexcept { return subTypeLen_.value(); }
   constexpr void subTypeLenIs( U16 bytes ) noexcept { subTypeLen_.valueIs( bytes ); }
   constexpr Velnet::IpAddr addr() const noexcept { return addr_; }
   constexpr void addrIs( Velnet::IpAddr address ) noexcept { addr_ = address; }

   /// Does not look at the TLV's own length.
   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && subType() == 3 && subTypeLen() == 4;
   }
   /// "NodeAddr( Addr: '10.0.0.1' )", or "Invalid NodeAddrSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingNodeAddrSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::subType, &Self::subTypeIs >( "subType" ),
         Kiv::field< &Self::subTypeLen, &Self::subTypeLenIs >( "subTypeLen" ),
         Kiv::field< &Self::addr, &Self::addrIs >( "addr" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 subType_;
   Velnet::NetU16 subTypeLen_;
   Velnet::IpAddr addr_;
};
static_assert( Kiv::isWireView< LspPingNodeAddrSubTlv, 12 > );

} // namespace LspPing
