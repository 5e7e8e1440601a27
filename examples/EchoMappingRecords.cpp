#include "examples/EchoBytes.h"
#include "examples/EchoRecords.h"

namespace EchoRecords {

using namespace LspPing;

namespace {

// Type, length and value of a set of addresses or labels or of a list; leaves the mapping alone if
// they do not agree. RFC 8029 section 3.4.1.1.1.
bool multipath( U8 type, Bytes information, Mapping & mapping ) {
   constexpr U8 addressSet = static_cast< U8 >( LspPingMultipathType::maskedIpSetMultipath );
   constexpr U8 labelSet = static_cast< U8 >( LspPingMultipathType::maskedLabelSetMultipath );
   if( type == 0 )
      return information.empty();
   if( type != addressSet && type != labelSet ) {
      mapping.multipathType = type; // a list has no attribute
      return true;
   }
   // Addresses of 127/8 are seen in mappings of IPv6, too, where they should be IPv4-mapped.
   bool const isIpv6 = type == addressSet && mapping.dsIpAddr.isIpv6() && information.size() > 16 &&
                       information[0] != 127;
   std::size_t const baseSize = isIpv6 ? 16 : 4;
   if( information.size() <= baseSize || information.size() % 4 != 0 )
      return false;
   if( isIpv6 )
      mapping.dsMultipathBaseAddr = valueAt< Velnet::Ip6Addr >( information, 0 );
   else if( type == addressSet )
      mapping.dsMultipathBaseAddr = valueAt< Velnet::IpAddr >( information, 0 );
   Bytes const mask = information.subspan( baseSize );
   mapping.multipathType = type;
   mapping.dsMultipathBitset = LspPingMultipathBitset( static_cast< U32 >( mask.size() ) );
   for( std::size_t at = mask.size(); at-- > 0; )
      mapping.dsMultipathBitset.bitsetIs( static_cast< U32 >( at ), mask[at] );
   return true;
}

bool downstreamLabels( Bytes entries, Mapping & mapping ) {
   if( entries.size() % sizeof( LspPingDownstreamLabelEntry ) != 0 )
      return false;
   LspPingDownstreamLabelStack labels;
   for( std::size_t at = 0; at < entries.size(); at += 4 ) {
      labels.labelEntryIs( static_cast< U32 >( at / 4 ),
                           { entries[at], entries[at + 1], entries[at + 2], entries[at + 3] } );
   }
   // Whoever asks for `valid()` later asks for `validEnds()` first: the stack may be endless to it.
   labels.sizeIs( static_cast< U32 >( entries.size() / 4 ) );
   mapping.labelStack = labels;
   return true;
}

// One FEC or, as the RFC uses the word for both, the TLV of a whole stack around it: then its
// length counts what follows, where that of an LDP IPv4 FEC is always 5.
bool changedFec( Bytes fecTlv, LspPingFecInfo & info ) {
   Bytes left = fecTlv;
   Bytes fec = takeElement( left );
   auto const * header = laid< LspPingTlvHdr >( fec );
   if( header == nullptr || !left.empty() )
      return false;
   if( header->type() == static_cast< U16 >( LspPingTlvType::TargetFecStack ) &&
       header->length() != 5 ) {
      left = withoutPadding( fec ).subspan( sizeof( LspPingTlvHdr ) );
      fec = takeElement( left );
      if( !left.empty() )
         return false;
   }
   return fecInfo( fec, info );
}

bool fecStackChange( Bytes value, Mapping & mapping ) {
   auto const * view = laid< LspPingFecStackChangeSubTlv >( value );
   if( view == nullptr || view->addrType() > 2 )
      return false;
   std::size_t const fixedPart = view->addrType() == 0   ? sizeof( *view )
                                 : view->addrType() == 1 ? sizeof( LspPingFecStackChangeV4SubTlv )
                                                         : sizeof( LspPingFecStackChangeV6SubTlv );
   LspPingFecInfo info;
   if( value.size() != fixedPart + view->fecTlvLen() ||
       !changedFec( value.subspan( fixedPart ), info ) )
      return false;
   bool const isPush =
      view->operType() == static_cast< U8 >( LspPingFecStackChangeSubTlvOperType::Push );
   if( !isPush &&
       view->operType() != static_cast< U8 >( LspPingFecStackChangeSubTlvOperType::Pop ) )
      return false;
   LspPingFecStackChangeInfo & change = mapping.fecStackChangeInfo;
   LspPingFecStack stack = isPush ? change.pushTlvInfo() : change.popTlvInfo();
   if( stack.fecInfo().count() > 0xff )
      return false;
   stack.fecInfoIs( static_cast< U8 >( stack.fecInfo().count() ), info );
   if( isPush )
      change.pushTlvInfoIs( stack );
   else
      change.popTlvInfoIs( stack );
   return true;
}

template < class View >
bool detailedMappingOf( Bytes value, Mapping & mapping ) {
   auto const * view = laid< View >( value );
   if( view == nullptr || !view->valid() )
      return false;
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
   return true;
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
            fecStackChangeInfo,
            intf,
            retCode,
            retSubcode,
            true };
}

bool downstreamMapping( Bytes tlv, Mapping & mapping ) {
   Bytes value = withoutPadding( tlv );
   if( value.empty() )
      return false;
   value = value.subspan( sizeof( LspPingTlvHdr ) );
   LspPingDownstreamMappingTlvContainer container;
   // The container is asked, not changed, through the pointer that it wants writable.
   container.tryCastToTlv( const_cast< U8 * >( value.data() ), static_cast< U32 >( value.size() ) );
   // An address type that it does not know is valid, but has no getters.
   if( !container.valid() || container.getAddrType() < 1 || container.getAddrType() > 4 )
      return false;
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
   if( length > behind.size() ||
       !multipath( container.getMultipathType(), behind.first( length ), result ) ||
       !downstreamLabels( behind.subspan( length ), result ) )
      return false;
   mapping = result;
   return true;
}

bool detailedMapping( Bytes tlv, Mapping & mapping ) {
   Bytes const value = withoutPadding( tlv );
   auto const * header = laid< LspPingDdmapHdr >( value );
   if( header == nullptr )
      return false;
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
   return false;
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

bool mappingSubTlv( Bytes subTlv, Mapping & mapping ) {
   Bytes const value = withoutPadding( subTlv );
   if( value.empty() )
      return false;
   switch( static_cast< LspPingDDMappingSubTlvType >( laid< LspPingTlvHdr >( value )->type() ) ) {
   case LspPingDDMappingSubTlvType::MultipathData: {
      auto const * view = laid< LspPingMultipathSubTlv >( value );
      return view != nullptr && value.size() == sizeof( *view ) + view->multipathLength() &&
             multipath( view->multipathType(), value.subspan( sizeof( *view ) ), mapping );
   }
   case LspPingDDMappingSubTlvType::LabelStack:
      return downstreamLabels( value.subspan( sizeof( LspPingTlvHdr ) ), mapping );
   case LspPingDDMappingSubTlvType::FecStackChange:
      return fecStackChange( value, mapping );
   }
   return false;
}

} // namespace EchoRecords
