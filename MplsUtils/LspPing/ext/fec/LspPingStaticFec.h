#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/ext/fec/LspPingTunnelFlags.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

// The FECs that no protocol signals: their ends are known by the numbers of RFC 6370, that of an
// operator and that of a node. A global id of 0 says nothing.
namespace LspPing {

template < class Before >
class LspPingStaticSource : public Before {
 public:
   constexpr U32 sourceGlobalId() const noexcept { return sourceGlobalId_.value(); }
   constexpr void sourceGlobalIdIs( U32 id ) noexcept { sourceGlobalId_.valueIs( id ); }
   constexpr U32 sourceNodeId() const noexcept { return sourceNodeId_.value(); }
   constexpr void sourceNodeIdIs( U32 id ) noexcept { sourceNodeId_.valueIs( id ); }

 private:
   Velnet::NetU32 sourceGlobalId_;
   Velnet::NetU32 sourceNodeId_;
};

template < class Before >
class LspPingStaticDestination : public Before {
 public:
   constexpr U32 destinationGlobalId() const noexcept { return destinationGlobalId_.value(); }
   constexpr void destinationGlobalIdIs( U32 id ) noexcept { destinationGlobalId_.valueIs( id ); }
   constexpr U32 destinationNodeId() const noexcept { return destinationNodeId_.value(); }
   constexpr void destinationNodeIdIs( U32 id ) noexcept { destinationNodeId_.valueIs( id ); }

 private:
   Velnet::NetU32 destinationGlobalId_;
   Velnet::NetU32 destinationNodeId_;
};

// What a Static LSP has between its ends.
class LspPingStaticLspSource : public LspPingStaticSource< LspPingTlvHdr > {
 public:
   constexpr U16 sourceTunnelNum() const noexcept { return sourceTunnelNum_.value(); }
   constexpr void sourceTunnelNumIs( U16 number ) noexcept { sourceTunnelNum_.valueIs( number ); }
   constexpr U16 lspNum() const noexcept { return lspNum_.value(); }
   constexpr void lspNumIs( U16 number ) noexcept { lspNum_.valueIs( number ); }

 private:
   Velnet::NetU16 sourceTunnelNum_;
   Velnet::NetU16 lspNum_;
};

// Static LSP, RFC 6426 section 2.3.1.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 22           |          length = 24          |
// +-------------------------------+-------------------------------+
// |                        sourceGlobalId                         |
// |                         sourceNodeId                          |
// +-------------------------------+-------------------------------+
// |        sourceTunnelNum        |            lspNum             |
// +-------------------------------+-------------------------------+
// |                      destinationGlobalId                      |
// |                       destinationNodeId                       |
// +-------------------------------+-------------------------------+
// |     destinationTunnelNum      |              mbz              |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingStaticLspSubTlv
   : public Kiv::Typed< LspPingStaticLspSubTlv,
                        LspPingStaticDestination< LspPingStaticLspSource > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::StaticLsp )
         .length( 24 )
         .inWords( "Static LSP" )
         .definedIn( "RFC 6426 section 2.3.1" );

   constexpr U16 destinationTunnelNum() const noexcept { return destinationTunnelNum_.value(); }
   constexpr void destinationTunnelNumIs( U16 number ) noexcept {
      destinationTunnelNum_.valueIs( number );
   }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz() const noexcept { return mbz_.raw(); }
   constexpr void mbzIs( U16 raw ) noexcept { mbz_.rawIs( raw ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "StaticLsp( source global id: 1, source node id: 2, source tunnel: 3, LSP: 4, destination
   /// global id: 5, destination node id: 6, destination tunnel: 7 )", or "Invalid StaticLspSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingStaticLspSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::sourceGlobalId, &Self::sourceGlobalIdIs >( "sourceGlobalId" ),
         Kiv::field< &Self::sourceNodeId, &Self::sourceNodeIdIs >( "sourceNodeId" ),
         Kiv::field< &Self::sourceTunnelNum, &Self::sourceTunnelNumIs >( "sourceTunnelNum" ),
         Kiv::field< &Self::lspNum, &Self::lspNumIs >( "lspNum" ),
         Kiv::field< &Self::destinationGlobalId, &Self::destinationGlobalIdIs >(
            "destinationGlobalId" ),
         Kiv::field< &Self::destinationNodeId, &Self::destinationNodeIdIs >( "destinationNodeId" ),
         Kiv::field< &Self::destinationTunnelNum, &Self::destinationTunnelNumIs >(
            "destinationTunnelNum" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 destinationTunnelNum_;
   Velnet::NetU16 mbz_;
};
static_assert( Kiv::isWireView< LspPingStaticLspSubTlv, 28 > );

// What a Static Pseudowire has before its ends.
class LspPingStaticServiceHdr : public LspPingTlvHdr {
 public:
   /// Such as an attachment group identifier.
   constexpr U64 serviceId() const noexcept { return serviceId_.value(); }
   constexpr void serviceIdIs( U64 id ) noexcept { serviceId_.valueIs( id ); }

 private:
   Velnet::NetU64 serviceId_;
};

// What it has between them.
class LspPingStaticPwSource : public LspPingStaticSource< LspPingStaticServiceHdr > {
 public:
   /// Of the attachment circuit, RFC 5003.
   constexpr U32 sourceAcId() const noexcept { return sourceAcId_.value(); }
   constexpr void sourceAcIdIs( U32 id ) noexcept { sourceAcId_.valueIs( id ); }

 private:
   Velnet::NetU32 sourceAcId_;
};

// Static Pseudowire, RFC 6426 section 2.3.2.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 23           |          length = 32          |
// +-------------------------------+-------------------------------+
// |                      serviceId (8 bytes)                      |
// |                        sourceGlobalId                         |
// |                         sourceNodeId                          |
// |                          sourceAcId                           |
// |                      destinationGlobalId                      |
// |                       destinationNodeId                       |
// |                        destinationAcId                        |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingStaticPseudowireSubTlv
   : public Kiv::Typed< LspPingStaticPseudowireSubTlv,
                        LspPingStaticDestination< LspPingStaticPwSource > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::StaticPseudowire )
         .length( 32 )
         .inWords( "Static Pseudowire" )
         .definedIn( "RFC 6426 section 2.3.2" );

   /// Of the attachment circuit, RFC 5003.
   constexpr U32 destinationAcId() const noexcept { return destinationAcId_.value(); }
   constexpr void destinationAcIdIs( U32 id ) noexcept { destinationAcId_.valueIs( id ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "StaticPseudowire( service: 1, source global id: 2, source node id: 3, source AC: 4,
   /// destination global id: 5, destination node id: 6, destination AC: 7 )", or "Invalid
   /// StaticPseudowireSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingStaticPseudowireSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::serviceId, &Self::serviceIdIs >( "serviceId" ),
         Kiv::field< &Self::sourceGlobalId, &Self::sourceGlobalIdIs >( "sourceGlobalId" ),
         Kiv::field< &Self::sourceNodeId, &Self::sourceNodeIdIs >( "sourceNodeId" ),
         Kiv::field< &Self::sourceAcId, &Self::sourceAcIdIs >( "sourceAcId" ),
         Kiv::field< &Self::destinationGlobalId, &Self::destinationGlobalIdIs >(
            "destinationGlobalId" ),
         Kiv::field< &Self::destinationNodeId, &Self::destinationNodeIdIs >( "destinationNodeId" ),
         Kiv::field< &Self::destinationAcId, &Self::destinationAcIdIs >( "destinationAcId" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 destinationAcId_;
};
static_assert( Kiv::isWireView< LspPingStaticPseudowireSubTlv, 36 > );

// Static Tunnel, any LSP of which may be the way back, RFC 7110 section 4.3.3.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 28           |          length = 24          |
// +-------------------------------+-------------------------------+
// |                        sourceGlobalId                         |
// |                         sourceNodeId                          |
// |                      destinationGlobalId                      |
// |                       destinationNodeId                       |
// +-------------------------------+-------------------------------+
// |        sourceTunnelNum        |     destinationTunnelNum      |
// +-------------------------------+-------------------------------+
// |             flags             |              mbz              |
// +-------------------------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingStaticTunnelSubTlv
   : public Kiv::Typed< LspPingStaticTunnelSubTlv,
                        LspPingStaticDestination< LspPingStaticSource< LspPingTlvHdr > > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingExtTargetFecSubTlvType::StaticTunnel )
         .length( 24 )
         .inWords( "Static Tunnel" )
         .definedIn( "RFC 7110 section 4.3.3" );

   constexpr U16 sourceTunnelNum() const noexcept { return sourceTunnelNum_.value(); }
   constexpr void sourceTunnelNumIs( U16 number ) noexcept { sourceTunnelNum_.valueIs( number ); }
   constexpr U16 destinationTunnelNum() const noexcept { return destinationTunnelNum_.value(); }
   constexpr void destinationTunnelNumIs( U16 number ) noexcept {
      destinationTunnelNum_.valueIs( number );
   }
   /// LspPingTunnelFlags.
   constexpr U16 flags() const noexcept { return flags_.value(); }
   constexpr void flagsIs( U16 flags ) noexcept { flags_.valueIs( flags ); }
   /// As stored, without byte-order conversion.
   constexpr U16 mbz() const noexcept { return mbz_.raw(); }
   constexpr void mbzIs( U16 raw ) noexcept { mbz_.rawIs( raw ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() ) &&
             lspPingAreTunnelFlags( flags() );
   }
   /// "StaticTunnel( source global id: 1, source node id: 2, source tunnel: 3, destination global
   /// id: 4, destination node id: 5, destination tunnel: 6, flags: P )", or "Invalid
   /// StaticTunnelSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingStaticTunnelSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::sourceGlobalId, &Self::sourceGlobalIdIs >( "sourceGlobalId" ),
         Kiv::field< &Self::sourceNodeId, &Self::sourceNodeIdIs >( "sourceNodeId" ),
         Kiv::field< &Self::destinationGlobalId, &Self::destinationGlobalIdIs >(
            "destinationGlobalId" ),
         Kiv::field< &Self::destinationNodeId, &Self::destinationNodeIdIs >( "destinationNodeId" ),
         Kiv::field< &Self::sourceTunnelNum, &Self::sourceTunnelNumIs >( "sourceTunnelNum" ),
         Kiv::field< &Self::destinationTunnelNum, &Self::destinationTunnelNumIs >(
            "destinationTunnelNum" ),
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 sourceTunnelNum_;
   Velnet::NetU16 destinationTunnelNum_;
   Velnet::NetU16 flags_;
   Velnet::NetU16 mbz_;
};
static_assert( Kiv::isWireView< LspPingStaticTunnelSubTlv, 28 > );

} // namespace LspPing
