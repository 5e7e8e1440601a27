#pragma once

#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "tools/lspping/decode/Message.h"

#include <span>
#include <string_view>
#include <vector>

// The smaller things that a message shows, for both printers.
namespace LspPingTool {

/// "2026-01-31T12:00:00.000001Z"; nine digits where the clock has nanoseconds. "out of range" where
/// the year is not one of 0 to 9999.
void appendTime( Orlo::StringBuilder & out, TimeStamp const & time );

/// An address of 4 or 16 bytes in its usual text.
void appendAddress( Orlo::StringBuilder & out, std::span< U8 const > address );

/// Two lower-case digits for each byte.
void appendBytes( Orlo::StringBuilder & out, std::span< U8 const > bytes );

/// The text of a view that is laid: what the library says, or the fields where it has no text.
/// Empty for the views whose invalid text is empty.
void appendViewText( Orlo::StringBuilder & out, Message const & message, Element const & element );

/// Whether the element's bytes must be shown because nothing else says all that they say.
bool showsBytes( Element const & element ) noexcept;

struct NamedNumber {
   std::string_view name;
   U32 number;
};
/// The fixed part of a mapping of address type 5 behind what its view has, RFC 6426 section 2.1.1.
/// The element must have that part.
std::vector< NamedNumber > nonIpFields( Message const & message, Element const & element );

/// A downstream label (RFC 8029 section 3.4.1.2) or a label stack entry (RFC 3032 section 2.1).
struct Label {
   U32 label;
   U8 trafficClass;
   bool bottomOfStack;
   /// LspPingDownstreamSignalingProtocol, or the time to live.
   U8 last;
};
Label labelAt( U8 const * bytes ) noexcept;
/// Whether a signaling protocol stands behind the element's labels, and not a time to live.
bool hasProtocol( Element const & element ) noexcept;
void appendProtocol( Orlo::StringBuilder & out, U8 protocol );

/// Multipath information, RFC 8029 section 3.4.1.1.1, as far as it is whole.
class Multipath {
 public:
   enum Type : U8 {
      addresses = 2,
      ranges = 4,
      maskedAddresses = 8,
      maskedLabels = 9,
   };

   Multipath( Message const & message, Element const & element ) noexcept
      : bytes_( message.bytes.subspan( element.multipathOffset, element.multipathLength ) ),
        type_( element.multipathType ),
        addressSize_( element.multipathIsIpv6 && element.multipathType != maskedLabels ? 16 : 4 ) {}

   U8 type() const noexcept { return type_; }
   std::span< U8 const > bytes() const noexcept { return bytes_; }

   /// Of the lists: a range is two addresses.
   std::size_t addressCount() const noexcept { return bytes_.size() / addressSize_; }
   std::span< U8 const > address( std::size_t i ) const noexcept {
      return bytes_.subspan( i * addressSize_, addressSize_ );
   }

   /// Of the sets.
   bool isSet() const noexcept {
      return ( type_ == maskedAddresses || type_ == maskedLabels ) && bytes_.size() > addressSize_;
   }
   std::span< U8 const > base() const noexcept { return bytes_.first( addressSize_ ); }
   U32 baseLabel() const noexcept;
   std::span< U8 const > mask() const noexcept { return bytes_.subspan( addressSize_ ); }
   bool contains( std::size_t bit ) const noexcept {
      return ( bytes_[addressSize_ + bit / 8] >> ( 7 - bit % 8 ) & 1 ) != 0;
   }
   std::size_t bitCount() const noexcept { return 8 * ( bytes_.size() - addressSize_ ); }

   /// Appends the base moved on by that many addresses or labels.
   void appendMember( Orlo::StringBuilder & out, std::size_t bit ) const;

 private:
   std::span< U8 const > bytes_;
   U8 type_;
   std::size_t addressSize_;
};

/// The multipath type's name, or its number.
void appendMultipathType( Orlo::StringBuilder & out, U8 type );

} // namespace LspPingTool
