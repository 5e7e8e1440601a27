#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <cstddef>
#include <vector>

namespace LspPingTool {

/// Reads bytes given as hexadecimal digits, a character at a time: two digits each, with blanks,
/// ':' and '-' between bytes as wanted, and "0x" in front of the first and behind each of these.
class HexBytes {
 public:
   enum class Fault {
      none,
      half,    ///< a byte has one digit
      foreign, ///< what can be no part of it
      tooMany,
   };

   explicit HexBytes( std::size_t most ) : most_( most ) {}

   static bool isSeparator( char character ) noexcept;

   Fault take( char character );
   /// Nothing comes any more.
   Fault end() noexcept;
   /// After a fault: of the byte's first character, or of the foreign one, from 1.
   U64 column() const noexcept { return column_; }
   /// The bytes so far.
   std::vector< U8 > const & bytes() const noexcept { return bytes_; }
   /// Begins anew, with the memory that it has.
   void clear() noexcept;

 private:
   enum class State {
      between,
      digit,  ///< behind a byte's first digit
      prefix, ///< behind "0x"
   };

   Fault faultAt( U64 column, Fault fault ) noexcept;

   std::size_t most_;
   std::vector< U8 > bytes_;
   State state_ = State::between;
   bool isPrefixAllowed_ = true;
   U8 high_ = 0;
   U64 taken_ = 0; ///< characters
   U64 first_ = 0; ///< the byte's first character
   U64 column_ = 0;
};

} // namespace LspPingTool
