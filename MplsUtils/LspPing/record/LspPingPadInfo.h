#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/platform/Kiv/WholeAssignment.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingRecord.h"

namespace LspPing {

/// What an agent keeps of a Pad TLV, RFC 8029 section 3.5, or puts into one.
class LSPPING_EXPORT LspPingPadInfo : public LspPingRecord< LspPingPadInfo > {
 public:
   using Padding = Kiv::DynArray< U8 >;

   /// Pad type 0, not valid.
   LspPingPadInfo() noexcept = default;
   LspPingPadInfo( U8 padType, bool valid ) noexcept : padType_( padType ), valid_( valid ) {}
   /// There is no text to read a padding from: an assertion.
   explicit LspPingPadInfo( Kiv::CharRange & );
   KIV_WHOLE_ASSIGNMENT( LspPingPadInfo );

   /// LspPingPadType.
   U8 padType() const noexcept { return padType_; }

   Padding const & padding() const noexcept { return padding_; }
   /// 0 where the padding holds no such byte.
   U8 padding( U32 index ) const noexcept { return padding_.entry( index ); }
   void paddingIs( U32 index, U8 byte ) noexcept { padding_.entryIs( index, byte ); }
   /// Sets the byte to 0 and returns what it was; the padding stays as long as it is.
   U8 paddingDel( U32 index ) noexcept { return padding_.entryDel( index ); }
   U8 paddingDel( Padding::Iterator const & at ) noexcept { return padding_.entryDel( at ); }
   void paddingDelAll() noexcept { padding_.entryDelAll(); }
   Padding::Iterator paddingIterator() const noexcept { return padding_.iterator(); }

   /// The agent's to use; it need not be that of the padding.
   U32 length() const noexcept { return length_; }
   void lengthIs( U32 length ) noexcept { length_ = length; }
   bool valid() const noexcept { return valid_; }

   bool operator==( LspPingPadInfo const & other ) const noexcept {
      return this == &other || ( length_ == other.length_ && padType_ == other.padType_ &&
                                 valid_ == other.valid_ && padding_ == other.padding_ );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingPadInfo;
      return Kiv::attributes( Kiv::storedReadOnly< &Self::padType_ >( "padType" ),
                              Kiv::collection< &Self::padding_ >( "padding" ),
                              Kiv::stored< &Self::length_ >( "length" ),
                              Kiv::storedReadOnly< &Self::valid_ >( "valid" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 padType_ = 0;
   Padding padding_;
   U32 length_ = 0;
   bool valid_ = false;
};

} // namespace LspPing
