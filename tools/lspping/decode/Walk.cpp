#include "tools/lspping/decode/Walk.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace LspPingTool {

namespace {

constexpr U32 roundedUp( U32 length ) noexcept {
   return ( length + 3 ) & ~U32{ 3 };
}

constexpr U32 beyondAll = 0xffffffff;

// TLVs in TLVs in TLVs: nobody sends them, and each level costs a frame on the stack.
constexpr U8 deepest = 8;

bool allZero( std::span< U8 const > bytes ) noexcept {
   return std::all_of( bytes.begin(), bytes.end(), []( U8 byte ) { return byte == 0; } );
}

// A piece of the message: both ends count from the message's first byte.
struct Region {
   U32 begin;
   U32 end;

   U32 size() const noexcept { return end - begin; }
};

class Walk {
 public:
   Walk( std::span< U8 const > bytes, std::size_t possiblePadding, Message & message )
      : bytes_( bytes ),
        padding_( static_cast< U32 >( possiblePadding ) ),
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
   void view( Element & element, U32 left, Alignment alignment );
   void invalid( Element const & element );
   void body( std::size_t index, U8 depth );
   void contents( std::size_t index, Context context, Region region );
   void ddmapSubTlvs( std::size_t index, Region region );
   void stackChangeFec( std::size_t index, Region region );
   void opaqueValue( std::size_t index, Region region );
   U32 multipath( Element & element, Region region, U32 type, U32 length );
   void labels( Element & element, Region region );
   void leftOver( Element const & element, Region region );

   U8 byte( U32 offset ) const noexcept { return bytes_[offset]; }
   U32 word( U32 offset ) const noexcept {
      return U32{ bytes_[offset] } << 8 | U32{ bytes_[offset + 1] };
   }

   // Problems are rare; their text is put together here and nowhere kept otherwise.
   template < class... Pieces >
   void problem( U32 offset, Pieces... pieces ) {
      Orlo::StringBuilder text;
      ( append( text, pieces ), ... );
      message_.problems.push_back( { offset, text.string() } );
   }
   static void append( Orlo::StringBuilder & text, std::string_view piece ) {
      text.append( piece );
   }
   static void append( Orlo::StringBuilder & text, U32 number ) { text.appendDecimal( number ); }
   static void append( Orlo::StringBuilder & text, Element const * element ) {
      if( codeName( element->context, element->code ).empty() )
         text.append( element->context == Context::message ? "TLV " : "sub-TLV " );
      appendCodeName( text, element->context, element->code );
   }

   static std::string_view bytesWord( U32 count ) noexcept {
      return count == 1 ? " byte" : " bytes";
   }

   std::span< U8 const > bytes_;
   U32 padding_;
   Message & message_;
   // Of the mapping that the walk is in, or was in last.
   bool mappingIsIpv6_ = false;
};

void Walk::message() {
   U32 const size = static_cast< U32 >( bytes_.size() );
   header();
   if( size <= Message::headerLength )
      return;
   Region const tlvs{ Message::headerLength, size };
   // Behind the header of another version, only what looks like TLVs to its end is taken for them.
   U32 const version = word( 0 );
   if( version != 1 && version != 2 && !comesOut( Context::message, tlvs, Alignment::four ) ) {
      problem( Message::headerLength, tlvs.size(), bytesWord( tlvs.size() ),
               " behind the header are no TLVs" );
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
   } else if( !comesOut( context, region, Alignment::four ) &&
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
         return;
      }
      if( byte( region.begin ) == 0 && word( region.begin + header - 2 ) == 0 &&
          allZero( bytes_.subspan( region.begin, left ) ) ) {
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
   element.row = elementRow( context, element.code, message_.bytesOf( element ) );

   bool const isCut = element.length > left - header;
   if( isCut ) {
      problem( element.offset, &element, ": length ", element.length, " needs ",
               header + element.length, " bytes, had ", left );
   }
   view( element, left, alignment );
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
void Walk::view( Element & element, U32 left, Alignment alignment ) {
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
   if( row->view == nullptr )
      return;
   View const & view = *row->view;
   U32 const needed = header + ( view.readsValue ? element.length : U32{ row->valueLength } );
   if( element.present < needed )
      return;
   U32 const own =
      alignment == Alignment::none ? element.present : std::min( left, element.totalLength );
   if( U32 const size = U32{ view.offset } + view.size; size > own ) {
      element.isCopied = true;
      element.copy = static_cast< U32 >( message_.copies.size() );
      message_.copies.resize( message_.copies.size() + size );
      std::memcpy( message_.copies.data() + element.copy, bytes_.data() + element.offset,
                   element.present );
   }
   element.isViewed = true;
   element.isValid = view.valid( message_.at( element ), element.length );
   if( row->isUnknownSelector ) {
      problem( element.offset, &element, ": address type ",
               U32{ byte( element.offset + ( row - 1 )->selectorOffset ) }, " is not known" );
   } else if( !element.isValid ) {
      invalid( element );
   }
}

void Walk::invalid( Element const & element ) {
   ElementRow const & row = *element.row;
   // Another vendor's TLV is as good as any: only, nobody here can read it.
   if( row.body == Body::vendorTlvs )
      return;
   // Routers are seen to count the padding: what would the element be without?
   View const & view = *row.view;
   if( element.length > row.valueLength && element.length == roundedUp( row.valueLength ) &&
       !view.readsValue ) {
      std::array< U8, 64 > corrected;
      std::memcpy( corrected.data(), message_.at( element ), view.size );
      corrected[2] = static_cast< U8 >( row.valueLength >> 8 );
      corrected[3] = static_cast< U8 >( row.valueLength );
      if( view.valid( corrected.data(), row.valueLength ) ) {
         Orlo::StringBuilder reading;
         view.appendText( reading, corrected.data(), row.valueLength );
         problem( element.offset, &element, ": length ", element.length,
                  " counts the padding, expected ", U32{ row.valueLength },
                  "; without it: ", reading.view() );
         return;
      }
   }
   problem( element.offset, &element, ": not valid" );
}

void Walk::body( std::size_t index, U8 depth ) {
   Element & element = message_.elements[index];
   ElementRow const * row = element.row;
   if( row == nullptr || row->body == Body::none || element.present < row->bodyOffset ||
       ( row->view != nullptr && !element.isViewed ) )
      return;
   U32 const begin = element.offset + row->bodyOffset;
   Region const region{ begin, element.offset + element.present };
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
   case Body::multipath: {
      U32 const end = multipath( element, region, byte( begin - 4 ), word( begin - 3 ) );
      leftOver( element, { end, region.end } );
      return;
   }
   case Body::mappingLabels: {
      mappingIsIpv6_ = byte( element.offset + 6 ) == 3 || byte( element.offset + 6 ) == 4;
      U32 const end = multipath( element, region, byte( begin - 4 ), word( begin - 2 ) );
      labels( element, { end, region.end } );
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
   } else if( length < region.size() ) {
      leftOver( element, { region.begin + length, region.end } );
      region.end = region.begin + length;
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
   } else if( length < region.size() ) {
      leftOver( element, { region.begin + length, region.end } );
      region.end = region.begin + length;
   }
   bool const isStack = region.size() >= 8 && word( region.begin ) == 1 &&
                        word( region.begin + 2 ) != 5 &&
                        word( region.begin + 2 ) == 4 + roundedUp( word( region.begin + 6 ) );
   if( region.size() > 0 )
      elements( isStack ? Context::message : Context::targetFec, region, depth );
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
      return;
   }
   U32 const length = word( begin - 2 );
   region.begin = begin;
   if( length > region.size() ) {
      problem( begin - 2, &element, ": opaque value of ", length, " bytes, had ", region.size() );
   } else if( length < region.size() ) {
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
      return region.end;
   }
   if( length == 0 )
      return region.begin;
   element.hasMultipath = true;
   element.multipathType = static_cast< U8 >( type );
   element.multipathOffset = region.begin;
   element.multipathLength = length;
   // RFC 8029 section 3.4.1.1.1: in IPv6 they are IPv4-mapped, in IPv4 of 127/8, and it is not
   // said that the family is the mapping's own.
   auto const info = bytes_.subspan( region.begin, length );
   element.multipathIsIpv6 =
      length >= 16 && type != 9 &&
      ( ( allZero( info.first( 10 ) ) && word( region.begin + 10 ) == 0xffff ) ||
        ( mappingIsIpv6_ && info[0] != 127 ) );
   U32 const address = element.multipathIsIpv6 ? 16 : 4;
   U32 const unit = type == 2 ? address : type == 4 ? 2 * address : 4;
   bool const hasMask = type == 8 || type == 9;
   if( type == 0 )
      problem( region.begin, &element, ": no multipath, but information of ", length, " bytes" );
   else if( length % unit != 0 || ( hasMask && length <= ( type == 9 ? 4 : address ) ) )
      problem( region.begin, &element, ": multipath information of ", length, " bytes for type ",
               type );
   return region.begin + length;
}

void Walk::labels( Element & element, Region region ) {
   element.hasLabels = true;
   element.labelsOffset = region.begin;
   element.labelCount = region.size() / 4;
   leftOver( element, { region.begin + 4 * element.labelCount, region.end } );
}

void Walk::leftOver( Element const & element, Region region ) {
   if( region.size() > 0 )
      problem( region.begin, &element, ": ", region.size(), bytesWord( region.size() ),
               " left over" );
}

} // namespace

void walk( std::span< U8 const > bytes, std::size_t possiblePadding, Message & message ) {
   message.bytes = bytes;
   message.hasHeader = false;
   message.isHeaderValid = false;
   message.elements.clear();
   message.problems.clear();
   message.copies.clear();
   Walk( bytes, possiblePadding, message ).message();
}

} // namespace LspPingTool
