#include "tests/tools/inspect/Run.h"

#include "tests/module/ExpectedTypes.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using InspectTest::Ran;
using InspectTest::runTypes;

TEST( Types, showsOneTypeAsJson ) {
   EXPECT_EQ( runTypes( "LspPingTlvU8Hdr", true ).out,
              R"j({"modules":[{"name":"LspPingHdr","types":[{"index":1,)j"
              R"j("name":"LspPing::LspPingTlvU8Hdr","kind":"pointer-interface","base":null,)j"
              R"j("hashable":true,"attributes":[)j"
              R"j({"name":"type","id":2,"type":"U8","readable":true,"writable":true,)j"
              R"j("callable":false,"collection":false},)j"
              R"j({"name":"length","id":3,"type":"U16","readable":true,"writable":true,)j"
              R"j("callable":false,"collection":false},)j"
              R"j({"name":"totalLength","id":4,"type":"U16","readable":true,"writable":false,)j"
              R"j("callable":false,"collection":false}],"underlying":null,"enumerators":[]}]}]})j"
              "\n" );
   EXPECT_EQ( runTypes( "LspPing::LspPingPadType", true ).out,
              R"j({"modules":[{"name":"LspPingTypes","types":[{"index":22,)j"
              R"j("name":"LspPing::LspPingPadType","kind":"enumeration","base":null,)j"
              R"j("hashable":false,"attributes":[],"underlying":"U32","enumerators":[)j"
              R"j({"name":"dropPadding","value":1},{"name":"copyPadding","value":2}]}]}]})j"
              "\n" );
}

// What an element is stands beside its attributes.
TEST( Types, showsTheFactsOfElementsAsJson ) {
   auto const elementOf = []( std::string const & type ) {
      std::string const all = runTypes( type, true ).out;
      std::size_t const at = all.find( R"("element":)" );
      return at == std::string::npos ? "" : all.substr( at, all.size() - at - 6 );
   };
   EXPECT_EQ( elementOf( "LspPingSrIpv4SubTlv" ),
              R"("element":{"context":"targetFec","codes":[34,31744],"leastLength":6,)"
              R"("lengths":[6,8],"selectors":[],"behind":"nothing",)"
              R"("words":"IPv4 IGP-Prefix Segment ID","rfc":"RFC 8287 section 5.1"})" );
   EXPECT_EQ( elementOf( "LspPingDdmapV6Tlv" ),
              R"("element":{"context":"message","codes":[20],"leastLength":40,"lengths":[],)"
              R"("selectors":[{"offset":6,"value":3}],"behind":"subTlvs",)"
              R"("words":"Downstream Detailed Mapping","rfc":"RFC 8029 section 3.4"})" );
   EXPECT_EQ( elementOf( "LspPingTlvHdr" ), "" );
}

TEST( Types, showsTheWholeRegistryAsJson ) {
   Ran const ran = runTypes( "", true );
   rapidjson::Document json;
   json.Parse( ran.out.c_str() );
   ASSERT_FALSE( json.HasParseError() );
   std::map< std::string, std::vector< std::string > > names;
   for( auto const & module : json["modules"].GetArray() )
      for( auto const & type : module["types"].GetArray() )
         names[module["name"].GetString()].emplace_back( type["name"].GetString() );
   EXPECT_EQ( names.count( "Kiv" ), 1u );
   auto const expected = []( std::span< ExpectedType const > types ) {
      std::vector< std::string > all;
      for( ExpectedType const & type : types )
         all.push_back( "LspPing::" + std::string( type.name ) );
      return all;
   };
   EXPECT_EQ( names["LspPingHdr"], expected( expectedHdrTypes ) );
   EXPECT_EQ( names["LspPingTypes"], expected( expectedTypesTypes ) );
}

TEST( Types, takesTheNameOfAModule ) {
   rapidjson::Document json;
   Ran const ran = runTypes( "LspPingTypes", true );
   json.Parse( ran.out.c_str() );
   ASSERT_EQ( json["modules"].Size(), 1u );
   EXPECT_EQ( json["modules"][0]["types"][3]["name"], "LspPing::LspPingConstant" );
}

TEST( Types, printsOperationsWithTheirArguments ) {
   EXPECT_EQ( runTypes( "NtpTime", false ).out,
              "LspPingHdr\n"
              "  3 LspPing::NtpTime, pointer-interface\n"
              "    2 --c ntpSeconds: U32()\n"
              "    3 --c ntpFraction: U32()\n"
              "    4 --c ntpTime: U64()\n"
              "    5 --c time: double()\n"
              "    6 --c elapsedTime: U32(LspPing::NtpTimeU64 time0, LspPing::NtpTimeU64 time1)\n"
              "    7 --c fractionToU32: U32(double s)\n" );
}

TEST( Types, refusesNamesThatAreNotRegistered ) {
   Ran const ran = runTypes( "Nothing", false );
   EXPECT_EQ( ran.status, 2 );
   EXPECT_EQ( ran.err, "lspping: no type \"Nothing\" is registered\n" );
}

// The enterprise number is a choice of the build; the reference was made with the usual one.
#if LSPPING_VENDOR_IANA == 32473
std::string kept( std::string const & path ) {
   std::ifstream file( path );
   EXPECT_TRUE( file.is_open() ) << path;
   std::ostringstream text;
   text << file.rdbuf();
   return text.str();
}

TEST( Types, printsTheReferencesThatAreKept ) {
   EXPECT_EQ( runTypes( "", false, true ).out, kept( LSPPING_DOCS "/types.md" ) )
      << "docs/types.md is not current: build the target types-reference";
   LspPingTool::TypesOptions elements;
   elements.elements = true;
   EXPECT_EQ( InspectTest::run( &LspPingTool::runTypes, elements ).out,
              kept( LSPPING_DOCS "/elements.md" ) )
      << "docs/elements.md is not current: build the target types-reference";
}
#endif

} // namespace
