#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/NrcPtrInterface.h"
#include "MplsUtils/LspPing/platform/Kiv/Typed.h"
#include "MplsUtils/LspPing/platform/Velnet/NetInteger.h"
#include "MplsUtils/LspPing/types/Export.h"
#include "MplsUtils/LspPing/types/LspPingModules.h"

namespace LspPing {

/// As many bytes, and the zeros behind them that fill to a multiple of four, RFC 8029 section 3.
constexpr U32 lspPingPadded( U32 bytes ) noexcept {
   return ( bytes + 3 ) & ~U32{ 3 };
}

// Header of every TLV, and of every sub-TLV whose type takes 16 bits, RFC 8029 section 3.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |             type              |            length             |
// +-------------------------------+-------------------------------+
class LSPPING_EXPORT LspPingTlvHdr : public Kiv::Typed< LspPingTlvHdr, Kiv::NrcPtrInterface > {
 public:
   constexpr U16 typeNbo() const noexcept { return type_.raw(); }
   constexpr void typeNboIs( U16 raw ) noexcept { type_.rawIs( raw ); }
   constexpr U16 lengthNbo() const noexcept { return length_.raw(); }
   constexpr void lengthNboIs( U16 raw ) noexcept { length_.rawIs( raw ); }
   constexpr U16 type() const noexcept { return type_.value(); }
   constexpr void typeIs( U16 type ) noexcept { type_.valueIs( type ); }
   /// Length of the value in bytes, without this header and without padding.
   constexpr U16 length() const noexcept { return length_.value(); }
   constexpr void lengthIs( U16 length ) noexcept { length_.valueIs( length ); }

   /// Bytes that the whole TLV takes in the message: header, value and padding to a multiple of
   /// four. The sum is kept in 16 bits: from length 65529 on it wraps, so a walk must check that
   /// it moves on.
   constexpr U16 totalLength() const noexcept {
      return static_cast< U16 >( lspPingPadded( 4u + length() ) );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingTlvHdr;
      return Kiv::attributes( Kiv::field< &Self::typeNbo, &Self::typeNboIs >( "typeNbo" ),
                              Kiv::field< &Self::lengthNbo, &Self::lengthNboIs >( "lengthNbo" ),
                              Kiv::field< &Self::type, &Self::typeIs >( "type" ),
                              Kiv::field< &Self::length, &Self::lengthIs >( "length" ),
                              Kiv::computed< &Self::totalLength >( "totalLength" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   Velnet::NetU16 type_;
   Velnet::NetU16 length_;
};
static_assert( Kiv::isWireView< LspPingTlvHdr, 4 > );

// Header of the sub-TLVs whose type takes one byte, such as the opaque values of a multipoint LDP
// FEC, RFC 6425 section 3.1.2.
//
//  0                   1                   2
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3
// +---------------+-------------------------------+
// |     type      |            length             |
// +---------------+-------------------------------+
class LSPPING_EXPORT LspPingTlvU8Hdr : public Kiv::Typed< LspPingTlvU8Hdr, Kiv::NrcPtrInterface > {
 public:
   constexpr U8 type() const noexcept { return type_; }
   constexpr void typeIs( U8 type ) noexcept { type_ = type; }
   /// Length of the value in bytes, without this header and without padding.
   constexpr U16 length() const noexcept { return length_.value(); }
   constexpr void lengthIs( U16 length ) noexcept { length_.valueIs( length ); }

   /// Bytes that the whole sub-TLV takes: header and value, rounded up to a multiple of four and
   /// kept in 16 bits.
   constexpr U16 totalLength() const noexcept {
      return static_cast< U16 >( lspPingPadded( 3u + length() ) );
   }

   static consteval auto kivAttributes() {
      using Self = LspPingTlvU8Hdr;
      return Kiv::attributes( Kiv::field< &Self::type, &Self::typeIs >( "type" ),
                              Kiv::field< &Self::length, &Self::lengthIs >( "length" ),
                              Kiv::computed< &Self::totalLength >( "totalLength" ) );
   }
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 type_ = 0;
   Velnet::NetU16 length_;
};
static_assert( Kiv::isWireView< LspPingTlvU8Hdr, 3 > );

} // namespace LspPing
