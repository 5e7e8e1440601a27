#include "examples/Capture.h"
#include "examples/RegistryValues.h"

#include "MplsUtils/LspPing/message/LspPingMessageReader.h"

#include <array>

namespace Examples {

using namespace LspPing;
using Kiv::numberOf;
using Velnet::IpAddr;
using Tlv = LspPingTlvType;

namespace {

constexpr U64 routeDistinguisher = 0x0000006400000001; // type 0, AS 100, number 1

// Messages whose sequence numbers follow each other.
class Messages {
 public:
   using Type = LspPingExtMsgType;

   /// A request for a prefix, and behind it what `write( writer )` writes.
   template < class Write >
   Bytes & request( Write write ) {
      return requestOf( [&]( Writer & writer ) {
         ldpTarget( writer );
         write( writer );
      } );
   }
   template < class Write >
   Bytes & requestOf( Write write ) {
      return add( [&]( Writer & writer ) {
         Examples::request( writer, next_ );
         write( writer );
      } );
   }
   /// For the FECs that `write( writer )` writes.
   template < class Write >
   Bytes & requestFor( Write write ) {
      return requestOf( [&]( Writer & writer ) {
         auto const stack = writer.open( Tlv::TargetFecStack );
         write( writer );
      } );
   }
   template < class Write >
   Bytes & reply( Write write ) {
      return add( [&]( Writer & writer ) {
         Examples::reply( writer, next_, LspPingReturnCode::labelSwitchedAtStackDep, 1 );
         write( writer );
      } );
   }
   /// Between a proxy and who asks it, RFC 7555 section 3.
   void lastIsOf( Type type ) {
      viewAt< LspPingHdr >( all.back(), 0 ).messageTypeIs( static_cast< U8 >( type ) );
   }

   /// A message that was written before and then changed.
   void again( Bytes message ) {
      viewAt< LspPingHdr >( message, 0 ).sequenceNumberIs( next_++ );
      all.push_back( std::move( message ) );
   }

   std::vector< Bytes > all;

 private:
   template < class Write >
   Bytes & add( Write write ) {
      all.push_back( written( write ) );
      ++next_;
      return all.back();
   }

   U32 next_ = 100;
};

// ---- target FECs

void rootIs( auto & fec, IpAddr root ) {
   fec.familyIs( 1 );
   fec.rootAddrIs( root );
}

void rootIs( auto & fec, Velnet::Ip6Addr root ) {
   fec.familyIs( 2 );
   fec.rootAddrIs( root );
}

template < class View, class Address >
void multicastLdp( Messages & messages, Address root, Value const & value ) {
   messages.requestFor( [&]( Writer & writer ) {
      auto const tree = writer.open< View >( [&]( auto & fec ) { rootIs( fec, root ); } );
      add( writer, value );
   } );
}

template < class View, class Address >
LspPingOpenElement openRecursive( Writer & writer, LspPingMldpFecType type, Address root ) {
   return writer.open< View >( [&]( auto & value ) {
      value.fecTypeIs( static_cast< U8 >( type ) );
      rootIs( value, root );
      if constexpr(
         requires { value.rdIs( routeDistinguisher ); } )
         value.rdIs( routeDistinguisher );
   } );
}

void lspId( Writer & writer ) {
   writer.add< LspPingOpaqueValGenSubTlv >( []( auto & value ) { value.lspIdIs( 4711 ); } );
}

// A tree through another network, in which it is part of other trees.
template < class Recursive, class InRecursive, class Address >
void recursive( Messages & messages, Address root ) {
   using enum LspPingMldpFecType;
   messages.requestFor( [&]( Writer & writer ) {
      auto const tree = writer.open< LspPingMp2mpFecStackIpv4SubTlv >(
         []( auto & fec ) { rootIs( fec, sender ); } );
      auto const outer = openRecursive< Recursive >( writer, MP2MPDownstream, root );
      auto const inner = openRecursive< InRecursive >( writer, P2MP, root );
      lspId( writer );
   } );
}

void extended( Messages & messages ) {
   messages.requestFor( []( Writer & writer ) {
      auto const tree = writer.open< LspPingMp2mpFecStackIpv6SubTlv >(
         []( auto & fec ) { rootIs( fec, ip6( "2001:db8::1" ) ); } );
      auto value = writer.open< LspPingOpaqueValExtendedSubTlv >(
         []( auto & opaque ) { opaque.extendedTypeIs( 0x0102 ); } );
      value.bytes( std::array< U8, 3 >{ 0xaa, 0xbb, 0xcc } );
   } );
}

void pseudowire129( Messages & messages ) {
   using Id = Pseudowire::PseudowireAttachmentIdentifier;
   messages.requestFor( []( Writer & writer ) {
      auto const identifier = []( U8 first ) {
         Id made( 1, 4 );
         for( U8 i = 0; i < made.length(); ++i )
            made.valueIs( i, static_cast< U8 >( first + i ) );
         return made;
      };
      auto pseudowire = writer.open< LspPingFec129Ipv6SubTlv >( []( auto & fec ) {
         fec.senderAddrIs( ip6( "2001:db8::1" ) );
         fec.receiverAddrIs( ip6( "2001:db8::9" ) );
         fec.pwTypeIs( 5 ); // Ethernet, RFC 4446 section 3.2
      } );
      pseudowire.pwGenId( { identifier( 0x10 ), identifier( 0x20 ), identifier( 0x30 ) } );
   } );
}

void addFecs( Messages & messages ) {
   for( Value const & fec : registryFecs() )
      messages.requestFor( [&]( Writer & writer ) { add( writer, fec ); } );
   pseudowire129( messages );
   for( Value const & value : opaqueValues() ) {
      multicastLdp< LspPingMp2mpFecStackIpv4SubTlv >( messages, sender, value );
      multicastLdp< LspPingP2mpFecStackIpv6SubTlv >( messages, ip6( "2001:db8::1" ), value );
   }
   extended( messages );
   recursive< LspPingOpaqueValRecursiveIpv4SubTlv, LspPingOpaqueValVpnRecursiveIpv4SubTlv >(
      messages, responder );
   recursive< LspPingOpaqueValRecursiveIpv6SubTlv, LspPingOpaqueValVpnRecursiveIpv6SubTlv >(
      messages, ip6( "2001:db8::9" ) );
}

// ---- mappings and interfaces

template < class View >
void nonIpMapping( View & mapping ) {
   mapping.mtuIs( 1500 );
   mapping.ingressIfNumIs( 17 );
   mapping.egressIfNumIs( 18 );
}

// Flows by their addresses, and the entropy labels that take the same ways, RFC 8012 section 6.
constexpr std::array< U8, 26 > addressesAndLabels{ 2, 0, 8, 0, 127, 0, 0, 1, 127, 0, 0, 2, 0,
                                                   0, 0, 0, 0, 6,   0, 0, 0, 16,  0, 1, 0, 0 };

void addMappings( Messages & messages ) {
   messages.reply( []( Writer & writer ) {
      auto mapping = writer.open< LspPingDownstreamMappingNonIpTlv >( []( auto & tlv ) {
         tlv.mtuIs( Velnet::NetU16( 1500 ) );
         tlv.ingressIfNumIs( 17 );
         tlv.egressIfNumIs( 18 );
      } );
      mapping.label( 100704, 0, true, 3 );
   } );
   messages.reply( []( Writer & writer ) {
      auto const mapping =
         writer.open< LspPingDdmapNonIpTlv >( []( auto & tlv ) { nonIpMapping( tlv ); } );
      writer.add< LspPingLocalIntfIndexSubTlv >(
         []( auto & subTlv ) { subTlv.intfIndexIs( 21 ); } );
      writer.add< LspPingRemoteIntfIndexSubTlv >(
         []( auto & subTlv ) { subTlv.intfIndexIs( 22 ); } );
   } );
   messages.reply( []( Writer & writer ) {
      auto const mapping =
         writer.open< LspPingDdmapNonIpTlv >( []( auto & tlv ) { nonIpMapping( tlv ); } );
      writer.open< LspPingMultipathSubTlv >().multipath(
         static_cast< LspPingMultipathType >( LspPingExtMultipathType::ipAndLabelSetMultipath ),
         addressesAndLabels );
   } );
}

template < class View, class Fill >
void detailedInterface( Messages & messages, Fill fill ) {
   messages.reply( [&]( Writer & writer ) {
      auto const interface = writer.open< View >( fill );
      {
         auto stack = writer.open< LspPingIncomingLabelStackSubTlv >();
         stack.label( 100704, 0, false, 255 );
         stack.label( 300, 0, true, 1 );
      }
      writer.add< LspPingIncomingIntfIndexSubTlv >( []( auto & subTlv ) {
         subTlv.intfFlagsIs( numberOf( LspPingIntfIndexFlags::lagMemberFlag ) );
         subTlv.intfIndexIs( 21 );
      } );
   } );
}

void addInterfaces( Messages & messages ) {
   detailedInterface< LspPingDetailedIntfIpv4Tlv >( messages, []( auto & tlv ) {
      tlv.addrIs( responder );
      tlv.intfIs( IpAddr( 10, 0, 1, 2 ) );
   } );
   detailedInterface< LspPingDetailedIntfIpv4UnnumberedTlv >( messages, []( auto & tlv ) {
      tlv.addrIs( responder );
      tlv.intfIdIs( 17 );
   } );
   detailedInterface< LspPingDetailedIntfIpv6Tlv >( messages, []( auto & tlv ) {
      tlv.addrIs( ip6( "2001:db8::9" ) );
      tlv.intfIs( ip6( "2001:db8:1::2" ) );
   } );
   detailedInterface< LspPingDetailedIntfIpv6UnnumberedTlv >( messages, []( auto & tlv ) {
      tlv.addrIs( ip6( "2001:db8::9" ) );
      tlv.intfIdIs( 18 );
   } );
}

// ---- paths that replies take

template < class View, class Fill >
void path( Messages & messages, Fill fill ) {
   messages.request( [&]( Writer & writer ) {
      auto const tlv = writer.open< View >( fill );
      ldpIpv4( writer, sender, 32 );
   } );
}

template < class View, class Address >
void segmentNode( Writer & writer, Address node ) {
   for( bool const hasSid : { false, true } ) {
      auto segment = writer.open< View >( [&]( auto & fec ) {
         fec.flagsIs( numberOf( LspPingSegmentFlags::srAlgorithmFlag ) );
         fec.srAlgorithmIs( 128 );
         fec.nodeIs( node );
      } );
      if( hasSid )
         segment.label( 100704, 0, true, 255 );
   }
}

void segmentList( Messages & messages ) {
   messages.request( []( Writer & writer ) {
      auto const reply = writer.open< LspPingReplyPathTlv >( []( auto & tlv ) {
         tlv.flagsIs( numberOf( LspPingReplyPathFlags::alternativePathFlag ) );
      } );
      add( writer, segments()[0] );
      segmentNode< LspPingSegmentIpv4NodeSubTlv >( writer, sender );
      segmentNode< LspPingSegmentIpv6NodeSubTlv >( writer, ip6( "2001:db8::1" ) );
   } );
}

void addPaths( Messages & messages ) {
   auto const asNew = []( auto & ) {};
   path< LspPingReversePathTargetFecStackTlv >( messages, asNew );
   path< LspPingBfdReversePathTlv >( messages, asNew );
   path< LspPingReplyPathTlv >( messages, asNew );
   segmentList( messages );
   messages.reply( []( Writer & writer ) {
      writer.add< LspPingReplyPathTlv >( []( auto & tlv ) {
         tlv.returnCodeIs( numberOf( LspPingReplyPathReturnCode::sentViaIp ) );
      } );
   } );
}

// ---- proxies, leaves and functions

template < class View, class Address >
void proxyRequest( Messages & messages, Address destination ) {
   messages.request( [&]( Writer & writer ) {
      auto const proxy = writer.open< View >( [&]( auto & tlv ) {
         tlv.replyModeIs( numberOf( LspPingReplyMode::ReplyIpUdp ) );
         tlv.proxyFlagsIs( numberOf( LspPingProxyFlags::fecNeighborFlag ) |
                           numberOf( LspPingProxyFlags::explicitDscpFlag ) );
         tlv.ttlIs( 255 );
         tlv.requestedDscpIs( 46 );
         tlv.sourceUdpPortIs( senderPort );
         tlv.globalFlagsIs( numberOf( LspPingHeaderFlags::vFlag ) );
         tlv.mplsPayloadSizeIs( 1500 );
         tlv.destinationAddrIs( destination );
      } );
      for( Value const & hop : nextHops() )
         add( writer, hop );
   } );
   messages.lastIsOf( Messages::Type::MplsProxyPingRequest );
}

template < class View, class Address >
void replyTo( Messages & messages, Address address ) {
   messages.request( [&]( Writer & writer ) {
      writer.add< View >( [&]( auto & tlv ) { tlv.addressIs( address ); } );
   } );
}

// The routers at the end that answer, RFC 6425 section 3.2.
void leaves( Messages & messages ) {
   messages.request( []( Writer & writer ) {
      auto const leaf = writer.open( Tlv::P2mpRespId );
      writer.add< LspPingResponderEgressIpv4SubTlv >(
         []( auto & id ) { id.addressIs( responder ); } );
      writer.add< LspPingResponderEgressIpv6SubTlv >(
         []( auto & id ) { id.addressIs( ip6( "2001:db8::9" ) ); } );
      writer.add< LspPingResponderNodeIpv4SubTlv >(
         []( auto & id ) { id.addressIs( responder ); } );
      writer.add< LspPingResponderNodeIpv6SubTlv >(
         []( auto & id ) { id.addressIs( ip6( "2001:db8::9" ) ); } );
   } );
}

template < class View, class Fill >
void function( Writer & writer, Fill fill, std::span< Value const > values ) {
   auto const configuration = writer.open< View >( fill );
   for( Value const & value : values )
      add( writer, value );
}

void functions( Messages & messages ) {
   messages.request( []( Writer & writer ) {
      using enum LspPingOamFunctionFlags;
      auto const tlv = writer.open< LspPingOamFunctionsTlv >( []( auto & functions ) {
         functions.functionFlagsIs( numberOf( continuityCheckFlag ) |
                                    numberOf( faultManagementFlag ) |
                                    numberOf( lossMeasurementFlag ) );
      } );
      function< LspPingBfdConfigurationSubTlv >(
         writer,
         []( auto & bfd ) {
            bfd.versionIs( 1 );
            bfd.nFlagIs( true );
            bfd.gFlagIs( true );
         },
         bfdValues() );
      function< LspPingPerformanceMonitoringSubTlv >(
         writer,
         []( auto & performance ) {
            performance.dFlagIs( true );
            performance.lFlagIs( true );
         },
         performanceValues() );
      function< LspPingFaultManagementSignalSubTlv >(
         writer,
         []( auto & fault ) {
            fault.eFlagIs( true );
            fault.refreshTimerIs( 20 );
         },
         faultValues() );
      writer.add< LspPingSourceMepIdSubTlv >( []( auto & id ) {
         id.sourceNodeIdIs( 0x0a000001 );
         id.tunnelIdIs( 7 );
         id.lspIdIs( 21 );
      } );
   } );
}

void addOthers( Messages & messages ) {
   for( Value const & tlv : requestTlvs() )
      messages.request( [&]( Writer & writer ) { add( writer, tlv ); } );
   for( Value const & tlv : replyTlvs() ) {
      messages.reply( [&]( Writer & writer ) { add( writer, tlv ); } );
      messages.lastIsOf( Messages::Type::MplsProxyPingReply );
   }
   proxyRequest< LspPingProxyEchoParametersIpv4Tlv >( messages, loopback );
   proxyRequest< LspPingProxyEchoParametersIpv6Tlv >( messages, ip6( "::ffff:127.0.0.1" ) );
   replyTo< LspPingReplyToAddressIpv4Tlv >( messages, sender );
   replyTo< LspPingReplyToAddressIpv6Tlv >( messages, ip6( "2001:db8::1" ) );
   // The egress stands before the FECs, RFC 9655 section 3.
   messages.requestOf( []( Writer & writer ) {
      writer.add< LspPingEgressIpv4Tlv >( []( auto & tlv ) { tlv.addressIs( responder ); } );
      ldpTarget( writer );
   } );
   messages.requestOf( []( Writer & writer ) {
      writer.add< LspPingEgressIpv6Tlv >(
         []( auto & tlv ) { tlv.addressIs( ip6( "2001:db8::9" ) ); } );
      ldpTarget( writer );
   } );
   leaves( messages );
   functions( messages );
}

// ---- readings of an RFC that contradicts itself

// The messages with such elements once more, with the other length that the RFC has for them.
void addOtherLengths( Messages & messages ) {
   std::size_t const count = messages.all.size();
   for( std::size_t i = 0; i < count; ++i ) {
      LspPingElementRow const * row = nullptr;
      Bytes again = messages.all[i];
      LspPingMessageReader reader;
      LspPingMessage const & read = reader.read( again );
      for( U32 e = 0; e < read.elementCount() && row == nullptr; ++e ) {
         LspPingElementRow const * const found = read.element( e ).row();
         if( found == nullptr ||
             ( found->facts.statedMore == 0 && found->facts.otherReadingLength == 0 ) )
            continue;
         row = found;
         auto & header = viewAt< LspPingTlvHdr >( again, read.element( e ).offset() );
         header.lengthIs( static_cast< U16 >( row->facts.statedMore != 0
                                                 ? header.length() + row->facts.statedMore
                                                 : row->facts.otherReadingLength ) );
      }
      if( row != nullptr )
         messages.again( std::move( again ) );
   }
}

// With others behind it: its modes are not padded, or are all the same, RFC 7737 section 3.2.
void addReplyModeOrders( Messages & messages ) {
   auto const write = []( Writer & writer ) {
      writer.open< LspPingReplyModeOrderTlv >().bytes( std::array< U8, 3 >{ 5, 2, 4 } );
      writer.add< LspPingReplyTosTlv >( []( auto & tlv ) { tlv.tosIs( 0xc0 ); } );
   };
   messages.request( write );
   Bytes & padded = messages.request( write );
   padded.insert( padded.end() - sizeof( LspPingReplyTosTlv ), 0 );
   messages.reply( [&]( Writer & writer ) {
      auto const errored = writer.open( Tlv::ErrorTlv );
      write( writer );
   } );
}

} // namespace

std::vector< Bytes > registryMessages() {
   Messages messages;
   addFecs( messages );
   addMappings( messages );
   addInterfaces( messages );
   addPaths( messages );
   addOthers( messages );
   addOtherLengths( messages );
   addReplyModeOrders( messages );
   return std::move( messages.all );
}

std::vector< Frame > registrySamples() {
   Capture capture;
   for( Bytes const & message : registryMessages() )
      capture.messageIs( message );
   return std::move( capture.frames );
}

} // namespace Examples
