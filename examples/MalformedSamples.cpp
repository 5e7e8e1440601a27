#include "examples/EchoMessages.h"
#include "examples/Encapsulation.h"
#include "examples/Samples.h"

#include <array>

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;
using Velnet::IpAddr;
using Tlv = LspPingTlvType;

namespace {

constexpr std::size_t firstTlv = sizeof( LspPingHdr );
constexpr std::size_t firstSubTlv = firstTlv + sizeof( LspPingTlvHdr );

// A well-formed request: a header and a Target FEC Stack of one FEC.
void writeWellFormed( Writer & writer ) {
   writer.header( []( LspPingHdr & header ) {
      header.messageTypeIs( numberOf( LspPingMsgType::MplsEchoRequest ) );
      header.replyModeIs( numberOf( LspPingReplyMode::ReplyIpUdp ) );
      header.senderHandleIs( 0x1a2b3c4d );
      header.sequenceNumberIs( 1 );
   } );
   ldpTarget( writer );
}

Bytes wellFormed() {
   return written( writeWellFormed );
}

// It, and what `write` writes behind it.
template < class Write >
Bytes wellFormedWith( Write write ) {
   return written( [&]( Writer & writer ) {
      writeWellFormed( writer );
      write( writer );
   } );
}
std::size_t const secondTlv = wellFormed().size();

Bytes shorterBy( std::size_t count ) {
   Bytes message = wellFormed();
   message.resize( message.size() - count );
   return message;
}

Bytes headerCut() {
   return shorterBy( wellFormed().size() - sizeof( LspPingHdr ) + 1 );
}

Bytes oneByte() {
   return shorterBy( wellFormed().size() - 1 );
}

Bytes tlvHeaderCut() {
   return shorterBy( wellFormed().size() - firstTlv - 3 );
}

Bytes subTlvCut() {
   return shorterBy( 6 );
}

Bytes bytesLeftOver() {
   Bytes message = wellFormed();
   message.resize( message.size() + 3 );
   return message;
}

// The views read it, but no RFC knows it.
Bytes nextVersion() {
   Bytes message = wellFormed();
   viewAt< LspPingHdr >( message, 0 ).versionIs( 2 );
   return message;
}

Bytes unknownVersion() {
   Bytes message = wellFormed();
   viewAt< LspPingHdr >( message, 0 ).versionIs( 3 );
   return message;
}

Bytes unknownMessageType() {
   Bytes message = wellFormed();
   viewAt< LspPingHdr >( message, 0 ).messageTypeIs( 6 );
   return message;
}

Bytes tlvLength( U16 length ) {
   Bytes message = wellFormed();
   viewAt< LspPingTlvHdr >( message, firstTlv ).lengthIs( length );
   return message;
}

Bytes tlvTooLong() {
   return tlvLength( 400 );
}

// Rounded up it does not fit 16 bits: a walk that trusts the sum stays where it is.
Bytes tlvLengthWraps() {
   return tlvLength( 0xffff );
}

// Ends inside the sub-TLV.
Bytes tlvTooShort() {
   return tlvLength( 7 );
}

Bytes emptyFecStack() {
   return tlvLength( 0 );
}

Bytes subTlvLength( U16 length ) {
   Bytes message = wellFormed();
   viewAt< LspPingTlvHdr >( message, firstSubTlv ).lengthIs( length );
   return message;
}

Bytes subTlvTooLong() {
   return subTlvLength( 200 );
}

Bytes subTlvTooShort() {
   return subTlvLength( 4 );
}

// Counts its padding, as some routers do.
Bytes subTlvCountsPadding() {
   return subTlvLength( 8 );
}

Bytes prefixTooLong() {
   Bytes message = wellFormed();
   auto & fec = viewAt< LspPingBgpLuIpv4SubTlv >( message, firstSubTlv );
   fec.typeIs( numberOf( LspPingTargetFecSubTlvType::BGPLabeledIpv4 ) );
   fec.prefixLenIs( 33 );
   return message;
}

Bytes unknownFec() {
   Bytes message = wellFormed();
   viewAt< LspPingTlvHdr >( message, firstSubTlv ).typeIs( 999 );
   return message;
}

Bytes unknownTlv() {
   return wellFormedWith(
      []( Writer & writer ) { writer.add( LspPingContext::message, 28, std::array< U8, 6 >{} ); } );
}

Bytes mapping( U8 addrType ) {
   Bytes message = wellFormedWith( []( Writer & writer ) {
      writer.add< LspPingDdmapTlv >( []( auto & ddmap ) { ddmap.mtuIs( 1500 ); } );
   } );
   viewAt< LspPingDdmapTlv >( message, secondTlv ).addrTypeIs( addrType );
   return message;
}

// Says IPv6, for which the TLV is too short.
Bytes mappingTooShort() {
   return mapping( numberOf( LspPingAddrType::ipv6Numbered ) );
}

Bytes mappingOfUnknownType() {
   return mapping( 9 );
}

// Sub-TLVs that the mapping says to have and has not.
Bytes mappingWithoutSubTlvs() {
   Bytes message =
      wellFormedWith( []( Writer & writer ) { writer.add< LspPingDdmapTlv >( []( auto & ) {} ); } );
   viewAt< LspPingDdmapTlv >( message, secondTlv ).subTlvLenIs( 64 );
   return message;
}

Bytes multipathTooLong() {
   Bytes message = wellFormedWith( []( Writer & writer ) {
      auto const ddmap = writer.open< LspPingDdmapTlv >();
      writer.open< LspPingMultipathSubTlv >().multipath( LspPingMultipathType::ipMultipath, {} );
   } );
   viewAt< LspPingMultipathSubTlv >( message, secondTlv + sizeof( LspPingDdmapTlv ) )
      .multipathLengthIs( 32 );
   return message;
}

Bytes opaqueValueTooLong() {
   Bytes message = wellFormedWith( []( Writer & writer ) {
      auto const stack = writer.open( Tlv::TargetFecStack );
      writer.add< LspPingP2mpFecStackSubTlv >( []( auto & ) {} );
   } );
   viewAt< LspPingP2mpFecStackSubTlv >( message, secondTlv + sizeof( LspPingTlvHdr ) )
      .opaqueLenIs( 11 );
   return message;
}

// The rest of the TLV that its length promises is not there.
Bytes padCut() {
   Bytes message = wellFormedWith( []( Writer & writer ) {
      writer.add< LspPingPadTlv >( []( LspPingPadTlv & tlv ) {
         tlv.padTypeIs( numberOf( LspPingPadType::dropPadding ) );
         tlv.paddingIs( 38, 0 );
      } );
   } );
   message.resize( message.size() - 20 );
   return message;
}

Frame frameOf( Bytes const & message ) {
   Frame frame{ ethernet( EtherType::ipv4, {},
                          ipv4( IpAddr( 10, 0, 0, 1 ), IpAddr( 127, 0, 0, 1 ), 49152, echoPort,
                                RouterAlert::yes, requestTtl, message ) ),
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
