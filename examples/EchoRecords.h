#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"

#include <optional>
#include <span>
#include <string_view>

// From the views over a message to the records that an agent keeps: an example to copy. It shows
// which attribute each field of the wire goes to, on the library's public headers alone.
namespace EchoRecords {

/// An element: its header of type and length, its value and, where there is some, its padding. Each
/// function below takes it from someone who checked that header and value are there.
using Bytes = std::span< U8 const >;

/// What became of an element: `isKept` when its record was written, which else is left alone, and
/// in words what the record has no place for (or why it was not written). Empty where nothing is
/// lost.
struct Kept {
   bool isKept = false;
   std::string_view lost;
};

/// Takes the first TLV or sub-TLV off `left`. Empty at the end, and where the next one does not
/// fit: nothing is left then, as nobody knows where another begins.
Bytes takeElement( Bytes & left ) noexcept;

/// The value without header and padding; empty too if it is not all there.
Bytes valueOf( Bytes element ) noexcept;

/// A FEC of the Target FEC Stack, RFC 8029 section 3.2. What its kind does not have keeps its
/// default.
Kept fecInfo( Bytes subTlv, LspPing::LspPingFecInfo & info );

/// A downstream mapping while it is put together: the record itself is fixed once it is
/// constructed.
struct Mapping {
   U16 mtu = 0;
   U8 addrType = 0;
   U8 dsFlags = 0;
   Velnet::IpGenAddr dsIpAddr;
   Velnet::IpGenAddr dsIntfAddr;
   U8 multipathType = 0;
   U8 depthLimit = 0;
   Velnet::IpGenAddr dsMultipathBaseAddr;
   LspPing::LspPingMultipathBitset dsMultipathBitset;
   LspPing::LspPingDownstreamLabelStack labelStack;
   LspPing::LspPingFecStack popped;
   LspPing::LspPingFecStack pushed;
   Velnet::IntfId intf;
   LspPing::LspPingReturnCode retCode = LspPing::LspPingReturnCode::noRetCode;
   U8 retSubcode = 0;

   LspPing::LspPingDownstreamMappingInfo record() const;
};

/// Whether the addresses of this multipath information take 16 bytes (RFC 8029 section 3.4.1.1.1:
/// in IPv6 they are IPv4-mapped). It is not said that their family is the mapping's own, and
/// addresses of 127/8 are seen in mappings of IPv6.
bool hasIpv6Addresses( U8 multipathType, Bytes information, bool isMappingIpv6 ) noexcept;

/// A whole Downstream Mapping TLV, RFC 8029 appendix A.2. Of the multipath information only the
/// sets have a place in the record: a base address (of a set of addresses) and the bits.
Kept downstreamMapping( Bytes tlv, Mapping & mapping );

/// The fixed part of a Downstream Detailed Mapping TLV, RFC 8029 section 3.4.
Kept detailedMapping( Bytes tlv, Mapping & mapping );
/// The bytes behind that part, as many as it says; empty if they are not all there.
Bytes subTlvsOf( Bytes tlv ) noexcept;
/// One of the sub-TLVs: Multipath Data, Label Stack or FEC Stack Change. Of the latter there can be
/// several; their FECs are numbered from 0 in the order in which they come.
Kept mappingSubTlv( Bytes subTlv, Mapping & mapping );

/// An Interface and Label Stack TLV, RFC 8029 section 3.7.
Kept intfAndLabelStack( Bytes tlv, LspPing::LspPingIntfAndLabelStackInfo & info );

/// A Pad TLV, RFC 8029 section 3.5. The record's length is the one that the TLV tells.
Kept padInfo( Bytes tlv, LspPing::LspPingPadInfo & info );

/// What a message leaves behind; empty where it has no such element.
struct Records {
   std::optional< LspPing::LspPingFecStack > fecStack;
   std::optional< LspPing::LspPingDownstreamMappingInfoSet > downstreamMappings;
   std::optional< LspPing::LspPingIntfAndLabelStackInfo > intfAndLabelStack;
   std::optional< LspPing::LspPingPadInfo > pad;

   /// A FEC that is not kept leaves its position, counted from 0, free.
   Kept addFec( std::size_t position, Bytes subTlv );
   /// All mappings of the set come from TLVs of the first one's kind. The next free index is taken,
   /// from 0; behind 255 there is none.
   Kept addMapping( LspPing::LspPingDownstreamMappingType kind, Mapping const & mapping );
   /// A TLV other than those that consist of sub-TLVs; nothing is lost of one that has no record.
   /// Of each kind that a message has once, the first one counts.
   Kept addTlv( Bytes tlv );
};

} // namespace EchoRecords
