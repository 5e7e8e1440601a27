#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/WholeAssignment.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelStack.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingRecord.h"

namespace LspPing {

/// Where an echo request arrived and with which labels, RFC 8029 section 3.7. Fixed once it is
/// constructed.
class LSPPING_EXPORT LspPingIntfAndLabelStackInfo
   : public LspPingRecord< LspPingIntfAndLabelStackInfo > {
 public:
   LspPingIntfAndLabelStackInfo() noexcept = default;
   LspPingIntfAndLabelStackInfo( U8 addrType, Velnet::IpGenAddr const & addr,
                                 Velnet::IpGenAddr const & intfAddr, U32 intfId,
                                 Velnet::MplsLabelStack const & labelStack, bool valid )
      : addrType_( addrType ),
        addr_( addr ),
        intfAddr_( intfAddr ),
        intfId_( intfId ),
        labelStack_( labelStack ),
        valid_( valid ) {}
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit LspPingIntfAndLabelStackInfo( Kiv::CharRange & in );
   KIV_WHOLE_ASSIGNMENT( LspPingIntfAndLabelStackInfo );

   /// LspPingAddrType.
   U8 addrType() const noexcept { return addrType_; }
   Velnet::IpGenAddr const & addr() const noexcept { return addr_; }
   Velnet::IpGenAddr const & intfAddr() const noexcept { return intfAddr_; }
   /// Index of an unnumbered interface.
   U32 intfId() const noexcept { return intfId_; }
   Velnet::MplsLabelStack const & labelStack() const noexcept { return labelStack_; }
   bool valid() const noexcept { return valid_; }

   bool operator==( LspPingIntfAndLabelStackInfo const & other ) const noexcept;

   static consteval auto kivAttributes() {
      using Self = LspPingIntfAndLabelStackInfo;
      return Kiv::attributes( Kiv::storedReadOnly< &Self::addrType_ >( "addrType" ),
                              Kiv::storedReadOnly< &Self::addr_ >( "addr" ),
                              Kiv::storedReadOnly< &Self::intfAddr_ >( "intfAddr" ),
                              Kiv::storedReadOnly< &Self::intfId_ >( "intfId" ),
                              Kiv::storedReadOnly< &Self::labelStack_ >( "labelStack" ),
                              Kiv::storedReadOnly< &Self::valid_ >( "valid" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 addrType_ = 0;
   Velnet::IpGenAddr addr_;
   Velnet::IpGenAddr intfAddr_;
   U32 intfId_ = 0;
   Velnet::MplsLabelStack labelStack_;
   bool valid_ = false;
};

} // namespace LspPing
