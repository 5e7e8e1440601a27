#pragma once

#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlv.h"
#include "MplsUtils/LspPing/mapping/LspPingTlvContainer.h"
#include "MplsUtils/LspPing/platform/Orlo/Ptr.h"
#include "MplsUtils/LspPing/platform/VelSlab/Slab.h"
#include "MplsUtils/LspPing/platform/Velnet/IntfId.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"

namespace LspPing {

/// The value of a Downstream Mapping TLV, whatever its address type. The getters assert what their
/// comments require; whether the view that they read was set by the latest cast is the caller's to
/// know.
class LSPPING_EXPORT LspPingDownstreamMappingTlvContainer
   : public LspPingTlvContainer< LspPingDownstreamMappingHdr, LspPingDownstreamMappingIpv4Tlv,
                                 LspPingDownstreamMappingIpv6Tlv,
                                 LspPingDownstreamMappingIpv4UnnumberedTlv,
                                 LspPingDownstreamMappingIpv6UnnumberedTlv >,
     public VelSlab::Allocated< LspPingDownstreamMappingTlvContainer > {
 public:
   LspPingDownstreamMappingTlvContainer() noexcept;
   /// The same as the factory.
   static Orlo::Ptr< LspPingDownstreamMappingTlvContainer >
   LspPingDownstreamMappingTlvContainerIs();

   /// Takes the `len` bytes behind the TLV header, which must outlive the container's use of them.
   /// Valid if the fixed part of their address type is there. An unknown address type is valid too:
   /// then only the header and what needs no view can be asked.
   void tryCastToTlv( U8 * value, U32 len ) noexcept;

   /// Of a valid container with a known address type.
   bool isIpv4() const;

   // Of any container that has a header.
   Velnet::NetU16 getMtu() const noexcept { return header()->mtu(); }
   U8 getDsFlags() const noexcept { return header()->dsFlags(); }

   // Of a valid container with a known address type.
   Velnet::IpGenAddr getDsIpAddr() const;
   U8 getMultipathType() const;
   U8 getDepthLimit() const;
   Velnet::NetU16 getMultipathLength() const;

   // Of any valid container.
   /// No family unless the interface is numbered.
   Velnet::IpGenAddr getDsIntfAddr() const;
   /// None unless the interface is unnumbered.
   Velnet::IntfId getDsIntfId() const;

   Kiv::TypeRef typeData() const override;

   static consteval auto kivAttributes() {
      using Self = LspPingDownstreamMappingTlvContainer;
      return attributesWithState(
         Kiv::operation< &Self::tryCastToTlv >( "tryCastToTlv", "value, len" ),
         Kiv::guarded< &Self::familyReadable >( Kiv::computed< &Self::isIpv4 >( "isIpv4" ) ),
         Kiv::guarded< &Self::headerReadable >( Kiv::computed< &Self::getMtu >( "getMtu" ) ),
         Kiv::guarded< &Self::headerReadable >(
            Kiv::computed< &Self::getAddrType >( "getAddrType" ) ),
         Kiv::guarded< &Self::headerReadable >(
            Kiv::computed< &Self::getDsFlags >( "getDsFlags" ) ),
         Kiv::guarded< &Self::viewReadable >(
            Kiv::computed< &Self::getDsIpAddr >( "getDsIpAddr" ) ),
         Kiv::guarded< &Self::intfAddrReadable >(
            Kiv::computed< &Self::getDsIntfAddr >( "getDsIntfAddr" ) ),
         Kiv::guarded< &Self::intfIdReadable >(
            Kiv::computed< &Self::getDsIntfId >( "getDsIntfId" ) ),
         Kiv::guarded< &Self::viewReadable >(
            Kiv::computed< &Self::getMultipathType >( "getMultipathType" ) ),
         Kiv::guarded< &Self::viewReadable >(
            Kiv::computed< &Self::getDepthLimit >( "getDepthLimit" ) ),
         Kiv::guarded< &Self::viewReadable >(
            Kiv::computed< &Self::getMultipathLength >( "getMultipathLength" ) ) );
   }
   static Orlo::Ptr< LspPingDownstreamMappingTlvContainer > kivCreate() {
      return LspPingDownstreamMappingTlvContainerIs();
   }
   static Kiv::AllocationTracker memAllocationTracker_;
};

/// A new container without a value; the only reference to it.
LSPPING_EXPORT Orlo::Ptr< LspPingDownstreamMappingTlvContainer >
lspPingDownstreamMappingTlvContainerFactory();

} // namespace LspPing
