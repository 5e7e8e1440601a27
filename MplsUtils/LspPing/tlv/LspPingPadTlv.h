#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/platform/Kiv/WholeAssignment.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <cstddef>
#include <memory>
#include <new>
#include <span>

namespace LspPing {

// Pad TLV, RFC 8029 section 3.5. An object of its own, not a view: the padding is a copy.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |           type = 3            |            length             |
// +---------------+---------------+-------------------------------+
// |    padType    |         padding, length - 1 bytes             |
// +---------------+-----------------------------------------------+
class LSPPING_EXPORT LspPingPadTlv : public Kiv::Typed< LspPingPadTlv, LspPingTlvHdr > {
 public:
   static constexpr auto element = LspPingElement::tlv( LspPingTlvType::Pad )
                                      .atLeast( 1 )
                                      .followedBy( LspPingBehind::padding )
                                      .definedIn( "RFC 8029 section 3.5" );

   /// The bytes behind the pad type, the first of them at index 0.
   using KivPadding = Kiv::DynArray< U8 >;

   LspPingPadTlv() noexcept = default;
   KIV_WHOLE_ASSIGNMENT( LspPingPadTlv );
   /// A new object on the heap, all zero and without padding.
   static std::unique_ptr< LspPingPadTlv > LspPingPadTlvIs();

   /// LspPingPadType: what the responder does with the padding.
   U8 padType() const noexcept { return padType_; }
   void padTypeIs( U8 type ) noexcept { padType_ = type; }

   KivPadding const & padding() const noexcept { return padding_; }
   /// 0 where the padding holds no such byte.
   U8 padding( U32 index ) const noexcept { return padding_.entry( index ); }
   void paddingIs( U32 index, U8 byte ) noexcept { padding_.entryIs( index, byte ); }
   /// Sets the byte to 0 and returns what it was; the padding stays as long as it is.
   U8 paddingDel( U32 index ) noexcept { return padding_.entryDel( index ); }
   U8 paddingDel( KivPadding::Iterator const & at ) noexcept { return padding_.entryDel( at ); }
   void paddingDelAll() noexcept { padding_.entryDelAll(); }

   /// A new object becomes a copy of an element's bytes: header and pad type, which must be there,
   /// and of the padding behind them as much as the header's length tells.
   void bytesAre( std::span< U8 const > bytes ) noexcept;

   /// Does not look at the length.
   bool valid() const noexcept {
      return element.hasCode( type() ) && static_cast< U8 >( padType() - 1 ) < 2;
   }
   /// "PadTlv( PadType: 1, Size: 4, Padding: 0xAB 0x0 0xC )", or "Invalid LspPingPadTlv". As many
   /// bytes are printed as the length tells, whatever the padding holds.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() {
      using Self = LspPingPadTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::padType, &Self::padTypeIs >( "padType" ),
         Kiv::collection< &Self::padding_ >( "padding" ), Kiv::computed< &Self::valid >( "valid" ),
         Kiv::computed< &Self::stringValue >( "stringValue" ) );
   }
   /// What the parser reads: header and pad type, and the padding that the length tells.
   static std::size_t kivExtent( std::span< U8 const > bytes ) noexcept;
   static std::unique_ptr< LspPingPadTlv > kivCopyOf( std::span< U8 const > bytes );

   static void * operator new( std::size_t size ) {
      void * const object = ::operator new( size );
      memAllocationTracker_.allocated();
      return object;
   }
   static void * operator new( std::size_t, void * place ) noexcept { return place; }
   static void operator delete( void * object ) noexcept {
      memAllocationTracker_.released();
      ::operator delete( object );
   }
   static void operator delete( void *, void * ) noexcept {}
   static Kiv::AllocationTracker memAllocationTracker_;

 private:
   U8 padType_ = 0;
   KivPadding padding_;
};

/// A new object on the heap, all zero and without padding.
LSPPING_EXPORT std::unique_ptr< LspPingPadTlv > lspPingPadTlvFactory();

} // namespace LspPing
