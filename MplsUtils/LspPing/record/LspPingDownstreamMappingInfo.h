#pragma once

#include "MplsUtils/LspPing/platform/Kiv/WholeAssignment.h"
#include "MplsUtils/LspPing/platform/Velnet/IntfId.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/record/LspPingDownstreamLabelStack.h"
#include "MplsUtils/LspPing/record/LspPingFecStackChangeInfo.h"
#include "MplsUtils/LspPing/record/LspPingMultipathBitset.h"
#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"

namespace LspPing {

/// One downstream next hop of a label switched path, RFC 8029 section 3.4: the interface to it,
/// what hashes onto it, the labels it expects and its return code. Only construction and
/// `checkMultipathType()` set the record.
class LSPPING_EXPORT LspPingDownstreamMappingInfo
   : public LspPingRecord< LspPingDownstreamMappingInfo > {
 public:
   LspPingDownstreamMappingInfo() noexcept = default;
   LspPingDownstreamMappingInfo( U16 mtu, U8 addrType, U8 dsFlags,
                                 Velnet::IpGenAddr const & dsIpAddr,
                                 Velnet::IpGenAddr const & dsIntfAddr, U8 multipathType,
                                 U8 depthLimit, Velnet::IpGenAddr const & dsMultipathBaseAddr,
                                 LspPingMultipathBitset const & dsMultipathBitset,
                                 LspPingDownstreamLabelStack const & labelStack,
                                 LspPingFecStackChangeInfo const & fecStackChangeInfo,
                                 Velnet::IntfId intf, LspPingReturnCode retCode, U8 retSubcode,
                                 bool valid );
   /// Ends in the assertion of the bit set, which has no text.
   explicit LspPingDownstreamMappingInfo( Kiv::CharRange & in );
   KIV_WHOLE_ASSIGNMENT( LspPingDownstreamMappingInfo );

   /// Of the downstream link, in bytes.
   U16 mtu() const noexcept { return mtu_; }
   /// LspPingAddrType.
   U8 addrType() const noexcept { return addrType_; }
   U8 dsFlags() const noexcept { return dsFlags_; }
   Velnet::IpGenAddr const & dsIpAddr() const noexcept { return dsIpAddr_; }
   Velnet::IpGenAddr const & dsIntfAddr() const noexcept { return dsIntfAddr_; }
   /// LspPingMultipathType.
   U8 multipathType() const noexcept { return multipathType_; }
   U8 depthLimit() const noexcept { return depthLimit_; }
   Velnet::IpGenAddr const & dsMultipathBaseAddr() const noexcept { return dsMultipathBaseAddr_; }
   LspPingMultipathBitset const & dsMultipathBitset() const noexcept { return dsMultipathBitset_; }
   LspPingDownstreamLabelStack const & labelStack() const noexcept { return labelStack_; }
   LspPingFecStackChangeInfo const & fecStackChangeInfo() const noexcept {
      return fecStackChangeInfo_;
   }
   Velnet::IntfId intf() const noexcept { return intf_; }
   LspPingReturnCode retCode() const noexcept { return retCode_; }
   U8 retSubcode() const noexcept { return retSubcode_; }
   bool valid() const noexcept { return valid_; }

   /// The identifier of `intf`, unchanged.
   Velnet::IntfId intfIndex() const noexcept { return intf_; }
   /// A bit set without any bit set is no multipath: the type becomes 0, and so does the bit set's
   /// size. Its bytes stay.
   void checkMultipathType() noexcept;

   bool operator==( LspPingDownstreamMappingInfo const & other ) const;

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingInfo;
      return Kiv::attributes(
         Kiv::storedReadOnly< &Self::mtu_ >( "mtu" ),
         Kiv::storedReadOnly< &Self::addrType_ >( "addrType" ),
         Kiv::storedReadOnly< &Self::dsFlags_ >( "dsFlags" ),
         Kiv::storedReadOnly< &Self::dsIpAddr_ >( "dsIpAddr" ),
         Kiv::storedReadOnly< &Self::dsIntfAddr_ >( "dsIntfAddr" ),
         Kiv::storedReadOnly< &Self::multipathType_ >( "multipathType" ),
         Kiv::storedReadOnly< &Self::depthLimit_ >( "depthLimit" ),
         Kiv::storedReadOnly< &Self::dsMultipathBaseAddr_ >( "dsMultipathBaseAddr" ),
         Kiv::storedReadOnly< &Self::dsMultipathBitset_ >( "dsMultipathBitset" ),
         Kiv::storedReadOnly< &Self::labelStack_ >( "labelStack" ),
         Kiv::storedReadOnly< &Self::fecStackChangeInfo_ >( "fecStackChangeInfo" ),
         Kiv::storedReadOnly< &Self::intf_ >( "intf" ),
         Kiv::storedReadOnly< &Self::retCode_ >( "retCode" ),
         Kiv::storedReadOnly< &Self::retSubcode_ >( "retSubcode" ),
         Kiv::storedReadOnly< &Self::valid_ >( "valid" ),
         Kiv::computed< &Self::intfIndex >( "intfIndex" ),
         Kiv::operation< &Self::checkMultipathType >( "checkMultipathType" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U16 mtu_ = 0;
   U8 addrType_ = 0;
   U8 dsFlags_ = 0;
   Velnet::IpGenAddr dsIpAddr_;
   Velnet::IpGenAddr dsIntfAddr_;
   U8 multipathType_ = 0;
   U8 depthLimit_ = 0;
   Velnet::IpGenAddr dsMultipathBaseAddr_;
   LspPingMultipathBitset dsMultipathBitset_;
   LspPingDownstreamLabelStack labelStack_;
   LspPingFecStackChangeInfo fecStackChangeInfo_;
   Velnet::IntfId intf_;
   LspPingReturnCode retCode_ = LspPingReturnCode::noRetCode;
   U8 retSubcode_ = 0;
   bool valid_ = false;
};

} // namespace LspPing
