#pragma once

#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/mapping/LspPingDdmapTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlv.h"

// The mappings of an LSP without IP, RFC 6426 section 2.1.1: the interfaces have numbers and no
// addresses.
namespace LspPing {

// RFC 6426 states 12 bytes, and draws 16.
inline constexpr std::size_t lspPingNonIpSize = 16;
inline constexpr int lspPingNonIpStatedMore = -4;
inline constexpr std::string_view lspPingNonIpReading = "length short by 4, RFC 6426 section 2.1";

// Downstream Detailed Mapping of address type 5.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 20           |            length             |
// +-------------------------------+---------------+---------------+
// |              mtu              | addrType = 5  |    dsFlags    |
// +-------------------------------+---------------+---------------+
// |                         ingressIfNum                          |
// |                          egressIfNum                          |
// +---------------+---------------+-------------------------------+
// |    retCode    |  retSubcode   |           subTlvLen           |
// +---------------+---------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingDdmapNonIpTlv
   : public Kiv::Typed< LspPingDdmapNonIpTlv, LspPingDdmapHdr > {
 public:
   static constexpr auto element = LspPingDdmapHdr::element.when( LspPingExtAddrType::nonIp )
                                      .atLeast( lspPingNonIpSize )
                                      .orStated( lspPingNonIpStatedMore, lspPingNonIpReading )
                                      .followedBy( LspPingBehind::subTlvs )
                                      .definedIn( "RFC 6426 section 2.1.1" );

   /// IF_Num of RFC 6370; 0 where there is none.
   constexpr U32 ingressIfNum() const noexcept { return ingressIfNum_.value(); }
   constexpr void ingressIfNumIs( U32 number ) noexcept { ingressIfNum_.valueIs( number ); }
   constexpr U32 egressIfNum() const noexcept { return egressIfNum_.value(); }
   constexpr void egressIfNumIs( U32 number ) noexcept { egressIfNum_.valueIs( number ); }
   /// LspPingReturnCode for this downstream.
   constexpr U8 retCode() const noexcept { return retCode_; }
   constexpr void retCodeIs( U8 code ) noexcept { retCode_ = code; }
   constexpr U8 retSubcode() const noexcept { return retSubcode_; }
   constexpr void retSubcodeIs( U8 subcode ) noexcept { retSubcode_ = subcode; }
   /// Bytes of all the sub-TLVs that follow.
   constexpr U16 subTlvLen() const noexcept { return subTlvLen_.value(); }
   constexpr void subTlvLenIs( U16 length ) noexcept { subTlvLen_.valueIs( length ); }

   /// Looks at the type only. Whoever lays the view has looked at `addrType`.
   constexpr bool valid() const noexcept { return element.hasCode( type() ); }
   /// "DDMAPNonIpTlv( Ingress Interface: 7, Egress Interface: 8, RetCode: 15, RetSubCode: 1 )", or
   /// "Invalid LspPingDdmapNonIpTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingDdmapNonIpTlv;
      return Kiv::attributesAfter< LspPingDdmapHdr >(
         Kiv::field< &Self::ingressIfNum, &Self::ingressIfNumIs >( "ingressIfNum" ),
         Kiv::field< &Self::egressIfNum, &Self::egressIfNumIs >( "egressIfNum" ),
         Kiv::field< &Self::retCode, &Self::retCodeIs >( "retCode" ),
         Kiv::field< &Self::retSubcode, &Self::retSubcodeIs >( "retSubcode" ),
         Kiv::field< &Self::subTlvLen, &Self::subTlvLenIs >( "subTlvLen" ),
         Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 ingressIfNum_;
   Velnet::NetU32 egressIfNum_;
   U8 retCode_ = 0;
   U8 retSubcode_ = 0;
   Velnet::NetU16 subTlvLen_;
};
static_assert( Kiv::isWireView< LspPingDdmapNonIpTlv, 20 > );

// Downstream Mapping of address type 5, laid over the value like the others.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+---------------+---------------+
// |              mtu              | addrType = 5  |    dsFlags    |
// +-------------------------------+---------------+---------------+
// |                         ingressIfNum                          |
// |                          egressIfNum                          |
// +---------------+---------------+-------------------------------+
// | multipathType |  depthLimit   |        multipathLength        |
// +---------------+---------------+-------------------------------+
class LSPPING_EXT_EXPORT LspPingDownstreamMappingNonIpTlv
   : public Kiv::Typed< LspPingDownstreamMappingNonIpTlv, LspPingDownstreamMappingHdr > {
 public:
   static constexpr auto element =
      LspPingDownstreamMappingHdr::element.when( LspPingExtAddrType::nonIp )
         .atLeast( lspPingNonIpSize )
         .orStated( lspPingNonIpStatedMore, lspPingNonIpReading )
         .followedBy( LspPingBehind::mappingLabels )
         .definedIn( "RFC 6426 section 2.1.1" );

   /// IF_Num of RFC 6370; 0 where there is none.
   constexpr U32 ingressIfNum() const noexcept { return ingressIfNum_.value(); }
   constexpr void ingressIfNumIs( U32 number ) noexcept { ingressIfNum_.valueIs( number ); }
   constexpr U32 egressIfNum() const noexcept { return egressIfNum_.value(); }
   constexpr void egressIfNumIs( U32 number ) noexcept { egressIfNum_.valueIs( number ); }
   /// LspPingMultipathType.
   constexpr U8 multipathType() const noexcept { return multipathType_; }
   constexpr void multipathTypeIs( U8 type ) noexcept { multipathType_ = type; }
   /// How many labels of a stack count for the choice of a path; 0 is no limit.
   constexpr U8 depthLimit() const noexcept { return depthLimit_; }
   constexpr void depthLimitIs( U8 limit ) noexcept { depthLimit_ = limit; }
   /// Bytes of the multipath information that follows.
   constexpr U16 multipathLength() const noexcept { return multipathLength_.value(); }
   constexpr void multipathLengthIs( U16 length ) noexcept { multipathLength_.valueIs( length ); }

   /// "DownstreamMappingNonIpTlv( Ingress Interface: 7, Egress Interface: 8, MultipathType: 0,
   /// DepthLimit: 0 )".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingNonIpTlv;
      return Kiv::attributesAfter< LspPingDownstreamMappingHdr >(
         Kiv::field< &Self::ingressIfNum, &Self::ingressIfNumIs >( "ingressIfNum" ),
         Kiv::field< &Self::egressIfNum, &Self::egressIfNumIs >( "egressIfNum" ),
         Kiv::field< &Self::multipathType, &Self::multipathTypeIs >( "multipathType" ),
         Kiv::field< &Self::depthLimit, &Self::depthLimitIs >( "depthLimit" ),
         Kiv::field< &Self::multipathLength, &Self::multipathLengthIs >( "multipathLength" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU32 ingressIfNum_;
   Velnet::NetU32 egressIfNum_;
   U8 multipathType_ = 0;
   U8 depthLimit_ = 0;
   Velnet::NetU16 multipathLength_;
};
static_assert( Kiv::isWireView< LspPingDownstreamMappingNonIpTlv, 16 > );

} // namespace LspPing
