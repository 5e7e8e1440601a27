#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"
#include "MplsUtils/LspPing/message/LspPingRecordAddress.h"
#include "MplsUtils/LspPing/platform/base/OutOfMemory.h"

namespace LspPing {

namespace {

using Error = LspPingWriteErrorCode;
using Info = LspPingDownstreamMappingInfo;

// Puts what the record says into the view of its address type; none where it says all, and no more
// than the view has a place for.
template < class View >
requires requires( View & view ) {
   view.dsIpAddr();
}
Error put( View & tlv, Info const & info ) noexcept {
   auto address = tlv.dsIpAddr();
   if( !addressOf( info.dsIpAddr(), address ) )
      return Error::recordIncomplete;
   tlv.dsIpAddrIs( address );
   tlv.dsFlagsIs( info.dsFlags() );
   if constexpr( requires { tlv.dsIntfAddr(); } ) {
      if( !addressOf( info.dsIntfAddr(), address ) )
         return Error::recordIncomplete;
      tlv.dsIntfAddrIs( address );
      if( info.intf() != Velnet::IntfId() )
         return Error::recordContradicts;
   } else {
      tlv.dsIntfIdIs( info.intf().value() );
      if( info.dsIntfAddr() != Velnet::IpGenAddr() )
         return Error::recordContradicts;
   }
   if constexpr( requires { tlv.retCode(); } ) {
      tlv.mtuIs( info.mtu() );
      tlv.retCodeIs( static_cast< U8 >( info.retCode() ) );
      tlv.retSubcodeIs( info.retSubcode() );
      return info.depthLimit() == 0 ? Error::none : Error::recordContradicts;
   } else {
      tlv.mtuIs( Velnet::NetU16( info.mtu() ) );
      tlv.depthLimitIs( info.depthLimit() );
      return info.retCode() == LspPingReturnCode::noRetCode && info.retSubcode() == 0 &&
                   !info.fecStackChangeInfo().valid()
                ? Error::none
                : Error::recordContradicts;
   }
}

template < class View >
requires requires( View & view ) {
   view.addrIs( view.addr() );
   view.mbz0();
}
Error put( View & tlv, LspPingIntfAndLabelStackInfo const & info ) noexcept {
   auto address = tlv.addr();
   if( !addressOf( info.addr(), address ) )
      return Error::recordIncomplete;
   tlv.addrIs( address );
   if constexpr( requires { tlv.intf(); } ) {
      if( !addressOf( info.intfAddr(), address ) )
         return Error::recordIncomplete;
      tlv.intfIs( address );
      return info.intfId() == 0 ? Error::none : Error::recordContradicts;
   } else {
      tlv.intfIdIs( info.intfId() );
      return info.intfAddr() == Velnet::IpGenAddr() ? Error::none : Error::recordContradicts;
   }
}

// One function for each class that a record has a view for, made from the list of classes.
template < class Record >
struct OpenRow {
   LspPingElement const * facts;
   LspPingOpenElement ( *open )( LspPingMessageWriter &, Record const &, Error & why );
};

template < class Record, class View >
LspPingOpenElement openView( LspPingMessageWriter & writer, Record const & record, Error & why ) {
   return writer.open< View >( [&]( View & view ) { why = put( view, record ); } );
}

template < class Record, class List >
struct OpenRows;
template < class Record, class... Ts >
struct OpenRows< Record, Kiv::TypeList< Ts... > > {
   template < class T >
   static constexpr OpenRow< Record > rowOf() noexcept {
      if constexpr( requires { T::element; } ) {
         if constexpr( requires( T & view, Record const & record ) { put( view, record ); } )
            return { &T::element, &openView< Record, T > };
      }
      return {};
   }
   static constexpr std::array< OpenRow< Record >, sizeof...( Ts ) > rows{ rowOf< Ts >()... };
};

template < class Record >
OpenRow< Record > const * openRowOf( LspPingTlvType code, Record const & record ) noexcept {
   for( OpenRow< Record > const & row : OpenRows< Record, LspPingHdrTypes >::rows )
      if( row.open != nullptr && row.facts->hasCode( static_cast< U32 >( code ) ) &&
          row.facts->selectors[0].has( record.addrType() ) )
         return &row;
   return nullptr;
}

bool hasMultipath( Info const & info ) noexcept {
   return info.multipathType() != 0 || info.dsMultipathBitset().size() != 0;
}

// Of lists and ranges the record has the type only, and so has what is written.
bool putMultipath( LspPingOpenElement & element, Info const & info ) {
   LspPingMultipathBitset const & bitset = info.dsMultipathBitset();
   auto const type = static_cast< LspPingMultipathType >( info.multipathType() );
   if( bitset.bitset().end() > bitset.size() )
      return element.takeBack( Error::recordContradicts );
   if( bitset.size() == 0 && info.dsMultipathBaseAddr() != Velnet::IpGenAddr() )
      return element.takeBack( Error::recordContradicts );
   if( bitset.size() == 0 )
      return element.multipath( type, {} );
   // The base label of a set of labels is in no record.
   if( type != LspPingMultipathType::maskedIpSetMultipath )
      return element.takeBack( Error::recordIncomplete );
   if( bitset.size() > 0xffff )
      return element.takeBack( Error::tooLong );
   std::vector< U8 > mask( bitset.size() );
   for( U32 i = 0; i < bitset.size(); ++i )
      mask[i] = bitset.bitset( i );
   return element.multipathSet( info.dsMultipathBaseAddr(), mask );
}

bool putLabels( LspPingOpenElement & element, LspPingDownstreamLabelStack const & stack ) noexcept {
   if( stack.labelEntry().end() > stack.size() )
      return element.takeBack( Error::recordContradicts );
   for( U32 i = 0; i < stack.size(); ++i )
      if( !element.label( Velnet::MplsLabelEntry( stack.labelEntry( i ).word() ) ) )
         return false;
   return true;
}

bool putChanges( LspPingMessageWriter & writer, LspPingFecStack const & fecs,
                 LspPingFecStackChangeSubTlvOperType operation ) noexcept {
   for( auto fec = fecs.fecInfoIterator(); fec.nonnull(); fec.advance() ) {
      auto change = writer.open< LspPingFecStackChangeUnspecifiedSubTlv >(
         [&]( auto & view ) { view.operTypeIs( static_cast< U8 >( operation ) ); } );
      if( !writer.add( fec.value() ) )
         return change.takeBack( Error::recordIncomplete );
      if( !change.close() )
         return false;
   }
   return true;
}

bool putSubTlvs( LspPingMessageWriter & writer, Info const & info ) {
   using Operation = LspPingFecStackChangeSubTlvOperType;
   LspPingDownstreamLabelStack const & labels = info.labelStack();
   if( hasMultipath( info ) ) {
      auto multipath = writer.open< LspPingMultipathSubTlv >();
      if( !putMultipath( multipath, info ) || !multipath.close() )
         return false;
   }
   if( labels.size() != 0 || labels.labelEntry().end() != 0 ) {
      auto stack = writer.open( LspPingDDMappingSubTlvType::LabelStack );
      if( !putLabels( stack, labels ) || !stack.close() )
         return false;
   }
   return putChanges( writer, info.fecStackChangeInfo().popTlvInfo(), Operation::Pop ) &&
          putChanges( writer, info.fecStackChangeInfo().pushTlvInfo(), Operation::Push );
}

bool putMapping( LspPingMessageWriter & writer, OpenRow< Info > const & row, Info const & info,
                 LspPingDownstreamMappingType kind ) {
   Error why = Error::none;
   auto tlv = row.open( writer, info, why );
   if( !info.valid() )
      why = Error::recordIncomplete;
   if( why != Error::none )
      return tlv.takeBack( why );
   if( kind == LspPingDownstreamMappingType::downstreamDetailedMap ) {
      // The writer knows why: it keeps its first error.
      if( !putSubTlvs( writer, info ) )
         return tlv.takeBack( Error::recordIncomplete );
   } else if( !putMultipath( tlv, info ) || !putLabels( tlv, info.labelStack() ) ) {
      return false;
   }
   return tlv.close();
}

} // namespace

bool LspPingMessageWriter::mappings( LspPingDownstreamMappingInfoSet const & set ) noexcept {
   LspPingTlvType const code =
      set.mappingTlv() == LspPingDownstreamMappingType::downstreamDetailedMap
         ? LspPingTlvType::DownstreamDetailedMapping
         : LspPingTlvType::DownstreamMapping;
   U32 const start = size_;
   for( auto entry = set.lspPingDownstreamMappingInfoIterator(); entry.nonnull();
        entry.advance() ) {
      Info const & info = entry.value();
      OpenRow< Info > const * const row = openRowOf( code, info );
      bool const isWritten =
         row != nullptr ? Kiv::orOutOfMemory(
                             "LspPing::LspPingMessageWriter",
                             [&] { return putMapping( *this, *row, info, set.mappingTlv() ); } )
                        : refuse( Error::recordUnknown );
      if( !isWritten ) {
         cut( start );
         return false;
      }
   }
   return true;
}

bool LspPingMessageWriter::interface( LspPingIntfAndLabelStackInfo const & info ) noexcept {
   auto const * const row = openRowOf( LspPingTlvType::IntfAndLabelStack, info );
   if( row == nullptr )
      return refuse( Error::recordUnknown );
   Error why = info.valid() ? Error::none : Error::recordIncomplete;
   Error unsaid = Error::none;
   LspPingOpenElement tlv = row->open( *this, info, unsaid );
   if( why == Error::none )
      why = unsaid;
   if( why != Error::none )
      return tlv.takeBack( why );
   for( Velnet::MplsLabelEntry const entry : info.labelStack() )
      if( !tlv.label( entry ) )
         return false;
   return tlv.close();
}

bool LspPingMessageWriter::pad( LspPingPadInfo const & info ) noexcept {
   LspPingOpenElement tlv = open( LspPingTlvType::Pad );
   if( !info.valid() || info.length() == 0 )
      return tlv.takeBack( Error::recordIncomplete );
   if( info.padding().end() > info.length() - 1 )
      return tlv.takeBack( Error::recordContradicts );
   if( info.length() > 0xffff )
      return tlv.takeBack( Error::tooLong );
   for( U32 i = 0; i < info.length(); ++i ) {
      U8 const byte = i == 0 ? info.padType() : info.padding( i - 1 );
      if( !tlv.bytes( { &byte, 1 } ) )
         return false;
   }
   return tlv.close();
}

} // namespace LspPing
