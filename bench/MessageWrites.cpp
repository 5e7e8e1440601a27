#include "bench/Messages.h"

#include <cstring>

namespace Bench {

using namespace LspPing;

namespace {

constexpr U64 routeDistinguisher = 0x0000006400000001;
constexpr U16 mtu = 1500;

} // namespace

std::size_t writeThroughLibrary( std::span< U8 > place, Reply const & reply ) {
   LspPingMessageWriter writer( place );
   writer.header( [&]( LspPingHdr & header ) {
      header.messageTypeIs( 2 );
      header.replyModeIs( 2 );
      header.returnCodeIs( 8 );
      header.returnSubcodeIs( 1 );
      header.senderHandleIs( reply.handle );
      header.sequenceNumberIs( reply.sequence );
   } );
   {
      auto const stack = writer.open( LspPingTlvType::TargetFecStack );
      writer.add< LspPingLdpIpv4SubTlv >( [&]( auto & fec ) {
         fec.ipPrefixIs( reply.prefix );
         fec.prefixLenIs( 24 );
      } );
      writer.add< LspPingVpnIpv4SubTlv >( [&]( auto & fec ) {
         fec.rdIs( routeDistinguisher );
         fec.ipPrefixIs( reply.vpnPrefix );
         fec.prefixLenIs( 25 );
      } );
   }
   {
      auto const mapping = writer.open< LspPingDdmapTlv >( [&]( auto & tlv ) {
         tlv.mtuIs( mtu );
         tlv.dsIpAddrIs( reply.nextHop );
         tlv.dsIntfAddrIs( reply.interface );
         tlv.retCodeIs( 8 );
         tlv.retSubcodeIs( 1 );
      } );
      {
         auto stack = writer.open( LspPingDDMappingSubTlvType::LabelStack );
         for( Velnet::MplsLabelEntry const label : reply.labels )
            stack.label( label );
      }
      auto multipath = writer.open< LspPingMultipathSubTlv >();
      multipath.multipathSet( reply.multipathBase, reply.multipathMask );
   }
   return writer.error() ? 0 : writer.bytes().size();
}

namespace {

// Stores in the order of the bytes, as long as there is room.
struct Cursor {
   U8 * at;
   U8 * end;

   bool has( std::size_t count ) const noexcept {
      return count <= static_cast< std::size_t >( end - at );
   }
   void u8( U32 value ) noexcept { *at++ = static_cast< U8 >( value ); }
   void u16( U32 value ) noexcept {
      U16 const raw = __builtin_bswap16( static_cast< U16 >( value ) );
      std::memcpy( at, &raw, sizeof raw );
      at += sizeof raw;
   }
   void u32( U32 value ) noexcept {
      U32 const raw = __builtin_bswap32( value );
      std::memcpy( at, &raw, sizeof raw );
      at += sizeof raw;
   }
   void address( Velnet::IpAddr address ) noexcept {
      std::memcpy( at, address.bytes().data(), 4 );
      at += 4;
   }
};

void length( U8 * at, std::size_t value ) noexcept {
   at[0] = static_cast< U8 >( value >> 8 );
   at[1] = static_cast< U8 >( value );
}

} // namespace

std::size_t writeByHand( std::span< U8 > place, Reply const & reply ) {
   Cursor cursor{ place.data(), place.data() + place.size() };
   if( !cursor.has( 32 ) )
      return 0;
   cursor.u16( 1 );
   cursor.u16( 0 );
   cursor.u8( 2 );
   cursor.u8( 2 );
   cursor.u8( 8 );
   cursor.u8( 1 );
   cursor.u32( reply.handle );
   cursor.u32( reply.sequence );
   std::memset( cursor.at, 0, 16 );
   cursor.at += 16;

   if( !cursor.has( 4 + 12 + 20 ) )
      return 0;
   U8 * const stack = cursor.at;
   cursor.u32( 0x00010000 );
   cursor.u32( 0x00010005 );
   cursor.address( reply.prefix );
   cursor.u32( 24u << 24 );
   cursor.u32( 0x0006000d );
   cursor.u32( routeDistinguisher >> 32 );
   cursor.u32( static_cast< U32 >( routeDistinguisher ) );
   cursor.address( reply.vpnPrefix );
   cursor.u32( 25u << 24 );
   length( stack + 2, static_cast< std::size_t >( cursor.at - stack - 4 ) );

   if( !cursor.has( 20 ) )
      return 0;
   U8 * const mapping = cursor.at;
   cursor.u32( 0x00140000 );
   cursor.u16( mtu );
   cursor.u8( 1 );
   cursor.u8( 0 );
   cursor.address( reply.nextHop );
   cursor.address( reply.interface );
   cursor.u8( 8 );
   cursor.u8( 1 );
   cursor.u16( 0 );

   if( !cursor.has( 4 + 4 * reply.labels.size() ) )
      return 0;
   U8 * const labels = cursor.at;
   cursor.u32( 0x00020000 );
   for( Velnet::MplsLabelEntry const label : reply.labels )
      cursor.u32( label.word() );
   length( labels + 2, static_cast< std::size_t >( cursor.at - labels - 4 ) );

   std::size_t const information = 4 + reply.multipathMask.size();
   std::size_t const padding = ( 4 - information % 4 ) % 4;
   if( !cursor.has( 8 + information + padding ) )
      return 0;
   cursor.u16( 1 );
   cursor.u16( static_cast< U32 >( 4 + information ) );
   cursor.u8( 8 );
   cursor.u16( static_cast< U32 >( information ) );
   cursor.u8( 0 );
   cursor.address( reply.multipathBase );
   std::memcpy( cursor.at, reply.multipathMask.data(), reply.multipathMask.size() );
   cursor.at += reply.multipathMask.size();
   std::memset( cursor.at, 0, padding );
   cursor.at += padding;

   std::size_t const subTlvs = static_cast< std::size_t >( cursor.at - mapping - 20 );
   if( subTlvs + 16 > 0xffff )
      return 0;
   length( mapping + 2, subTlvs + 16 );
   length( mapping + 18, subTlvs );
   return static_cast< std::size_t >( cursor.at - place.data() );
}

} // namespace Bench
