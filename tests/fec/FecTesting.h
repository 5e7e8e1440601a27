#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Velnet/Pkt.h"
#include "tests/Addresses.h"
#include "tests/AttributeLines.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

// What the tests of the FEC views share.
namespace FecTesting {

/// A view at an odd address, whose last byte is the last of its heap block.
template < class View >
class Laid {
 public:
   explicit Laid( U8 fill ) : bytes_( sizeof( View ), fill ) {}
   explicit Laid( std::string_view hex ) : bytes_( hex ) {
      EXPECT_EQ( bytes_.size(), sizeof( View ) ) << hex;
   }

   View & operator*() { return bytes_.as< View >(); }
   View * operator->() { return &**this; }
   U8 * place() { return bytes_.data(); }
   std::string hex() { return bytes_.hex( 4 ); }

 private:
   WireBytes bytes_;
};

template < class View >
Orlo::String textOf( std::string_view hex ) {
   return Laid< View >( hex )->stringValue();
}

template < class View >
bool isValid( std::string_view hex ) {
   return Laid< View >( hex )->valid();
}

/// Sets a field of a view full of 0xa5, by its setter and by its name, and compares all the bytes.
template < class View, class Setter, class Value >
void expectSets( Setter setter, std::string_view name, Value const & value, std::string_view hex ) {
   Laid< View > bySetter( U8{ 0xa5 } );
   std::invoke( setter, *bySetter, value );
   EXPECT_EQ( bySetter.hex(), hex ) << name;
   Laid< View > byName( U8{ 0xa5 } );
   Kiv::write( *byName, name, value );
   EXPECT_EQ( byName.hex(), hex ) << name;
   EXPECT_EQ( Kiv::read< Value >( *byName, name ), value ) << name;
}

/// Type and length.
using Pair = std::pair< unsigned, unsigned >;
using Pairs = std::vector< Pair >;

inline constexpr unsigned all = 0x10000;

inline Pairs everyTypeWith( unsigned length ) {
   Pairs pairs;
   for( unsigned type = 0; type < all; ++type )
      pairs.emplace_back( type, length );
   return pairs;
}

inline Pairs everyLengthWith( unsigned type ) {
   Pairs pairs;
   for( unsigned length = 0; length < all; ++length )
      pairs.emplace_back( type, length );
   return pairs;
}

/// The codes and lengths that mean something to any FEC, those beside them, the same with their
/// bytes in the wrong order, and the ends of the range.
inline std::vector< unsigned > remarkable() {
   std::vector< unsigned > numbers;
   for( unsigned n = 0; n < 48; ++n ) {
      numbers.push_back( n );
      if( n > 0 )
         numbers.push_back( n << 8 );
   }
   for( unsigned const n : { 31743u, 31744u, 31745u, 31746u, 0x007cu, 0x017cu, 65535u } )
      numbers.push_back( n );
   return numbers;
}

/// All the pairs for which the view is valid, in order: every type with every remarkable length,
/// and every length with every remarkable type.
template < class View >
Pairs validPairs( View view = View() ) {
   Pairs pairs;
   auto const tryPair = [&]( unsigned type, unsigned length ) {
      view.typeIs( static_cast< U16 >( type ) );
      view.lengthIs( static_cast< U16 >( length ) );
      if( view.valid() )
         pairs.emplace_back( type, length );
   };
   for( unsigned const one : remarkable() ) {
      for( unsigned other = 0; other < all; ++other ) {
         tryPair( one, other );
         tryPair( other, one );
      }
   }
   std::sort( pairs.begin(), pairs.end() );
   pairs.erase( std::unique( pairs.begin(), pairs.end() ), pairs.end() );
   return pairs;
}

/// A parser made by its factory at an odd offset of a packet that ends with the view.
template < class Parser >
class Placed {
 public:
   using View = typename Parser::KivForwardedFrom;
   using Factory = Orlo::Ptr< Parser > ( * )( Orlo::Ptr< Velnet::Pkt > const &, U32 );

   Placed( Factory factory, std::string_view hex ) {
      Bytes bytes( offset, 0xee );
      Bytes const view = bytesOf( hex );
      EXPECT_EQ( view.size(), sizeof( View ) ) << hex;
      bytes.insert( bytes.end(), view.begin(), view.end() );
      pkt_ = Velnet::pktFactory( std::span< U8 const >( bytes ) );
      parser_ = factory( pkt_, offset );
      EXPECT_EQ( parser_->offset(), offset );
      EXPECT_EQ( parser_->pkt().get(), pkt_.get() );
      EXPECT_EQ( static_cast< void * >( parser_->header() ), pkt_->data() + offset );
      EXPECT_EQ( parser_->fwkType(), Kiv::typeOf< Parser >() );
      EXPECT_EQ( Kiv::read< U32 >( *parser_, "offset" ), offset );
      EXPECT_EQ( Kiv::read< View * >( *parser_, "header" ), parser_->header() );
   }

   Parser & operator*() { return *parser_; }

   /// The parser gives this by that name, the view the same if it has the name, and it stays.
   template < class Value >
   Placed & forwards( std::string_view name, Value const & expected ) {
      EXPECT_EQ( Kiv::read< Value >( *parser_, name ), expected ) << name;
      if( Kiv::attributeNamed( Kiv::typeOf< View >(), name ) )
         EXPECT_EQ( Kiv::read< Value >( *parser_->header(), name ), expected ) << name;
      Value other{};
      auto const found = Kiv::attributeNamed( Kiv::typeOf< Parser >(), name );
      EXPECT_EQ( Kiv::attributeAccess( Kiv::typeOf< Parser >(), parser_.get(), found.field(),
                                       Kiv::OpCode::write, &other ),
                 Kiv::Outcome::notPermitted )
         << name;
      EXPECT_EQ( Kiv::read< Value >( *parser_, name ), expected ) << name;
      return *this;
   }
   Placed & forwardsText( std::string_view expected ) {
      return forwards( "stringValue", Orlo::String( expected ) );
   }

 private:
   static constexpr U32 offset = 3;

   Orlo::Ptr< Velnet::Pkt > pkt_;
   Orlo::Ptr< Parser > parser_;
};

} // namespace FecTesting
