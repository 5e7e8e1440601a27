#include "MplsUtils/LspPing/message/LspPingWords.h"

#include "MplsUtils/LspPing/ext/LspPingExt.h"
#include "MplsUtils/LspPing/ext/LspPingFlagText.h"
#include "MplsUtils/LspPing/message/LspPingElements.h"
#include "MplsUtils/LspPing/message/LspPingMultipath.h"

#include <array>
#include <chrono>
#include <cstdint>

namespace LspPing {

namespace {

// Of an enumerator, be it one of module LspPingTypes or of those that module LspPingExt adds.
struct Words {
   template < class E >
   constexpr Words( E code, std::string_view text ) noexcept
      : value( static_cast< U32 >( code ) ),
        words( text ) {}

   U32 value;
   std::string_view words;
};

template < std::size_t n, class E >
constexpr std::string_view wordsOf( std::array< Words, n > const & table, E value ) noexcept {
   for( Words const & row : table )
      if( row.value == static_cast< U32 >( value ) )
         return row.words;
   return {};
}

using Code = LspPingReturnCode;
using More = LspPingExtReturnCode;
constexpr auto returnCodes = std::to_array< Words >( {
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
   { More::proxyNotAuthorized, "proxy ping not authorized" },
   { More::proxyParamsNeedChange, "proxy ping parameters need to be modified" },
   { More::echoRequestNotSent, "MPLS echo request could not be sent" },
   { More::hasMappingForTopmostFec, "replying router has FEC mapping for topmost FEC" },
   { More::tlvsNotReturnedMtu, "one or more TLVs not returned due to MTU size" },
   { More::bfdVersionUnsupported, "OAM problem: unsupported BFD version" },
   { More::bfdEncapsulationUnsupported, "OAM problem: unsupported BFD encapsulation format" },
   { More::bfdAuthTypeUnsupported, "OAM problem: unsupported BFD authentication type" },
   { More::bfdAuthKeyMismatch, "OAM problem: mismatch of BFD authentication key ID" },
   { More::timestampFormatUnsupported, "OAM problem: unsupported timestamp format" },
   { More::delayModeUnsupported, "OAM problem: unsupported delay mode" },
   { More::lossModeUnsupported, "OAM problem: unsupported loss mode" },
   { More::delayVariationUnsupported, "OAM problem: delay variation unsupported" },
   { More::dyadicModeUnsupported, "OAM problem: dyadic mode unsupported" },
   { More::loopbackModeUnsupported, "OAM problem: loopback mode unsupported" },
   { More::combinedModeUnsupported, "OAM problem: combined mode unsupported" },
   { More::faultSignalingUnsupported, "OAM problem: fault management signaling unsupported" },
   { More::faultAssociationNotCreated,
     "OAM problem: unable to create fault management association" },
   { More::pmConfigurationError, "OAM problem: PM configuration error" },
   { More::fecNotOfIncomingIntf,
     "mapping for this FEC is not associated with the incoming interface" },
   { More::repRouterEgressForAddress, "replying router is an egress for the address in the Egress "
                                      "TLV for the FEC at stack-depth" },
   { More::egressBumDropped, "replying router is egress for the FEC, and drops BUM packets because "
                             "of split horizon group filtering" },
   { More::egressBumForwarded, "replying router is egress for the FEC, and forwards BUM packets "
                               "because there is no such Ethernet segment" },
   { More::inappropriateFec, "inappropriate Target FEC Stack sub-TLV present" },
   { More::reversePathNotFound,
     "failed to establish the BFD session: the specified reverse path was not found" },
} );

using Mode = LspPingReplyMode;
constexpr auto replyModes = std::to_array< Words >( {
   { Mode::DontReply, "do not reply" },
   { Mode::ReplyIpUdp, "reply via an IPv4/IPv6 UDP packet" },
   { Mode::ReplyIpUdpRouterAlert,
     "reply via an IPv4/IPv6 UDP packet with router alert (deprecated)" },
   { Mode::ReplyViaAppCtrlChannel, "reply via application-level control channel" },
   { LspPingExtReplyMode::ReplyViaSpecifiedPath, "reply via specified path" },
} );

constexpr auto messageTypes = std::to_array< Words >( {
   { LspPingMsgType::MplsEchoRequest, "MPLS echo request" },
   { LspPingMsgType::MplsEchoReply, "MPLS echo reply" },
   { LspPingExtMsgType::MplsProxyPingRequest, "MPLS proxy ping request" },
   { LspPingExtMsgType::MplsProxyPingReply, "MPLS proxy ping reply" },
   { LspPingExtMsgType::MplsRelayedEchoReply, "MPLS relayed echo reply" },
} );

constexpr auto addressTypes = std::to_array< Words >( {
   { LspPingAddrType::ipv4Numbered, "IPv4 numbered" },
   { LspPingAddrType::ipv4Unnumbered, "IPv4 unnumbered" },
   { LspPingAddrType::ipv6Numbered, "IPv6 numbered" },
   { LspPingAddrType::ipv6Unnumbered, "IPv6 unnumbered" },
   { LspPingExtAddrType::noAddress, "no address" },
   { LspPingExtAddrType::nonIp, "non-IP" },
   { LspPingExtAddrType::ipv4ProtocolAdj, "IPv4 protocol adjacency" },
   { LspPingExtAddrType::ipv6ProtocolAdj, "IPv6 protocol adjacency" },
} );

using Multipath = LspPingMultipathType;
constexpr auto multipathTypes = std::to_array< Words >( {
   { Multipath::noMultipath, "no multipath" },
   { Multipath::ipMultipath, "IP address" },
   { Multipath::ipRangeMultipath, "IP address range" },
   { Multipath::maskedIpSetMultipath, "bit-masked IP address set" },
   { Multipath::maskedLabelSetMultipath, "bit-masked label set" },
   { LspPingExtMultipathType::ipAndLabelSetMultipath, "IP and label set" },
} );

constexpr auto padTypes = std::to_array< Words >( {
   { LspPingPadType::dropPadding, "drop Pad TLV from reply" },
   { LspPingPadType::copyPadding, "copy Pad TLV to reply" },
} );

using Protocol = LspPingDownstreamSignalingProtocol;
constexpr auto protocols = std::to_array< Words >( {
   { Protocol::dsInfoSignalingProtocolUnknown, "unknown" },
   { Protocol::dsInfoSignalingProtocolStatic, "static" },
   { Protocol::dsInfoSignalingProtocolBgp, "BGP" },
   { Protocol::dsInfoSignalingProtocolLdp, "LDP" },
   { Protocol::dsInfoSignalingProtocolRsvpTe, "RSVP-TE" },
   { Protocol::dsInfoSignalingProtocolOspf, "OSPF" },
   { Protocol::dsInfoSignalingProtocolIsis, "IS-IS" },
   { LspPingExtDownstreamSignalingProtocol::dsInfoSignalingProtocolOspfv3, "OSPFv3" },
} );

using ReplyPath = LspPingReplyPathReturnCode;
constexpr auto replyPathReturnCodes = std::to_array< Words >( {
   { ReplyPath::noReplyPathReturnCode, "no return code" },
   { ReplyPath::malformedReplyPath, "malformed Reply Path TLV was received" },
   { ReplyPath::replyPathSubTlvNotUnderstood,
     "one or more of the sub-TLVs in the Reply Path TLV were not understood" },
   { ReplyPath::sentViaReplyPath,
     "the echo reply was sent successfully using the specified reply path" },
   { ReplyPath::sentViaOtherLsp,
     "the specified reply path was not found, the echo reply was sent via another LSP" },
   { ReplyPath::sentViaIp, "the specified reply path was not found, the echo reply was sent via "
                           "pure IP forwarding (non-MPLS) path" },
   { ReplyPath::useReplyPathFromReply,
     "use Reply Path TLV from this echo reply for building the next echo request" },
   { ReplyPath::dynamicReplyPathNotAllowed,
     "local policy does not allow dynamic return path building" },
} );

constexpr auto igpProtocols = std::to_array< Words >( {
   { LspPingExtSrIgpProtocol::srIgpAny, "any IGP" },
   { LspPingSrIgpProtocol{ 1 }, "OSPF" },
   { LspPingSrIgpProtocol{ 2 }, "IS-IS" },
   { LspPingExtSrIgpProtocol::srIgpOspfv3, "OSPFv3" },
} );

constexpr auto adjacencies = std::to_array< Words >( {
   { LspPingAdjacencyType::unnumberedAdjacency, "unnumbered interface adjacency" },
   { LspPingAdjacencyType::parallelAdjacency, "parallel adjacency" },
   { LspPingAdjacencyType::ipv4Adjacency, "IPv4, non-parallel adjacency" },
   { LspPingAdjacencyType::ipv6Adjacency, "IPv6, non-parallel adjacency" },
} );

using Operation = LspPingFecStackChangeSubTlvOperType;
constexpr auto operations = std::to_array< Words >( {
   { Operation::Push, "push" },
   { Operation::Pop, "pop" },
} );

using Tlv = LspPingTlvType;
constexpr auto tlvs = std::to_array< Words >( {
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
constexpr auto fecs = std::to_array< Words >( {
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
constexpr auto subTlvs = std::to_array< Words >( {
   { SubTlv::MultipathData, "Multipath Data" },
   { SubTlv::LabelStack, "Label Stack" },
   { SubTlv::FecStackChange, "FEC Stack Change" },
} );

// What stands beside the class of a code that is not in a table here.
std::string_view orOfElement( std::string_view words, LspPingContext context, U32 code ) noexcept {
   if( words.empty() )
      for( LspPingElementRow const & row : lspPingElements() )
         if( row.facts.context == context && row.facts.hasCode( code ) )
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
std::string_view lspPingWords( LspPingReplyPathReturnCode code ) noexcept {
   return wordsOf( replyPathReturnCodes, code );
}
std::string_view lspPingWords( LspPingSrIgpProtocol protocol ) noexcept {
   return wordsOf( igpProtocols, protocol );
}
std::string_view lspPingWords( LspPingAdjacencyType type ) noexcept {
   return wordsOf( adjacencies, type );
}
std::string_view lspPingElementWords( LspPingContext context, U32 code ) noexcept {
   std::string_view words;
   switch( context ) {
   case LspPingContext::message:
      words = wordsOf( tlvs, code );
      break;
   case LspPingContext::targetFec:
      words = wordsOf( fecs, code );
      break;
   case LspPingContext::ddmap:
      words = wordsOf( subTlvs, code );
      break;
   default:
      break;
   }
   return orOfElement( words, context, code );
}
std::string_view lspPingWords( LspPingTlvType code ) noexcept {
   return lspPingElementWords( LspPingContext::message, static_cast< U32 >( code ) );
}
std::string_view lspPingWords( LspPingTargetFecSubTlvType code ) noexcept {
   return lspPingElementWords( LspPingContext::targetFec, static_cast< U32 >( code ) );
}
std::string_view lspPingWords( LspPingDDMappingSubTlvType code ) noexcept {
   return lspPingElementWords( LspPingContext::ddmap, static_cast< U32 >( code ) );
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
