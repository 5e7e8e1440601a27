#include "examples/Encapsulation.h"
#include "examples/MessageBuilder.h"
#include "examples/Samples.h"

#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"

#include <utility>

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;
using Velnet::IpAddr;
using Tlv = LspPingTlvType;

namespace {

constexpr std::size_t firstTlv = sizeof( LspPingHdr );
constexpr std::size_t firstSubTlv = firstTlv + sizeof( LspPingTlvHdr );

// A well-formed request: a header and a Target FEC Stack of one FEC.
MessageBuilder wellFormed() {
   MessageBuilder message;
   message.view< LspPingHdr >( []( LspPingHdr & header ) {
      header.versionIs( 1 );
      header.messageTypeIs( numberOf( LspPingMsgType::MplsEchoRequest ) );
      header.replyModeIs( numberOf( LspPingReplyMode::ReplyIpUdp ) );
      header.senderHandleIs( 0x1a2b3c4d );
      header.sequenceNumberIs( 1 );
   } );
   message.tlv( Tlv::TargetFecStack, [&] { message.ldpIpv4( IpAddr( 10, 1, 2, 0 ), 24 ); } );
   return message;
}

MessageBuilder shorterBy( std::size_t count ) {
   MessageBuilder message = wellFormed();
   message.cut( count );
   return message;
}

MessageBuilder headerCut() {
   return shorterBy( wellFormed().size() - sizeof( LspPingHdr ) + 1 );
}

MessageBuilder oneByte() {
   return shorterBy( wellFormed().size() - 1 );
}

MessageBuilder tlvHeaderCut() {
   return shorterBy( wellFormed().size() - firstTlv - 3 );
}

MessageBuilder subTlvCut() {
   return shorterBy( 6 );
}

MessageBuilder bytesLeftOver() {
   MessageBuilder message = wellFormed();
   message.room( 3 );
   return message;
}

// The views read it, but no RFC knows it.
MessageBuilder nextVersion() {
   MessageBuilder message = wellFormed();
   message.at< LspPingHdr >( 0 ).versionIs( 2 );
   return message;
}

MessageBuilder unknownVersion() {
   MessageBuilder message = wellFormed();
   message.at< LspPingHdr >( 0 ).versionIs( 3 );
   return message;
}

MessageBuilder unknownMessageType() {
   MessageBuilder message = wellFormed();
   message.at< LspPingHdr >( 0 ).messageTypeIs( 3 );
   return message;
}

MessageBuilder tlvLength( U16 length ) {
   MessageBuilder message = wellFormed();
   message.at< LspPingTlvHdr >( firstTlv ).lengthIs( length );
   return message;
}

MessageBuilder tlvTooLong() {
   return tlvLength( 400 );
}

// Rounded up it does not fit 16 bits: a walk that trusts the sum stays where it is.
MessageBuilder tlvLengthWraps() {
   return tlvLength( 0xffff );
}

// Ends inside the sub-TLV.
MessageBuilder tlvTooShort() {
   return tlvLength( 7 );
}

MessageBuilder emptyFecStack() {
   return tlvLength( 0 );
}

MessageBuilder subTlvLength( U16 length ) {
   MessageBuilder message = wellFormed();
   message.at< LspPingTlvHdr >( firstSubTlv ).lengthIs( length );
   return message;
}

MessageBuilder subTlvTooLong() {
   return subTlvLength( 200 );
}

MessageBuilder subTlvTooShort() {
   return subTlvLength( 4 );
}

// Counts its padding, as some routers do.
MessageBuilder subTlvCountsPadding() {
   return subTlvLength( 8 );
}

MessageBuilder prefixTooLong() {
   MessageBuilder message = wellFormed();
   auto & fec = message.at< LspPingBgpLuIpv4SubTlv >( firstSubTlv );
   fec.typeIs( numberOf( LspPingTargetFecSubTlvType::BGPLabeledIpv4 ) );
   fec.prefixLenIs( 33 );
   return message;
}

MessageBuilder unknownFec() {
   MessageBuilder message = wellFormed();
   message.at< LspPingTlvHdr >( firstSubTlv ).typeIs( 999 );
   return message;
}

MessageBuilder unknownTlv() {
   MessageBuilder message = wellFormed();
   message.tlv( 13, [&] { message.room( 6 ); } );
   return message;
}

MessageBuilder mapping( U8 addrType ) {
   MessageBuilder message = wellFormed();
   message.detailedMapping< LspPingDdmapTlv >(
      [&]( auto & ddmap ) {
         ddmap.mtuIs( 1500 );
         ddmap.addrTypeIs( addrType );
      },
      [] {} );
   return message;
}

// Says IPv6, for which the TLV is too short.
MessageBuilder mappingTooShort() {
   return mapping( numberOf( LspPingAddrType::ipv6Numbered ) );
}

MessageBuilder mappingOfUnknownType() {
   return mapping( 9 );
}

// Sub-TLVs that the mapping says to have and has not.
MessageBuilder mappingWithoutSubTlvs() {
   MessageBuilder message = wellFormed();
   std::size_t const start = message.size();
   message.detailedMapping< LspPingDdmapTlv >(
      []( auto & ddmap ) { ddmap.addrTypeIs( numberOf( LspPingAddrType::ipv4Numbered ) ); },
      [] {} );
   message.at< LspPingDdmapTlv >( start ).subTlvLenIs( 64 );
   return message;
}

MessageBuilder multipathTooLong() {
   MessageBuilder message = wellFormed();
   message.detailedMapping< LspPingDdmapTlv >(
      []( auto & ddmap ) { ddmap.addrTypeIs( numberOf( LspPingAddrType::ipv4Numbered ) ); },
      [&] {
         message.element< LspPingMultipathSubTlv >(
            LspPingDDMappingSubTlvType::MultipathData, []( auto & data ) {
               data.multipathTypeIs( numberOf( LspPingMultipathType::ipMultipath ) );
               data.multipathLengthIs( 32 );
            } );
      } );
   return message;
}

MessageBuilder opaqueValueTooLong() {
   MessageBuilder message = wellFormed();
   message.tlv( Tlv::TargetFecStack, [&] {
      message.element< LspPingP2mpFecStackSubTlv >( LspPingTargetFecSubTlvType::P2mpFec,
                                                    []( auto & fec ) {
                                                       fec.familyIs( 1 );
                                                       fec.addrLenIs( sizeof( IpAddr ) );
                                                       fec.opaqueLenIs( 11 );
                                                    } );
   } );
   return message;
}

// The rest of the TLV that its length promises is not there.
MessageBuilder padCut() {
   MessageBuilder message = wellFormed();
   LspPingPadTlv tlv;
   tlv.lengthIs( 40 );
   tlv.padTypeIs( numberOf( LspPingPadType::dropPadding ) );
   message.pad( tlv );
   message.cut( 20 );
   return message;
}

Frame frameOf( MessageBuilder const & message ) {
   Frame frame{ ethernet( EtherType::ipv4, {},
                          ipv4( IpAddr( 10, 0, 0, 1 ), IpAddr( 127, 0, 0, 1 ), 49152, echoPort,
                                RouterAlert::yes, requestTtl, message.bytes() ) ),
                0 };
   frame.wireLength = frame.bytes.size();
   return frame;
}

// A capture that kept only the first bytes of each packet.
Frame cutByCapture( std::size_t count ) {
   Frame frame = frameOf( wellFormed() );
   frame.bytes.resize( frame.bytes.size() - count );
   return frame;
}

} // namespace

std::vector< Frame > malformedSamples() {
   std::vector< Frame > frames;
   for( auto const malformed : { oneByte,
                                 headerCut,
                                 tlvHeaderCut,
                                 subTlvCut,
                                 bytesLeftOver,
                                 unknownVersion,
                                 unknownMessageType,
                                 tlvTooLong,
                                 tlvLengthWraps,
                                 tlvTooShort,
                                 emptyFecStack,
                                 subTlvTooLong,
                                 subTlvTooShort,
                                 subTlvCountsPadding,
                                 prefixTooLong,
                                 unknownFec,
                                 unknownTlv,
                                 mappingTooShort,
                                 mappingOfUnknownType,
                                 mappingWithoutSubTlvs,
                                 multipathTooLong,
                                 opaqueValueTooLong,
                                 padCut,
                                 nextVersion } )
      frames.push_back( frameOf( malformed() ) );
   for( std::size_t const count : { 4u, 20u, 44u } )
      frames.push_back( cutByCapture( count ) );
   return frames;
}

} // namespace Examples
