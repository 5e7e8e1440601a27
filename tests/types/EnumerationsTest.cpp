#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace LspPing;

struct Named {
   std::string_view name;
   U32 value;
};

// An enumeration as it must be, and its functions without its type.
struct Expected {
   std::string_view name;
   Kiv::TypeId id;
   std::size_t bytes;
   std::vector< Named > enumerators;

   std::function< U32( U32 ) > ofNumber;
   std::function< U32( Orlo::String const & ) > ofName;
   std::function< Orlo::String( U32 ) > stringValue;
   std::function< std::string( U32 ) > streamed;
   std::function< U32( Kiv::CharRange &, U32 ) > parsed; ///< given what was there before
};

template < class E >
Expected expected( std::string_view name, Kiv::TypeId id, E ( *ofNumber )( U32 ),
                   E ( *ofName )( Orlo::String const & ), std::vector< Named > enumerators ) {
   auto const number = []( E value ) -> U32 {
      return static_cast< std::underlying_type_t< E > >( value );
   };
   return {
      name,
      id,
      sizeof( E ),
      std::move( enumerators ),
      [=]( U32 value ) { return number( ofNumber( value ) ); },
      [=]( Orlo::String const & text ) { return number( ofName( text ) ); },
      []( U32 value ) { return stringValue( static_cast< E >( value ) ); },
      []( U32 value ) {
         std::ostringstream out;
         out << static_cast< E >( value );
         return out.str();
      },
      [=]( Kiv::CharRange & in, U32 before ) {
         E value = static_cast< E >( before );
         sequenceToValue( in, &value );
         return number( value );
      },
   };
}

#define EXPECTED( Name, module, index, ... )                                                       \
   expected< Name >( "LspPing::" #Name, Kiv::TypeId{ module, index }, &Name##Instance,             \
                     &Name##Instance, { __VA_ARGS__ } )

// clang-format off
std::vector< Expected > const & enumerations() {
   static std::vector< Expected > const all = {
      EXPECTED( LspPingVendorIana, 17, 0, { "VeloraIana", LSPPING_VENDOR_IANA } ),
      EXPECTED( LspPingTunnelType, 17, 1,
                { "tunnelUnknown", 0 }, { "tunnelModeRaw", 1 }, { "tunnelStaticConfig", 2 },
                { "tunnelLdpIpv4", 3 }, { "tunnelMldp", 4 }, { "tunnelRsvpIpv4", 5 },
                { "tunnelSrIpv4", 6 }, { "tunnelSrIpv6", 7 }, { "tunnelOspfSrIpv4", 8 },
                { "tunnelPwLdp", 9 }, { "tunnelBgpLuIpv4", 10 }, { "tunnelBgpLuIpv6", 11 },
                { "tunnelVpnIpv4", 12 }, { "tunnelVpnIpv6", 13 }, { "tunnelGenericIpv4", 14 },
                { "tunnelRsvpP2mpIpv4", 15 } ),
      EXPECTED( LspPingMode, 17, 2, { "modeLspPing", 1 }, { "modeLspTraceRoute", 2 } ),
      EXPECTED( LspPingMsgType, 17, 4, { "MplsEchoRequest", 1 }, { "MplsEchoReply", 2 } ),
      EXPECTED( LspPingHeaderFlags, 17, 5, { "rFlag", 4 }, { "tFlag", 2 }, { "vFlag", 1 } ),
      EXPECTED( LspPingReplyMode, 17, 6,
                { "DontReply", 1 }, { "ReplyIpUdp", 2 }, { "ReplyIpUdpRouterAlert", 3 },
                { "ReplyViaAppCtrlChannel", 4 } ),
      EXPECTED( LspPingTlvType, 17, 7,
                { "TargetFecStack", 1 }, { "DownstreamMapping", 2 }, { "Pad", 3 },
                { "NotAssigned4", 4 }, { "VendorEnterpriseNum", 5 }, { "NotAssigned6", 6 },
                { "IntfAndLabelStack", 7 }, { "NotAssigned8", 8 }, { "ErrorTlv", 9 },
                { "ReplyTosByte", 10 }, { "DownstreamDetailedMapping", 20 }, { "P2mpRespId", 11 },
                { "EchoJitter", 12 }, { "VeloraVendorPrivate", 65261 } ),
      EXPECTED( LspPingP2mpRespTlvType, 17, 8,
                { "EgrAddr4", 1 }, { "EgrAddr6", 2 }, { "NodeAddr4", 3 }, { "NodeAddr6", 4 } ),
      EXPECTED( LspPingDDMappingSubTlvType, 17, 9,
                { "MultipathData", 1 }, { "LabelStack", 2 }, { "FecStackChange", 3 } ),
      EXPECTED( LspPingTargetFecSubTlvType, 17, 10,
                { "LDPIpv4", 1 }, { "LDPIpv6", 2 }, { "RSVPIpv4Lsp", 3 }, { "RSVPIpv6Lsp", 4 },
                { "NotAssigned", 5 }, { "VPNIpv4", 6 }, { "VPNIpv6", 7 }, { "L2VPNEndpoint", 8 },
                { "FEC128Pseudowire", 10 }, { "FEC129Pseudowire", 11 }, { "BGPLabeledIpv4", 12 },
                { "BGPLabeledIpv6", 13 }, { "GenericIpv4", 14 }, { "GenericIpv6", 15 },
                { "NilFec", 16 }, { "RSVPP2MPIpv4", 17 }, { "P2mpFec", 19 }, { "EntropyLabel", 33 },
                { "SRIpv4", 34 }, { "SRIpv6", 35 }, { "SRIpv4Deprecated", 31744 },
                { "SRIpv6Deprecated", 31745 } ),
      EXPECTED( LspPingP2mpFecStackSubTlvType, 17, 11, { "GenericLsp", 1 }, { "SGIpv4", 3 } ),
      EXPECTED( LspPingReturnCode, 17, 12,
                { "noRetCode", 0 }, { "malFormEchoRequest", 1 }, { "tlvNotUnderstood", 2 },
                { "repRouterEgress", 3 }, { "noMappingForFec", 4 }, { "dsMappingMismatch", 5 },
                { "usIntfUnknown", 6 }, { "reservedRetCode", 7 }, { "labelSwitchedAtStackDep", 8 },
                { "labelSwitchedNoMplsFwd", 9 }, { "labelMappingMismatch", 10 },
                { "noLabelEntryAtStackDep", 11 }, { "protocolIntfMismatch", 12 },
                { "premTermination", 13 }, { "seeDdmTlv", 14 }, { "lblSwitchedFecChange", 15 } ),
      EXPECTED( LspPingAddrType, 17, 13,
                { "ipv4Numbered", 1 }, { "ipv4Unnumbered", 2 }, { "ipv6Numbered", 3 },
                { "ipv6Unnumbered", 4 } ),
      EXPECTED( LspPingMultipathType, 17, 14,
                { "noMultipath", 0 }, { "ipMultipath", 2 }, { "ipRangeMultipath", 4 },
                { "maskedIpSetMultipath", 8 }, { "maskedLabelSetMultipath", 9 } ),
      EXPECTED( LspPingDownstreamMappingType, 17, 15,
                { "downstreamDetailedMap", 0 }, { "downstreamMap", 1 } ),
      EXPECTED( LspPingDownstreamMappingTlvIpAndIntfLen, 17, 16,
                { "ipv4DsLen", 16 }, { "ipv6NumberedDsLen", 40 }, { "ipv6UnnumberedDsLen", 28 } ),
      EXPECTED( LspPingDownstreamSignalingProtocol, 17, 17,
                { "dsInfoSignalingProtocolUnknown", 0 }, { "dsInfoSignalingProtocolStatic", 1 },
                { "dsInfoSignalingProtocolBgp", 2 }, { "dsInfoSignalingProtocolLdp", 3 },
                { "dsInfoSignalingProtocolRsvpTe", 4 }, { "dsInfoSignalingProtocolOspf", 5 },
                { "dsInfoSignalingProtocolIsis", 6 } ),
      EXPECTED( LspPingIntfAndLabelStackTlvIpAndIntfLen, 17, 18,
                { "ipv4IfLen", 12 }, { "ipv6NumberedIfLen", 36 }, { "ipv6UnnumberedIfLen", 24 } ),
      EXPECTED( LspPingVeloraVendorPrivateType, 17, 19, { "MultiLabel", 1 } ),
      EXPECTED( LspPingSrIgpProtocol, 17, 20, { "ospf", 1 }, { "isis", 2 } ),
      EXPECTED( LspPingPadType, 17, 22, { "dropPadding", 1 }, { "copyPadding", 2 } ),
      EXPECTED( LspPingFecStackChangeSubTlvOperType, 16, 58, { "Push", 1 }, { "Pop", 2 } ),
      EXPECTED( LspPingFecStackChangeSubTlvAddressType, 16, 59,
                { "Unspecified", 0 }, { "IPv4", 1 }, { "IPv6", 2 } ),
   };
   return all;
}
// clang-format on

U32 limitOf( Expected const & one ) {
   return one.bytes == 1 ? 255u : 4294967295u;
}

bool hasName( Expected const & one, U32 value ) {
   for( Named const & named : one.enumerators )
      if( named.value == value )
         return true;
   return false;
}

// Numbers around and between the named ones, and those at the limits.
std::vector< U32 > numbersWithoutName( Expected const & one ) {
   std::vector< U32 > numbers;
   for( U32 const value : { 0u, 9u, 13u, 18u, 32u, 63u, 64u, 65u, 99u, 254u, 255u, 256u, 31743u,
                            31746u, 65260u, 65262u, 65536u, 4294967294u, 4294967295u } )
      if( value <= limitOf( one ) && !hasName( one, value ) )
         numbers.push_back( value );
   return numbers;
}

class Enumerations : public testing::TestWithParam< Expected > {};

TEST( AllEnumerations, areThoseThatAreRegistered ) {
   std::vector< std::string_view > expected;
   for( Expected const & one : enumerations() )
      expected.push_back( one.name );
   std::vector< std::string_view > registered;
   for( Kiv::ModuleTable const * module : Kiv::modules() )
      for( U16 index = 0; index < module->count; ++index )
         if( module->name.starts_with( "LspPing" ) &&
             module->types[index].kind == Kiv::Kind::enumeration )
            registered.push_back( Kiv::TypeRef( module->types + index ).name() );
   EXPECT_THAT( registered, testing::UnorderedElementsAreArray( expected ) );
}

TEST( AllEnumerations, areOfFourBytesButForTwo ) {
   for( Expected const & one : enumerations() ) {
      bool const byte = one.name == "LspPing::LspPingTunnelType" ||
                        one.name == "LspPing::LspPingDownstreamMappingType";
      EXPECT_EQ( one.bytes, byte ? 1u : 4u ) << one.name;
   }
}

TEST_P( Enumerations, areRegisteredWithTheirEnumeratorsInOrder ) {
   Expected const & one = GetParam();
   Kiv::TypeRef const type( one.id );
   ASSERT_EQ( type.name(), one.name );
   EXPECT_EQ( type.kind(), Kiv::Kind::enumeration );
   EXPECT_EQ( Kiv::TypeRef( type.record().underlying ).name(), one.bytes == 1 ? "U8" : "U32" );
   ASSERT_EQ( type.enumerators().size(), one.enumerators.size() );
   for( std::size_t i = 0; i < one.enumerators.size(); ++i ) {
      EXPECT_EQ( type.enumerators()[i].name(), one.enumerators[i].name );
      EXPECT_EQ( type.enumerators()[i].value, one.enumerators[i].value );
   }
}

TEST_P( Enumerations, nameEachValueAndFindItByNameAndNumber ) {
   Expected const & one = GetParam();
   for( Named const & named : one.enumerators ) {
      Orlo::String const name( named.name );
      EXPECT_EQ( one.stringValue( named.value ), name );
      EXPECT_EQ( one.streamed( named.value ), name );
      EXPECT_EQ( one.ofName( name ), named.value );
      EXPECT_EQ( one.ofNumber( named.value ), named.value );
      Kiv::CharRange in( name );
      EXPECT_EQ( one.parsed( in, 0 ), named.value );
      EXPECT_TRUE( in.atEnd() );
   }
}

TEST_P( Enumerations, printNumbersWithoutNameAndReadThemBack ) {
   Expected const & one = GetParam();
   std::vector< U32 > const numbers = numbersWithoutName( one );
   EXPECT_GE( numbers.size(), 5u );
   for( U32 const number : numbers ) {
      Orlo::String const text = std::to_string( number );
      EXPECT_EQ( one.ofNumber( number ), number );
      EXPECT_EQ( one.stringValue( number ), text );
      EXPECT_EQ( one.streamed( number ), text );
      Kiv::CharRange in( text );
      EXPECT_EQ( one.parsed( in, 1 ), number );
   }
   for( Named const & named : one.enumerators ) {
      Orlo::String const text = std::to_string( named.value );
      Kiv::CharRange in( text );
      EXPECT_EQ( one.parsed( in, 1 ), named.value ) << "a number stands for its name as well";
   }
}

TEST_P( Enumerations, moveTheCursorBehindWhatTheyRead ) {
   Expected const & one = GetParam();
   for( std::string_view const rest : { ", next=1", ")", "}", " more", "" } ) {
      std::string const text =
         "  " + std::string( one.enumerators.back().name ) + std::string( rest );
      Kiv::CharRange in( text );
      EXPECT_EQ( one.parsed( in, 0 ), one.enumerators.back().value );
      EXPECT_EQ( in.rest(), rest );
   }
}

TEST_P( Enumerations, refuseWhatIsNeitherNameNorNumber ) {
   Expected const & one = GetParam();
   std::string const name( one.enumerators.front().name );
   std::string lower = name;
   for( char & c : lower )
      c = static_cast< char >( std::isupper( c ) != 0 ? std::tolower( c ) : std::toupper( c ) );
   std::string const tooLarge = one.bytes == 1 ? "256" : "4294967296";
   for( std::string const & text :
        { std::string(), lower, name + "x", name.substr( 1 ), std::string( "-1" ),
          std::string( "0x1" ), std::string( "1.0" ), tooLarge,
          std::string( "99999999999999999999" ), std::string( "nothing" ) } ) {
      Kiv::CharRange in( text );
      EXPECT_THROW( one.parsed( in, 0 ), Kiv::RangeException ) << '"' << text << '"';
      EXPECT_THROW( one.ofName( text ), Kiv::RangeException ) << '"' << text << '"';
   }
   // Only names are names: a number's text is none, and neither is one with blanks around it.
   EXPECT_THROW( one.ofName( " " + name ), Kiv::RangeException );
   EXPECT_THROW( one.ofName( name + " " ), Kiv::RangeException );
}

TEST_P( Enumerations, nameThemselvesInTheirErrors ) {
   Expected const & one = GetParam();
   try {
      one.ofName( "nothing" );
      FAIL();
   } catch( Kiv::RangeException const & e ) {
      EXPECT_NE( std::string( e.what() ).find( one.name ), std::string::npos ) << e.what();
      EXPECT_NE( std::string( e.what() ).find( "nothing" ), std::string::npos ) << e.what();
   }
}

TEST_P( Enumerations, areReadAndPrintedThroughTheirType ) {
   Expected const & one = GetParam();
   Kiv::TypeRef const type( one.id );
   for( Named const & named : one.enumerators ) {
      U32 value = 0;
      KivOrlo::strepToValue( named.name, type, &value );
      EXPECT_EQ( value, named.value );
      EXPECT_EQ( KivOrlo::valueToStrep( type, &value ), named.name );
   }
}

INSTANTIATE_TEST_SUITE_P( EveryOne, Enumerations, testing::ValuesIn( enumerations() ),
                          []( auto const & one ) {
                             return std::string( one.param.name.substr( 9 ) );
                          } );

TEST( ByteEnumerations, refuseNumbersThatNeedMoreThanAByte ) {
   EXPECT_EQ( LspPingTunnelTypeInstance( 15 ), LspPingTunnelType::tunnelRsvpP2mpIpv4 );
   EXPECT_EQ( LspPingTunnelTypeInstance( 255 ), static_cast< LspPingTunnelType >( 255 ) );
   EXPECT_THROW( LspPingTunnelTypeInstance( 256 ), Kiv::RangeException );
   EXPECT_THROW( LspPingTunnelTypeInstance( 4294967295u ), Kiv::RangeException );
   EXPECT_THROW( LspPingDownstreamMappingTypeInstance( 257 ), Kiv::RangeException );
   static_assert( sizeof( LspPingTunnelType ) == 1 );
   static_assert( sizeof( LspPingDownstreamMappingType ) == 1 );
}

TEST( LspPingTlvType, listsDetailedMappingBeforeTheResponder ) {
   EXPECT_EQ( stringValue( LspPingTlvType::DownstreamDetailedMapping ),
              "DownstreamDetailedMapping" );
   EXPECT_EQ( stringValue( static_cast< LspPingTlvType >( 20 ) ), "DownstreamDetailedMapping" );
   EXPECT_EQ( stringValue( static_cast< LspPingTlvType >( 10 ) ), "ReplyTosByte" );
   EXPECT_EQ( stringValue( static_cast< LspPingTlvType >( 13 ) ), "13" );
   EXPECT_EQ( stringValue( static_cast< LspPingTlvType >( 0xfeed ) ), "VeloraVendorPrivate" );
}

TEST( LspPingTargetFecSubTlvType, keepsTheDeprecatedCodes ) {
   Kiv::CharRange in( "SRIpv4Deprecated" );
   LspPingTargetFecSubTlvType type{};
   sequenceToValue( in, &type );
   EXPECT_EQ( static_cast< U32 >( type ), 31744u );
   EXPECT_EQ( stringValue( static_cast< LspPingTargetFecSubTlvType >( 0x7c01 ) ),
              "SRIpv6Deprecated" );
}

TEST( Parsing, leavesTheValueAloneWhenItFails ) {
   Kiv::CharRange in( "unheardOf" );
   LspPingReturnCode code = LspPingReturnCode::seeDdmTlv;
   EXPECT_THROW( sequenceToValue( in, &code ), Kiv::RangeException );
   EXPECT_EQ( code, LspPingReturnCode::seeDdmTlv );
}

TEST( LspPingConstant, holdsTheProtocolsSettings ) {
   static_assert( LspPingConstant::lspPingUdpPort == 3503 );
   static_assert( LspPingConstant::maxRxPktSize == 65535 );
   static_assert( LspPingConstant::sockBufferSize == 1048576 );
   EXPECT_EQ( LspPingConstant::lspPingServiceName, "lspPing" );
   EXPECT_EQ( LspPingConstant().fwkType().id(), ( Kiv::TypeId{ 17, 3 } ) );
}

} // namespace
