#include "MplsUtils/LspPing/message/LspPingWords.h"

#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/ext/types/LspPingExtMappingTypes.h"
#include "MplsUtils/LspPing/message/LspPingElements.h"
#include "MplsUtils/LspPing/message/LspPingMultipath.h"

#include <array>
#include <chrono>
#include <cstdint>

namespace LspPing {

namespace {

template < class E >
struct Words {
   E value;
   std::string_view words;
};

template < class E, std::size_t n >
constexpr std::string_view wordsOf( std::array< Words< E >, n > const & table, E value ) noexcept {
   for( Words< E > const & row : table )
      if( row.value == value )
         return row.words;
   return {};
}

using Code = LspPingReturnCode;
constexpr auto returnCodes = std::to_array< Words< Code > >( {
   { Code::noRetCode, "no return code" },
   { Code::malFormEchoRequest, "malformed echo request received" },
   { Code::tlvNotUnderstood, "one or more of the TLVs was not understood" },
   { Code::repRouterEgress, "replying router is an egress for the FEC at stack-depth" },
   { Code::noMappingForFec, "replying router has no mapping for the FEC at stack-depth" },
   { Code::dsMappingMismatch, "downstream mapping mismatch" },
   { Code::usIntfUnknown, "upstream interface index unknown" },
   { Code::reservedRetCode, "reserved" },
   { Code::labelSwitchedAtStackDep, "label switched at stack-depth" },
   { Code::labelSwitchedNoMplsFwd, "label switched but no MPLS forwarding at stack-depth" },
   { Code::labelMappingMismatch, "mapping for this FEC is not the given label at stack-depth" },
   { Code::noLabelEntryAtStackDep, "no label entry at stack-depth" },
   { Code::protocolIntfMismatch, "protocol not associated with interface at FEC stack-depth" },
   { Code::premTermination,
     "premature termination of ping due to label stack shrinking to a single label" },
   { Code::seeDdmTlv, "see DDMAP TLV for meaning of return code and return subcode" },
   { Code::lblSwitchedFecChange, "label switched with FEC change" },
} );

using Mode = LspPingReplyMode;
constexpr auto replyModes = std::to_array< Words< Mode > >( {
   { Mode::DontReply, "do not reply" },
   { Mode::ReplyIpUdp, "reply via an IPv4/IPv6 UDP packet" },
   { Mode::ReplyIpUdpRouterAlert, "reply via an IPv4/IPv6 UDP packet with router alert" },
   { Mode::ReplyViaAppCtrlChannel, "reply via application-level control channel" },
} );

constexpr auto messageTypes = std::to_array< Words< LspPingMsgType > >( {
   { LspPingMsgType::MplsEchoRequest, "MPLS echo request" },
   { LspPingMsgType::MplsEchoReply, "MPLS echo reply" },
} );

constexpr auto addressTypes = std::to_array< Words< LspPingAddrType > >( {
   { LspPingAddrType::ipv4Numbered, "IPv4 numbered" },
   { LspPingAddrType::ipv4Unnumbered, "IPv4 unnumbered" },
   { LspPingAddrType::ipv6Numbered, "IPv6 numbered" },
   { LspPingAddrType::ipv6Unnumbered, "IPv6 unnumbered" },
} );

using Multipath = LspPingMultipathType;
constexpr auto multipathTypes = std::to_array< Words< Multipath > >( {
   { Multipath::noMultipath, "no multipath" },
   { Multipath::ipMultipath, "IP address" },
   { Multipath::ipRangeMultipath, "IP address range" },
   { Multipath::maskedIpSetMultipath, "bit-masked IP address set" },
   { Multipath::maskedLabelSetMultipath, "bit-masked label set" },
   { LspPingMultipath::ipAndLabelSet, "IP and label set" },
} );

constexpr auto padTypes = std::to_array< Words< LspPingPadType > >( {
   { LspPingPadType::dropPadding, "drop Pad TLV from reply" },
   { LspPingPadType::copyPadding, "copy Pad TLV to reply" },
} );

using Protocol = LspPingDownstreamSignalingProtocol;
constexpr auto protocols = std::to_array< Words< Protocol > >( {
   { Protocol::dsInfoSignalingProtocolUnknown, "unknown" },
   { Protocol::dsInfoSignalingProtocolStatic, "static" },
   { Protocol::dsInfoSignalingProtocolBgp, "BGP" },
   { Protocol::dsInfoSignalingProtocolLdp, "LDP" },
   { Protocol::dsInfoSignalingProtocolRsvpTe, "RSVP-TE" },
   { Protocol::dsInfoSignalingProtocolOspf, "OSPF" },
   { Protocol::dsInfoSignalingProtocolIsis, "IS-IS" },
} );

using Operation = LspPingFecStackChangeSubTlvOperType;
constexpr auto operations = std::to_array< Words< Operation > >( {
   { Operation::Push, "push" },
   { Operation::Pop, "pop" },
} );

using Tlv = LspPingTlvType;
constexpr auto tlvs = std::to_array< Words< Tlv > >( {
   { Tlv::TargetFecStack, "Target FEC Stack" },
   { Tlv::DownstreamMapping, "Downstream Mapping (deprecated)" },
   { Tlv::Pad, "Pad" },
   { Tlv::VendorEnterpriseNum, "Vendor Enterprise Number" },
   { Tlv::IntfAndLabelStack, "Interface and Label Stack" },
   { Tlv::ErrorTlv, "Errored TLVs" },
   { Tlv::ReplyTosByte, "Reply TOS Byte" },
   { Tlv::P2mpRespId, "P2MP Responder Identifier" },
   { Tlv::DownstreamDetailedMapping, "Downstream Detailed Mapping" },
   { Tlv::VeloraVendorPrivate, "vendor private" },
} );

using Fec = LspPingTargetFecSubTlvType;
constexpr auto fecs = std::to_array< Words< Fec > >( {
   { Fec::LDPIpv4, "LDP IPv4 prefix" },
   { Fec::LDPIpv6, "LDP IPv6 prefix" },
   { Fec::RSVPIpv4Lsp, "RSVP IPv4 LSP" },
   { Fec::RSVPIpv6Lsp, "RSVP IPv6 LSP" },
   { Fec::VPNIpv4, "VPN IPv4 prefix" },
   { Fec::VPNIpv6, "VPN IPv6 prefix" },
   { Fec::L2VPNEndpoint, "L2 VPN endpoint" },
   { Fec::FEC128Pseudowire, "FEC 128 Pseudowire - IPv4" },
   { Fec::FEC129Pseudowire, "FEC 129 Pseudowire - IPv4" },
   { Fec::BGPLabeledIpv4, "BGP labeled IPv4 prefix" },
   { Fec::BGPLabeledIpv6, "BGP labeled IPv6 prefix" },
   { Fec::GenericIpv4, "Generic IPv4 prefix" },
   { Fec::GenericIpv6, "Generic IPv6 prefix" },
   { Fec::NilFec, "Nil FEC" },
   { Fec::RSVPP2MPIpv4, "RSVP P2MP IPv4 Session" },
   { Fec::P2mpFec, "Multicast P2MP LDP FEC Stack" },
   { Fec::EntropyLabel, "Entropy Label FEC" },
   { Fec::SRIpv4, "IPv4 IGP-Prefix Segment ID" },
   { Fec::SRIpv6, "IPv6 IGP-Prefix Segment ID" },
   { Fec::SRIpv4Deprecated, "IPv4 IGP-Prefix Segment ID (deprecated code)" },
   { Fec::SRIpv6Deprecated, "IPv6 IGP-Prefix Segment ID (deprecated code)" },
} );

using SubTlv = LspPingDDMappingSubTlvType;
constexpr auto subTlvs = std::to_array< Words< SubTlv > >( {
   { SubTlv::MultipathData, "Multipath Data" },
   { SubTlv::LabelStack, "Label Stack" },
   { SubTlv::FecStackChange, "FEC Stack Change" },
} );

// What stands beside the class of a code that is not in a table here.
template < class Codes >
std::string_view orOfElement( std::string_view words, Codes code ) noexcept {
   if( words.empty() )
      for( LspPingElementRow const & row : lspPingElements() )
         if( row.facts.context == lspPingContextOf< Codes > &&
             row.code() == static_cast< U32 >( code ) )
            return row.facts.words;
   return words;
}

template < class Flags >
void appendFlags( Orlo::StringBuilder & out, U32 flags ) {
   constexpr auto & letters = lspPingFlagLetters< Flags >;
   lspPingAppendFlags( out, { letters.data(), letters.size() }, flags );
}

} // namespace

std::string_view lspPingWords( LspPingMsgType type ) noexcept {
   return wordsOf( messageTypes, type );
}
std::string_view lspPingWords( LspPingReplyMode mode ) noexcept {
   return wordsOf( replyModes, mode );
}
std::string_view lspPingWords( LspPingReturnCode code ) noexcept {
   return wordsOf( returnCodes, code );
}
std::string_view lspPingWords( LspPingAddrType type ) noexcept {
   return wordsOf( addressTypes, type );
}
std::string_view lspPingWords( LspPingMultipathType type ) noexcept {
   return wordsOf( multipathTypes, type );
}
std::string_view lspPingWords( LspPingPadType type ) noexcept {
   return wordsOf( padTypes, type );
}
std::string_view lspPingWords( LspPingDownstreamSignalingProtocol protocol ) noexcept {
   return wordsOf( protocols, protocol );
}
std::string_view lspPingWords( LspPingFecStackChangeSubTlvOperType operation ) noexcept {
   return wordsOf( operations, operation );
}
std::string_view lspPingWords( LspPingTlvType code ) noexcept {
   return orOfElement( wordsOf( tlvs, code ), code );
}
std::string_view lspPingWords( LspPingTargetFecSubTlvType code ) noexcept {
   return orOfElement( wordsOf( fecs, code ), code );
}
std::string_view lspPingWords( LspPingDDMappingSubTlvType code ) noexcept {
   return orOfElement( wordsOf( subTlvs, code ), code );
}

bool lspPingHasStackDepth( LspPingReturnCode code ) noexcept {
   return lspPingWords( code ).ends_with( "stack-depth" );
}

void appendReturnCode( Orlo::StringBuilder & out, U8 code, U8 subcode ) {
   auto const known = static_cast< LspPingReturnCode >( code );
   std::string_view const words = lspPingWords( known );
   if( words.empty() ) {
      out.append( "return code " );
      out.appendDecimal( code );
   } else {
      out.append( words );
   }
   if( lspPingHasStackDepth( known ) ) {
      out.append( ' ' );
      out.appendDecimal( subcode );
   } else if( subcode != 0 ) {
      out.append( ", subcode " );
      out.appendDecimal( subcode );
   }
}

void appendHeaderFlags( Orlo::StringBuilder & out, U16 flags ) {
   appendFlags< LspPingHeaderFlags >( out, flags );
}

void appendDownstreamFlags( Orlo::StringBuilder & out, U8 flags ) {
   appendFlags< LspPingDownstreamFlags >( out, flags );
}

void appendUtc( Orlo::StringBuilder & out, std::int64_t sinceEpoch, U32 nanoseconds ) {
   using namespace std::chrono;
   constexpr sys_seconds first = sys_days( year( 0 ) / 1 / 1 );
   constexpr sys_seconds last = sys_days( year( 10000 ) / 1 / 1 ) - seconds( 1 );
   sys_seconds const point{ seconds( sinceEpoch ) };
   if( point < first || point > last ) {
      out.append( "out of range" );
      return;
   }
   sys_days const day = floor< days >( point );
   year_month_day const date{ day };
   U32 const second = static_cast< U32 >( ( point - day ).count() );
   char * at = out.room( 30 );
   auto const pair = [&at]( U32 number, char behind ) {
      Orlo::putPair( at, number );
      at[2] = behind;
      at += 3;
   };
   at = Orlo::putDigits( at, static_cast< U32 >( int{ date.year() } ), 4 );
   *at++ = '-';
   pair( unsigned{ date.month() }, '-' );
   pair( unsigned{ date.day() }, 'T' );
   pair( second / 3600, ':' );
   pair( second / 60 % 60, ':' );
   pair( second % 60, '.' );
   at = nanoseconds % 1000 == 0 ? Orlo::putDigits( at, nanoseconds / 1000, 6 )
                                : Orlo::putDigits( at, nanoseconds, 9 );
   *at++ = 'Z';
   out.advanceTo( at );
}

void appendNtpTime( Orlo::StringBuilder & out, NtpTimeU64 const & time ) {
   if( time.seconds() == 0 && time.fractions() == 0 ) {
      out.append( "none" );
      return;
   }
   constexpr std::int64_t toUnixEpoch = 2208988800;
   constexpr std::int64_t era = std::int64_t{ 1 } << 32;
   bool const isNextEra = ( time.seconds() & 0x80000000 ) == 0;
   auto const microseconds = static_cast< U32 >( U64{ time.fractions() } * 1000000 >> 32 );
   appendUtc( out, std::int64_t{ time.seconds() } + ( isNextEra ? era : 0 ) - toUnixEpoch,
              1000 * microseconds );
}

} // namespace LspPing
