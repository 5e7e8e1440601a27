#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"

// TLVs of a few numbers.
namespace LspPing {

// LSR Capability, RFC 8611 section 6: what the sender of the message supports.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 4            |          length = 4           |
// +-------------------------------+-------------------------------+
// |                             flags                             |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingLsrCapabilityTlv
   : public Kiv::Typed< LspPingLsrCapabilityTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::LsrCapability )
                                      .length( 4 )
                                      .inWords( "LSR Capability" )
                                      .definedIn( "RFC 8611 section 6" );

   /// LspPingLsrCapabilityFlags.
   constexpr U32 flags() const noexcept { return flags_.value(); }
   constexpr void flagsIs( U32 flags ) noexcept { flags_.valueIs( flags ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "LsrCapability( flags: D )", or "Invalid LsrCapabilityTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingLsrCapabilityTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::flags, &Self::flagsIs >( "flags" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 flags_;
};
static_assert( Kiv::isWireView< LspPingLsrCapabilityTlv, 8 > );

// Vendor Enterprise Number, RFC 8029 section 3.6: whose the private values in the header are.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 5            |          length = 4           |
// +-------------------------------+-------------------------------+
// |                       enterpriseNumber                        |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingVendorEnterpriseNumberTlv
   : public Kiv::Typed< LspPingVendorEnterpriseNumberTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::VendorEnterpriseNum )
                                      .length( 4 )
                                      .definedIn( "RFC 8029 section 3.6" );

   /// IANA Private Enterprise Number.
   constexpr U32 enterpriseNumber() const noexcept { return enterpriseNumber_.value(); }
   constexpr void enterpriseNumberIs( U32 number ) noexcept { enterpriseNumber_.valueIs( number ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "VendorEnterpriseNumber( 9 )", or "Invalid VendorEnterpriseNumberTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingVendorEnterpriseNumberTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::enterpriseNumber, &Self::enterpriseNumberIs >( "enterpriseNumber" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 enterpriseNumber_;
};
static_assert( Kiv::isWireView< LspPingVendorEnterpriseNumberTlv, 8 > );

// The shape of the Source and Destination ID, RFC 6426 section 2.2: a node by the identifiers of
// RFC 6370 section 4.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 13, 14         |          length = 8           |
// +-------------------------------+-------------------------------+
// |                           globalId                            |
// |                            nodeId                             |
// +---------------------------------------------------------------+
class LspPingNodeIdTlv : public LspPingTlvHdr {
 public:
   /// Of the operator; 0 where the node is known without it.
   constexpr U32 globalId() const noexcept { return globalId_.value(); }
   constexpr void globalIdIs( U32 id ) noexcept { globalId_.valueIs( id ); }
   constexpr U32 nodeId() const noexcept { return nodeId_.value(); }
   constexpr void nodeIdIs( U32 id ) noexcept { nodeId_.valueIs( id ); }

 protected:
   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingNodeIdTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::globalId, &Self::globalIdIs >( "globalId" ),
         Kiv::field< &Self::nodeId, &Self::nodeIdIs >( "nodeId" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Velnet::NetU32 globalId_;
   Velnet::NetU32 nodeId_;
};

// Source ID, RFC 6426 section 2.2.1.
class LSPPING_EXT_EXPORT LspPingSourceIdTlv
   : public Kiv::Typed< LspPingSourceIdTlv, LspPingNodeIdTlv > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::SourceId )
                                      .length( 8 )
                                      .inWords( "Source ID" )
                                      .definedIn( "RFC 6426 section 2.2.1" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "SourceId( global: 1, node: 2 )", or "Invalid SourceIdTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingSourceIdTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingSourceIdTlv, 12 > );

// Destination ID, RFC 6426 section 2.2.2.
class LSPPING_EXT_EXPORT LspPingDestinationIdTlv
   : public Kiv::Typed< LspPingDestinationIdTlv, LspPingNodeIdTlv > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::DestinationId )
                                      .length( 8 )
                                      .inWords( "Destination ID" )
                                      .definedIn( "RFC 6426 section 2.2.2" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "DestinationId( global: 1, node: 2 )", or "Invalid DestinationIdTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingDestinationIdTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingDestinationIdTlv, 12 > );

// BFD Discriminator, RFC 5884 section 6.1: of the session that the sender wants to have on the LSP.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 15           |          length = 4           |
// +-------------------------------+-------------------------------+
// |                         discriminator                         |
// +---------------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingBfdDiscriminatorTlv
   : public Kiv::Typed< LspPingBfdDiscriminatorTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::BfdDiscriminator )
                                      .length( 4 )
                                      .inWords( "BFD Discriminator" )
                                      .definedIn( "RFC 5884 section 6.1" );

   /// The local one of the message's sender.
   constexpr U32 discriminator() const noexcept { return discriminator_.value(); }
   constexpr void discriminatorIs( U32 number ) noexcept { discriminator_.valueIs( number ); }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "BfdDiscriminator( 7 )", or "Invalid BfdDiscriminatorTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingBfdDiscriminatorTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::discriminator, &Self::discriminatorIs >( "discriminator" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 discriminator_;
};
static_assert( Kiv::isWireView< LspPingBfdDiscriminatorTlv, 8 > );

// Reply TC, RFC 7110 section 4.4: the traffic class that the reply's labels shall have.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 22           |          length = 4           |
// +-----+-------------------------+-------------------------------+
// | tc  |                          mbz                            |
// +-----+---------------------------------------------------------+
class LSPPING_EXT_EXPORT LspPingReplyTcTlv : public Kiv::Typed< LspPingReplyTcTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingExtTlvType::ReplyTc )
                                      .length( 4 )
                                      .inWords( "Reply TC" )
                                      .definedIn( "RFC 7110 section 4.4" );

   constexpr U8 tc() const noexcept { return static_cast< U8 >( word_.value() >> mbzBits ); }
   /// Keeps the must-be-zero bits; bits of the value above the third are dropped.
   constexpr void tcIs( U8 tc ) noexcept {
      word_.valueIs( ( word_.value() & mbzMask ) | U32{ tc } << mbzBits );
   }
   constexpr U32 mbz() const noexcept { return word_.value() & mbzMask; }
   /// Keeps the traffic class; bits of the value above the 29th are dropped.
   constexpr void mbzIs( U32 value ) noexcept {
      word_.valueIs( ( word_.value() & ~mbzMask ) | ( value & mbzMask ) );
   }

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "ReplyTc( 5 )", or "Invalid ReplyTcTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingReplyTcTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::tc, &Self::tcIs >( "tc" ),
         Kiv::field< &Self::mbz, &Self::mbzIs >( "mbz" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   static constexpr unsigned mbzBits = 29;
   static constexpr U32 mbzMask = 0x1fffffff;

   Velnet::NetU32 word_;
};
static_assert( Kiv::isWireView< LspPingReplyTcTlv, 8 > );

} // namespace LspPing
