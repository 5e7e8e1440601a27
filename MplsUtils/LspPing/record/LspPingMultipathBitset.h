#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingRecord.h"

namespace LspPing {

/// The bit mask of a multipath information, RFC 8029 section 3.4.1.1.1, in the order of the wire:
/// bit 0 is the most significant one of byte 0, bit 8 that of byte 1. Bytes that are not held read
/// as 0.
class LSPPING_EXPORT LspPingMultipathBitset : public LspPingRecord< LspPingMultipathBitset > {
 public:
   using Bytes = Kiv::DynArray< U8 >;

   LspPingMultipathBitset() noexcept = default;
   /// \param size  in bytes, none of which is held yet
   explicit LspPingMultipathBitset( U32 size ) noexcept : size_( size ) {}
   /// There is no text to read a bit set from: an assertion.
   explicit LspPingMultipathBitset( Kiv::CharRange & );

   Bytes const & bitset() const noexcept { return bitset_; }
   U8 bitset( U32 index ) const noexcept { return bitset_.entry( index ); }
   void bitsetIs( U32 index, U8 byte ) noexcept { bitset_.entryIs( index, byte ); }
   /// Zeroes the byte and returns what it was; as many bytes are held as before.
   U8 bitsetDel( U32 index ) noexcept { return bitset_.entryDel( index ); }
   U8 bitsetDel( Bytes::Iterator const & at ) noexcept { return bitset_.entryDel( at ); }
   void bitsetDelAll() noexcept { bitset_.entryDelAll(); }
   Bytes::Iterator bitsetIterator() const noexcept { return bitset_.iterator(); }

   /// In bytes, however many are held.
   U32 size() const noexcept { return size_; }
   void sizeIs( U32 size ) noexcept { size_ = size; }
   U32 bitSize() const noexcept { return size_ * 8; }

   bool hasAnyBitsSet() const noexcept;
   // The number of a bit must be below the bit size: an assertion.
   /// Clearing a bit, too, makes the set hold its byte.
   void setBitValue( U32 bitNum, bool value ) noexcept;
   void setBit( U32 bitNum ) noexcept { setBitValue( bitNum, true ); }
   void clearBit( U32 bitNum ) noexcept { setBitValue( bitNum, false ); }
   bool isSet( U32 bitNum ) const noexcept;

   bool operator==( LspPingMultipathBitset const & other ) const noexcept {
      return this == &other || ( size_ == other.size_ && bitset_ == other.bitset_ );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingMultipathBitset;
      return Kiv::attributes(
         Kiv::collection< &Self::bitset_ >( "bitset" ), Kiv::stored< &Self::size_ >( "size" ),
         Kiv::computed< &Self::bitSize >( "bitSize" ),
         Kiv::computed< &Self::hasAnyBitsSet >( "hasAnyBitsSet" ),
         Kiv::operation< &Self::setBitValue >( "setBitValue", "bitNum, value" ),
         Kiv::operation< &Self::setBit >( "setBit", "bitNum" ),
         Kiv::operation< &Self::clearBit >( "clearBit", "bitNum" ),
         Kiv::operation< &Self::isSet >( "isSet", "bitNum" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Bytes bitset_;
   U32 size_ = 0;
};

} // namespace LspPing
