#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"

#include <cstdlib>
#include <iostream>
#include <random>

// Random records for the property tests, values without enumerator included.
namespace LspPing {

/// Another one for each run, printed so that a failure can be seen again: the environment variable
/// LSPPING_TEST_SEED takes it back.
inline std::mt19937_64 seededRandom() {
   char const * const given = std::getenv( "LSPPING_TEST_SEED" );
   U64 const seed = given != nullptr ? std::strtoull( given, nullptr, 10 ) : std::random_device{}();
   std::cout << "LSPPING_TEST_SEED=" << seed << '\n';
   return std::mt19937_64{ seed };
}

class RandomRecords {
 public:
   explicit RandomRecords( std::mt19937_64 random ) : random_( random ) {}

   /// Small numbers, large ones and the edges.
   template < class T >
   T number() {
      switch( random_() % 4 ) {
      case 0:
         return static_cast< T >( random_() % 20 );
      case 1:
         return static_cast< T >( ~T{ 0 } );
      default:
         return static_cast< T >( random_() );
      }
   }
   U8 byte() { return number< U8 >(); }
   bool flag() { return random_() % 2 != 0; }
   U64 below( U64 limit ) { return random_() % limit; }
   template < class E >
   E enumerator() {
      return static_cast< E >( number< std::underlying_type_t< E > >() );
   }

   Velnet::IpGenAddr addr() {
      switch( random_() % 3 ) {
      case 0:
         return {};
      case 1:
         return Velnet::IpAddr::fromHost( number< U32 >() );
      default:
         Velnet::Ip6Addr::Bytes bytes{};
         for( U8 & one : bytes )
            one = flag() ? byte() : U8{ 0 };
         return Velnet::Ip6Addr( bytes );
      }
   }
   Velnet::IpGenPrefix prefix() {
      Velnet::IpGenAddr const address = addr();
      return { address,
               static_cast< U8 >( below( Velnet::IpGenPrefix::longest( address ) + 1u ) ) };
   }
   Velnet::MplsLabel label() {
      return Velnet::MplsLabel( static_cast< U32 >( below( Velnet::MplsLabel::unset + 1u ) ) );
   }
   Velnet::MplsLabelStack labels() {
      Velnet::MplsLabelStack stack;
      for( U64 count = below( 5 ); count > 0; --count )
         stack.entryAdd( Velnet::MplsLabelEntry( number< U32 >() ) );
      return stack;
   }
   Pseudowire::PseudowireAttachmentIdentifier attachment() {
      Pseudowire::PseudowireAttachmentIdentifier id( byte(), static_cast< U8 >( below( 12 ) ) );
      for( U32 index = 0; index < id.maxLength; ++index )
         id.valueIs( index, byte() );
      return id;
   }
   Pseudowire::PseudowireGenId genId() { return { attachment(), attachment(), attachment() }; }

   template < class R >
   R record();

 private:
   std::mt19937_64 random_;
};

template <>
inline Rsvp::RsvpSpId RandomRecords::record() {
   return { addr(), number< U16 >(), addr(), number< U16 >() };
}

template <>
inline Rsvp::RsvpSpGroupId RandomRecords::record() {
   return { number< U32 >(), number< U16 >(), addr(), number< U16 >(), addr(), number< U16 >() };
}

template <>
inline LspPingPwInfo RandomRecords::record() {
   LspPingPwInfo info( addr(), addr(), number< U32 >(), genId(),
                       enumerator< Pseudowire::PseudowireType >(), flag() );
   info.activeCcTypeIs( enumerator< Pseudowire::PwPingCcType >() );
   return info;
}

template <>
inline LspPingFecInfo RandomRecords::record() {
   return LspPingFecInfo( enumerator< LspPingTargetFecSubTlvType >(), prefix(), number< U64 >(),
                          enumerator< MplsUtils::MplsOamStandard >(), byte(), label(),
                          record< Rsvp::RsvpSpGroupId >(), record< Rsvp::RsvpSpId >(), addr(),
                          record< LspPingPwInfo >(), enumerator< LspPingP2mpFecStackSubTlvType >(),
                          number< U32 >(), addr(), addr(), addr(), byte(),
                          enumerator< LspPingSrIgpProtocol >() );
}

template <>
inline LspPingFecStack RandomRecords::record() {
   LspPingFecStack stack;
   for( U64 count = 1 + below( 4 ); count > 0; --count )
      stack.fecInfoIs( byte(), record< LspPingFecInfo >() );
   return stack;
}

template <>
inline LspPingFecStackChangeInfo RandomRecords::record() {
   LspPingFecStackChangeInfo info;
   info.popTlvInfoIs( record< LspPingFecStack >() );
   info.pushTlvInfoIs( record< LspPingFecStack >() );
   return info;
}

template <>
inline LspPingDownstreamLabelEntry RandomRecords::record() {
   return LspPingDownstreamLabelEntry( byte(), byte(), byte(), byte() );
}

template <>
inline LspPingDownstreamLabelStack RandomRecords::record() {
   LspPingDownstreamLabelStack stack;
   stack.sizeIs( number< U32 >() );
   for( U64 count = 1 + below( 4 ); count > 0; --count )
      stack.labelEntryIs( static_cast< U32 >( below( 20 ) ),
                          record< LspPingDownstreamLabelEntry >() );
   return stack;
}

template <>
inline LspPingMultipathBitset RandomRecords::record() {
   LspPingMultipathBitset bitset( number< U32 >() );
   for( U64 count = 1 + below( 4 ); count > 0; --count )
      bitset.bitsetIs( static_cast< U32 >( below( 20 ) ), byte() );
   return bitset;
}

template <>
inline LspPingDownstreamMappingInfo RandomRecords::record() {
   return LspPingDownstreamMappingInfo(
      number< U16 >(), byte(), byte(), addr(), addr(), byte(), byte(), addr(),
      record< LspPingMultipathBitset >(), record< LspPingDownstreamLabelStack >(),
      record< LspPingFecStackChangeInfo >(), Velnet::IntfId( number< U32 >() ),
      enumerator< LspPingReturnCode >(), byte(), flag() );
}

template <>
inline LspPingDownstreamMappingInfoSet RandomRecords::record() {
   LspPingDownstreamMappingInfoSet set( enumerator< LspPingDownstreamMappingType >() );
   for( U64 count = 1 + below( 4 ); count > 0; --count )
      set.lspPingDownstreamMappingInfoIs( byte(), record< LspPingDownstreamMappingInfo >() );
   return set;
}

template <>
inline LspPingIntfAndLabelStackInfo RandomRecords::record() {
   return LspPingIntfAndLabelStackInfo( byte(), addr(), addr(), number< U32 >(), labels(), flag() );
}

template <>
inline LspPingPadInfo RandomRecords::record() {
   LspPingPadInfo info( byte(), flag() );
   info.lengthIs( number< U32 >() );
   for( U64 count = 1 + below( 4 ); count > 0; --count )
      info.paddingIs( static_cast< U32 >( below( 20 ) ), byte() );
   return info;
}

} // namespace LspPing
