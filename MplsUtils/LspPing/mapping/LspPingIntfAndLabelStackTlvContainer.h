#pragma once

#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingTlvContainer.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"

namespace LspPing {

/// The value of an Interface and Label Stack TLV, whatever its address type. The getters assert
/// what their comments require; whether the view that they read was set by the latest cast is the
/// caller's to know.
class LSPPING_EXPORT LspPingIntfAndLabelStackTlvContainer
   : public LspPingTlvContainer< LspPingIntfAndLabelStackHdr, LspPingIntfAndLabelStackIpv4Tlv,
                                 LspPingIntfAndLabelStackIpv6Tlv,
                                 LspPingIntfAndLabelStackIpv4UnnumberedTlv,
                                 LspPingIntfAndLabelStackIpv6UnnumberedTlv >,
     public VelSlab::Allocated< LspPingIntfAndLabelStackTlvContainer > {
 public:
   LspPingIntfAndLabelStackTlvContainer() noexcept;
   /// The same as the factory.
   static Orlo::Ptr< LspPingIntfAndLabelStackTlvContainer >
   LspPingIntfAndLabelStackTlvContainerIs();

   /// Takes the `len` bytes behind the TLV header, which must outlive the container's use of them.
   /// Valid if the address type is known and its fixed part is there.
   void tryCastToTlv( U8 * value, U32 len ) noexcept;

   /// Of a valid container with a known address type.
   bool isIpv4() const;
   /// Of a valid container with a known address type.
   Velnet::IpGenAddr getAddr() const;
   /// Of any valid container; no family unless the interface is numbered.
   Velnet::IpGenAddr getIntfAddr() const;
   /// Of any valid container; 0 unless the interface is unnumbered.
   U32 getIntfId() const;

   Kiv::TypeRef typeData() const override;

   static consteval auto kivAttributes() {
      using Self = LspPingIntfAndLabelStackTlvContainer;
      return attributesWithState(
         Kiv::operation< &Self::tryCastToTlv >( "tryCastToTlv", "value, len" ),
         Kiv::guarded< &Self::familyReadable >( Kiv::computed< &Self::isIpv4 >( "isIpv4" ) ),
         Kiv::guarded< &Self::headerReadable >(
            Kiv::computed< &Self::getAddrType >( "getAddrType" ) ),
         Kiv::guarded< &Self::viewReadable >( Kiv::computed< &Self::getAddr >( "getAddr" ) ),
         Kiv::guarded< &Self::intfAddrReadable >(
            Kiv::computed< &Self::getIntfAddr >( "getIntfAddr" ) ),
         Kiv::guarded< &Self::intfIdReadable >(
            Kiv::computed< &Self::getIntfId >( "getIntfId" ) ) );
   }
   static Orlo::Ptr< LspPingIntfAndLabelStackTlvContainer > kivCreate() {
      return LspPingIntfAndLabelStackTlvContainerIs();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};

/// A new container without a value; the only reference to it.
LSPPING_EXPORT Orlo::Ptr< LspPingIntfAndLabelStackTlvContainer >
lspPingIntfAndLabelStackTlvContainerFactory();

} // namespace LspPing
