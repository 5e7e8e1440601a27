#pragma once

#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/base/Export.h"

#include <cstddef>
#include <string_view>

namespace Kiv {

/// A cursor over text from which values are read. It does not own the text. Blank space is skipped
/// before whatever is looked for. What fails raises `RangeException`; the cursor is then somewhere
/// in the text that was refused.
class LSPPING_PLATFORM_EXPORT CharRange {
 public:
   constexpr explicit CharRange( std::string_view text ) noexcept : text_{ text } {}

   static constexpr bool isBlank( char character ) noexcept {
      return character == ' ' || ( character >= '\t' && character <= '\r' );
   }

   constexpr void skip() noexcept {
      while( position_ != text_.size() && isBlank( text_[position_] ) )
         ++position_;
   }
   constexpr bool atEnd() noexcept {
      skip();
      return position_ == text_.size();
   }

   /// Offset of the cursor from the start of the text.
   constexpr std::size_t position() const noexcept { return position_; }
   constexpr std::string_view rest() const noexcept { return text_.substr( position_ ); }

   /// Moves over that many characters of `rest()`.
   constexpr void advance( std::size_t count ) noexcept { position_ += count; }

   /// The next character that is not blank, or 0 at the end.
   constexpr char peek() noexcept { return atEnd() ? '\0' : text_[position_]; }

   /// Consumes `expected` if it is next.
   constexpr bool take( char expected ) noexcept {
      if( atEnd() || text_[position_] != expected )
         return false;
      ++position_;
      return true;
   }
   constexpr bool take( std::string_view expected ) noexcept {
      skip();
      if( !rest().starts_with( expected ) )
         return false;
      position_ += expected.size();
      return true;
   }

   /// An identifier, possibly qualified ("LspPing::NtpTimeU64"); empty if none is next.
   std::string_view word() noexcept;

   /// Everything up to blank space, one of ",)}=" or the end: an address, a number. May be empty.
   std::string_view token() noexcept;

   /// Consumes `type(firstName=`. The type has to be spelled in full, its namespace included.
   void expectOpen( std::string_view type, std::string_view firstName );

   /// Consumes `, name=`.
   void expectNext( std::string_view name );

   /// Consumes `)`.
   void expectClose();

   /// Raises `RangeException`: `expected "…" at offset 31, found "…"`. The offset is the cursor's.
   [[noreturn]] void fail( std::string_view subject, std::string_view expected ) const;

   /// As above, for what is expected in words: `expected a number at offset 3, found "x"`.
   [[noreturn]] void failWords( std::string_view subject, std::string_view expected ) const;

 private:
   void expectName( std::string_view name );
   bool takeWord( std::string_view expected ) noexcept;

   std::string_view text_;
   std::size_t position_ = 0;
};

/// The text in double quotes as error messages show it: what is not printable, quotes and
/// backslashes escaped, and "..." behind it where it is longer than 32 bytes.
LSPPING_PLATFORM_EXPORT Orlo::String quoted( std::string_view text );

} // namespace Kiv
