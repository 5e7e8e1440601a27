#include "examples/EchoBytes.h"
#include "examples/EchoRecords.h"

#include <array>
#include <cstring>
#include <utility>

namespace EchoRecords {

using namespace LspPing;

namespace {

constexpr Kept noAddresses = notKept( "no attributes for this address type" );

// Type, length and value of a set of addresses or labels or of a list; leaves the mapping alone if
// they do not agree. RFC 8029 section 3.4.1.1.1.
Kept multipath( U8 type, Bytes information, Mapping & mapping ) {
   constexpr U8 addressSet = static_cast< U8 >( LspPingMultipathType::maskedIpSetMultipath );
   constexpr U8 labelSet = static_cast< U8 >( LspPingMultipathType::maskedLabelSetMultipath );
   if( type == 0 && !information.empty() )
      return notWellFormed;
   if( information.empty() ) {
      mapping.multipathType = type;
      return keptWhole;
   }
   if( type != addressSet && type != labelSet ) {
      mapping.multipathType = type;
      return keptWithout( "multipath information that is no set" );
   }
   bool const isIpv6 = hasIpv6Addresses( type, information, mapping.dsIpAddr.isIpv6() );
   std::size_t const baseSize = isIpv6 ? 16 : 4;
   if( information.size() <= baseSize || information.size() % 4 != 0 )
      return notWellFormed;
   if( isIpv6 )
      mapping.dsMultipathBaseAddr = valueAt< Velnet::Ip6Addr >( information, 0 );
   else if( type == addressSet )
      mapping.dsMultipathBaseAddr = valueAt< Velnet::IpAddr >( information, 0 );
   Bytes const mask = information.subspan( baseSize );
   mapping.multipathType = type;
   mapping.dsMultipathBitset = LspPingMultipathBitset( static_cast< U32 >( mask.size() ) );
   for( std::size_t at = mask.size(); at-- > 0; )
      mapping.dsMultipathBitset.bitsetIs( static_cast< U32 >( at ), mask[at] );
   return type == labelSet ? keptWithout( "the base label of the multipath information" )
                           : keptWhole;
}

Kept downstreamLabels( Bytes entries, Mapping & mapping ) {
   if( entries.size() % sizeof( LspPingDownstreamLabelEntry ) != 0 )
      return notWellFormed;
   LspPingDownstreamLabelStack labels;
   for( std::size_t at = 0; at < entries.size(); at += 4 ) {
      labels.labelEntryIs( static_cast< U32 >( at / 4 ),
                           { entries[at], entries[at + 1], entries[at + 2], entries[at + 3] } );
   }
   // Whoever asks for `valid()` later asks for `validEnds()` first: the stack may be endless to it.
   labels.sizeIs( static_cast< U32 >( entries.size() / 4 ) );
   mapping.labelStack = std::move( labels );
   return keptWhole;
}

// One FEC or, as the RFC uses the word for both, the TLV of a whole stack around it: then its
// length counts what follows, where that of an LDP IPv4 FEC is always 5.
Kept changedFec( Bytes fecTlv, LspPingFecInfo & info ) {
   Bytes left = fecTlv;
   Bytes fec = takeElement( left );
   auto const * header = laid< LspPingTlvHdr >( fec );
   if( header == nullptr || !left.empty() )
      return notKept( "not one FEC" );
   if( header->type() == static_cast< U16 >( LspPingTlvType::TargetFecStack ) &&
       header->length() != 5 ) {
      left = withoutPadding( fec ).subspan( sizeof( LspPingTlvHdr ) );
      fec = takeElement( left );
      if( !left.empty() )
         return notKept( "not one FEC" );
   }
   return fecInfo( fec, info );
}

// The FEC's length may leave out its padding, which follows all the same: in the sub-TLV or as its
// padding.
Kept fecStackChange( Bytes subTlv, Mapping & mapping ) {
   auto const * view = laid< LspPingFecStackChangeSubTlv >( subTlv );
   if( view == nullptr || view->addrType() > 2 )
      return notWellFormed;
   std::size_t const fixedPart = view->addrType() == 0   ? sizeof( *view )
                                 : view->addrType() == 1 ? sizeof( LspPingFecStackChangeV4SubTlv )
                                                         : sizeof( LspPingFecStackChangeV6SubTlv );
   std::size_t const size = withoutPadding( subTlv ).size();
   std::size_t const end = fixedPart + view->fecTlvLen();
   if( end > size || size > ( ( end + 3 ) & ~std::size_t{ 3 } ) )
      return notWellFormed;
   bool const isPush =
      view->operType() == static_cast< U8 >( LspPingFecStackChangeSubTlvOperType::Push );
   if( !isPush &&
       view->operType() != static_cast< U8 >( LspPingFecStackChangeSubTlvOperType::Pop ) )
      return notWellFormed;
   if( view->fecTlvLen() == 0 )
      return notKept( "a change without a FEC" );
   LspPingFecInfo info;
   Kept const kept = changedFec( subTlv.subspan( fixedPart ), info );
   if( !kept.isKept )
      return kept;
   LspPingFecStack & stack = isPush ? mapping.pushed : mapping.popped;
   if( stack.fecInfo().count() > 0xff )
      return notKept( "behind 256 changes" );
   stack.fecInfoIs( static_cast< U8 >( stack.fecInfo().count() ), info );
   return view->addrType() == 0 ? kept : keptWithout( "the address of the remote peer" );
}

template < class View >
Kept detailedMappingOf( Bytes value, Mapping & mapping ) {
   auto const * view = laid< View >( value );
   if( view == nullptr || !view->valid() )
      return notWellFormed;
   mapping = {};
   mapping.mtu = view->mtu();
   mapping.addrType = view->addrType();
   mapping.dsFlags = view->dsFlags();
   mapping.dsIpAddr = view->dsIpAddr();
   if constexpr( requires { view->dsIntfAddr(); } )
      mapping.dsIntfAddr = view->dsIntfAddr();
   else
      mapping.intf = Velnet::IntfId( view->dsIntfId() );
   mapping.retCode = static_cast< LspPingReturnCode >( view->retCode() );
   mapping.retSubcode = view->retSubcode();
   return keptWhole;
}

// Bytes of a Downstream Mapping's value up to the multipath information.
std::size_t fixedPartOf( LspPingDownstreamMappingTlvContainer const & container ) {
   if( container.isIpv4() )
      return sizeof( LspPingDownstreamMappingIpv4Tlv );
   return container.getAddrType() == static_cast< U8 >( LspPingAddrType::ipv6Numbered )
             ? sizeof( LspPingDownstreamMappingIpv6Tlv )
             : sizeof( LspPingDownstreamMappingIpv6UnnumberedTlv );
}

} // namespace

LspPingDownstreamMappingInfo Mapping::record() const {
   LspPingFecStackChangeInfo changes;
   changes.popTlvInfoIs( popped );
   changes.pushTlvInfoIs( pushed );
   return { mtu,
            addrType,
            dsFlags,
            dsIpAddr,
            dsIntfAddr,
            multipathType,
            depthLimit,
            dsMultipathBaseAddr,
            dsMultipathBitset,
            labelStack,
            changes,
            intf,
            retCode,
            retSubcode,
            true };
}

bool hasIpv6Addresses( U8 multipathType, Bytes information, bool isMappingIpv6 ) noexcept {
   constexpr std::array< U8, 12 > mapped{ 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff };
   return multipathType != static_cast< U8 >( LspPingMultipathType::maskedLabelSetMultipath ) &&
          information.size() >= sizeof( Velnet::Ip6Addr ) &&
          ( std::memcmp( information.data(), mapped.data(), mapped.size() ) == 0 ||
            ( isMappingIpv6 && information[0] != 127 ) );
}

Kept downstreamMapping( Bytes tlv, Mapping & mapping ) {
   Bytes value = withoutPadding( tlv );
   if( value.empty() )
      return notWellFormed;
   value = value.subspan( sizeof( LspPingTlvHdr ) );
   LspPingDownstreamMappingTlvContainer container;
   // The container is asked, not changed, through the pointer that it wants writable.
   container.tryCastToTlv( const_cast< U8 * >( value.data() ), static_cast< U32 >( value.size() ) );
   if( !container.valid() )
      return notWellFormed;
   // An address type that it does not know is valid, but has no getters.
   if( container.getAddrType() < 1 || container.getAddrType() > 4 )
      return noAddresses;
   Mapping result;
   result.mtu = container.getMtu().value();
   result.addrType = container.getAddrType();
   result.dsFlags = container.getDsFlags();
   result.dsIpAddr = container.getDsIpAddr();
   result.dsIntfAddr = container.getDsIntfAddr();
   result.intf = container.getDsIntfId();
   result.depthLimit = container.getDepthLimit();
   Bytes const behind = value.subspan( fixedPartOf( container ) );
   std::size_t const length = container.getMultipathLength().value();
   if( length > behind.size() )
      return notWellFormed;
   Kept const kept = multipath( container.getMultipathType(), behind.first( length ), result );
   if( !kept.isKept || !downstreamLabels( behind.subspan( length ), result ).isKept )
      return notWellFormed;
   mapping = result;
   return kept;
}

Kept detailedMapping( Bytes tlv, Mapping & mapping ) {
   Bytes const value = withoutPadding( tlv );
   auto const * header = laid< LspPingDdmapHdr >( value );
   if( header == nullptr )
      return notWellFormed;
   switch( static_cast< LspPingAddrType >( header->addrType() ) ) {
   case LspPingAddrType::ipv4Numbered:
      return detailedMappingOf< LspPingDdmapTlv >( value, mapping );
   case LspPingAddrType::ipv4Unnumbered:
      return detailedMappingOf< LspPingDdmapUnnumberedTlv >( value, mapping );
   case LspPingAddrType::ipv6Numbered:
      return detailedMappingOf< LspPingDdmapV6Tlv >( value, mapping );
   case LspPingAddrType::ipv6Unnumbered:
      return detailedMappingOf< LspPingDdmapV6UnnumberedTlv >( value, mapping );
   }
   return noAddresses;
}

Bytes subTlvsOf( Bytes tlv ) noexcept {
   Bytes const value = withoutPadding( tlv );
   auto const * header = laid< LspPingDdmapHdr >( value );
   if( header == nullptr || header->addrType() < 1 || header->addrType() > 4 )
      return {};
   std::size_t const fixedPart = header->addrType() < 3    ? sizeof( LspPingDdmapTlv )
                                 : header->addrType() == 3 ? sizeof( LspPingDdmapV6Tlv )
                                                           : sizeof( LspPingDdmapV6UnnumberedTlv );
   // The last two bytes of that part are the length of what follows.
   if( value.size() < fixedPart )
      return {};
   std::size_t const length = valueAt< Velnet::NetU16 >( value, fixedPart - 2 ).value();
   return length > value.size() - fixedPart ? Bytes{} : value.subspan( fixedPart, length );
}

Kept mappingSubTlv( Bytes subTlv, Mapping & mapping ) {
   Bytes const value = withoutPadding( subTlv );
   if( value.empty() )
      return notWellFormed;
   switch( static_cast< LspPingDDMappingSubTlvType >( laid< LspPingTlvHdr >( value )->type() ) ) {
   case LspPingDDMappingSubTlvType::MultipathData: {
      auto const * view = laid< LspPingMultipathSubTlv >( value );
      if( view == nullptr || value.size() != sizeof( *view ) + view->multipathLength() )
         return notWellFormed;
      return multipath( view->multipathType(), value.subspan( sizeof( *view ) ), mapping );
   }
   case LspPingDDMappingSubTlvType::LabelStack:
      return downstreamLabels( value.subspan( sizeof( LspPingTlvHdr ) ), mapping );
   case LspPingDDMappingSubTlvType::FecStackChange:
      return fecStackChange( subTlv, mapping );
   }
   return notKept( "no attribute for this sub-TLV" );
}

} // namespace EchoRecords
