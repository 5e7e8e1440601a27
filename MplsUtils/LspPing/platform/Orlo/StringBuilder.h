#pragma once

#include "MplsUtils/LspPing/platform/Orlo/Digits.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>

namespace Orlo {

/// Text that grows at its end. The first 512 bytes need no heap. Exhausted memory ends the process.
class StringBuilder {
 public:
   static constexpr std::size_t inlineCapacity = 512;

   // Not defaulted, or `{}` would clear all the bytes.
   StringBuilder() noexcept {} // NOLINT(modernize-use-equals-default)
   StringBuilder( StringBuilder const & ) = delete;
   StringBuilder & operator=( StringBuilder const & ) = delete;
   ~StringBuilder() = default;

   std::size_t size() const noexcept { return static_cast< std::size_t >( end_ - begin_ ); }
   std::string_view view() const noexcept { return { begin_, size() }; }

   /// A copy: one allocation at the most.
   String string() const & noexcept { return stringOf( view() ); }

   /// As above, but text that had outgrown the builder's own bytes is handed over, not copied.
   String string() && noexcept {
      if( begin_ == inline_ ) [[likely]]
         return stringOf( view() );
      heap_.resize( size() );
      String text = std::move( heap_ );
      begin_ = end_ = inline_;
      limit_ = inline_ + inlineCapacity;
      return text;
   }

   /// Room on the heap, once there, is kept.
   void clear() noexcept { end_ = begin_; }

   /// Where `count` more bytes can be written; `advance` makes those that were written part of the
   /// text. The place is good until the builder is used again.
   char * room( std::size_t count ) noexcept {
      if( count > static_cast< std::size_t >( limit_ - end_ ) ) [[unlikely]]
         grow( count );
      return end_;
   }
   void advance( std::size_t count ) noexcept { end_ += count; }
   void advanceTo( char * end ) noexcept { end_ = end; }

   void append( std::string_view text ) noexcept {
      if( !text.empty() ) {
         std::memcpy( room( text.size() ), text.data(), text.size() );
         advance( text.size() );
      }
   }
   void append( char character ) noexcept {
      *room( 1 ) = character;
      advance( 1 );
   }
   void appendDecimal( U64 number ) noexcept { advanceTo( putDecimal( room( 20 ), number ) ); }
   void appendSigned( std::int64_t number ) noexcept {
      if( number < 0 ) {
         append( '-' );
         appendDecimal( U64{ 0 } - static_cast< U64 >( number ) );
      } else {
         appendDecimal( static_cast< U64 >( number ) );
      }
   }
   /// Without leading zeros and without "0x".
   void appendHex( U64 number, bool upperCase ) noexcept {
      char * at = room( 16 );
      U32 const high = static_cast< U32 >( number >> 32 );
      U32 low = static_cast< U32 >( number );
      if( high != 0 ) {
         at = putHex( at, high, upperCase );
         // The low half keeps its leading zeros.
         std::memset( at, '0', 8 );
         char digits[8];
         auto const count = static_cast< std::size_t >( putHex( digits, low, upperCase ) - digits );
         std::memcpy( at + 8 - count, digits, count );
         advanceTo( at + 8 );
      } else {
         advanceTo( putHex( at, low, upperCase ) );
      }
   }

   /// Two lower-case digits for each byte.
   void appendHexBytes( std::span< U8 const > bytes ) noexcept {
      char * at = room( 2 * bytes.size() );
      for( U8 const byte : bytes )
         at = putHexByte( at, byte );
      advanceTo( at );
   }

 private:
   /// Moves the text to the heap, or to more of it.
   LSPPING_PLATFORM_EXPORT void grow( std::size_t count ) noexcept;

   char * begin_ = inline_;
   char * end_ = inline_;
   char * limit_ = inline_ + inlineCapacity;
   String heap_;
   char inline_[inlineCapacity];
};

} // namespace Orlo
