#pragma once

#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Orlo/String.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

#include <compare>
#include <iosfwd>

namespace LspPing {

// The word by which a FEC names a label: values, not views.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +---------------------------------------+-----------------------+
// |                 label                 |          mbz          |
// +---------------------------------------+-----------------------+
template < class Word >
class LspPingFecLabelWord {
 public:
   /// The label, in host order in spite of the name.
   constexpr U32 labelNbo() const noexcept { return word_.value() >> mbzBits; }
   /// Keeps the must-be-zero bits; bits of the value above the twentieth are dropped.
   constexpr void labelNboIs( U32 label ) noexcept {
      word_.valueIs( ( word_.value() & mbzMask ) | label << mbzBits );
   }
   /// The twelve must-be-zero bits, in host order.
   constexpr U32 mbz() const noexcept { return word_.value() & mbzMask; }
   /// Keeps the label; bits of the value above the twelfth are dropped.
   constexpr void mbzIs( U32 value ) noexcept {
      word_.valueIs( ( word_.value() & ~mbzMask ) | ( value & mbzMask ) );
   }

   /// True when the word is not zero.
   explicit constexpr operator bool() const noexcept { return word_.value() != 0; }
   friend constexpr bool operator==( LspPingFecLabelWord const &,
                                     LspPingFecLabelWord const & ) noexcept = default;
   /// By the word in host order: by label first.
   friend constexpr std::strong_ordering
   operator<=>( LspPingFecLabelWord const &, LspPingFecLabelWord const & ) noexcept = default;

   /// Hash of the word, for the type system.
   constexpr U64 kivHash() const noexcept { return word_.hash(); }

   static consteval auto kivAttributes() {
      using Self = LspPingFecLabelWord;
      return Kiv::attributes( Kiv::storedField< &Self::labelNbo, &Self::labelNboIs >( "labelNbo" ),
                              Kiv::storedField< &Self::mbz, &Self::mbzIs >( "mbz" ) );
   }

 private:
   static constexpr unsigned mbzBits = 12;
   static constexpr U32 mbzMask = 0xfff;

   Velnet::NetU32 word_;
};

/// The label word of the Nil FEC, RFC 8029 section 3.2.17.
class LSPPING_EXPORT LspPingNilFecSubTlvLabel
   : public Kiv::Typed< LspPingNilFecSubTlvLabel,
                        LspPingFecLabelWord< LspPingNilFecSubTlvLabel > > {
 public:
   constexpr LspPingNilFecSubTlvLabel() noexcept = default;
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit LspPingNilFecSubTlvLabel( Kiv::CharRange & in );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( sizeof( LspPingNilFecSubTlvLabel ) == 4 );
static_assert( alignof( LspPingNilFecSubTlvLabel ) == 1 );

/// The label word of the Entropy Label FEC, RFC 8012 section 4.
class LSPPING_EXPORT LspPingEntropyLabelFecSubTlvLabel
   : public Kiv::Typed< LspPingEntropyLabelFecSubTlvLabel,
                        LspPingFecLabelWord< LspPingEntropyLabelFecSubTlvLabel > > {
 public:
   constexpr LspPingEntropyLabelFecSubTlvLabel() noexcept = default;
   /// Reads the generic text. Raises Kiv::RangeException naming the attribute.
   explicit LspPingEntropyLabelFecSubTlvLabel( Kiv::CharRange & in );

   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( sizeof( LspPingEntropyLabelFecSubTlvLabel ) == 4 );
static_assert( alignof( LspPingEntropyLabelFecSubTlvLabel ) == 1 );

/// Writes the generic text.
LSPPING_EXPORT std::ostream & operator<<( std::ostream & out,
                                          LspPingNilFecSubTlvLabel const & label );
LSPPING_EXPORT std::ostream & operator<<( std::ostream & out,
                                          LspPingEntropyLabelFecSubTlvLabel const & label );

// The shape of the FECs that are one label.
//
//  0                   1                   2                   3
//  0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1
// +-------------------------------+-------------------------------+
// |         type = 16, 33         |          length = 4           |
// +-------------------------------+-------------------------------+
// |                          labelField                           |
// +---------------------------------------------------------------+
template < class Word >
class LspPingLabelSubTlv : public LspPingTlvHdr {
 public:
   /// The whole word, with its must-be-zero bits.
   constexpr Word labelField() const noexcept { return labelField_; }
   constexpr void labelFieldIs( Word word ) noexcept { labelField_ = word; }
   /// The label of the word; setting it follows the word's `labelNboIs`.
   constexpr U32 label() const noexcept { return labelField_.labelNbo(); }
   constexpr void labelIs( U32 label ) noexcept { labelField_.labelNboIs( label ); }

 protected:
   template < class View >
   static consteval auto attributesOf() {
      using Self = LspPingLabelSubTlv;
      return Kiv::attributesAfter< LspPingTlvHdr >(
         Kiv::field< &Self::labelField, &Self::labelFieldIs >( "labelField" ),
         Kiv::field< &Self::label, &Self::labelIs >( "label" ),
         Kiv::computed< &View::valid >( "valid" ),
         Kiv::computed< &View::stringValue >( "stringValue" ) );
   }

 private:
   Word labelField_;
};

// Nil FEC, RFC 8029 section 3.2.17: a reserved label that was added to the stack for the probe.
class LSPPING_EXPORT LspPingNilFecSubTlv
   : public Kiv::Typed< LspPingNilFecSubTlv, LspPingLabelSubTlv< LspPingNilFecSubTlvLabel > > {
 public:
   static constexpr auto element = LspPingElement::targetFec( LspPingTargetFecSubTlvType::NilFec )
                                      .length( 4 )
                                      .definedIn( "RFC 8029 section 3.2.17" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "NilFec( '0x3' )" with the label, or "Invalid NilFecSubTlv".
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingNilFecSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingNilFecSubTlv, 8 > );

// Entropy Label FEC, RFC 8012 section 4.
class LSPPING_EXPORT LspPingEntropyLabelFecSubTlv
   : public Kiv::Typed< LspPingEntropyLabelFecSubTlv,
                        LspPingLabelSubTlv< LspPingEntropyLabelFecSubTlvLabel > > {
 public:
   static constexpr auto element =
      LspPingElement::targetFec( LspPingTargetFecSubTlvType::EntropyLabel )
         .length( 4 )
         .definedIn( "RFC 8012 section 4" );

   constexpr bool valid() const noexcept {
      return element.hasCode( type() ) && element.hasLength( length() );
   }
   /// "EntropyLabelFec( '0x3' )" with the label, or "Invailid EntropyLabelFecSubTlv", spelled so.
   Orlo::String stringValue() const;

   static consteval auto kivAttributes() { return attributesOf< LspPingEntropyLabelFecSubTlv >(); }
   static Kiv::AllocationTracker memAllocationTracker_;
};
static_assert( Kiv::isWireView< LspPingEntropyLabelFecSubTlv, 8 > );

} // namespace LspPing
