#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"

#include "MplsUtils/LspPing/message/LspPingKept.h"

#include <utility>

namespace LspPing {

namespace {

using Kept = LspPingKept;

// A downstream mapping while it is put together: the record itself is fixed once it is constructed.
struct Mapping {
   U16 mtu = 0;
   U8 addrType = 0;
   U8 dsFlags = 0;
   Velnet::IpGenAddr dsIpAddr;
   Velnet::IpGenAddr dsIntfAddr;
   U8 multipathType = 0;
   U8 depthLimit = 0;
   Velnet::IpGenAddr dsMultipathBaseAddr;
   LspPingMultipathBitset dsMultipathBitset;
   LspPingDownstreamLabelStack labelStack;
   LspPingFecStack popped;
   LspPingFecStack pushed;
   Velnet::IntfId intf;
   LspPingReturnCode retCode = LspPingReturnCode::noRetCode;
   U8 retSubcode = 0;

   LspPingDownstreamMappingInfo record() const {
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
};

// Of multipath information there is, or is said to be, as much as the fixed part counts.
Kept keepMultipath( LspPingElementRef element, U8 type, U32 length, Mapping & mapping ) {
   LspPingMultipath const multipath = element.multipath();
   using Type = LspPingMultipathType;
   bool const isSetType = multipath.isLabels() || multipath.type() == Type::maskedIpSetMultipath ||
                          multipath.type() == Type::noMultipath;
   if( length != multipath.bytes().size() || ( isSetType && !multipath.isWellFormed() ) )
      return Kept::notWellFormed();
   mapping.multipathType = type;
   // Nothing stays of a sub-TLV before this one.
   mapping.dsMultipathBaseAddr = {};
   mapping.dsMultipathBitset = {};
   if( length == 0 )
      return Kept::whole();
   // Of lists, whatever they are, the record has the type.
   if( !isSetType )
      return Kept::without( "multipath information that is no set" );
   std::span< U8 const > const mask = multipath.mask();
   mapping.dsMultipathBitset = LspPingMultipathBitset( static_cast< U32 >( mask.size() ) );
   // From the end, so that the set grows once.
   for( std::size_t at = mask.size(); at-- > 0; )
      mapping.dsMultipathBitset.bitsetIs( static_cast< U32 >( at ), mask[at] );
   if( multipath.isLabels() )
      return Kept::without( "the base label of the multipath information" );
   mapping.dsMultipathBaseAddr = multipath.baseAddress();
   return Kept::whole();
}

void keepLabels( LspPingLabels labels, Mapping & mapping ) {
   LspPingDownstreamLabelStack stack;
   std::span< U8 const > const bytes = labels.bytes();
   for( std::size_t at = 0; at < bytes.size(); at += 4 ) {
      stack.labelEntryIs( static_cast< U32 >( at / 4 ),
                          { bytes[at], bytes[at + 1], bytes[at + 2], bytes[at + 3] } );
   }
   // Whoever asks for `valid()` later asks for `validEnds()` first: the stack may be endless to it.
   stack.sizeIs( static_cast< U32 >( labels.size() ) );
   mapping.labelStack = std::move( stack );
}

// What both kinds of mappings say, and their four address types.
template < class View >
bool keepView( LspPingElementRef tlv, Mapping & mapping ) {
   View const * const view = tlv.as< View >();
   if( view == nullptr || !tlv.isValid() )
      return false;
   if constexpr( requires { view->retCode(); } ) {
      mapping.mtu = view->mtu();
      mapping.retCode = static_cast< LspPingReturnCode >( view->retCode() );
      mapping.retSubcode = view->retSubcode();
   } else {
      mapping.mtu = view->mtu().value();
      mapping.depthLimit = view->depthLimit();
      mapping.multipathType = view->multipathType();
   }
   mapping.addrType = view->addrType();
   mapping.dsFlags = view->dsFlags();
   mapping.dsIpAddr = view->dsIpAddr();
   if constexpr( requires { view->dsIntfAddr(); } )
      mapping.dsIntfAddr = view->dsIntfAddr();
   else
      mapping.intf = Velnet::IntfId( view->dsIntfId() );
   return true;
}

template < class... Views >
Kept keepFixedPart( LspPingElementRef tlv, Mapping & mapping ) {
   if( ( keepView< Views >( tlv, mapping ) || ... ) )
      return Kept::whole();
   return tlv.type() ? Kept::refused( "no attributes for this address type" )
                     : Kept::notWellFormed();
}

template < class View >
bool keepView( LspPingElementRef tlv, LspPingIntfAndLabelStackInfo & info ) {
   View const * const view = tlv.as< View >();
   if( view == nullptr || tlv.labels().bytes().size() != tlv.length() - sizeof( View ) )
      return false;
   Velnet::IpGenAddr intfAddr;
   U32 intfId = 0;
   if constexpr( requires { view->intf(); } )
      intfAddr = view->intf();
   else
      intfId = view->intfId();
   Velnet::MplsLabelStack labels;
   for( std::size_t i = 0; i < tlv.labels().size(); ++i )
      labels.entryAdd( tlv.labels()[i] );
   info = LspPingIntfAndLabelStackInfo( view->addrType(), view->addr(), intfAddr, intfId, labels,
                                        true );
   return true;
}

class Conversion {
 public:
   Conversion( LspPingMessage const & message, LspPingMessageRecords & records )
      : message_( message ),
        records_( records ) {}

   void run() {
      for( LspPingElementRef const tlv : message_.elements() )
         if( tlv.isWhole() )
            tell( tlv, keep( tlv ) );
   }

 private:
   Kept keep( LspPingElementRef tlv );
   Kept fecs( LspPingElementRef stack );
   Kept detailedMapping( LspPingElementRef tlv );
   Kept mapping( LspPingElementRef tlv );
   Kept subTlv( LspPingElementRef subTlv, Mapping & mapping );
   Kept stackChange( LspPingElementRef subTlv, Mapping & mapping );
   Kept add( LspPingDownstreamMappingType kind, Mapping const & mapping );
   Kept interface( LspPingElementRef tlv );
   Kept pad( LspPingElementRef tlv );

   bool tell( LspPingElementRef element, Kept kept ) {
      if( !kept.lost.empty() )
         records_.leftOut.push_back( { element.offset(), element.index(), kept.lost } );
      return kept.isKept;
   }

   LspPingMessage const & message_;
   LspPingMessageRecords & records_;
};

Kept Conversion::keep( LspPingElementRef tlv ) {
   switch( static_cast< LspPingTlvType >( tlv.code() ) ) {
   case LspPingTlvType::TargetFecStack:
      return fecs( tlv );
   case LspPingTlvType::DownstreamDetailedMapping:
      return detailedMapping( tlv );
   case LspPingTlvType::DownstreamMapping:
      return mapping( tlv );
   case LspPingTlvType::IntfAndLabelStack:
      return interface( tlv );
   case LspPingTlvType::Pad:
      return pad( tlv );
   default:
      return Kept::whole();
   }
}

// One stack is what a message is about.
Kept Conversion::fecs( LspPingElementRef stack ) {
   if( records_.fecStack )
      return Kept::refused( "behind another one" );
   std::size_t position = 0;
   for( LspPingElementRef const fec : stack.elements() ) {
      std::size_t const own = position++;
      if( !fec.isWhole() )
         continue;
      LspPingFecInfo info;
      if( !tell( fec, own > 0xff ? Kept::refused( "behind 256 FECs" ) : fecInfoOf( fec, info ) ) )
         continue;
      if( !records_.fecStack )
         records_.fecStack.emplace();
      records_.fecStack->fecInfoIs( static_cast< U8 >( own ), info );
   }
   return Kept::whole();
}

Kept Conversion::add( LspPingDownstreamMappingType kind, Mapping const & mapping ) {
   std::optional< LspPingDownstreamMappingInfoSet > & set = records_.downstreamMappings;
   if( !set )
      set.emplace( kind );
   std::size_t const index = set->lspPingDownstreamMappingInfo().count();
   if( set->mappingTlv() != kind )
      return Kept::refused( "behind mappings of the other kind" );
   if( index > 0xff )
      return Kept::refused( "behind 256 mappings" );
   set->lspPingDownstreamMappingInfoIs( static_cast< U8 >( index ), mapping.record() );
   return Kept::whole();
}

Kept Conversion::detailedMapping( LspPingElementRef tlv ) {
   Mapping mapping;
   Kept const kept = keepFixedPart< LspPingDdmapTlv, LspPingDdmapUnnumberedTlv, LspPingDdmapV6Tlv,
                                    LspPingDdmapV6UnnumberedTlv >( tlv, mapping );
   if( !kept.isKept )
      return kept;
   for( LspPingElementRef const sub : tlv.elements() )
      if( sub.isWhole() )
         tell( sub, subTlv( sub, mapping ) );
   return add( LspPingDownstreamMappingType::downstreamDetailedMap, mapping );
}

Kept Conversion::mapping( LspPingElementRef tlv ) {
   Mapping mapping;
   Kept const kept =
      keepFixedPart< LspPingDownstreamMappingIpv4Tlv, LspPingDownstreamMappingIpv4UnnumberedTlv,
                     LspPingDownstreamMappingIpv6Tlv, LspPingDownstreamMappingIpv6UnnumberedTlv >(
         tlv, mapping );
   if( !kept.isKept )
      return kept;
   // What is behind the fixed part is told in the word before it.
   U32 const fixed = tlv.row()->fixedSize();
   U8 const * const end = tlv.bytes().data() + fixed;
   U32 const length = U32{ end[-2] } << 8 | end[-1];
   if( tlv.length() + 4 - fixed != length + tlv.labels().bytes().size() )
      return Kept::notWellFormed();
   Kept const multipath = keepMultipath( tlv, mapping.multipathType, length, mapping );
   if( !multipath.isKept )
      return multipath;
   keepLabels( tlv.labels(), mapping );
   Kept const added = add( LspPingDownstreamMappingType::downstreamMap, mapping );
   return added.isKept ? multipath : added;
}

Kept Conversion::subTlv( LspPingElementRef subTlv, Mapping & mapping ) {
   switch( static_cast< LspPingDDMappingSubTlvType >( subTlv.code() ) ) {
   case LspPingDDMappingSubTlvType::MultipathData: {
      auto const * view = subTlv.as< LspPingMultipathSubTlv >();
      if( view == nullptr || subTlv.bytes().size() != sizeof( *view ) + view->multipathLength() )
         return Kept::notWellFormed();
      return keepMultipath( subTlv, view->multipathType(), view->multipathLength(), mapping );
   }
   case LspPingDDMappingSubTlvType::LabelStack:
      if( subTlv.length() % 4 != 0 )
         return Kept::notWellFormed();
      keepLabels( subTlv.labels(), mapping );
      return Kept::whole();
   case LspPingDDMappingSubTlvType::FecStackChange:
      return stackChange( subTlv, mapping );
   }
   return Kept::refused( "no attribute for this sub-TLV" );
}

Kept Conversion::stackChange( LspPingElementRef subTlv, Mapping & mapping ) {
   using Operation = LspPingFecStackChangeSubTlvOperType;
   auto const * view = subTlv.as< LspPingFecStackChangeSubTlv >();
   if( view == nullptr || subTlv.row()->facts.chooser != 0 )
      return Kept::notWellFormed();
   U32 const end = subTlv.row()->fixedSize() + view->fecTlvLen();
   U32 const size = static_cast< U32 >( subTlv.bytes().size() );
   if( end > size || size > lspPingPadded( end ) )
      return Kept::notWellFormed();
   auto const operation = static_cast< Operation >( view->operType() );
   if( operation != Operation::Push && operation != Operation::Pop )
      return Kept::notWellFormed();
   if( view->fecTlvLen() == 0 )
      return Kept::refused( "a change without a FEC" );
   // The FEC, or the TLV of the whole stack around it.
   LspPingElementRange inside = subTlv.elements();
   if( !inside.empty() && ( *inside.begin() ).context() == LspPingContext::message )
      inside = ( *inside.begin() ).elements();
   if( inside.empty() || ++inside.begin() != inside.end() )
      return Kept::refused( "not one FEC" );
   LspPingFecInfo info;
   Kept const kept = fecInfoOf( *inside.begin(), info );
   if( !kept.isKept )
      return kept;
   LspPingFecStack & stack = operation == Operation::Push ? mapping.pushed : mapping.popped;
   if( stack.fecInfo().count() > 0xff )
      return Kept::refused( "behind 256 changes" );
   stack.fecInfoIs( static_cast< U8 >( stack.fecInfo().count() ), info );
   return view->addrType() == 0 ? kept : Kept::without( "the address of the remote peer" );
}

Kept Conversion::interface( LspPingElementRef tlv ) {
   if( records_.intfAndLabelStack )
      return Kept::refused( "behind another one" );
   LspPingIntfAndLabelStackInfo info;
   if( !keepView< LspPingIntfAndLabelStackIpv4Tlv >( tlv, info ) &&
       !keepView< LspPingIntfAndLabelStackIpv4UnnumberedTlv >( tlv, info ) &&
       !keepView< LspPingIntfAndLabelStackIpv6Tlv >( tlv, info ) &&
       !keepView< LspPingIntfAndLabelStackIpv6UnnumberedTlv >( tlv, info ) )
      return Kept::notWellFormed();
   records_.intfAndLabelStack = info;
   return Kept::whole();
}

Kept Conversion::pad( LspPingElementRef tlv ) {
   if( records_.pad )
      return Kept::refused( "behind another one" );
   if( !tlv.isValid() )
      return Kept::notWellFormed();
   std::span< U8 const > const value = tlv.value();
   LspPingPadInfo info( value[0], true );
   info.lengthIs( tlv.length() );
   // From the end, so that the padding grows once.
   for( std::size_t at = value.size(); at-- > 1; )
      info.paddingIs( static_cast< U32 >( at - 1 ), value[at] );
   records_.pad = std::move( info );
   return Kept::whole();
}

} // namespace

LspPingMessageRecords::LspPingMessageRecords( LspPingMessage const & message ) {
   Conversion( message, *this ).run();
}

} // namespace LspPing
