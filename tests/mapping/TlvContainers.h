#pragma once

#include "MplsUtils/LspPing/mapping/LspPingDownstreamMappingTlvContainer.h"
#include "MplsUtils/LspPing/mapping/LspPingIntfAndLabelStackTlvContainer.h"
#include "tests/Addresses.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <string_view>

// Values of the TLVs with an address type, and what their containers must make of them. All four
// have the address 10.0.0.2 or 2001:db8::2, and a numbered interface 10.0.0.1 or 2001:db8::1.

struct DownstreamMapping {
   using Container = LspPing::LspPingDownstreamMappingTlvContainer;
   using Header = LspPing::LspPingDownstreamMappingHdr;
   using Ipv4 = LspPing::LspPingDownstreamMappingIpv4Tlv;
   using Ipv6 = LspPing::LspPingDownstreamMappingIpv6Tlv;
   using Ipv4Unnumbered = LspPing::LspPingDownstreamMappingIpv4UnnumberedTlv;
   using Ipv6Unnumbered = LspPing::LspPingDownstreamMappingIpv6UnnumberedTlv;

   static constexpr std::string_view numbered4 = "05 dc 01 03 0a 00 00 02 0a 00 00 01 08 09 00 08";
   static constexpr std::string_view unnumbered4 =
      "05 dc 02 03 0a 00 00 02 00 00 01 00 08 09 00 08";
   static constexpr std::string_view numbered6 =
      "23 28 03 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 20 01 0d b8 00 00 00 00 00 00 "
      "00 00 00 00 00 01 02 07 01 00";
   static constexpr std::string_view unnumbered6 =
      "23 28 04 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 00 00 00 07 04 05 01 00";
   static constexpr U32 index4 = 256; // of the unnumbered interfaces
   static constexpr U32 index6 = 7;
   static constexpr std::string_view header = "05 dc 00 03"; // the address type to be set
   static constexpr U32 addrTypeAt = 2;
   static constexpr U32 sizeOfIpv4 = 16;
   static constexpr U32 sizeOfIpv6 = 40;
   static constexpr U32 sizeOfIpv6Unnumbered = 28;
   static constexpr bool takesUnknownAddrTypes = true;

   static constexpr std::string_view name = "LspPing::LspPingDownstreamMappingTlvContainer";
   static constexpr U16 place = 39;
   static constexpr U16 validId = 141; // behind the getters
   static inline Lines const ofHeader{ "getMtu", "getAddrType", "getDsFlags" };
   static inline Lines const ofUnknown{ "getMtu", "getAddrType", "getDsFlags", "getDsIntfAddr",
                                        "getDsIntfId" };
   static inline Lines const withoutNumberedView{ "isIpv4", "getMtu", "getAddrType", "getDsFlags",
                                                  "getDsIntfId" };
   static inline Lines const withoutUnnumberedView{ "isIpv4", "getMtu", "getAddrType", "getDsFlags",
                                                    "getDsIntfAddr" };
   static inline Lines const ofAny{
      "isIpv4",        "getMtu",      "getAddrType",      "getDsFlags",    "getDsIpAddr",
      "getDsIntfAddr", "getDsIntfId", "getMultipathType", "getDepthLimit", "getMultipathLength"
   };

   static Orlo::Ptr< Container > make() {
      return LspPing::lspPingDownstreamMappingTlvContainerFactory();
   }
   static Orlo::Ptr< Container > makeInClass() {
      return Container::LspPingDownstreamMappingTlvContainerIs();
   }
   static Velnet::IpGenAddr addr( Container const & container ) { return container.getDsIpAddr(); }
   static Velnet::IpGenAddr intfAddr( Container const & container ) {
      return container.getDsIntfAddr();
   }
   static Velnet::IntfId intfId( Container const & container ) { return container.getDsIntfId(); }
   static Velnet::IntfId intfIdOf( U32 index ) { return Velnet::IntfId( index ); }
   static Velnet::IntfId noIntfId() { return {}; }
};

struct IntfAndLabelStack {
   using Container = LspPing::LspPingIntfAndLabelStackTlvContainer;
   using Header = LspPing::LspPingIntfAndLabelStackHdr;
   using Ipv4 = LspPing::LspPingIntfAndLabelStackIpv4Tlv;
   using Ipv6 = LspPing::LspPingIntfAndLabelStackIpv6Tlv;
   using Ipv4Unnumbered = LspPing::LspPingIntfAndLabelStackIpv4UnnumberedTlv;
   using Ipv6Unnumbered = LspPing::LspPingIntfAndLabelStackIpv6UnnumberedTlv;

   static constexpr std::string_view numbered4 = "01 00 00 00 0a 00 00 02 0a 00 00 01";
   static constexpr std::string_view unnumbered4 = "02 00 00 00 0a 00 00 02 00 00 00 07";
   static constexpr std::string_view numbered6 =
      "03 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 20 01 0d b8 00 00 00 00 00 00 "
      "00 00 00 00 00 01";
   static constexpr std::string_view unnumbered6 =
      "04 00 00 00 20 01 0d b8 00 00 00 00 00 00 00 00 00 00 00 02 00 00 01 00";
   static constexpr U32 index4 = 7; // of the unnumbered interfaces
   static constexpr U32 index6 = 256;
   static constexpr std::string_view header = "00 00 00 00"; // the address type to be set
   static constexpr U32 addrTypeAt = 0;
   static constexpr U32 sizeOfIpv4 = 12;
   static constexpr U32 sizeOfIpv6 = 36;
   static constexpr U32 sizeOfIpv6Unnumbered = 24;
   static constexpr bool takesUnknownAddrTypes = false;

   static constexpr std::string_view name = "LspPing::LspPingIntfAndLabelStackTlvContainer";
   static constexpr U16 place = 32;
   static constexpr U16 validId = 136; // behind the getters
   static inline Lines const ofHeader{ "getAddrType" };
   static inline Lines const ofUnknown{ "getAddrType", "getIntfAddr", "getIntfId" };
   static inline Lines const withoutNumberedView{ "isIpv4", "getAddrType", "getIntfId" };
   static inline Lines const withoutUnnumberedView{ "isIpv4", "getAddrType", "getIntfAddr" };
   static inline Lines const ofAny{ "isIpv4", "getAddrType", "getAddr", "getIntfAddr",
                                    "getIntfId" };

   static Orlo::Ptr< Container > make() {
      return LspPing::lspPingIntfAndLabelStackTlvContainerFactory();
   }
   static Orlo::Ptr< Container > makeInClass() {
      return Container::LspPingIntfAndLabelStackTlvContainerIs();
   }
   static Velnet::IpGenAddr addr( Container const & container ) { return container.getAddr(); }
   static Velnet::IpGenAddr intfAddr( Container const & container ) {
      return container.getIntfAddr();
   }
   static U32 intfId( Container const & container ) { return container.getIntfId(); }
   static U32 intfIdOf( U32 index ) { return index; }
   static U32 noIntfId() { return 0; }
};

template < class Tlv >
Orlo::Ptr< typename Tlv::Container > castTo( WireBytes const & bytes ) {
   auto container = Tlv::make();
   container->tryCastToTlv( bytes.data(), bytes.size() );
   return container;
}
