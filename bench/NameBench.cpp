#include "bench/Rows.h"

#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <array>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// An enumeration of 24, the size of the largest that the protocol has.
namespace Bench {

KIV_ENUMERATION( Element, U32, TargetFecStack = 1, DownstreamMapping = 2, Pad = 3, NotAssigned = 4,
                 VendorEnterpriseNum = 5, LDPIpv4 = 6, IntfAndLabelStack = 7, LDPIpv6 = 8,
                 ErrorTlv = 9, ReplyTosByte = 10, P2mpRespId = 11, EchoJitter = 12,
                 RSVPIpv4Lsp = 13, RSVPIpv6Lsp = 14, VPNIpv4 = 15, VPNIpv6 = 16, L2VPNEndpoint = 17,
                 FEC128Pseudowire = 18, FEC129Pseudowire = 19, DownstreamDetailedMapping = 20,
                 BGPLabeledIpv4 = 21, BGPLabeledIpv6 = 22, GenericIpv4 = 23, GenericIpv6 = 24 );

} // namespace Bench

namespace {

// The comparator in its best form: found by a view of the name, without making a string of it.
struct ViewHash {
   using is_transparent = void;
   std::size_t operator()( std::string_view text ) const noexcept {
      return std::hash< std::string_view >{}( text );
   }
};
template < class Value >
using NameMap = std::unordered_map< std::string, Value, ViewHash, std::equal_to<> >;

// Every registered type once, in an order that is not the tables'.
std::vector< std::string > const & typeNames() {
   static std::vector< std::string > const names = [] {
      std::vector< std::string > all;
      for( Kiv::ModuleTable const * module : Kiv::modules() ) {
         for( U16 i = 0; i < module->count; ++i )
            if( !module->types[i].name.empty() )
               all.emplace_back( module->types[i].name );
      }
      std::shuffle( all.begin(), all.end(), std::minstd_rand( 3 ) );
      return all;
   }();
   return names;
}

void typeByNameOurs( benchmark::State & state ) {
   auto const & names = typeNames();
   for( auto _ : state )
      for( std::string_view const name : names )
         benchmark::DoNotOptimize( Kiv::typeNamed( name ) );
}

void typeByNamePeer( benchmark::State & state ) {
   auto const & names = typeNames();
   NameMap< Kiv::TypeRecord const * > map;
   for( std::string const & name : names )
      map.emplace( name, &Kiv::typeNamed( name ).record() );
   for( auto _ : state )
      for( std::string_view const name : names )
         benchmark::DoNotOptimize( map.find( name )->second );
}

std::vector< Bench::Element > const & elements() {
   static std::vector< Bench::Element > const shuffled = [] {
      std::vector< Bench::Element > all;
      for( U32 number = 1; number <= 24; ++number )
         all.push_back( Bench::Element{ number } );
      std::shuffle( all.begin(), all.end(), std::minstd_rand( 5 ) );
      return all;
   }();
   return shuffled;
}

std::vector< std::string > const & elementNames() {
   static std::vector< std::string > const names = [] {
      std::vector< std::string > all;
      for( Bench::Element const element : elements() )
         all.push_back( stringValue( element ) );
      return all;
   }();
   return names;
}

void enumeratorNameOurs( benchmark::State & state ) {
   auto const & values = elements();
   for( auto _ : state )
      for( Bench::Element const value : values )
         benchmark::DoNotOptimize( stringValue( value ) );
}

void enumeratorNamePeer( benchmark::State & state ) {
   static std::array< std::string_view, 25 > const names = [] {
      std::array< std::string_view, 25 > filled;
      for( std::size_t i = 0; i < 24; ++i )
         filled[static_cast< std::size_t >( elements()[i] )] = elementNames()[i];
      return filled;
   }();
   auto const & values = elements();
   for( auto _ : state ) {
      for( Bench::Element const value : values ) {
         auto const number = static_cast< std::size_t >( value );
         benchmark::DoNotOptimize( number < names.size() ? std::string( names[number] )
                                                         : std::to_string( number ) );
      }
   }
}

void enumeratorOfNameOurs( benchmark::State & state ) {
   auto const & names = elementNames();
   for( auto _ : state )
      for( std::string const & name : names )
         benchmark::DoNotOptimize( Bench::ElementInstance( name ) );
}

void enumeratorOfNamePeer( benchmark::State & state ) {
   auto const & names = elementNames();
   NameMap< Bench::Element > map;
   for( std::size_t i = 0; i < names.size(); ++i )
      map.emplace( names[i], elements()[i] );
   for( auto _ : state ) {
      for( std::string const & name : names ) {
         auto const found = map.find( name );
         if( found == map.end() )
            std::abort();
         benchmark::DoNotOptimize( found->second );
      }
   }
}

int const rows = Bench::row( "typeByName", typeByNameOurs, typeByNamePeer ) +
                 Bench::row( "enumeratorName", enumeratorNameOurs, enumeratorNamePeer ) +
                 Bench::row( "enumeratorOfName", enumeratorOfNameOurs, enumeratorOfNamePeer );

} // namespace
