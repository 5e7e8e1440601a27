#pragma once

#include "tests/ext/ExtTesting.h"
#include "tests/fec/FecTesting.h"

// TLVs of a fixed length, and views that go on behind their fixed part.
namespace ExtTesting {

/// A view that is valid with one type and one length alone, and says so.
template < class View >
void expectValidWith( unsigned wantedType, unsigned wantedLength, std::string_view invalid ) {
   WireBytes bytes( sizeof( View ), 0xa5 );
   EXPECT_EQ( bytes.as< View >().stringValue(), invalid );
   EXPECT_EQ( validityMismatches< View >( bytes,
                                          [&]( unsigned type, unsigned length ) {
                                             return type == wantedType && length == wantedLength;
                                          } ),
              0u );
}

/// The view over all these bytes, whose last is the last of their heap block.
template < class View >
class Whole {
 public:
   explicit Whole( std::string_view hex ) : bytes_( hex ) {
      EXPECT_EQ( View::kivExtent( bytes_.bytes() ), bytes_.size() ) << hex;
   }
   View const & operator*() const { return bytes_.as< View >(); }
   View const * operator->() const { return &**this; }

 private:
   WireBytes bytes_;
};

/// A TLV of that class with these bytes behind its fixed part.
template < class View, class Fill >
std::string writtenWithTail( Fill fill, std::string_view tail ) {
   return written( [&]( LspPingMessageWriter & writer ) {
      auto open = writer.open< View >( fill );
      open.bytes( bytesOf( tail ) );
   } );
}

/// An Echo Jitter TLV, as bytes and as text.
inline constexpr char const * jitter = " 00 0c 00 04 00 00 00 09";
inline constexpr char const * jitterText = "\nEchoJitterTlv( jittertime(9) )";

} // namespace ExtTesting
