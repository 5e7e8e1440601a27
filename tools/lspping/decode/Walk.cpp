#include "tools/lspping/decode/Walk.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "examples/EchoRecords.h"
#include "tools/lspping/decode/Judge.h"

#include <algorithm>
#include <cstring>

namespace LspPingTool {

namespace {

constexpr U32 beyondAll = 0xffffffff;

// TLVs in TLVs in TLVs: nobody sends them, and each level costs a frame on the stack.
constexpr U8 deepest = 8;

// A piece of the message: both ends count from the message's first byte.
struct Region {
   U32 begin;
   U32 end;
   // There should be more behind its end.
   bool isCut = false;

   U32 size() const noexcept { return end - begin; }
};

class Walk {
 public:
   Walk( std::span< U8 const > bytes, MessageEnd end, Message & message )
      : bytes_( bytes ),
        padding_( static_cast< U32 >( end.possiblePadding ) ),
        isCut_( end.isCut ),
        message_( message ) {}

   void message();

 private:
   // The steps of a walk: aligned as they should be, or where that does not come out and the other
   // does, without any alignment.
   enum class Alignment {
      four,
      none,
   };

   void header();
   bool comesOut( Context context, Region region, Alignment alignment ) const noexcept;
   void elements( Context context, Region region, U8 depth );
   U32 element( Context context, Region region, U8 depth, Alignment alignment );
   void view( Element & element );
   void body( std::size_t index, U8 depth );
   void contents( std::size_t index, Context context, Region region );
   void ddmapSubTlvs( std::size_t index, Region region );
   void stackChangeFec( std::size_t index, Region region );
   void opaqueValue( std::size_t index, Region region );
   void identifiers( Element const & element, Region region );
   U32 multipath( Element & element, Region region, U32 type, U32 length );
   void labels( Element & element, Region region );
   void leftOver( Element const & element, Region region );
   bool isZero( Region region ) noexcept;

   U8 byte( U32 offset ) const noexcept { return bytes_[offset]; }
   U32 word( U32 offset ) const noexcept {
      return U32{ bytes_[offset] } << 8 | U32{ bytes_[offset + 1] };
   }

   template < class... Pieces >
   void problem( U32 offset, Pieces... pieces ) {
      addProblem( message_, offset, pieces... );
   }
   // The bytes behind the last problem's offset belong to nothing else.
   void show( U32 count ) { message_.problems.back().strayBytes = count; }

   std::span< U8 const > bytes_;
   U32 padding_;
   bool isCut_;
   Message & message_;
   // The bytes from the first to before the second are zero.
   U32 zerosBegin_ = 0;
   U32 zerosEnd_ = 0;
   // Of the mapping that the walk is in, or was in last.
   bool mappingIsIpv6_ = false;
};

void Walk::message() {
   U32 const size = static_cast< U32 >( bytes_.size() );
   header();
   if( size <= Message::headerLength )
      return;
   Region const tlvs{ Message::headerLength, size, isCut_ };
   // Behind the header of another version, only what looks like TLVs to its end is taken for them.
   U32 const version = word( 0 );
   if( version != 1 && version != 2 && !comesOut( Context::message, tlvs, Alignment::four ) ) {
      problem( Message::headerLength, tlvs.size(), bytesWord( tlvs.size() ),
               " behind the header are no TLVs" );
      show( tlvs.size() );
      return;
   }
   elements( Context::message, tlvs, 0 );
}

void Walk::header() {
   U32 const size = static_cast< U32 >( bytes_.size() );
   message_.hasHeader = size >= Message::headerLength;
   if( !message_.hasHeader ) {
      problem( 0, "header: needed 32 bytes, had ", size );
      return;
   }
   // 32 bytes are there, and the view has no alignment.
   auto const & view = *reinterpret_cast< LspPing::LspPingHdr const * >( bytes_.data() );
   message_.isHeaderValid = view.valid();
   if( !message_.isHeaderValid ) {
      problem( 0, "header: not valid, version ", U32{ view.version() }, ", message type ",
               U32{ view.messageType() } );
   } else if( view.version() != 1 ) {
      problem( 0, "header: version ", U32{ view.version() }, ", expected 1" );
   }
}

// The last element's padding may be missing.
bool Walk::comesOut( Context context, Region region, Alignment alignment ) const noexcept {
   U32 const header = headerSize( context );
   while( region.begin < region.end ) {
      if( context == Context::message && region.size() <= padding_ && region.end == bytes_.size() )
         return true;
      if( region.size() < header )
         return false;
      U32 const length = word( region.begin + header - 2 );
      if( length > region.size() - header )
         return false;
      U32 const step = header + ( alignment == Alignment::four ? roundedUp( length ) : length );
      if( step >= region.size() )
         return true;
      region.begin += step;
   }
   return true;
}

void Walk::elements( Context context, Region region, U8 depth ) {
   if( depth > deepest ) {
      problem( region.begin, "nested too deeply: not decoded further" );
      show( region.size() );
      return;
   }
   U32 const header = headerSize( context );
   std::string_view const name = context == Context::message       ? "TLV"
                                 : context == Context::opaqueValue ? "opaque value"
                                                                   : "sub-TLV";
   Alignment alignment = Alignment::four;
   // Opaque values follow each other without padding, RFC 6388 section 2.3.
   if( context == Context::opaqueValue ) {
      alignment = Alignment::none;
   } else if( !region.isCut && !comesOut( context, region, Alignment::four ) &&
              comesOut( context, region, Alignment::none ) ) {
      alignment = Alignment::none;
      problem( region.begin, name, "s are not aligned to 4 bytes" );
   }
   while( region.begin < region.end ) {
      U32 const left = region.size();
      bool const atEnd = context == Context::message && region.end == bytes_.size();
      if( atEnd && left <= padding_ )
         return;
      if( left < header ) {
         problem( region.begin, left, bytesWord( left ), " left over after the last ", name,
                  ": another needs ", header );
         show( left );
         return;
      }
      if( byte( region.begin ) == 0 && word( region.begin + header - 2 ) == 0 &&
          isZero( region ) ) {
         problem( region.begin, left, bytesWord( left ), " left over after the last ", name,
                  ", all zero" );
         return;
      }
      U32 const step = element( context, region, depth, alignment );
      if( step >= left )
         return;
      region.begin += step;
   }
}

// One element at the region's begin, where its header is there. The answer is how far the next one
// is away; never nothing.
U32 Walk::element( Context context, Region region, U8 depth, Alignment alignment ) {
   U32 const header = headerSize( context );
   U32 const left = region.size();
   std::size_t const index = message_.elements.size();
   Element & element = message_.elements.emplace_back();
   element.context = context;
   element.depth = depth;
   element.offset = region.begin;
   element.code = header == 3 ? U32{ byte( region.begin ) } : word( region.begin );
   element.length = word( region.begin + header - 2 );
   // The header of three bytes is counted before the rounding.
   element.totalLength = roundedUp( header + element.length );
   element.present = std::min( header + element.length, left );
   element.occupied =
      alignment == Alignment::none ? element.present : std::min( left, element.totalLength );
   element.row = elementRow( context, element.code, message_.bytesOf( element ) );

   bool const isCut = element.length > left - header;
   if( isCut ) {
      problem( element.offset, &element, ": length ", element.length, " needs ",
               header + element.length, " bytes, had ", left );
   }
   view( element );
   body( index, depth );
   Element & done = message_.elements[index];
   done.after = static_cast< U32 >( message_.elements.size() );
   if( isCut )
      return beyondAll;
   if( alignment == Alignment::none )
      return header + done.length;
   if( done.totalLength > left ) {
      U32 const missing = done.totalLength - left;
      problem( done.offset, &done, ": ", missing, bytesWord( missing ), " of padding missing" );
   }
   return done.totalLength;
}

// Lays the row's view over the element if its bytes are there, in place or as a copy with padding.
void Walk::view( Element & element ) {
   ElementRow const * row = element.row;
   if( row == nullptr )
      return;
   U32 const header = headerSize( element.context );
   if( row->body == Body::responderTlvs && row->view != nullptr &&
       ( element.present < header + row->valueLength ||
         !row->view->valid( bytes_.data() + element.offset, element.length ) ) ) {
      // Not the one sub-TLV that the view describes.
      element.row = row = row + 1;
   }
   if( element.length < row->valueLength ) {
      problem( element.offset, &element, ": length ", element.length, " is too short, needed ",
               U32{ row->valueLength } );
      return;
   }
   U32 const needed =
      header +
      ( row->view != nullptr && row->view->readsValue ? element.length : U32{ row->valueLength } );
   if( element.present < needed )
      return;
   if( View const * view = row->view ) {
      if( U32 const size = U32{ view->offset } + view->size; size > element.occupied ) {
         element.isCopied = true;
         element.copy = static_cast< U32 >( message_.copies.size() );
         message_.copies.resize( message_.copies.size() + size );
         std::memcpy( message_.copies.data() + element.copy, bytes_.data() + element.offset,
                      element.occupied );
      }
      element.isViewed = true;
      element.isValid = view->valid( message_.at( element ), element.length );
   }
   judge( message_, element );
}

void Walk::body( std::size_t index, U8 depth ) {
   Element & element = message_.elements[index];
   ElementRow const * row = element.row;
   if( row == nullptr || row->body == Body::none || element.present < row->bodyOffset ||
       ( row->view != nullptr && !element.isViewed ) )
      return;
   U32 const begin = element.offset + row->bodyOffset;
   U32 const end = element.offset + element.present;
   Region const region{ begin, end,
                        element.present < headerSize( element.context ) + element.length };
   switch( row->body ) {
   case Body::none:
      return;
   case Body::tlvs:
      contents( index, Context::message, region );
      return;
   case Body::fecs:
      contents( index, Context::targetFec, region );
      return;
   case Body::responderTlvs:
      elements( Context::p2mpResponder, region, static_cast< U8 >( depth + 1 ) );
      return;
   case Body::vendorTlvs:
      if( element.isValid )
         elements( Context::vendorPrivate, region, static_cast< U8 >( depth + 1 ) );
      return;
   case Body::ddmapSubTlvs:
      ddmapSubTlvs( index, region );
      return;
   case Body::stackChangeFec:
      stackChangeFec( index, region );
      return;
   case Body::opaqueValue:
      opaqueValue( index, region );
      return;
   case Body::identifiers:
      identifiers( element, region );
      return;
   case Body::multipath: {
      leftOver( element, { multipath( element, region, byte( begin - 4 ), word( begin - 3 ) ),
                           region.end } );
      return;
   }
   case Body::mappingLabels: {
      mappingIsIpv6_ = byte( element.offset + 6 ) == 3 || byte( element.offset + 6 ) == 4;
      labels( element,
              { multipath( element, region, byte( begin - 4 ), word( begin - 2 ) ), region.end } );
      return;
   }
   case Body::protocolLabels:
   case Body::labelStack:
      labels( element, region );
      return;
   }
}

// A container of nothing else, which is not for nothing.
void Walk::contents( std::size_t index, Context context, Region region ) {
   Element const & element = message_.elements[index];
   if( region.size() == 0 )
      problem( element.offset, &element, ": nothing in it" );
   else
      elements( context, region, static_cast< U8 >( element.depth + 1 ) );
}

void Walk::ddmapSubTlvs( std::size_t index, Region region ) {
   Element const & element = message_.elements[index];
   U32 const offset = element.offset;
   U32 const length = word( region.begin - 2 );
   U8 const depth = static_cast< U8 >( element.depth + 1 );
   if( length > region.size() ) {
      problem( region.begin - 2, &element, ": sub-TLVs of ", length, " bytes, had ",
               region.size() );
      region.isCut = true;
   } else {
      leftOver( element, { region.begin + length, region.end } );
      region = { region.begin, region.begin + length };
   }
   mappingIsIpv6_ = byte( offset + 6 ) == 3 || byte( offset + 6 ) == 4;
   elements( Context::ddmap, region, depth );
}

// One FEC, and perhaps the TLV of the whole stack around it: the RFC uses the word for both.
void Walk::stackChangeFec( std::size_t index, Region region ) {
   Element const & element = message_.elements[index];
   U8 const depth = static_cast< U8 >( element.depth + 1 );
   U32 const length = byte( element.offset + 6 );
   if( length > region.size() ) {
      problem( element.offset + 6, &element, ": FEC TLV of ", length, " bytes, had ",
               region.size() );
   } else {
      // The length may leave out the FEC's padding, RFC 8029 section 3.4.1.3: it follows all the
      // same, inside or as the padding of the sub-TLV.
      U32 own = length;
      if( length >= 4 && 4 + word( region.begin + 2 ) == length )
         own = std::min( roundedUp( length ), element.offset + element.occupied - region.begin );
      if( region.begin + own < region.end )
         leftOver( element, { region.begin + own, region.end } );
      region.end = region.begin + own;
   }
   bool const isStack = region.size() >= 8 && word( region.begin ) == 1 &&
                        word( region.begin + 2 ) != 5 &&
                        word( region.begin + 2 ) == 4 + roundedUp( word( region.begin + 6 ) );
   if( region.size() > 0 )
      elements( isStack ? Context::message : Context::targetFec, region, depth );
}

// Three times a type, a length and a value, RFC 8029 section 3.2.10. The length may count the
// padding behind them.
void Walk::identifiers( Element const & element, Region region ) {
   U32 begin = region.begin;
   for( int count = 0; count < 3; ++count ) {
      U32 const left = region.end - begin;
      U32 const needed = left < 2 ? 2 : 2u + byte( begin + 1 );
      if( needed > left ) {
         problem( begin, &element, ": attachment identifier of ", needed, " bytes, had ", left );
         return;
      }
      begin += needed;
   }
   if( region.end - element.offset != roundedUp( begin - element.offset ) )
      leftOver( element, { begin, region.end } );
}

// Where the root address has another size than that of IPv4, the opaque value is elsewhere than the
// view says.
void Walk::opaqueValue( std::size_t index, Region region ) {
   Element const & element = message_.elements[index];
   U8 const depth = static_cast< U8 >( element.depth + 1 );
   U32 const begin = element.offset + 9 + byte( element.offset + 6 );
   if( begin > region.end ) {
      problem( element.offset + 6, &element, ": root address of ",
               U32{ byte( element.offset + 6 ) }, " bytes and opaque length do not fit" );
      message_.elements[index].hidesBytes = true;
      return;
   }
   // The view shows an address of IPv4, whatever there is.
   if( byte( element.offset + 6 ) != 4 )
      message_.elements[index].hidesBytes = true;
   U32 const length = word( begin - 2 );
   region.begin = begin;
   if( length > region.size() ) {
      problem( begin - 2, &element, ": opaque value of ", length, " bytes, had ", region.size() );
   } else {
      leftOver( element, { begin + length, region.end } );
      region.end = begin + length;
   }
   elements( Context::opaqueValue, region, depth );
}

// The answer is where the multipath information ends.
U32 Walk::multipath( Element & element, Region region, U32 type, U32 length ) {
   if( length > region.size() ) {
      problem( region.begin, &element, ": multipath information of ", length, " bytes, had ",
               region.size() );
      show( region.size() );
      return region.end;
   }
   if( length == 0 )
      return region.begin;
   element.hasMultipath = true;
   element.multipathType = static_cast< U8 >( type );
   element.multipathOffset = region.begin;
   element.multipathLength = length;
   auto const info = bytes_.subspan( region.begin, length );
   element.multipathIsIpv6 =
      EchoRecords::hasIpv6Addresses( element.multipathType, info, mappingIsIpv6_ );
   U32 const address = element.multipathIsIpv6 ? 16 : 4;
   U32 const unit = type == 2 ? address : type == 4 ? 2 * address : 4;
   bool const hasMask = type == 8 || type == 9;
   if( type == 0 ) {
      problem( region.begin, &element, ": no multipath, but information of ", length, " bytes" );
   } else if( length % unit != 0 || ( hasMask && length <= ( type == 9 ? 4 : address ) ) ) {
      problem( region.begin, &element, ": multipath information of ", length, " bytes for type ",
               type );
      show( length );
   }
   return region.begin + length;
}

void Walk::labels( Element & element, Region region ) {
   element.hasLabels = true;
   element.labelsOffset = region.begin;
   element.labelCount = region.size() / 4;
   leftOver( element, { region.begin + 4 * element.labelCount, region.end } );
}

void Walk::leftOver( Element const & element, Region region ) {
   if( region.size() == 0 )
      return;
   problem( region.begin, &element, ": ", region.size(), bytesWord( region.size() ), " left over" );
   show( region.size() );
}

// Asked again and again on the way through zeros, it looks at each byte once.
bool Walk::isZero( Region region ) noexcept {
   if( region.begin < zerosBegin_ || region.begin >= zerosEnd_ ) {
      auto const from = bytes_.begin() + region.begin;
      auto const set = std::find_if( from, bytes_.end(), []( U8 byte ) { return byte != 0; } );
      zerosBegin_ = region.begin;
      zerosEnd_ = static_cast< U32 >( set - bytes_.begin() );
   }
   return region.end <= zerosEnd_;
}

} // namespace

void walk( std::span< U8 const > bytes, MessageEnd end, Message & message ) {
   message.bytes = bytes;
   message.hasHeader = false;
   message.isHeaderValid = false;
   message.elements.clear();
   message.problems.clear();
   message.copies.clear();
   Walk( bytes, end, message ).message();
}

} // namespace LspPingTool
