#pragma once

#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/Export.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <array>
#include <compare>

namespace Pseudowire {

/// Which byte of an attachment identifier's value is meant.
class PseudowireAttachmentIdentifierIndex {
 public:
   static constexpr U32 min = 0;
   static constexpr U32 max = 7;

   constexpr PseudowireAttachmentIdentifierIndex() noexcept = default;
   /// Raises `Kiv::RangeException` for an index beyond `max`.
   constexpr PseudowireAttachmentIdentifierIndex( U32 value )
      : value_{ static_cast< U8 >( value ) } {
      if( value > max )
         rangeError();
   }

   constexpr U8 value() const noexcept { return value_; }

   constexpr auto
   operator<=>( PseudowireAttachmentIdentifierIndex const & ) const noexcept = default;

 private:
   [[noreturn]] LSPPING_PLATFORM_EXPORT static void rangeError();

   U8 value_ = 0;
};

/// An attachment identifier of a pseudowire, RFC 4447 section 5.3: a type and a value of up to
/// eight bytes. The length may say more than eight; the value then has eight bytes all the same,
/// and whoever encodes it has to notice.
class PseudowireAttachmentIdentifier {
 public:
   using Index = PseudowireAttachmentIdentifierIndex;
   static constexpr U8 maxLength = Index::max + 1;

   /// Type 0 and no value.
   constexpr PseudowireAttachmentIdentifier() noexcept = default;
   constexpr PseudowireAttachmentIdentifier( U8 type, U8 length ) noexcept
      : type_{ type },
        length_{ length } {}

   constexpr U8 type() const noexcept { return type_; }
   constexpr void typeIs( U8 type ) noexcept { type_ = type; }
   constexpr U8 length() const noexcept { return length_; }
   constexpr void lengthIs( U8 length ) noexcept { length_ = length; }
   constexpr U8 value( Index index ) const noexcept { return value_[index.value()]; }
   constexpr void valueIs( Index index, U8 byte ) noexcept { value_[index.value()] = byte; }

   /// How many bytes of the value the length covers.
   constexpr U8 bytesInUse() const noexcept { return length_ < maxLength ? length_ : maxLength; }

   /// The type in decimal and the bytes in use in hexadecimal: "1:0a000001", or "0:" when empty. A
   /// length that says more than eight bytes follows as what it says too much:
   /// "1:0011223344556677+2".
   LSPPING_PLATFORM_EXPORT Orlo::String stringValue() const;

   /// Value bytes beyond the length do not count.
   constexpr bool operator==( PseudowireAttachmentIdentifier const & other ) const noexcept {
      if( type_ != other.type_ || length_ != other.length_ )
         return false;
      for( U8 index = 0; index < bytesInUse(); ++index )
         if( value_[index] != other.value_[index] )
            return false;
      return true;
   }

 private:
   U8 type_ = 0;
   U8 length_ = 0;
   std::array< U8, maxLength > value_{};
};

LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         PseudowireAttachmentIdentifierIndex index ) noexcept;
LSPPING_PLATFORM_EXPORT void appendText( Orlo::StringBuilder & out,
                                         PseudowireAttachmentIdentifier const & id ) noexcept;

// Both raise `Kiv::RangeException` and leave the value alone if there is none at the cursor.
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text,
                                              PseudowireAttachmentIdentifierIndex * index );
LSPPING_PLATFORM_EXPORT void sequenceToValue( Kiv::CharRange & text,
                                              PseudowireAttachmentIdentifier * id );

} // namespace Pseudowire
